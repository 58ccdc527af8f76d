// Object snap points of lines and arcs.
#include "OsnapMath.h"

#include <algorithm>

namespace {
AcGePoint3d nearestOnSegment(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint3d& p) {
    const AcGeVector3d along = to - from;
    const double square = along.lengthSqrd();
    const double t = square > 0.0 ? (p - from).dotProduct(along) / square : 0.0;
    return from + along * std::clamp(t, 0.0, 1.0);
}

// True when the curve has a point at the parameter, which is then moved into its range.
bool onCurve(const DbEllipse& curve, double& t) {
    t = curve.start + dbAngle0To2Pi(t - curve.start);
    if (curve.isFull() || t <= curve.end + 1e-9)
        return true;
    if (t > curve.start + kTwoPi - 1e-9) { // just before the start, by rounding
        t = curve.start;
        return true;
    }
    return false;
}

double footSlope(const DbEllipse& curve, double t, const AcGePoint3d& p) {
    return (curve.at(t) - p).dotProduct(curve.tangentAt(t));
}

// Parameters at which the line to p stands square on the curve's tangent.
std::vector<double> feet(const DbEllipse& curve, const AcGePoint3d& p) {
    constexpr int kSteps = 72;
    std::vector<double> found;
    for (int i = 0; i < kSteps; ++i) {
        double low = kTwoPi * i / kSteps, high = kTwoPi * (i + 1) / kSteps;
        const double atLow = footSlope(curve, low, p);
        if (atLow == 0.0) {
            found.push_back(low);
            continue;
        }
        if ((atLow < 0.0) == (footSlope(curve, high, p) < 0.0))
            continue;
        for (int k = 0; k < 60; ++k) {
            const double middle = (low + high) / 2.0;
            ((footSlope(curve, middle, p) < 0.0) == (atLow < 0.0) ? low : high) = middle;
        }
        found.push_back((low + high) / 2.0);
    }
    return found;
}

void appendAt(const DbSnap& snap, const DbEllipse& curve, const std::vector<double>& parameters) {
    for (double t : parameters)
        if (onCurve(curve, t))
            snap.points.append(curve.at(t));
}

void snapNear(const DbSnap& snap, const DbEllipse& curve) {
    const int first = snap.points.length();
    appendAt(snap, curve, feet(curve, snap.pick));
    if (!curve.isFull()) {
        snap.points.append(curve.at(curve.start));
        snap.points.append(curve.at(curve.end));
    }
    dbKeepNearest(snap, first);
}

// Where the line from `last` touches: (P - last) x P' = 0 has the form u cos t + v sin t = w.
void snapTangent(const DbSnap& snap, const DbEllipse& curve) {
    const AcGeVector3d normal = curve.major.crossProduct(curve.minor);
    const AcGeVector3d from = snap.last - curve.center;
    const double u = from.crossProduct(curve.minor).dotProduct(normal), v = curve.major.crossProduct(from).dotProduct(normal);
    const double w = normal.lengthSqrd(), size = std::hypot(u, v);
    if (!(size > w))
        return; // inside, nothing touches
    const double turn = std::atan2(v, u), half = std::acos(w / size);
    appendAt(snap, curve, {turn - half, turn + half});
}
} // namespace

void dbSnapLine(const DbSnap& snap, const AcGePoint3d& from, const AcGePoint3d& to) {
    switch (snap.mode) {
    case AcDb::kOsModeEnd:
        snap.points.append(from);
        snap.points.append(to);
        break;
    case AcDb::kOsModeMid: snap.points.append(from + (to - from) * 0.5); break;
    case AcDb::kOsModePerp:
        if (!(to - from).isZeroLength())
            snap.points.append(AcGeLine3d(from, to).closestPointTo(snap.last));
        break;
    case AcDb::kOsModeNear: snap.points.append(nearestOnSegment(from, to, snap.pick)); break;
    case AcDb::kOsModeCen:
    case AcDb::kOsModeNode:
    case AcDb::kOsModeQuad:
    case AcDb::kOsModeIns:
    case AcDb::kOsModeTan: break;
    }
}

void dbSnapEllipse(const DbSnap& snap, const DbEllipse& curve) {
    switch (snap.mode) {
    case AcDb::kOsModeEnd:
        if (!curve.isFull()) {
            snap.points.append(curve.at(curve.start));
            snap.points.append(curve.at(curve.end));
        }
        break;
    case AcDb::kOsModeMid:
        if (!curve.isFull())
            snap.points.append(curve.at((curve.start + curve.end) / 2.0));
        break;
    case AcDb::kOsModeCen: snap.points.append(curve.center); break;
    case AcDb::kOsModeQuad: appendAt(snap, curve, {0.0, kHalfPi, kPi, kPi + kHalfPi}); break;
    case AcDb::kOsModePerp: appendAt(snap, curve, feet(curve, snap.last)); break;
    case AcDb::kOsModeTan: snapTangent(snap, curve); break;
    case AcDb::kOsModeNear: snapNear(snap, curve); break;
    case AcDb::kOsModeNode:
    case AcDb::kOsModeIns: break;
    }
}

void dbSnapPoint(const DbSnap& snap, AcDb::OsnapMode kind, const AcGePoint3d& point) {
    if (snap.mode == kind || snap.mode == AcDb::kOsModeNear)
        snap.points.append(point);
}

void dbKeepNearest(const DbSnap& snap, int first) {
    if (snap.points.length() <= first + 1)
        return;
    const auto begin = snap.points.begin() + first;
    const AcGePoint3d best = *std::min_element(begin, snap.points.end(), [&](const AcGePoint3d& a, const AcGePoint3d& b) {
        return (a - snap.pick).lengthSqrd() < (b - snap.pick).lengthSqrd();
    });
    snap.points.setLogicalLength(first);
    snap.points.append(best);
}
