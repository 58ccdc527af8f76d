#include "controls/AfxPaintSink.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace {
constexpr double kPixelsPerMillimetre = 96.0 / 25.4;

// Dashes in drawing units as multiples of the pen's width, which is how the toolkit wants them.
QList<double> dashesOnScreen(const GiStyle& style, double scale, double penWidth) {
    QList<double> pattern;
    for (const double dash : style.dashes)
        pattern.append(std::max(std::fabs(dash) * scale, 1.0) / penWidth);
    if (pattern.size() % 2 != 0)
        pattern.append(pattern.last());
    return pattern;
}
} // namespace

QColor AfxPaintSink::colorOf(const GiStyle& style) const {
    return style.foreground ? (mIsDark ? Qt::white : Qt::black) : QColor(style.rgb);
}

QPolygonF AfxPaintSink::onScreen(const std::vector<AcGePoint3d>& points) const {
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(points.size()));
    for (const AcGePoint3d& p : points)
        polygon.append(mToScreen.map(QPointF(p.x, p.y)));
    return polygon;
}

void AfxPaintSink::stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) {
    const double width = std::max(1.0, style.lineWeight / 100.0 * kPixelsPerMillimetre * 0.5); // a preview is small: half the weight
    QPen pen(colorOf(style), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (!style.dashes.empty())
        pen.setDashPattern(dashesOnScreen(style, std::fabs(mToScreen.m11()), width));
    mPainter.setPen(pen);
    mPainter.setBrush(Qt::NoBrush);
    const QPolygonF polygon = onScreen(points);
    if (polygon.size() == 1)
        mPainter.drawPoint(polygon.first());
    else if (closed)
        mPainter.drawPolygon(polygon);
    else
        mPainter.drawPolyline(polygon);
}

void AfxPaintSink::fill(const AcGiFillLoops& loops, const GiStyle& style) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const auto& loop : loops) {
        path.addPolygon(onScreen(loop));
        path.closeSubpath();
    }
    mPainter.fillPath(path, colorOf(style));
}
