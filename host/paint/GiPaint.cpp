// Draws a display list on a canvas.
#include "GiPaint.h"

#include "GiCanvas.h"
#include "GiCurveSink.h"
#include "GiDashes.h"
#include "GiPainterCanvas.h"

#include <algorithm>

namespace {
constexpr double kLeastPattern = 1.5; // pixels; a finer line type cannot be told from a whole line
constexpr double kLeastBleeding = 4.0; // pixels; on a smaller area no seam is seen
constexpr double kLeastLetter = 1.0;   // pixels; a smaller letter is a speck whatever its form
constexpr double kLeastFit = 1.0e-9;

class PaintSink final : public GiCurveSink {
public:
    PaintSink(GiCanvas& canvas, const GiPaintView& view) : mCanvas(canvas), mView(view) {}

    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override {
        strokeCurved(points, closed, {}, style);
    }
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override { fillCurved(loops, {}, style); }
    void strokeCurved(const std::vector<AcGePoint3d>& points, bool closed, const GiArcRuns& arcs, const GiStyle& style) override {
        mPen = {rgbOf(style), widthOf(style)};
        place(mLine, points, closed);
        for (const GiArcRun& arc : arcs)
            mLine.arcs.push_back(placed(arc));
        if (!isPatternVisible(style) || !giCutDashes(mLine.points, closed, mPattern, [this](const auto& piece, double from, double to) {
                strokeDash(piece, from, to);
            }))
            strokeWhole(mLine);
    }
    void fillCurved(const AcGiFillLoops& loops, const GiArcRuns& arcs, const GiStyle& style) override {
        mRings.resize(loops.size());
        for (std::size_t i = 0; i < loops.size(); ++i)
            place(mRings[i], loops[i], true);
        for (const GiArcRun& arc : arcs)
            mRings[arc.ring].arcs.push_back(placed(arc));
        Box box;
        for (const GiOutline& ring : mRings)
            box.add(ring.points);
        const double size = std::max(box.right - box.left, box.bottom - box.top);
        if (style.isText && size < kLeastLetter)
            return mCanvas.fillRect(box.left, box.top, box.right, box.bottom, rgbOf(style));
        const bool hasEdge = !style.isText && size >= kLeastBleeding;
        mCanvas.fill(mRings, rgbOf(style), hasEdge ? mView.bleed : 0.0);
    }

private:
    struct Box {
        double left = 1e300, top = 1e300, right = -1e300, bottom = -1e300;
        void add(const std::vector<AcGePoint2d>& points) {
            for (const AcGePoint2d& p : points) {
                left = std::min(left, p.x), right = std::max(right, p.x);
                top = std::min(top, p.y), bottom = std::max(bottom, p.y);
            }
        }
    };
    void place(GiOutline& outline, const std::vector<AcGePoint3d>& points, bool closed) const {
        outline.points.clear();
        outline.arcs.clear();
        outline.closed = closed;
        for (const AcGePoint3d& p : points)
            outline.points.emplace_back(mView.toX(p.x), mView.toY(p.y));
    }
    GiOutlineArc placed(const GiArcRun& arc) const {
        const double scale = mView.pixelsPerUnit;
        return {arc.first, arc.last, {mView.toX(arc.center.x), mView.toY(arc.center.y)}, {arc.major.x * scale, -arc.major.y * scale},
                {arc.minor.x * scale, -arc.minor.y * scale}, arc.start, arc.end};
    }
    Adesk::UInt32 rgbOf(const GiStyle& style) const { return style.foreground ? mView.foregroundRgb : style.rgb; }
    double widthOf(const GiStyle& style) const {
        return std::max(mView.thinnest, style.lineWeight / 100.0 * mView.pixelsPerMm);
    }
    bool isPatternVisible(const GiStyle& style) {
        double period = 0.0;
        mPattern.clear();
        for (const double part : style.dashes) {
            mPattern.push_back(part * mView.pixelsPerUnit);
            period += std::abs(mPattern.back());
        }
        return period >= kLeastPattern;
    }
    // A line may run far beyond the view, and its dashes would fill a file that shows none of them.
    bool isInView(const std::vector<AcGePoint2d>& piece) const {
        Box box;
        box.add(piece);
        const double edge = mPen.width;
        return box.right >= mView.left - edge && box.left <= mView.right + edge && box.bottom >= mView.top - edge &&
               box.top <= mView.bottom + edge;
    }
    void strokeDash(const std::vector<AcGePoint2d>& piece, double from, double to) {
        if (!isInView(piece))
            return;
        mDash.points = piece;
        mDash.arcs.clear();
        if (isOneArc(mLine) && to > from) {
            GiOutlineArc arc = mLine.arcs.front();
            const double step = (arc.end - arc.start) / static_cast<double>(arc.last);
            arc.end = arc.start + step * to;
            arc.start += step * from;
            arc.last = piece.size() - 1;
            mDash.points.front() = arc.at(arc.start); // the chord's own points lie within the curve
            mDash.points.back() = arc.at(arc.end);
            mDash.arcs.push_back(arc);
        }
        strokeWhole(mDash);
    }
    static bool isOneArc(const GiOutline& line) {
        return line.arcs.size() == 1 && line.arcs[0].first == 0 && line.arcs[0].last == line.points.size() - (line.closed ? 0 : 1);
    }
    void strokeWhole(GiOutline& line) {
        if (line.arcs.empty())
            line.points.erase(std::unique(line.points.begin(), line.points.end(),
                                          [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.x == b.x && a.y == b.y; }),
                              line.points.end());
        if (line.points.size() == 1)
            dot(line);
        mCanvas.stroke(line, mPen);
    }
    // As long as the line is wide.
    void dot(GiOutline& line) const {
        const AcGeVector2d half(mPen.width / 2.0, 0.0);
        const AcGePoint2d p = line.points.front();
        line.points = {p - half, p + half};
        line.closed = false;
    }

    GiCanvas& mCanvas;
    const GiPaintView& mView;
    GiPen mPen;
    GiOutline mLine, mDash; // kept between primitives to spare allocations
    std::vector<GiOutline> mRings;
    std::vector<double> mPattern;
};
} // namespace

GiPaintView giFitView(const AcGePoint2d& lower, const AcGePoint2d& upper, double left, double top, double width,
                      double height) {
    GiPaintView view;
    view.center = {(lower.x + upper.x) / 2.0, (lower.y + upper.y) / 2.0};
    view.centerX = left + width / 2.0;
    view.centerY = top + height / 2.0;
    const double across = upper.x - lower.x, up = upper.y - lower.y;
    view.pixelsPerUnit = std::min(width / std::max(across, kLeastFit), height / std::max(up, kLeastFit));
    if (across < kLeastFit && up < kLeastFit) // a single point: one unit about it
        view.pixelsPerUnit = std::min(width, height);
    view.left = left, view.top = top, view.right = left + width, view.bottom = top + height;
    return view;
}

void paintDisplayList(GiCanvas& canvas, const GiDisplayList& list, const GiStyleResolver& resolver, const GiPaintView& view) {
    PaintSink sink(canvas, view);
    const double widest = std::max(view.thinnest, kGiWidestLineMm * view.pixelsPerMm);
    const AcGePoint2d lower = view.toDrawing(view.left - widest, view.bottom + widest);
    const AcGePoint2d upper = view.toDrawing(view.right + widest, view.top - widest);
    const AcDbExtents window({lower.x, lower.y, 0.0}, {upper.x, upper.y, 0.0});
    const double deviation = view.deviation / view.pixelsPerUnit;
    if (canvas.drawsCurves())
        giFlatten(list, resolver, deviation, sink, &window);
    else
        giFlatten(list, resolver, deviation, static_cast<GiPainterSink&>(sink), &window);
}

void paintDisplayList(QPainter& painter, const GiDisplayList& list, const GiStyleResolver& resolver, const GiPaintView& view) {
    GiPainterCanvas canvas(painter);
    paintDisplayList(canvas, list, resolver, view);
}
