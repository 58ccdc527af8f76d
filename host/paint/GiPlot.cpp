// Plots a window of a drawing on a sheet of paper.
#include "GiPlot.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "GiCanvas.h"
#include "GiPaint.h"
#include "GiPlotWriters.h"

#include <QByteArray>
#include <QSaveFile>

#include <algorithm>

namespace {
constexpr double kThinnestMm = 0.1; // finer lines break up on paper
constexpr double kDeviationMm = 0.02;
constexpr double kBleedMm = 0.05, kLeastBleed = 0.8; // the latter in pixels, where those are coarse

// On paper a layer must be plottable, not merely visible.
class PlotResolver final : public GiStyleResolver {
public:
    explicit PlotResolver(const GiStyleResolver& drawing) : mDrawing(drawing) {}
    bool isVisible(AcDbObjectId layer) const override { return mDrawing.isVisible(layer) && mDrawing.isPlottable(layer); }
    bool isFrozen(AcDbObjectId layer) const override { return mDrawing.isFrozen(layer); }
    bool isLayerZero(AcDbObjectId layer) const override { return mDrawing.isLayerZero(layer); }
    AcCmEntityColor layerColor(AcDbObjectId layer) const override { return mDrawing.layerColor(layer); }
    AcDb::LineWeight layerLineWeight(AcDbObjectId layer) const override { return mDrawing.layerLineWeight(layer); }
    AcDbObjectId layerLineType(AcDbObjectId layer) const override { return mDrawing.layerLineType(layer); }
    bool isByLayerLineType(AcDbObjectId type) const override { return mDrawing.isByLayerLineType(type); }
    bool isByBlockLineType(AcDbObjectId type) const override { return mDrawing.isByBlockLineType(type); }
    std::vector<double> dashes(AcDbObjectId type) const override { return mDrawing.dashes(type); }
    double lineTypeScale() const override { return mDrawing.lineTypeScale(); }
    int defaultLineWeight() const override { return mDrawing.defaultLineWeight(); }

private:
    const GiStyleResolver& mDrawing;
};

struct Sheet {
    const GiDisplayList& list;
    const GiStyleResolver& resolver;
    const GiPlotWindow& window;
    const GiPlotPage& page;
    double scale;

    GiPaintView viewFor(double unitsPerMm) const {
        const double margin = page.marginMm * unitsPerMm;
        GiPaintView view = giFitView(window.lower, window.upper, margin, margin, page.widthMm * unitsPerMm - 2.0 * margin,
                                     page.heightMm * unitsPerMm - 2.0 * margin);
        if (scale > 0.0)
            view.pixelsPerUnit = scale * unitsPerMm;
        // The window bounds what is shown as well as the margins do.
        view.left = std::max(view.left, view.toX(window.lower.x));
        view.right = std::min(view.right, view.toX(window.upper.x));
        view.top = std::max(view.top, view.toY(window.upper.y));
        view.bottom = std::min(view.bottom, view.toY(window.lower.y));
        view.pixelsPerMm = unitsPerMm;
        view.thinnest = kThinnestMm * unitsPerMm;
        view.deviation = kDeviationMm * unitsPerMm;
        view.bleed = std::max(kBleedMm * unitsPerMm, kLeastBleed);
        view.foregroundRgb = page.darkBackground ? 0xFFFFFF : 0x000000;
        return view;
    }
    void operator()(GiCanvas& canvas, double unitsPerMm) const {
        canvas.fillRect(0.0, 0.0, page.widthMm * unitsPerMm, page.heightMm * unitsPerMm, page.backgroundRgb);
        const GiPaintView view = viewFor(unitsPerMm);
        // Half the widest line more, so that a line on the very edge keeps its weight.
        const double edge = kGiWidestLineMm / 2.0 * unitsPerMm;
        canvas.clip(view.left - edge, view.top - edge, view.right + edge, view.bottom + edge);
        paintDisplayList(canvas, list, resolver, view);
    }
};

QByteArray fileBytes(const std::wstring& path, const Sheet& sheet, std::wstring& error) {
    std::wstring ending = path.size() >= 4 ? path.substr(path.size() - 4) : path;
    const auto is = [&](const wchar_t* wanted) { return acutWcsicmp(ending.c_str(), wanted) == 0; };
    QByteArray bytes;
    if (is(L".pdf"))
        bytes = giWritePdf(sheet.page, sheet);
    else if (is(L".svg"))
        bytes = giWriteSvg(sheet.page, sheet);
    else if (is(L".png"))
        bytes = giWritePng(sheet.page, sheet);
    else
        error = L"A plot file ends in .pdf, .svg or .png: " + path;
    if (bytes.isEmpty() && error.empty())
        error = L"The sheet is too large to plot: " + path;
    return bytes;
}
} // namespace

GiPlotWindow giPlotWindowOf(const GiDisplayList& list) {
    const AcDbExtents box = giExtentsOf(list);
    if (!box.isValid())
        return {{-0.5, -0.5}, {0.5, 0.5}};
    return {{box.minPoint().x, box.minPoint().y}, {box.maxPoint().x, box.maxPoint().y}};
}

bool giPlot(const GiDisplayList& list, const GiStyleResolver& resolver, const GiPlotWindow& window,
            const GiPlotPage& page, double scale, const std::wstring& filePath, std::wstring& error) {
    error.clear();
    if (!(page.widthMm > 2.0 * page.marginMm) || !(page.heightMm > 2.0 * page.marginMm) || !(page.dpi > 0.0)) {
        error = L"The sheet has no room between its margins.";
        return false;
    }
    const PlotResolver plotted(resolver);
    const QByteArray bytes = fileBytes(filePath, Sheet{list, plotted, window, page, scale}, error);
    if (bytes.isEmpty())
        return false;
    QSaveFile file(QString::fromStdString(acFileSystemPath(filePath)));
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    error = L"Cannot write " + filePath + L": " + file.errorString().toStdWString();
    return false;
}
