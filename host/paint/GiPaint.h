// Draws a display list. The one door for code that has a painter or a canvas of its own, such as a drawing window.
#pragma once

#include "AcGiReceivers.h"

class GiCanvas;
class QPainter;

constexpr double kGiWidestLineMm = 2.11; // the greatest line weight there is

// From drawing units to the painter's units (pixels, Y down), and how lines look there.
struct GiPaintView {
    AcGePoint2d center;         // the drawing point shown at centerX, centerY
    double centerX = 0.0, centerY = 0.0;
    double pixelsPerUnit = 1.0; // of the drawing
    // What is shown, in pixels; what lies beyond is skipped.
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
    double pixelsPerMm = 0.0;   // of paper, for line weights; 0 draws every line thin
    double thinnest = 1.0;      // least line width, pixels
    double deviation = 0.25;    // greatest chord error, pixels
    double bleed = 0.8;         // width of the edge drawn about an area in its own colour, pixels, so that
                                // areas that meet show no light seam between them
    Adesk::UInt32 foregroundRgb = 0xFFFFFF; // of colour index 7

    double toX(double x) const { return centerX + (x - center.x) * pixelsPerUnit; }
    double toY(double y) const { return centerY - (y - center.y) * pixelsPerUnit; }
    AcGePoint2d toDrawing(double x, double y) const {
        return {center.x + (x - centerX) / pixelsPerUnit, center.y - (y - centerY) / pixelsPerUnit};
    }
};
// The view that shows the box of lower and upper centred, as large as the rectangle allows.
GiPaintView giFitView(const AcGePoint2d& lower, const AcGePoint2d& upper, double left, double top, double width,
                      double height);
void paintDisplayList(GiCanvas& canvas, const GiDisplayList& list, const GiStyleResolver& resolver, const GiPaintView& view);
// Leaves the painter's pen, brush and hints changed.
void paintDisplayList(QPainter& painter, const GiDisplayList& list, const GiStyleResolver& resolver,
                      const GiPaintView& view);
