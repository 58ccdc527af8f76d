// The lightweight polyline: points in a plane, bulges, widths.
#include "AcDbEntities.h"

#include "DbFields.h"
#include "Listing.h"
#include "PolylineParts.h"

#include <algorithm>

HOST_RX_DEFINE(AcDbPolyline, AcDbCurve, L"LWPOLYLINE")
DB_FILE_FIELDS(AcDbPolyline, AcDbCurve);

template <class Self, class Archive> void AcDbPolyline::fields(Self& self, Archive& archive) {
    archive.list(self.mVertices,
                 [](auto& items, auto& v) { items(v.point, v.bulge, v.startWidth, v.endWidth); });
    archive(self.mClosed, self.mPlinegen, self.mConstantWidth, self.mElevation, self.mThickness, self.mNormal);
}

namespace {
DbPolylineShape shapeOf(const AcDbPolyline& p) {
    return {p.vertices(), p.isClosed(), p.constantWidth(), p.elevation(), p.normal()};
}
} // namespace

// ---- vertices
Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge, double startWidth,
                                            double endWidth) {
    assertWriteEnabled();
    if (index > numVerts())
        return Acad::eInvalidIndex;
    const Vertex vertex{p, bulge, std::max(startWidth, 0.0), std::max(endWidth, 0.0)};
    mVertices.insert(mVertices.begin() + static_cast<std::ptrdiff_t>(index), vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index) {
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    mVertices.erase(mVertices.begin() + static_cast<std::ptrdiff_t>(index));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& p) const {
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    p = mVertices[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& p) const {
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    p = DbPlane(mNormal).point(mVertices[index].point, mElevation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& p) {
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    mVertices[index].point = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const {
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    bulge = mVertices[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge) {
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    mVertices[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const {
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    startWidth = mVertices[index].startWidth, endWidth = mVertices[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth) {
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (startWidth < 0.0 || endWidth < 0.0)
        return Acad::eInvalidInput;
    mVertices[index].startWidth = startWidth, mVertices[index].endWidth = endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed) {
    assertWriteEnabled();
    mClosed = closed;
    return Acad::eOk;
}

double AcDbPolyline::getArea() const {
    assertReadEnabled();
    return dbPolylineArea(shapeOf(*this));
}

// ---- picture
bool AcDbPolyline::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    return dbDrawPolyline(shapeOf(*this), *worldDraw);
}

Acad::ErrorStatus AcDbPolyline::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    const DbPolylineShape shape = shapeOf(*this);
    if (map.singular || (!map.conformal && (shape.hasBulges() || shape.hasWidth())))
        return Acad::eCannotScaleNonUniformly;
    const DbPlane before(mNormal), after(map.normal);
    const double elevation = after.elevationOf(matrix * before.point({}, mElevation));
    for (Vertex& v : mVertices) {
        v.point = after.inPlane(matrix * before.point(v.point, mElevation));
        v.bulge = map.reversed ? -v.bulge : v.bulge;
        v.startWidth *= map.scale;
        v.endWidth *= map.scale;
    }
    mConstantWidth *= map.scale;
    mThickness *= map.scale;
    mElevation = elevation;
    mNormal = map.normal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                                  const AcGePoint3d& last, const AcGeMatrix3d&,
                                                  AcGePoint3dArray& points, AcIntArray&) const {
    assertReadEnabled();
    dbSnapPolyline({mode, pick, last, points}, shapeOf(*this));
    return Acad::eOk;
}

// The vertices.
Acad::ErrorStatus AcDbPolyline::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    const DbPlane plane(mNormal);
    for (const Vertex& v : mVertices)
        points.append(plane.point(v.point, mElevation));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    const DbPlane plane(mNormal);
    const AcGeVector2d move(offset.dotProduct(plane.x), offset.dotProduct(plane.y));
    for (const int i : indices)
        if (i >= 0 && i < static_cast<int>(mVertices.size()))
            mVertices[static_cast<std::size_t>(i)].point = mVertices[static_cast<std::size_t>(i)].point + move;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    dbExplodePolyline(shapeOf(*this), *this, entities);
    return Acad::eOk;
}

void AcDbPolyline::subList() const {
    AcDbCurve::subList();
    dbListText(L"", mClosed ? L"Closed" : L"Open");
    dbListNumber(L"constant width", mConstantWidth);
    dbListNumber(L"area", getArea());
    dbListNumber(mClosed ? L"perimeter" : L"length", dbPolylineLength(shapeOf(*this)));
    const DbPlane plane(mNormal);
    for (const Vertex& v : mVertices) {
        dbListPoint(L"at point", plane.point(v.point, mElevation));
        if (v.bulge != 0.0)
            dbListNumber(L"bulge", v.bulge);
    }
    dbListNormal(mNormal);
}
