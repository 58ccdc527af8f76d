// PLOT: to PDF, SVG or PNG, by the file's ending.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "GiPlot.h"
#include "core/EdPreview.h"
#include "core/EdStyleResolver.h"
#include "core/EdView.h"

#include <algorithm>

namespace {
constexpr double kMmPerUnit = 1000.0; // a drawing unit is a metre
struct Paper {
    const wchar_t* name;
    double width, height; // mm, landscape
};
constexpr Paper kPapers[] = {{L"A0", 1189.0, 841.0}, {L"A1", 841.0, 594.0}, {L"A2", 594.0, 420.0}, {L"A3", 420.0, 297.0}, {L"A4", 297.0, 210.0}};

bool readPaper(const std::wstring& text, GiPlotPage& page) {
    for (const Paper& paper : kPapers)
        if (edSameWord(paper.name, text)) {
            page.widthMm = paper.width;
            page.heightMm = paper.height;
            return true;
        }
    const auto sides = edSplitAt(edUpper(text), L'X');
    const auto w = sides.size() == 2 ? edParseReal(sides[0]) : std::nullopt, h = sides.size() == 2 ? edParseReal(sides[1]) : std::nullopt;
    if (!w || !h || *w < 25.0 || *h < 25.0 || *w > 5000.0 || *h > 5000.0)
        return false;
    page.widthMm = *w;
    page.heightMm = *h;
    return true;
}
bool askPaper(GiPlotPage& page) {
    EdRefusals refusals;
    for (bool known = false; !known;) {
        std::wstring text;
        const EdReply reply = EdPrompt(L"Enter paper size [A0/A1/A2/A3/A4 or WIDTHxHEIGHT mm] <A4>: ").word(text);
        if (reply.cancelled())
            return false;
        known = readPaper(reply.none() ? L"A4" : text, page);
        if (!known && !refusals.again(L"That is no paper size.", text))
            return false;
    }
    const EdReply turn = EdPrompt(L"Enter drawing orientation [Portrait/Landscape] <Landscape>: ", L"Portrait Landscape").keyword();
    const double shortSide = std::min(page.widthMm, page.heightMm), longSide = std::max(page.widthMm, page.heightMm);
    page.widthMm = turn.is(L"Portrait") ? shortSide : longSide;
    page.heightMm = turn.is(L"Portrait") ? longSide : shortSide;
    page.marginMm = std::min(10.0, shortSide / 20.0);
    return !turn.cancelled();
}
bool askWindow(AcDbDatabase& db, GiPlotWindow& window) {
    const EdReply reply = EdPrompt(L"Enter plot area [Display/Extents/Window] <Extents>: ", L"Display Extents Window").keyword();
    if (reply.cancelled())
        return false;
    AcDbExtents box;
    if (reply.is(L"Window")) {
        AcGePoint3d a, b;
        if (!EdPrompt(L"Specify first corner: ").noNull().point(a).ok() || !EdPrompt(L"Specify opposite corner: ").base(a).noNull().point(b).ok())
            return false;
        box.addPoint(a);
        box.addPoint(b);
    } else if (reply.is(L"Display")) {
        const EdView view = edView(db);
        const AcGeVector3d half(view.width / 2.0, view.height / 2.0, 0.0);
        box.addPoint(view.center - half);
        box.addPoint(view.center + half);
    } else {
        box = db.extents();
    }
    if (!box.isValid()) {
        edFail(L"There is nothing to plot.");
        return false;
    }
    window = {edPoint2d(box.minPoint()), edPoint2d(box.maxPoint())};
    return true;
}
// Paper millimetres a drawing unit; 0 fits.
std::optional<double> askScale() {
    EdRefusals refusals;
    for (;;) {
        std::wstring text;
        const EdReply reply = EdPrompt(L"Enter plot scale 1:n or [Fit] <Fit>: ", L"Fit").word(text);
        if (reply.cancelled())
            return std::nullopt;
        if (!reply.ok())
            return 0.0;
        const auto parts = edSplitAt(text, L':');
        const auto paper = parts.size() == 2 ? edParseReal(parts[0]) : std::optional<double>(1.0);
        const auto drawing = edParseReal(parts.back());
        if (parts.size() <= 2 && paper && drawing && *paper > 0.0 && *drawing > 0.0)
            return kMmPerUnit * *paper / *drawing;
        if (!refusals.again(L"A scale is 1:n with a positive number.", text))
            return std::nullopt;
    }
}
std::wstring usualName() {
    const EdDocument& document = *EdDocuments::instance().current();
    std::wstring name = document.hasFile() ? document.fileName() : document.title();
    const std::size_t dot = name.find_last_of(L'.');
    return (dot == std::wstring::npos ? name : name.substr(0, dot)) + L".pdf";
}
} // namespace

void edCmdPlot() {
    AcDbDatabase& db = *edDatabase();
    GiPlotPage page;
    GiPlotWindow window;
    if (!askPaper(page) || !askWindow(db, window))
        return;
    const auto scale = askScale();
    if (!scale)
        return;
    const std::wstring usual = usualName();
    const auto path = edAskPath(L"Enter file name <" + usual + L">: ", usual);
    if (!path)
        return;
    // Curves as fine as a fiftieth of a millimetre on the sheet.
    const double span = std::max(window.upper.x - window.lower.x, window.upper.y - window.lower.y);
    const double perUnit = *scale > 0.0 ? *scale : std::max(page.widthMm, page.heightMm) / std::max(span, 1.0e-9);
    std::wstring error;
    if (!giPlot(edDrawingPicture(db, 0.02 / perUnit), EdStyleResolver(db), window, page, *scale, edWithEnding(*path, L".pdf"), error))
        return edFail(error);
    edSay(L"Plotted: " + edWithEnding(*path, L".pdf"));
}
