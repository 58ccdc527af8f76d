// Plane geometry that the entities share.
#include "CurveMath.h"

#include <algorithm>

namespace {
constexpr double kStraightBulge = 1e-12;
constexpr double kConformity = 1e-9; // relative
} // namespace

bool dbIsStraight(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
    return !(std::abs(bulge) > kStraightBulge) || !std::isfinite(bulge) || !((to - from).length() > 0.0);
}

DbBulgeArc dbBulgeArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
    const AcGeVector2d chord = to - from;
    const double offset = (1.0 - bulge * bulge) / (4.0 * bulge); // of the centre, in chords to the left
    DbBulgeArc arc;
    arc.center = {(from.x + to.x) / 2.0 - chord.y * offset, (from.y + to.y) / 2.0 + chord.x * offset};
    arc.radius = chord.length() * (1.0 + bulge * bulge) / (4.0 * std::abs(bulge));
    arc.start = std::atan2(from.y - arc.center.y, from.x - arc.center.x);
    arc.sweep = 4.0 * std::atan(bulge);
    return arc;
}

double dbBulgeArea(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
    if (dbIsStraight(from, to, bulge))
        return 0.0;
    const DbBulgeArc arc = dbBulgeArc(from, to, bulge);
    if (std::abs(arc.sweep) < 1e-3) { // theta - sin(theta) loses its digits; the series does not
        const double s2 = arc.sweep * arc.sweep;
        return arc.radius * arc.radius / 2.0 * arc.sweep * s2 / 6.0 * (1.0 - s2 / 20.0);
    }
    return arc.radius * arc.radius / 2.0 * (arc.sweep - std::sin(arc.sweep));
}

AcGePoint2d dbBulgeMiddle(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
    const AcGeVector2d chord = to - from; // the sagitta is half the chord times the bulge, to the right
    return {(from.x + to.x) / 2.0 + chord.y * bulge / 2.0, (from.y + to.y) / 2.0 - chord.x * bulge / 2.0};
}

DbPlaneMap dbPlaneMap(const AcGeMatrix3d& matrix, const AcGeVector3d& normal) {
    const DbPlane plane(normal);
    const AcGeVector3d x = matrix * plane.x, y = matrix * plane.y;
    const AcGeVector3d cross = x.crossProduct(y);
    const double area = cross.length(), longest = std::max(x.length(), y.length());
    DbPlaneMap map;
    map.singular = !(area > longest * longest * 1e-12);
    if (map.singular)
        return map;
    map.scale = std::sqrt(area);
    map.reversed = cross.dotProduct(matrix * plane.normal) < 0.0;
    map.normal = (map.reversed ? -cross : cross) / area;
    map.conformal = std::abs(x.length() - y.length()) <= longest * kConformity &&
                    std::abs(x.dotProduct(y)) <= longest * longest * kConformity;
    return map;
}

DbPlane::DbPlane(const AcGeVector3d& planeNormal) {
    if (planeNormal.x == 0.0 && planeNormal.y == 0.0 && planeNormal.z > 0.0) {
        x.set(1.0, 0.0, 0.0), y.set(0.0, 1.0, 0.0), normal.set(0.0, 0.0, 1.0);
        return;
    }
    AcGePoint3d origin;
    AcGeMatrix3d::planeToWorld(planeNormal).getCoordSystem(origin, x, y, normal);
}

double DbPlane::angleOf(const AcGeVector3d& v) const {
    return dbAngle0To2Pi(std::atan2(v.dotProduct(y), v.dotProduct(x)));
}

AcGePoint2d DbPlane::inPlane(const AcGePoint3d& p) const {
    return {p.asVector().dotProduct(x), p.asVector().dotProduct(y)};
}

double dbAngle0To2Pi(double angle) {
    const double turned = std::fmod(angle, kTwoPi);
    const double positive = turned < 0.0 ? turned + kTwoPi : turned;
    return positive < kTwoPi ? positive : 0.0;
}

double dbSweep(double start, double end) {
    const double sweep = dbAngle0To2Pi(end - start);
    return sweep < 1e-12 ? kTwoPi : sweep;
}

bool DbEllipse::isCircular() const {
    const double a = major.length(), b = minor.length();
    return std::abs(a - b) <= a * kConformity && std::abs(major.dotProduct(minor)) <= a * a * kConformity;
}

namespace {
// Turns conjugate half diameters into axes: P(t) = a cos t + b sin t has its greatest length at the angle returned.
double principalParameter(const AcGeVector3d& a, const AcGeVector3d& b) {
    const double difference = a.lengthSqrd() - b.lengthSqrd(), mixed = 2.0 * a.dotProduct(b);
    const double size = a.lengthSqrd() + b.lengthSqrd();
    if (std::abs(mixed) <= size * 1e-15) // perpendicular already: keep exact axes exact
        return difference >= -size * 1e-15 ? 0.0 : kHalfPi;
    return std::atan2(mixed, difference) / 2.0;
}
} // namespace

DbEllipse dbTransformed(const DbEllipse& ellipse, const AcGeMatrix3d& matrix, const AcGeVector3d& normal) {
    const AcGeVector3d a = matrix * ellipse.major, b = matrix * ellipse.minor;
    const double turn = principalParameter(a, b), c = std::cos(turn), s = std::sin(turn);
    DbEllipse image;
    image.center = matrix * ellipse.center;
    image.major = turn == 0.0 ? a : turn == kHalfPi ? b : a * c + b * s;
    image.minor = turn == 0.0 ? b : turn == kHalfPi ? -a : b * c - a * s;
    image.start = ellipse.start - turn, image.end = ellipse.end - turn;
    if (image.major.crossProduct(image.minor).dotProduct(normal) < 0.0) { // clockwise: walk it from its end
        image.minor = -image.minor;
        const double start = image.start;
        image.start = -image.end, image.end = -start;
    }
    const double whole = image.end - image.start;
    if (ellipse.isFull() && ellipse.start == 0.0) // a closed curve may begin anywhere
        image.start = 0.0;
    image.start = dbAngle0To2Pi(image.start);
    image.end = image.start + whole;
    return image;
}

int dbChordCount(double radius, double sweep, double deviation) {
    const double ratio = radius > 0.0 ? deviation / radius : 1.0;
    const double step = ratio > 0.0 ? 2.0 * std::acos(1.0 - std::min(ratio, 0.5)) : kTwoPi / 128.0;
    const double chords = std::ceil(std::abs(sweep) / step);
    return chords >= 512.0 ? 512 : chords >= 1.0 ? static_cast<int>(chords) : 1; // no number at all is one chord
}

namespace {
// Puts an extreme between the even steps; beside a step it takes that step's place, since chords of no length
// seem to cross their neighbours. The ends stay.
void placeExtreme(std::vector<double>& parameters, std::size_t count, double t) {
    for (std::size_t i = 0; i <= count; ++i) {
        if (std::abs(parameters[i] - t) > 1e-7)
            continue;
        if (i > 0 && i < count)
            parameters[i] = t;
        return;
    }
    parameters.push_back(t);
}
} // namespace

std::vector<double> dbChordParameters(double start, double end, double phaseX, double phaseY, int count) {
    const double low = std::min(start, end), high = std::max(start, end);
    std::vector<double> parameters;
    parameters.reserve(static_cast<std::size_t>(count) + 9);
    for (int i = 0; i <= count; ++i)
        parameters.push_back(low + (high - low) * i / count);
    for (const double phase : {phaseX, phaseY})
        for (double t = phase + std::ceil((low - phase) / kPi) * kPi; t < high; t += kPi)
            placeExtreme(parameters, static_cast<std::size_t>(count), t);
    std::sort(parameters.begin(), parameters.end());
    if (start > end)
        std::reverse(parameters.begin(), parameters.end());
    return parameters;
}
