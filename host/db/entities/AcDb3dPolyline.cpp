// The polyline in space, whose vertices are objects of their own.
#include "AcDbEntities.h"

#include "DbFields.h"
#include "Listing.h"
#include "OsnapMath.h"
#include "VertexChain.h"

HOST_RX_DEFINE(AcDb3dPolyline, AcDbCurve, L"POLYLINE")
DB_FILE_FIELDS(AcDb3dPolyline, AcDbCurve);

template <class Self, class Archive> void AcDb3dPolyline::fields(Self& self, Archive& archive) {
    archive(self.mFlags, self.mCurveFlags);
    archive.hardOwners(self.mVertices);
    archive.hardOwner(self.mSequenceEnd);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex) {
    assertWriteEnabled();
    return dbAppendVertex(*this, mVertices, id, vertex);
}

namespace {
// The points of the curve in order, the first again at the end of a closed one.
std::vector<AcGePoint3d> pointsOf(const AcDb3dPolyline& polyline) {
    std::vector<AcGePoint3d> points;
    dbForEachVertex<AcDb3dPolylineVertex>(polyline.vertexIds(), [&](const AcDb3dPolylineVertex& v) {
        if ((v.flags() & DbVertexFlag::kSplineFrame) == 0)
            points.push_back(v.position());
    });
    if ((polyline.flags() & 1) != 0 && points.size() > 1)
        points.push_back(points.front());
    return points;
}
} // namespace

bool AcDb3dPolyline::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const std::vector<AcGePoint3d> points = pointsOf(*this);
    return points.size() < 2 ||
           !worldDraw->geometry().polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

Acad::ErrorStatus AcDb3dPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    if (database() == nullptr && !mVertices.isEmpty()) // the vertices are another polyline's
        return Acad::eNotInDatabase;
    dbChangeVertices<AcDb3dPolylineVertex>(
        mVertices, [&](AcDb3dPolylineVertex& v, int) { v.setPosition(matrix * v.position()); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                    const AcGePoint3d& last, const AcGeMatrix3d&,
                                                    AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    const DbSnap snap{mode, pick, last, points};
    const int first = points.length();
    const std::vector<AcGePoint3d> corners = pointsOf(*this);
    for (std::size_t i = 1; i < corners.size(); ++i)
        dbSnapLine(snap, corners[i - 1], corners[i]);
    if (mode == AcDb::kOsModeNear || mode == AcDb::kOsModePerp)
        dbKeepNearest(snap, first);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    dbForEachVertex<AcDb3dPolylineVertex>(mVertices,
                                          [&](const AcDb3dPolylineVertex& v) { points.append(v.position()); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    dbChangeVertices<AcDb3dPolylineVertex>(mVertices, [&](AcDb3dPolylineVertex& v, int i) {
        if (indices.contains(i))
            v.setPosition(v.position() + offset);
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    const std::vector<AcGePoint3d> corners = pointsOf(*this);
    for (std::size_t i = 1; i < corners.size(); ++i) {
        auto* line = new AcDbLine(corners[i - 1], corners[i]);
        line->setPropertiesFrom(this);
        entities.append(static_cast<AcDbEntity*>(line));
    }
    return Acad::eOk;
}

void AcDb3dPolyline::subList() const {
    AcDbCurve::subList();
    dbListText(L"", (mFlags & 1) != 0 ? L"Closed" : L"Open");
    for (const AcGePoint3d& p : pointsOf(*this))
        dbListPoint(L"at point", p);
}
