// Plane geometry that the entities share: arcs given by bulges, what a matrix makes of a plane and of
// an ellipse, chords of curves. Angles in radians, counter-clockwise.
#pragma once

#include "AcGe.h"

#include <vector>

// ---- bulges: the tangent of a quarter of the arc's angle, positive counter-clockwise
struct DbBulgeArc {
    AcGePoint2d center;
    double radius = 0.0;
    double start = 0.0; // angle of the first end
    double sweep = 0.0; // signed
};
// True where the segment is a line: no bulge, or ends that coincide.
bool dbIsStraight(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
DbBulgeArc dbBulgeArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
// Area between chord and arc, positive where the bulge is.
double dbBulgeArea(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
AcGePoint2d dbBulgeMiddle(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

// ---- planes under a matrix
struct DbPlaneMap {
    AcGeVector3d normal;    // of the plane's image, on the side where the matrix puts the old one
    bool reversed = false;  // counter-clockwise becomes clockwise
    bool conformal = false; // circles stay circles
    bool singular = false;  // the plane collapses
    double scale = 1.0;     // square root of the ratio of areas
};
DbPlaneMap dbPlaneMap(const AcGeMatrix3d& matrix, const AcGeVector3d& normal);
// Unit directions of an entity's plane.
struct DbPlane {
    explicit DbPlane(const AcGeVector3d& planeNormal);
    AcGeVector3d x, y, normal;
    AcGeVector3d direction(double angle) const { return x * std::cos(angle) + y * std::sin(angle); }
    double angleOf(const AcGeVector3d& v) const; // 0 up to two pi
    AcGePoint3d point(const AcGePoint2d& p, double elevation) const {
        return AcGePoint3d::kOrigin + x * p.x + y * p.y + normal * elevation;
    }
    AcGePoint2d inPlane(const AcGePoint3d& p) const;
    double elevationOf(const AcGePoint3d& p) const { return p.asVector().dotProduct(normal); }
};
double dbAngle0To2Pi(double angle);
// Sweep from one angle counter-clockwise to another, above 0 up to a full turn.
double dbSweep(double start, double end);

// ---- ellipses: center + major cos t + minor sin t, for t from start to end, counter-clockwise
struct DbEllipse {
    AcGePoint3d center;
    AcGeVector3d major, minor;
    double start = 0.0, end = kTwoPi;
    AcGePoint3d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
    AcGeVector3d tangentAt(double t) const { return minor * std::cos(t) - major * std::sin(t); }
    bool isFull() const { return end - start > kTwoPi - 1e-9; }
    bool isCircular() const;
};
// The image, its axes perpendicular again, the longer one first, counter-clockwise about `normal`.
DbEllipse dbTransformed(const DbEllipse& ellipse, const AcGeMatrix3d& matrix, const AcGeVector3d& normal);

// ---- chords
// Number of chords of an arc that keep within the deviation, between one and 512.
int dbChordCount(double radius, double sweep, double deviation);
// Parameters from start to end: even steps, and the places where the curve goes through its extremes in X or
// Y, so that the box of the chords is the box of the curve. `phaseX`, `phaseY`: parameters of one extreme each.
std::vector<double> dbChordParameters(double start, double end, double phaseX, double phaseY, int count);
