// The heavy polyline in a plane, whose vertices are objects of their own.
#include "AcDbEntities.h"

#include "DbFields.h"
#include "Listing.h"
#include "PolylineParts.h"
#include "VertexChain.h"

#include <algorithm>

HOST_RX_DEFINE(AcDb2dPolyline, AcDbCurve, L"POLYLINE")
DB_FILE_FIELDS(AcDb2dPolyline, AcDbCurve);

template <class Self, class Archive> void AcDb2dPolyline::fields(Self& self, Archive& archive) {
    archive(self.mFlags, self.mCurveType, self.mStartWidth, self.mEndWidth, self.mElevation, self.mThickness,
            self.mNormal);
    archive.hardOwners(self.mVertices);
    archive.hardOwner(self.mSequenceEnd);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex) {
    assertWriteEnabled();
    return dbAppendVertex(*this, mVertices, id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::setClosed(bool closed) {
    assertWriteEnabled();
    mFlags = closed ? (mFlags | 1) : (mFlags & ~1);
    return Acad::eOk;
}

namespace {
// The vertices on the curve: the control points of a splined polyline are left out.
std::vector<AcDbPolyline::Vertex> verticesOf(const AcDb2dPolyline& polyline) {
    std::vector<AcDbPolyline::Vertex> vertices;
    dbForEachVertex<AcDb2dVertex>(polyline.vertexIds(), [&](const AcDb2dVertex& v) {
        if ((v.flags() & DbVertexFlag::kSplineFrame) == 0)
            vertices.push_back({{v.position().x, v.position().y}, v.bulge(), v.startWidth(), v.endWidth()});
    });
    return vertices;
}
DbPolylineShape shapeOf(const AcDb2dPolyline& p, const std::vector<AcDbPolyline::Vertex>& vertices) {
    return {vertices, p.isClosed(), 0.0, p.elevation(), p.normal()};
}
} // namespace

bool AcDb2dPolyline::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const std::vector<AcDbPolyline::Vertex> vertices = verticesOf(*this);
    return dbDrawPolyline(shapeOf(*this, vertices), *worldDraw);
}

Acad::ErrorStatus AcDb2dPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    if (database() == nullptr && !mVertices.isEmpty()) // the vertices are another polyline's
        return Acad::eNotInDatabase;
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    const std::vector<AcDbPolyline::Vertex> vertices = verticesOf(*this);
    const DbPolylineShape shape = shapeOf(*this, vertices);
    if (map.singular || (!map.conformal && (shape.hasBulges() || shape.hasWidth())))
        return Acad::eCannotScaleNonUniformly;
    const DbPlane before(mNormal), after(map.normal);
    const double elevation = after.elevationOf(matrix * before.point({}, mElevation));
    dbChangeVertices<AcDb2dVertex>(mVertices, [&](AcDb2dVertex& v, int) {
        const AcGePoint2d p = after.inPlane(matrix * before.point({v.position().x, v.position().y}, mElevation));
        v.setPosition({p.x, p.y, elevation});
        v.setTangent(after.angleOf(matrix * before.direction(v.tangent())));
        v.setBulge(map.reversed ? -v.bulge() : v.bulge());
        v.setStartWidth(v.startWidth() * map.scale);
        v.setEndWidth(v.endWidth() * map.scale);
    });
    mStartWidth *= map.scale;
    mEndWidth *= map.scale;
    mThickness *= map.scale;
    mElevation = elevation;
    mNormal = map.normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                    const AcGePoint3d& last, const AcGeMatrix3d&,
                                                    AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    const std::vector<AcDbPolyline::Vertex> vertices = verticesOf(*this);
    dbSnapPolyline({mode, pick, last, points}, shapeOf(*this, vertices));
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const DbPlane plane(mNormal);
    dbForEachVertex<AcDb2dVertex>(mVertices, [&](const AcDb2dVertex& v) {
        points.append(plane.point({v.position().x, v.position().y}, mElevation));
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    const DbPlane plane(mNormal);
    const AcGeVector3d move(offset.dotProduct(plane.x), offset.dotProduct(plane.y), 0.0);
    dbChangeVertices<AcDb2dVertex>(mVertices, [&](AcDb2dVertex& v, int i) {
        if (indices.contains(i))
            v.setPosition(v.position() + move);
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    const std::vector<AcDbPolyline::Vertex> vertices = verticesOf(*this);
    dbExplodePolyline(shapeOf(*this, vertices), *this, entities);
    return Acad::eOk;
}

void AcDb2dPolyline::subList() const {
    AcDbCurve::subList();
    const std::vector<AcDbPolyline::Vertex> vertices = verticesOf(*this);
    const DbPolylineShape shape = shapeOf(*this, vertices);
    const DbPlane plane(mNormal);
    dbListText(L"", isClosed() ? L"Closed" : L"Open");
    dbListNumber(L"area", dbPolylineArea(shape));
    dbListNumber(L"length", dbPolylineLength(shape));
    for (const AcDbPolyline::Vertex& v : vertices)
        dbListPoint(L"at point", plane.point(v.point, mElevation));
    dbListNormal(mNormal);
}
