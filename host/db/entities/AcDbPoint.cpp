// A point, drawn as a dot.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"

HOST_RX_DEFINE(AcDbPoint, AcDbEntity, L"POINT")
DB_FILE_FIELDS(AcDbPoint, AcDbEntity);

template <class Self, class Archive> void AcDbPoint::fields(Self& self, Archive& archive) {
    archive(self.mPosition, self.mThickness, self.mNormal, self.mEcsRotation);
}

bool AcDbPoint::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const AcGePoint3d dot[2] = {mPosition, mPosition};
    return !worldDraw->geometry().polyline(2, dot);
}

Acad::ErrorStatus AcDbPoint::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    mPosition.transformBy(matrix);
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eOk;
    mEcsRotation = DbPlane(map.normal).angleOf(matrix * DbPlane(mNormal).direction(mEcsRotation));
    mNormal = map.normal;
    mThickness *= map.scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                               const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                               AcIntArray&) const {
    assertReadEnabled();
    dbSnapPoint({mode, pick, last, points}, AcDb::kOsModeNode, mPosition);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    points.append(mPosition);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPoint::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0))
        mPosition += offset;
    return Acad::eOk;
}

void AcDbPoint::subList() const {
    AcDbEntity::subList();
    dbListPoint(L"at point", mPosition);
}
