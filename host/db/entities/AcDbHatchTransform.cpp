// A hatch under a matrix: loops, pattern and seed points, mirrored and of unequal scale too.
#include "AcDbEntities.h"

#include "HatchLoops.h"

namespace {
using Edge = AcDbHatch::Edge;
using Loop = AcDbHatch::Loop;

// From the plane of the hatch to the plane of its image.
class PlaneTransform {
public:
    PlaneTransform(const AcGeMatrix3d& matrix, const AcGeVector3d& normal, double elevation)
        : mMap(dbPlaneMap(matrix, normal)), mElevation(elevation) {
        if (!mMap.singular)
            mMatrix = AcGeMatrix3d::worldToPlane(mMap.normal) * matrix * AcGeMatrix3d::planeToWorld(normal);
    }
    const DbPlaneMap& map() const { return mMap; }
    double elevation() const { return (mMatrix * AcGePoint3d(0.0, 0.0, mElevation)).z; }
    void point(AcGePoint2d& p) const {
        const AcGePoint3d image = mMatrix * AcGePoint3d(p.x, p.y, mElevation);
        p = {image.x, image.y};
    }
    AcGeVector2d direction(const AcGeVector2d& v) const {
        const AcGeVector3d image = mMatrix * AcGeVector3d(v.x, v.y, 0.0);
        return {image.x, image.y};
    }
    void edge(Edge& e) const {
        switch (e.kind) {
        case Edge::kLine:
            point(e.start);
            point(e.end);
            break;
        case Edge::kCircArc:
        case Edge::kEllArc: arc(e); break;
        case Edge::kSpline:
            for (AcGePoint2d& p : e.control)
                point(p);
            break;
        }
    }

private:
    void arc(Edge& e) const {
        DbHatchArc source = dbHatchArc(e);
        source.curve.center.z = mElevation;
        const DbHatchArc image{dbTransformed(source.curve, mMatrix, {0.0, 0.0, 1.0}), source.backwards != mMap.reversed};
        e = dbHatchEdge(image, mMap.conformal ? e.kind : Edge::kEllArc);
    }
    DbPlaneMap mMap;
    double mElevation;
    AcGeMatrix3d mMatrix;
};

// A polyline loop with bulges as edges, since its arcs become elliptic.
class EdgeCollector : public DbLoopVisitor {
public:
    std::vector<Edge> edges;
    void line(const AcGePoint2d& from, const AcGePoint2d& to) override {
        Edge e;
        e.start = from, e.end = to;
        edges.push_back(e);
    }
    void arc(const DbHatchArc& arc) override { edges.push_back(dbHatchEdge(arc, Edge::kCircArc)); }
    void spline(const Edge& edge) override { edges.push_back(edge); }
};

void makeEdges(Loop& loop) {
    EdgeCollector collector;
    dbWalkLoop(loop, collector);
    loop.edges = std::move(collector.edges);
    loop.vertices.clear();
    loop.bulges.clear();
    loop.hasBulges = false;
    loop.type &= ~AcDbHatch::kPolyline;
}

void transformLoop(Loop& loop, const PlaneTransform& transform) {
    if (!transform.map().conformal && loop.hasBulges)
        makeEdges(loop);
    for (AcGePoint2d& p : loop.vertices)
        transform.point(p);
    for (double& bulge : loop.bulges)
        bulge = transform.map().reversed ? -bulge : bulge;
    for (Edge& edge : loop.edges)
        transform.edge(edge);
}

void transformPattern(AcDbHatch::PatternLine& line, const PlaneTransform& transform) {
    const AcGeVector2d along = transform.direction({std::cos(line.angle), std::sin(line.angle)});
    for (double& dash : line.dashes)
        dash *= along.length();
    line.angle = along.angle();
    line.offset = transform.direction(line.offset);
    transform.point(line.base);
}
} // namespace

Acad::ErrorStatus AcDbHatch::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const PlaneTransform transform(matrix, mNormal, mElevation);
    if (transform.map().singular)
        return Acad::eCannotScaleNonUniformly;
    for (Loop& loop : mLoops)
        transformLoop(loop, transform);
    for (PatternLine& line : mPatternLines)
        transformPattern(line, transform);
    for (AcGePoint2d& seed : mSeeds)
        transform.point(seed);
    mPatternAngle = transform.direction({std::cos(mPatternAngle), std::sin(mPatternAngle)}).angle();
    mPatternScale *= transform.map().scale;
    mElevation = transform.elevation();
    mNormal = transform.map().normal;
    return Acad::eOk;
}
