// What a picture is drawn on: a QPainter's device or a file of our own. Coordinates are the canvas's units, Y down.
#pragma once

#include "AcAdesk.h"
#include "AcGe.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

// The points from `first` to `last` (the number of points means the first one) lie on this arc; see GiArcRun.
struct GiOutlineArc {
    std::size_t first = 0, last = 0;
    AcGePoint2d center;
    AcGeVector2d major, minor;
    double start = 0.0, end = 0.0;
    AcGePoint2d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
    AcGeVector2d slopeAt(double t) const { return minor * std::cos(t) - major * std::sin(t); }
};
struct GiOutline {
    std::vector<AcGePoint2d> points;
    std::vector<GiOutlineArc> arcs; // in order, none overlapping
    bool closed = false;
};

// Walks an outline: moveTo(point), lineTo(point), arcTo(arc), close().
template <class Pen> void giWalkOutline(const GiOutline& outline, Pen& pen) {
    const std::size_t count = outline.points.size();
    pen.moveTo(outline.points.front());
    auto arc = outline.arcs.begin();
    for (std::size_t i = 0; i < count;) {
        if (arc != outline.arcs.end() && arc->first == i) {
            pen.arcTo(*arc);
            i = arc->last;
            ++arc;
        } else if (++i < count) {
            pen.lineTo(outline.points[i]);
        }
    }
    if (outline.closed)
        pen.close();
}
// Calls step(t0, t1) for equal stretches of the arc, none wider than the angle.
template <class Step> void giSplitArc(const GiOutlineArc& arc, double widest, const Step& step) {
    const double sweep = arc.end - arc.start;
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / widest - 1.0e-9)));
    for (int i = 0; i < pieces; ++i)
        step(arc.start + sweep * i / pieces, arc.start + sweep * (i + 1) / pieces);
}

struct GiPen {
    Adesk::UInt32 rgb = 0;
    double width = 1.0;
    bool operator==(const GiPen&) const = default;
};

class GiCanvas {
public:
    virtual ~GiCanvas() = default;
    // Whether arcs are drawn as such; other canvases get outlines without them.
    virtual bool drawsCurves() const = 0;
    virtual void fillRect(double left, double top, double right, double bottom, Adesk::UInt32 rgb) = 0;
    // Of all that follows. To be called once.
    virtual void clip(double left, double top, double right, double bottom) = 0;
    virtual void stroke(const GiOutline& outline, const GiPen& pen) = 0;
    // By the even-odd rule; `edge` is the width of an edge in the same colour, 0 for none.
    virtual void fill(const std::vector<GiOutline>& outlines, Adesk::UInt32 rgb, double edge) = 0;
};
