// Draws flattened primitives with the toolkit's painter, seen in plan.
#pragma once

#include "AcGiReceivers.h"

#include <QTransform>

class QPainter;

class AfxPaintSink : public GiPainterSink {
public:
    // toScreen: model units to pixels; isDark: the foreground colour shows white.
    AfxPaintSink(QPainter& painter, const QTransform& toScreen, bool isDark) : mPainter(painter), mToScreen(toScreen), mIsDark(isDark) {}
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override;
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override;

private:
    QColor colorOf(const GiStyle& style) const;
    QPolygonF onScreen(const std::vector<AcGePoint3d>& points) const;
    QPainter& mPainter;
    QTransform mToScreen;
    bool mIsDark;
};
