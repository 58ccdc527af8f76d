// A circular arc, counter-clockwise about its normal.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"

#include <utility>

HOST_RX_DEFINE(AcDbArc, AcDbCurve, L"ARC")
DB_FILE_FIELDS(AcDbArc, AcDbCurve);

template <class Self, class Archive> void AcDbArc::fields(Self& self, Archive& archive) {
    archive(self.mCenter, self.mRadius, self.mStartAngle, self.mEndAngle, self.mThickness, self.mNormal);
}

bool AcDbArc::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const AcGeVector3d start = DbPlane(mNormal).direction(mStartAngle);
    return !worldDraw->geometry().circularArc(mCenter, mRadius, mNormal, start, dbSweep(mStartAngle, mEndAngle));
}

Acad::ErrorStatus AcDbArc::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular || !map.conformal)
        return Acad::eCannotScaleNonUniformly;
    const DbPlane before(mNormal), after(map.normal);
    mStartAngle = after.angleOf(matrix * before.direction(mStartAngle));
    mEndAngle = after.angleOf(matrix * before.direction(mEndAngle));
    if (map.reversed) // a mirrored arc runs the other way round
        std::swap(mStartAngle, mEndAngle);
    mCenter.transformBy(matrix);
    mRadius *= map.scale;
    mThickness *= map.scale;
    mNormal = map.normal;
    return Acad::eOk;
}

namespace {
DbEllipse curveOf(const AcDbArc& arc) {
    const DbPlane plane(arc.normal());
    const double start = arc.startAngle();
    return {arc.center(), plane.x * arc.radius(), plane.y * arc.radius(), start, start + dbSweep(start, arc.endAngle())};
}

// Circumcircle of the points; false when they lie on a line.
bool centerOf(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, AcGePoint2d& center) {
    const AcGeVector2d u = b - a, v = c - a;
    const double cross = 2.0 * (u.x * v.y - u.y * v.x);
    const double uu = u.x * u.x + u.y * u.y, vv = v.x * v.x + v.y * v.y;
    if (std::abs(cross) <= 1e-12 * (uu + vv))
        return false;
    center = {a.x + (v.y * uu - u.y * vv) / cross, a.y + (u.x * vv - v.x * uu) / cross};
    return true;
}
} // namespace

Acad::ErrorStatus AcDbArc::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                             const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                             AcIntArray&) const {
    assertReadEnabled();
    dbSnapEllipse({mode, pick, last, points}, curveOf(*this));
    return Acad::eOk;
}

// Centre, start, end, middle of the arc.
Acad::ErrorStatus AcDbArc::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const DbEllipse curve = curveOf(*this);
    points.append(mCenter);
    for (const double t : {curve.start, curve.end, (curve.start + curve.end) / 2.0})
        points.append(curve.at(t));
    return Acad::eOk;
}

// The centre moves the arc; another grip gives a new arc through it and the other two.
Acad::ErrorStatus AcDbArc::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0)) {
        mCenter += offset;
        return Acad::eOk;
    }
    const DbEllipse curve = curveOf(*this);
    const DbPlane plane(mNormal);
    AcGePoint2d through[3];
    const double parameters[3] = {curve.start, curve.end, (curve.start + curve.end) / 2.0};
    for (int i = 0; i < 3; ++i)
        through[i] = plane.inPlane(curve.at(parameters[i]) + (indices.contains(i + 1) ? offset : AcGeVector3d()));
    AcGePoint2d center;
    if (!centerOf(through[0], through[1], through[2], center))
        return Acad::eDegenerateGeometry;
    double start = (through[0] - center).angle(), end = (through[1] - center).angle();
    if (dbSweep(start, (through[2] - center).angle()) > dbSweep(start, end)) // the middle lies on the other side
        std::swap(start, end);
    mRadius = center.distanceTo(through[0]);
    mCenter = plane.point(center, plane.elevationOf(mCenter));
    mStartAngle = start, mEndAngle = end;
    return Acad::eOk;
}

void AcDbArc::subList() const {
    AcDbCurve::subList();
    dbListPoint(L"center point", mCenter);
    dbListNumber(L"radius", mRadius);
    dbListAngle(L"start angle", mStartAngle);
    dbListAngle(L"end angle", mEndAngle);
    dbListNumber(L"length", mRadius * dbSweep(mStartAngle, mEndAngle));
    dbListNormal(mNormal);
}
