// A line between two points.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"

HOST_RX_DEFINE(AcDbLine, AcDbCurve, L"LINE")
DB_FILE_FIELDS(AcDbLine, AcDbCurve);

template <class Self, class Archive> void AcDbLine::fields(Self& self, Archive& archive) {
    archive(self.mStart, self.mEnd, self.mThickness, self.mNormal);
}

bool AcDbLine::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const AcGePoint3d points[2] = {mStart, mEnd};
    return !worldDraw->geometry().polyline(2, points);
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    mStart.transformBy(matrix);
    mEnd.transformBy(matrix);
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eOk;
    mNormal = map.normal;
    mThickness *= map.scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                              const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                              AcIntArray&) const {
    assertReadEnabled();
    dbSnapLine({mode, pick, last, points}, mStart, mEnd);
    return Acad::eOk;
}

// Start, end, middle.
Acad::ErrorStatus AcDbLine::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    points.append(mStart);
    points.append(mEnd);
    points.append(mStart + (mEnd - mStart) * 0.5);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    const bool whole = indices.contains(2);
    if (whole || indices.contains(0))
        mStart += offset;
    if (whole || indices.contains(1))
        mEnd += offset;
    return Acad::eOk;
}

void AcDbLine::subList() const {
    AcDbCurve::subList();
    dbListPoint(L"from point", mStart);
    dbListPoint(L"to point", mEnd);
    dbListNumber(L"length", mStart.distanceTo(mEnd));
    dbListNormal(mNormal);
}
