// Chords and exact boxes of circles, arcs and elliptic arcs.
#include "GiCurve.h"

#include <algorithm>

namespace {
constexpr int kFewestPerTurn = 12, kMostPerTurn = 4096;

// The angle a chord may span; an ellipse bends nowhere more than the affine image of its circle
// of the longer axis strays.
int chordsFor(double radius, double sweep, double deviation) {
    const double ratio = radius > 0.0 && deviation > 0.0 ? std::min(deviation / radius, 1.0) : 1.0e-9;
    const double span = std::clamp(2.0 * std::acos(1.0 - ratio), kTwoPi / kMostPerTurn, kTwoPi / kFewestPerTurn);
    return std::max(1, static_cast<int>(std::ceil(sweep / span)));
}

// Adds the two places where a coordinate stands still, where the arc has them.
void addStillPoints(const GiArc& arc, double major, double minor, AcDbExtents& extents) {
    if (major == 0.0 && minor == 0.0)
        return;
    const double still = std::atan2(minor, major);
    for (const double t : {still, still + kPi}) {
        double after = std::fmod(t - arc.start, kTwoPi);
        if (after < 0.0)
            after += kTwoPi;
        if (after <= arc.end - arc.start)
            extents.addPoint(arc.at(t));
    }
}
} // namespace

bool giArcIsClosed(const GiArc& arc) {
    return arc.isFullTurn() || arc.type != kAcGiArcSimple;
}

bool giArcEndsInItsCenter(const GiArc& arc) {
    return arc.type == kAcGiArcSector && !arc.isFullTurn();
}

void giAppendArcChords(const GiArc& arc, double deviation, std::vector<AcGePoint3d>& points) {
    const double sweep = arc.end - arc.start;
    const double radius = std::max(arc.major.length(), arc.minor.length());
    const int chords = chordsFor(radius, sweep, deviation);
    const int last = arc.isFullTurn() ? chords - 1 : chords;
    points.reserve(points.size() + static_cast<std::size_t>(last) + 2);
    // Turned on step by step: over the few thousand steps there can be, rounding stays far below any
    // deviation, and a sine for each point would be most of the work of a picture.
    const double stepCos = std::cos(sweep / chords), stepSin = std::sin(sweep / chords);
    double c = std::cos(arc.start), s = std::sin(arc.start);
    for (int i = 0; i <= last; ++i) {
        points.push_back(i == chords ? arc.at(arc.end) : arc.center + arc.major * c + arc.minor * s);
        const double turned = c * stepCos - s * stepSin;
        s = s * stepCos + c * stepSin;
        c = turned;
    }
    if (giArcEndsInItsCenter(arc))
        points.push_back(arc.center);
}

void giAddArcExtents(const GiArc& arc, AcDbExtents& extents) {
    extents.addPoint(arc.at(arc.start));
    extents.addPoint(arc.at(arc.end));
    addStillPoints(arc, arc.major.x, arc.minor.x, extents);
    addStillPoints(arc, arc.major.y, arc.minor.y, extents);
    addStillPoints(arc, arc.major.z, arc.minor.z, extents);
    if (giArcEndsInItsCenter(arc))
        extents.addPoint(arc.center);
}

GiArc giTransformed(const GiArc& arc, const AcGeMatrix3d& transform) {
    GiArc result = arc;
    result.center = transform * arc.center;
    result.major = transform * arc.major;
    result.minor = transform * arc.minor;
    return result;
}
