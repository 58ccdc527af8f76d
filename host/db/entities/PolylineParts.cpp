// Polylines in their plane: drawing without width, snapping, exploding, measuring.
#include "PolylineParts.h"

bool DbPolylineShape::hasWidth() const {
    if (constantWidth > 0.0)
        return true;
    for (const AcDbPolyline::Vertex& v : vertices)
        if (v.startWidth > 0.0 || v.endWidth > 0.0)
            return true;
    return false;
}

bool DbPolylineShape::hasBulges() const {
    for (std::size_t i = 0; i < segmentCount(); ++i)
        if (!isStraight(i))
            return true;
    return false;
}

DbEllipse dbSegmentArc(const DbPolylineShape& shape, const DbPlane& plane, std::size_t i) {
    const AcDbPolyline::Vertex& v = shape.vertex(i);
    const DbBulgeArc arc = dbBulgeArc(v.point, shape.vertex(i + 1).point, v.bulge);
    const double start = dbAngle0To2Pi(arc.sweep < 0.0 ? arc.start + arc.sweep : arc.start);
    return {plane.point(arc.center, shape.elevation), plane.x * arc.radius, plane.y * arc.radius, start,
            start + std::abs(arc.sweep)};
}

namespace {
// Straight segments gather into one polyline until an arc breaks the run.
class RunDrawer {
public:
    RunDrawer(const DbPolylineShape& shape, AcGiGeometry& geometry)
        : mShape(shape), mGeometry(geometry), mPlane(shape.normal) {
        mRun.reserve(shape.vertices.size() + 1);
    }
    bool draw() {
        for (std::size_t i = 0; i < mShape.segmentCount(); ++i)
            if (!(mShape.isStraight(i) ? line(i) : arc(i)))
                return false;
        return flush();
    }

private:
    bool line(std::size_t i) {
        if (mRun.empty())
            mRun.push_back(mPlane.point(mShape.vertex(i).point, mShape.elevation));
        mRun.push_back(mPlane.point(mShape.vertex(i + 1).point, mShape.elevation));
        return true;
    }
    bool arc(std::size_t i) {
        if (!flush())
            return false;
        const DbEllipse curve = dbSegmentArc(mShape, mPlane, i);
        const AcGeVector3d start = mPlane.direction(curve.start);
        return !mGeometry.circularArc(curve.center, curve.major.length(), mPlane.normal, start, curve.end - curve.start);
    }
    bool flush() {
        const bool broken = mRun.size() > 1 && mGeometry.polyline(static_cast<Adesk::UInt32>(mRun.size()), mRun.data());
        mRun.clear();
        return !broken;
    }
    const DbPolylineShape& mShape;
    AcGiGeometry& mGeometry;
    DbPlane mPlane;
    std::vector<AcGePoint3d> mRun;
};
} // namespace

bool dbDrawPolyline(const DbPolylineShape& shape, AcGiWorldDraw& worldDraw) {
    if (shape.hasWidth())
        return dbDrawBands(shape, worldDraw);
    return RunDrawer(shape, worldDraw.geometry()).draw();
}

void dbSnapPolyline(const DbSnap& snap, const DbPolylineShape& shape) {
    const DbPlane plane(shape.normal);
    const int first = snap.points.length();
    for (std::size_t i = 0; i < shape.segmentCount(); ++i) {
        if (shape.isStraight(i))
            dbSnapLine(snap, plane.point(shape.vertex(i).point, shape.elevation),
                       plane.point(shape.vertex(i + 1).point, shape.elevation));
        else
            dbSnapEllipse(snap, dbSegmentArc(shape, plane, i));
    }
    if (snap.mode == AcDb::kOsModeNear || snap.mode == AcDb::kOsModePerp || snap.mode == AcDb::kOsModeTan)
        dbKeepNearest(snap, first);
}

void dbExplodePolyline(const DbPolylineShape& shape, const AcDbEntity& source, AcDbVoidPtrArray& entities) {
    const DbPlane plane(shape.normal);
    for (std::size_t i = 0; i < shape.segmentCount(); ++i) {
        AcDbCurve* piece = nullptr;
        if (shape.isStraight(i)) {
            auto* line = new AcDbLine(plane.point(shape.vertex(i).point, shape.elevation),
                                      plane.point(shape.vertex(i + 1).point, shape.elevation));
            line->setNormal(plane.normal);
            piece = line;
        } else {
            const DbEllipse curve = dbSegmentArc(shape, plane, i);
            auto* arc = new AcDbArc(curve.center, curve.major.length(), curve.start, dbAngle0To2Pi(curve.end));
            arc->setNormal(plane.normal);
            piece = arc;
        }
        piece->setPropertiesFrom(&source);
        entities.append(static_cast<AcDbEntity*>(piece));
    }
}

double dbPolylineArea(const DbPolylineShape& shape) {
    const std::size_t n = shape.vertices.size();
    if (n < 2)
        return 0.0;
    const AcGePoint2d& origin = shape.vertices.front().point; // near the points, so that digits are not lost
    double doubled = 0.0, arcs = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const AcGeVector2d a = shape.vertex(i).point - origin, b = shape.vertex(i + 1).point - origin;
        doubled += a.x * b.y - a.y * b.x;
        if (i < shape.segmentCount())
            arcs += dbBulgeArea(shape.vertex(i).point, shape.vertex(i + 1).point, shape.vertex(i).bulge);
    }
    return std::abs(doubled / 2.0 + arcs);
}

double dbPolylineLength(const DbPolylineShape& shape) {
    double length = 0.0;
    for (std::size_t i = 0; i < shape.segmentCount(); ++i) {
        const AcDbPolyline::Vertex& v = shape.vertex(i);
        const AcGePoint2d& to = shape.vertex(i + 1).point;
        const bool straight = shape.isStraight(i);
        const DbBulgeArc arc = straight ? DbBulgeArc{} : dbBulgeArc(v.point, to, v.bulge);
        length += straight ? v.point.distanceTo(to) : arc.radius * std::abs(arc.sweep);
    }
    return length;
}
