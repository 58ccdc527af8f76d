#include "GiPainterCanvas.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr double kNoPen = -1.0;

QColor colorOf(Adesk::UInt32 rgb) {
    return QColor(QRgb(rgb | 0xFF000000u));
}
QPointF pointOf(const AcGePoint2d& p) {
    return {p.x, p.y};
}

// Arcs become cubic curves of a quarter turn at most, which stray by 0.03 % of the radius.
struct PathPen {
    QPainterPath& path;
    void moveTo(const AcGePoint2d& p) { path.moveTo(pointOf(p)); }
    void lineTo(const AcGePoint2d& p) { path.lineTo(pointOf(p)); }
    void arcTo(const GiOutlineArc& arc) {
        giSplitArc(arc, std::numbers::pi / 2.0, [&](double from, double to) {
            const double reach = 4.0 / 3.0 * std::tan((to - from) / 4.0);
            path.cubicTo(pointOf(arc.at(from) + arc.slopeAt(from) * reach),
                         pointOf(arc.at(to) - arc.slopeAt(to) * reach), pointOf(arc.at(to)));
        });
    }
    void close() { path.closeSubpath(); }
};
} // namespace

GiPainterCanvas::GiPainterCanvas(QPainter& painter, bool curves) : mPainter(painter), mCurves(curves) {
    mPainter.setRenderHint(QPainter::Antialiasing, true);
}

void GiPainterCanvas::fillRect(double left, double top, double right, double bottom, Adesk::UInt32 rgb) {
    mPainter.fillRect(QRectF(QPointF(left, top), QPointF(right, bottom)), colorOf(rgb));
}

void GiPainterCanvas::clip(double left, double top, double right, double bottom) {
    mPainter.setClipRect(QRectF(QPointF(left, top), QPointF(right, bottom)));
}

// Setting a pen costs more than most lines, so the last is kept.
void GiPainterCanvas::setPen(const GiPen& pen) {
    if (pen == mPen)
        return;
    mPen = pen;
    if (pen.width < 0.0)
        mPainter.setPen(Qt::NoPen);
    else
        mPainter.setPen(QPen(colorOf(pen.rgb), pen.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

void GiPainterCanvas::stroke(const GiOutline& outline, const GiPen& pen) {
    setPen(pen);
    mPainter.setBrush(Qt::NoBrush);
    if (!outline.arcs.empty()) {
        QPainterPath path;
        PathPen walker{path};
        giWalkOutline(outline, walker);
        mPainter.drawPath(path);
        return;
    }
    mPolygon.clear();
    for (const AcGePoint2d& p : outline.points)
        mPolygon.append(pointOf(p));
    if (outline.closed)
        mPainter.drawPolygon(mPolygon);
    else
        mPainter.drawPolyline(mPolygon);
}

void GiPainterCanvas::fill(const std::vector<GiOutline>& outlines, Adesk::UInt32 rgb, double edge) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    PathPen walker{path};
    for (const GiOutline& outline : outlines)
        giWalkOutline(outline, walker);
    setPen(edge > 0.0 ? GiPen{rgb, edge} : GiPen{0, kNoPen});
    mPainter.setBrush(colorOf(rgb));
    mPainter.drawPath(path);
    mPainter.setBrush(Qt::NoBrush);
}
