// PLOT: to PDF, SVG or PNG, by the file's ending.
#include "EdCommandKit.h"
#include "EdHostCommands.h"

#include "GiPlot.h"
#include "core/EdPreview.h"
#include "DbStyleResolver.h"
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
// What PLOT is told, kept for the next plot.
struct Options {
    GiPlotPage page = {.widthMm = 297.0, .heightMm = 210.0};
    enum Area { kExtents, kDisplay, kWindow } area = kExtents;
    GiPlotWindow window;  // of the area Window
    double scale = 0.0;   // paper millimetres a drawing unit; 0 fits
};
Options gOptions;

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
bool askArea(Options& options) {
    const EdReply reply = EdPrompt(L"Enter plot area [Display/Extents/Window] <Extents>: ", L"Display Extents Window").keyword();
    if (reply.cancelled())
        return false;
    options.area = reply.is(L"Window") ? Options::kWindow : reply.is(L"Display") ? Options::kDisplay : Options::kExtents;
    if (options.area != Options::kWindow)
        return true;
    AcGePoint3d a, b;
    if (!EdPrompt(L"Specify first corner: ").noNull().point(a).ok() || !EdPrompt(L"Specify opposite corner: ").base(a).noNull().point(b).ok())
        return false;
    options.window = {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
    return true;
}
bool askScale(double& scale) {
    EdRefusals refusals;
    for (;;) {
        std::wstring text;
        const EdReply reply = EdPrompt(L"Enter plot scale 1:n or [Fit] <Fit>: ", L"Fit").word(text);
        if (reply.cancelled())
            return false;
        if (!reply.ok()) {
            scale = 0.0;
            return true;
        }
        const auto parts = edSplitAt(text, L':');
        const double paper = parts.size() == 2 ? edParseReal(parts[0]).value_or(0.0) : 1.0;
        const double drawing = edParseReal(parts.back()).value_or(0.0);
        if (parts.size() <= 2 && paper > 0.0 && drawing > 0.0) {
            scale = kMmPerUnit * paper / drawing;
            return true;
        }
        if (!refusals.again(L"A scale is 1:n with a positive number.", text))
            return false;
    }
}
// Nothing where there is nothing to plot.
std::optional<GiPlotWindow> windowOf(AcDbDatabase& db) {
    if (gOptions.area == Options::kWindow)
        return gOptions.window;
    if (gOptions.area == Options::kDisplay) {
        const EdView view = edView(db);
        const AcGeVector2d half(view.width / 2.0, view.height / 2.0);
        return GiPlotWindow{edPoint2d(view.center) - half, edPoint2d(view.center) + half};
    }
    const AcDbExtents box = db.extents();
    return box.isValid() ? std::optional(GiPlotWindow{edPoint2d(box.minPoint()), edPoint2d(box.maxPoint())}) : std::nullopt;
}
void plotTo(AcDbDatabase& db, const std::wstring& path) {
    const auto window = windowOf(db);
    if (!window)
        return edFail(L"There is nothing to plot.");
    // Curves as fine as a fiftieth of a millimetre on the sheet.
    const double span = std::max({window->upper.x - window->lower.x, window->upper.y - window->lower.y, 1.0e-9});
    const double perUnit = gOptions.scale > 0.0 ? gOptions.scale : std::max(gOptions.page.widthMm, gOptions.page.heightMm) / span;
    std::wstring error;
    if (!giPlot(edDrawingPicture(db, 0.02 / perUnit), DbStyleResolver(db), *window, gOptions.page, gOptions.scale, path, error))
        return edFail(error);
    edSay(L"Plotted: " + path);
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
    const std::wstring usual = usualName();
    for (;;) {
        std::wstring path;
        const EdReply reply = EdPrompt(L"Enter file name or [Paper/Area/Scale] <" + usual + L">: ", L"Paper Area Scale").name(path);
        if (reply.cancelled())
            return;
        if (reply.status != EdStatus::kKeyword)
            return plotTo(db, edWithEnding(reply.none() ? usual : path, L".pdf"));
        const bool answered = reply.is(L"Paper") ? askPaper(gOptions.page) : reply.is(L"Area") ? askArea(gOptions) : askScale(gOptions.scale);
        if (!answered)
            return;
    }
}
