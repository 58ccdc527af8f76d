// A canvas on a QPainter.
#pragma once

#include "GiCanvas.h"

#include <QColor>
#include <QPolygonF>

class QPainter;
class QPainterPath;

class GiPainterCanvas final : public GiCanvas {
public:
    // curves: for devices that keep them. For those made of pixels, chords are as good and drawn faster.
    explicit GiPainterCanvas(QPainter& painter, bool curves = false);
    bool drawsCurves() const override { return mCurves; }
    void fillRect(double left, double top, double right, double bottom, Adesk::UInt32 rgb) override;
    void clip(double left, double top, double right, double bottom) override;
    void stroke(const GiOutline& outline, const GiPen& pen) override;
    void fill(const std::vector<GiOutline>& outlines, Adesk::UInt32 rgb, double edge) override;

private:
    void setPen(const GiPen& pen);
    QPainter& mPainter;
    bool mCurves;
    GiPen mPen{0, -2.0}; // the one that is set; none yet
    QPolygonF mPolygon;
};
