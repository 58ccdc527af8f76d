// An ellipse or an elliptic arc, counter-clockwise about its normal.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"

HOST_RX_DEFINE(AcDbEllipse, AcDbCurve, L"ELLIPSE")
DB_FILE_FIELDS(AcDbEllipse, AcDbCurve);

template <class Self, class Archive> void AcDbEllipse::fields(Self& self, Archive& archive) {
    archive(self.mCenter, self.mNormal, self.mMajorAxis, self.mRatio, self.mStartParam, self.mEndParam);
}

bool AcDbEllipse::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const double start = dbAngle0To2Pi(mStartParam); // a damaged file's may be of any size
    const double end = start + dbSweep(mStartParam, mEndParam);
    return !worldDraw->geometry().ellipticalArc(mCenter, mNormal, mMajorAxis, mRatio, start, end);
}

namespace {
DbEllipse curveOf(const AcDbEllipse& e) {
    const AcGeVector3d minor = e.normal().normal().crossProduct(e.majorAxis()) * e.radiusRatio();
    const double start = dbAngle0To2Pi(e.startParam());
    return {e.center(), e.majorAxis(), minor, start, start + dbSweep(e.startParam(), e.endParam())};
}
} // namespace

Acad::ErrorStatus AcDbEllipse::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eCannotScaleNonUniformly;
    const DbEllipse image = dbTransformed(curveOf(*this), matrix, map.normal);
    mCenter = image.center;
    mMajorAxis = image.major;
    mRatio = image.minor.length() / image.major.length();
    mStartParam = image.start, mEndParam = image.end;
    mNormal = map.normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                 const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                                 AcIntArray&) const {
    assertReadEnabled();
    dbSnapEllipse({mode, pick, last, points}, curveOf(*this));
    return Acad::eOk;
}

// Centre and the ends of the axes; of an arc also its ends.
Acad::ErrorStatus AcDbEllipse::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const DbEllipse curve = curveOf(*this);
    points.append(mCenter);
    for (int i = 0; i < 4; ++i)
        points.append(curve.at(kHalfPi * i));
    if (curve.isFull())
        return Acad::eOk;
    points.append(curve.at(curve.start));
    points.append(curve.at(curve.end));
    return Acad::eOk;
}

// The centre moves the ellipse; an axis end changes that axis's length. The ends of an arc stay.
Acad::ErrorStatus AcDbEllipse::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0)) {
        mCenter += offset;
        return Acad::eOk;
    }
    if (indices.isEmpty() || indices.first() > 4)
        return Acad::eOk;
    DbEllipse curve = curveOf(*this);
    const int i = indices.first() - 1;
    const double length = (curve.at(kHalfPi * i) + offset - mCenter).length();
    if (!(length > 0.0))
        return Acad::eDegenerateGeometry;
    AcGeVector3d& axis = i % 2 == 0 ? curve.major : curve.minor;
    axis = axis.normal() * length;
    const DbEllipse ordered = dbTransformed(curve, AcGeMatrix3d(), mNormal); // the longer axis leads
    mMajorAxis = ordered.major;
    mRatio = ordered.minor.length() / ordered.major.length();
    mStartParam = ordered.start, mEndParam = ordered.end;
    return Acad::eOk;
}

void AcDbEllipse::subList() const {
    AcDbCurve::subList();
    const AcGeVector3d& axis = mMajorAxis;
    dbListPoint(L"center", mCenter);
    dbListPoint(L"major axis", AcGePoint3d(axis.x, axis.y, axis.z));
    dbListNumber(L"radius ratio", mRatio);
    dbListAngle(L"start parameter", mStartParam);
    dbListAngle(L"end parameter", mEndParam);
    dbListNormal(mNormal);
}
