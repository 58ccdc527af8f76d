// Pieces and chords of hatch loops.
#include "HatchLoops.h"

#include "SplineMath.h"

namespace {
AcGePoint3d lifted(const AcGePoint2d& p) { return {p.x, p.y, 0.0}; }
AcGePoint2d flat(const AcGePoint3d& p) { return {p.x, p.y}; }
} // namespace

DbHatchArc dbHatchArc(const AcDbHatch::Edge& edge) {
    DbHatchArc arc;
    const bool round = edge.kind == AcDbHatch::Edge::kCircArc;
    arc.curve.center = lifted(edge.center);
    arc.curve.major = round ? AcGeVector3d(edge.radius, 0.0, 0.0) : AcGeVector3d(edge.majorAxis.x, edge.majorAxis.y, 0.0);
    arc.curve.minor = AcGeVector3d(-arc.curve.major.y, arc.curve.major.x, 0.0) * (round ? 1.0 : edge.ratio);
    const double sweep = dbSweep(edge.startAngle, edge.endAngle);
    const double start = dbAngle0To2Pi(edge.startAngle); // steps of an angle of any size would be lost in it
    arc.curve.start = edge.counterClockwise ? start : -start - sweep;
    arc.curve.end = arc.curve.start + sweep;
    arc.backwards = !edge.counterClockwise;
    return arc;
}

AcDbHatch::Edge dbHatchEdge(const DbHatchArc& arc, AcDbHatch::Edge::Kind kind) {
    AcDbHatch::Edge edge;
    edge.kind = kind;
    edge.center = flat(arc.curve.center);
    edge.majorAxis = {arc.curve.major.x, arc.curve.major.y};
    edge.radius = arc.curve.major.length();
    edge.ratio = edge.radius > 0.0 ? arc.curve.minor.length() / edge.radius : 1.0;
    edge.counterClockwise = !arc.backwards;
    const double turn = kind == AcDbHatch::Edge::kCircArc ? std::atan2(arc.curve.major.y, arc.curve.major.x) : 0.0;
    const double start = arc.backwards ? -arc.curve.end - turn : arc.curve.start + turn;
    edge.startAngle = dbAngle0To2Pi(start);
    edge.endAngle = edge.startAngle + arc.curve.end - arc.curve.start;
    return edge;
}

DbHatchArc dbBulgedArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
    const DbBulgeArc b = dbBulgeArc(from, to, bulge);
    const double start = b.sweep < 0.0 ? b.start + b.sweep : b.start;
    return {{lifted(b.center), {b.radius, 0.0, 0.0}, {0.0, b.radius, 0.0}, start, start + std::abs(b.sweep)}, b.sweep < 0.0};
}

std::vector<AcGePoint3d> dbSampleEdge(const AcDbHatch::Edge& spline, double deviation) {
    std::vector<AcGePoint3d> control;
    control.reserve(spline.control.size());
    for (const AcGePoint2d& p : spline.control)
        control.push_back(lifted(p));
    static const std::vector<double> kNone;
    return dbSampleNurbs({spline.degree, spline.knots, control, spline.rational ? spline.weights : kNone}, deviation);
}

namespace {
void walkVertices(const AcDbHatch::Loop& loop, DbLoopVisitor& visitor) {
    const std::size_t n = loop.vertices.size();
    for (std::size_t i = 0; i < n; ++i) { // a hatch's loop is always closed
        const AcGePoint2d &from = loop.vertices[i], &to = loop.vertices[(i + 1) % n];
        const double bulge = i < loop.bulges.size() ? loop.bulges[i] : 0.0;
        if (dbIsStraight(from, to, bulge))
            visitor.line(from, to);
        else
            visitor.arc(dbBulgedArc(from, to, bulge));
    }
}
} // namespace

void dbWalkLoop(const AcDbHatch::Loop& loop, DbLoopVisitor& visitor) {
    if (loop.edges.empty()) {
        walkVertices(loop, visitor);
        return;
    }
    for (const AcDbHatch::Edge& edge : loop.edges)
        switch (edge.kind) {
        case AcDbHatch::Edge::kLine: visitor.line(edge.start, edge.end); break;
        case AcDbHatch::Edge::kCircArc:
        case AcDbHatch::Edge::kEllArc: visitor.arc(dbHatchArc(edge)); break;
        case AcDbHatch::Edge::kSpline: visitor.spline(edge); break;
        }
}

namespace {
constexpr double kRough = 1e300; // a deviation that leaves only the extremes of arcs

class Flattener : public DbLoopVisitor {
public:
    explicit Flattener(double deviation) : mDeviation(deviation), mSame(deviation < kRough ? deviation * 1e-6 : 0.0) {}
    DbRing ring;

    void line(const AcGePoint2d& from, const AcGePoint2d& to) override {
        add(from);
        add(to);
    }
    void arc(const DbHatchArc& arc) override {
        const DbEllipse& c = arc.curve;
        const int chords = dbChordCount(c.major.length(), c.end - c.start, mDeviation);
        const double extremeX = std::atan2(c.minor.x, c.major.x), extremeY = std::atan2(c.minor.y, c.major.y);
        const double from = arc.backwards ? c.end : c.start, to = arc.backwards ? c.start : c.end;
        for (const double t : dbChordParameters(from, to, extremeX, extremeY, chords))
            add(flat(c.at(t)));
    }
    void spline(const AcDbHatch::Edge& edge) override {
        for (const AcGePoint3d& p : dbSampleEdge(edge, mDeviation))
            add(flat(p));
    }

private:
    void add(const AcGePoint2d& p) {
        if (ring.empty() || p.distanceTo(ring.back()) > mSame)
            ring.push_back(p);
    }
    double mDeviation, mSame;
};

// The size of a hatch by rough chords.
double roughSize(const std::vector<AcDbHatch::Loop>& loops) {
    DbRings rings;
    for (const AcDbHatch::Loop& loop : loops) {
        Flattener rough(kRough);
        dbWalkLoop(loop, rough);
        rings.push_back(std::move(rough.ring));
    }
    const AcDbExtents box = dbRingsBox(rings);
    return box.isValid() ? box.minPoint().distanceTo(box.maxPoint()) : 0.0;
}
} // namespace

double dbHatchDeviation(const std::vector<AcDbHatch::Loop>& loops) {
    return std::max(roughSize(loops) / 1000.0, 1e-12);
}

DbRings dbFlattenLoops(const std::vector<AcDbHatch::Loop>& loops, double deviation) {
    const double finest = deviation > 0.0 ? deviation : dbHatchDeviation(loops);
    DbRings rings;
    rings.reserve(loops.size());
    for (const AcDbHatch::Loop& loop : loops) {
        Flattener flattener(finest);
        dbWalkLoop(loop, flattener);
        DbRing& ring = flattener.ring;
        while (ring.size() > 1 && ring.front().distanceTo(ring.back()) <= finest * 1e-6)
            ring.pop_back();
        if (ring.size() >= 3)
            rings.push_back(std::move(ring));
    }
    return rings;
}

AcDbExtents dbRingsBox(const DbRings& rings) {
    AcDbExtents box;
    for (const DbRing& ring : rings)
        for (const AcGePoint2d& p : ring)
            box.addPoint(lifted(p));
    return box;
}
