// A filled triangle or quadrilateral.
#include "AcDbEntities.h"

#include "CurveMath.h"
#include "DbFields.h"
#include "FillScope.h"
#include "Listing.h"
#include "OsnapMath.h"

HOST_RX_DEFINE(AcDbSolid, AcDbEntity, L"SOLID")
DB_FILE_FIELDS(AcDbSolid, AcDbEntity);

namespace {
constexpr int kAround[4] = {0, 1, 3, 2}; // the corners along the edge
}

template <class Self, class Archive> void AcDbSolid::fields(Self& self, Archive& archive) {
    for (auto& point : self.mPoints)
        archive(point);
    archive(self.mThickness, self.mNormal);
}

Acad::ErrorStatus AcDbSolid::setPointAt(int i, const AcGePoint3d& p) {
    assertWriteEnabled();
    if (i < 0 || i > 3)
        return Acad::eInvalidIndex;
    mPoints[i] = p;
    return Acad::eOk;
}

bool AcDbSolid::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const bool triangle = mPoints[2].isEqualTo(mPoints[3]);
    const AcGePoint3d ring[4] = {mPoints[0], mPoints[1], mPoints[3], mPoints[2]};
    const DbFillScope filled(worldDraw->subEntityTraits());
    return !worldDraw->geometry().polygon(triangle ? 3 : 4, ring);
}

Acad::ErrorStatus AcDbSolid::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    for (AcGePoint3d& point : mPoints)
        point.transformBy(matrix);
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eOk;
    mNormal = map.normal;
    mThickness *= map.scale;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                               const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                               AcIntArray&) const {
    assertReadEnabled();
    const DbSnap snap{mode, pick, last, points};
    const int first = points.length();
    if (mode == AcDb::kOsModeEnd) {
        for (const AcGePoint3d& point : mPoints)
            points.append(point);
        return Acad::eOk;
    }
    for (int i = 0; i < 4; ++i)
        dbSnapLine(snap, mPoints[kAround[i]], mPoints[kAround[(i + 1) % 4]]);
    if (mode == AcDb::kOsModeNear || mode == AcDb::kOsModePerp)
        dbKeepNearest(snap, first);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    for (const AcGePoint3d& point : mPoints)
        points.append(point);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSolid::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    for (const int i : indices)
        if (i >= 0 && i < 4)
            mPoints[i] += offset;
    return Acad::eOk;
}

void AcDbSolid::subList() const {
    AcDbEntity::subList();
    for (const AcGePoint3d& point : mPoints)
        dbListPoint(L"corner", point);
    dbListNormal(mNormal);
}
