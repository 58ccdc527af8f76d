// Sinks that draw curves as such, for files in which a circle is to stay a circle: what stands for an arc
// comes with the arc.
#pragma once

#include "AcGiReceivers.h"

// The points of a line or ring from `first` to `last` are chords of this arc, in even steps of t from `start` to
// `end`, either way round. In a ring, `last` may be the number of points: the arc ends at the first one.
struct GiArcRun {
    std::size_t ring = 0; // of an area
    std::size_t first = 0, last = 0;
    AcGePoint3d center;
    AcGeVector3d major, minor; // a point of the arc: center + major*cos(t) + minor*sin(t)
    double start = 0.0, end = 0.0;
};
using GiArcRuns = std::vector<GiArcRun>; // in the order of rings and points, none overlapping

class GiCurveSink : public GiPainterSink {
public:
    virtual void strokeCurved(const std::vector<AcGePoint3d>& points, bool closed, const GiArcRuns& arcs,
                              const GiStyle& style) = 0;
    virtual void fillCurved(const AcGiFillLoops& loops, const GiArcRuns& arcs, const GiStyle& style) = 0;
};
// What has no arcs comes as from the function for plain sinks.
void giFlatten(const GiDisplayList& list, const GiStyleResolver& resolver, double deviation, GiCurveSink& sink,
               const AcDbExtents* window = nullptr);
