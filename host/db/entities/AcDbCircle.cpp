// A full circle.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"

HOST_RX_DEFINE(AcDbCircle, AcDbCurve, L"CIRCLE")
DB_FILE_FIELDS(AcDbCircle, AcDbCurve);

template <class Self, class Archive> void AcDbCircle::fields(Self& self, Archive& archive) {
    archive(self.mCenter, self.mRadius, self.mThickness, self.mNormal);
}

bool AcDbCircle::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    return !worldDraw->geometry().circle(mCenter, mRadius, mNormal);
}

Acad::ErrorStatus AcDbCircle::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular || !map.conformal)
        return Acad::eCannotScaleNonUniformly;
    mCenter.transformBy(matrix);
    mRadius *= map.scale;
    mThickness *= map.scale;
    mNormal = map.normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                                AcIntArray&) const {
    assertReadEnabled();
    const DbPlane plane(mNormal);
    dbSnapEllipse({mode, pick, last, points}, {mCenter, plane.x * mRadius, plane.y * mRadius});
    return Acad::eOk;
}

// Centre and quadrants.
Acad::ErrorStatus AcDbCircle::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const DbPlane plane(mNormal);
    points.append(mCenter);
    for (const AcGeVector3d& direction : {plane.x, plane.y, -plane.x, -plane.y})
        points.append(mCenter + direction * mRadius);
    return Acad::eOk;
}

// The centre moves the circle, a quadrant changes the radius.
Acad::ErrorStatus AcDbCircle::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty())
        return Acad::eOk;
    if (indices.contains(0)) {
        mCenter += offset;
        return Acad::eOk;
    }
    const DbPlane plane(mNormal);
    const double radius = (plane.direction(kHalfPi * (indices.first() - 1)) * mRadius + offset).length();
    if (!(radius > 0.0))
        return Acad::eDegenerateGeometry;
    mRadius = radius;
    return Acad::eOk;
}

void AcDbCircle::subList() const {
    AcDbCurve::subList();
    dbListPoint(L"center point", mCenter);
    dbListNumber(L"radius", mRadius);
    dbListNumber(L"circumference", kTwoPi * mRadius);
    dbListNumber(L"area", kPi * mRadius * mRadius);
    dbListNormal(mNormal);
}
