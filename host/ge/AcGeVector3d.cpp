// Vectors and points.
#include "AcGe.h"

#include <algorithm>

AcGeTol AcGeContext::gTol;
const AcGePoint2d AcGePoint2d::kOrigin;
const AcGePoint3d AcGePoint3d::kOrigin;
const AcGeVector3d AcGeVector3d::kIdentity;
const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);

namespace {
double fullTurn(double angle) { // -pi..pi to 0 up to two pi
    if (angle < 0.0)
        angle += kTwoPi;
    return angle >= kTwoPi ? 0.0 : angle;
}
} // namespace

double AcGeVector2d::angle() const {
    return x == 0.0 && y == 0.0 ? 0.0 : fullTurn(std::atan2(y, x));
}

AcGeVector3d AcGeVector3d::normal() const {
    const double size = std::hypot(x, y, z); // no overflow for huge coordinates
    return size == 0.0 ? *this : AcGeVector3d(x / size, y / size, z / size);
}
bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    return normal().crossProduct(v.normal()).length() <= tol.equalVector();
}
bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    return std::fabs(normal().dotProduct(v.normal())) <= tol.equalVector();
}
double AcGeVector3d::angleTo(const AcGeVector3d& v) const {
    return std::atan2(crossProduct(v).length(), dotProduct(v)); // exact for tiny angles too
}
double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& refVec) const {
    const double angle = angleTo(v);
    return crossProduct(v).dotProduct(refVec) < 0.0 ? fullTurn(kTwoPi - angle) : angle;
}
AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& m) {
    return *this = m * *this;
}
AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    const AcGeVector3d k = axis.normal();
    const double c = std::cos(angle), s = std::sin(angle);
    return *this = *this * c + k.crossProduct(*this) * s + k * (k.dotProduct(*this) * (1.0 - c));
}
AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& normalToPlane) {
    const AcGeVector3d n = normalToPlane.normal();
    return *this -= n * (2.0 * dotProduct(n));
}
AcGeVector3d AcGeVector3d::perpVector() const {
    if (x == 0.0 && y == 0.0)
        return {z, 0.0, 0.0};
    return {-y, x, 0.0};
}
AcGeVector3d AcGeVector3d::project(const AcGeVector3d& planeNormal, const AcGeVector3d& projectDirection) const {
    const double along = planeNormal.dotProduct(projectDirection);
    if (along == 0.0) // the direction lies in the plane: there is no such projection
        return *this;
    return *this - projectDirection * (planeNormal.dotProduct(*this) / along);
}
AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal) const {
    return project(planeNormal, planeNormal);
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& m) {
    return *this = m * *this;
}
AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& base) {
    AcGeVector3d arm = *this - base;
    return *this = base + arm.rotateBy(angle, axis);
}

AcGePoint3d AcGeLine3d::closestPointTo(const AcGePoint3d& p) const {
    const AcGeVector3d along = direction();
    return mPoint + along * (p - mPoint).dotProduct(along);
}

void AcDbExtents::addPoint(const AcGePoint3d& p) {
    if (!mValid) {
        set(p, p);
        return;
    }
    mMin.set(std::min(mMin.x, p.x), std::min(mMin.y, p.y), std::min(mMin.z, p.z));
    mMax.set(std::max(mMax.x, p.x), std::max(mMax.y, p.y), std::max(mMax.z, p.z));
}
void AcDbExtents::addExt(const AcDbExtents& other) {
    if (!other.mValid)
        return;
    addPoint(other.mMin);
    addPoint(other.mMax);
}
void AcDbExtents::transformBy(const AcGeMatrix3d& m) {
    if (!mValid)
        return;
    const AcGePoint3d lower = mMin, upper = mMax;
    mValid = false;
    for (int corner = 0; corner < 8; ++corner)
        addPoint(m * AcGePoint3d(corner & 1 ? upper.x : lower.x, corner & 2 ? upper.y : lower.y, corner & 4 ? upper.z : lower.z));
}
