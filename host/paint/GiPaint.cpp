// Draws a display list with a QPainter.
#include "GiPaint.h"

#include "GiDashes.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
constexpr double kLeastPattern = 1.5; // pixels; a finer line type cannot be told from a whole line
constexpr double kLeastBleeding = 4.0; // pixels; on a smaller area no seam is seen
constexpr double kLeastLetter = 1.0;   // pixels; a smaller letter is a speck whatever its form
constexpr double kLeastFit = 1.0e-9;

class PaintSink final : public GiPainterSink {
public:
    PaintSink(QPainter& painter, const GiPaintView& view) : mPainter(painter), mView(view) {}

    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override {
        setPen(colorOf(style), widthOf(style));
        mLine.clear();
        for (const AcGePoint3d& p : points)
            mLine.emplace_back(mView.toX(p.x), mView.toY(p.y));
        const auto strokeDash = [&](const std::vector<AcGePoint2d>& piece) {
            if (isInView(piece))
                strokeLine(piece, false);
        };
        if (!isPatternVisible(style) || !giCutDashes(mLine, closed, mPattern, strokeDash))
            strokeLine(mLine, closed);
    }
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const auto& loop : loops)
            addRing(path, loop);
        const QColor color = colorOf(style);
        const QRectF box = path.controlPointRect();
        const double size = std::max(box.width(), box.height());
        if (style.isText && size < kLeastLetter)
            return mPainter.fillRect(box, color);
        if (style.isText || mView.bleed <= 0.0 || size < kLeastBleeding)
            setPen(QColor(), -1.0);
        else
            setPen(color, mView.bleed);
        mPainter.setBrush(color);
        mPainter.drawPath(path);
        mPainter.setBrush(Qt::NoBrush);
    }

private:
    QColor colorOf(const GiStyle& style) const {
        return QColor(QRgb((style.foreground ? mView.foregroundRgb : style.rgb) | 0xFF000000u));
    }
    double widthOf(const GiStyle& style) const {
        return std::max(mView.thinnest, style.lineWeight / 100.0 * mView.pixelsPerMm);
    }
    // A width below 0 is no pen. Setting a pen costs more than most lines, so the last is kept.
    void setPen(const QColor& color, double width) {
        if (width == mWidth && color == mColor)
            return;
        mColor = color;
        mWidth = width;
        if (width < 0.0) {
            mPainter.setPen(Qt::NoPen);
            return;
        }
        mPainter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
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
        double left = piece.front().x, right = left, top = piece.front().y, bottom = top;
        for (const AcGePoint2d& p : piece) {
            left = std::min(left, p.x), right = std::max(right, p.x);
            top = std::min(top, p.y), bottom = std::max(bottom, p.y);
        }
        return right >= mView.left - mWidth && left <= mView.right + mWidth && bottom >= mView.top - mWidth &&
               top <= mView.bottom + mWidth;
    }
    void strokeLine(const std::vector<AcGePoint2d>& line, bool closed) {
        mPolygon.clear();
        for (const AcGePoint2d& p : line)
            if (mPolygon.isEmpty() || mPolygon.back() != QPointF(p.x, p.y))
                mPolygon.append(QPointF(p.x, p.y));
        if (mPolygon.size() == 1) {
            dot(mPolygon.front());
        } else if (closed) {
            mPainter.setBrush(Qt::NoBrush);
            mPainter.drawPolygon(mPolygon);
        } else {
            mPainter.drawPolyline(mPolygon);
        }
    }
    // As long as the line is wide.
    void dot(const QPointF& p) {
        const QPointF half(mWidth / 2.0, 0.0);
        mPainter.drawLine(QLineF(p - half, p + half));
    }
    void addRing(QPainterPath& path, const std::vector<AcGePoint3d>& loop) const {
        bool first = true;
        for (const AcGePoint3d& p : loop) {
            const QPointF q(mView.toX(p.x), mView.toY(p.y));
            first ? path.moveTo(q) : path.lineTo(q);
            first = false;
        }
        path.closeSubpath();
    }

    QPainter& mPainter;
    const GiPaintView& mView;
    QColor mColor;
    double mWidth = -2.0; // no pen set yet
    std::vector<AcGePoint2d> mLine;
    std::vector<double> mPattern;
    QPolygonF mPolygon;
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

void paintDisplayList(QPainter& painter, const GiDisplayList& list, const GiStyleResolver& resolver,
                      const GiPaintView& view) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    PaintSink sink(painter, view);
    const double widest = std::max(view.thinnest, kGiWidestLineMm * view.pixelsPerMm);
    const AcGePoint2d lower = view.toDrawing(view.left - widest, view.bottom + widest);
    const AcGePoint2d upper = view.toDrawing(view.right + widest, view.top - widest);
    const AcDbExtents window({lower.x, lower.y, 0.0}, {upper.x, upper.y, 0.0});
    giFlatten(list, resolver, view.deviation / view.pixelsPerUnit, sink, &window);
}
