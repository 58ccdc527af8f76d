#include "EdHatchBoundary.h"

#include <algorithm>
#include <cmath>

namespace {
using Loop = AcDbHatch::Loop;
using Edge = AcDbHatch::Edge;
constexpr double kMeet = 1.0e-6; // ends this close belong together

// A run of vertices with bulges between, from one end to the other.
struct Run {
    std::vector<AcGePoint2d> points;
    std::vector<double> bulges; // of the segment that begins at the point
    const AcGePoint2d& front() const { return points.front(); }
    const AcGePoint2d& back() const { return points.back(); }
    void turn() {
        std::reverse(points.begin(), points.end());
        std::vector<double> turned(bulges.size(), 0.0);
        for (std::size_t i = 0; i + 1 < bulges.size(); ++i)
            turned[bulges.size() - 2 - i] = -bulges[i];
        bulges = turned;
    }
    void join(const Run& next) {
        bulges.back() = next.bulges.front();
        points.insert(points.end(), next.points.begin() + 1, next.points.end());
        bulges.insert(bulges.end(), next.bulges.begin() + 1, next.bulges.end());
    }
    bool closes() const { return points.size() > 1 && front().distanceTo(back()) <= kMeet; }
};
AcGePoint2d flat(const AcGePoint3d& p) {
    return {p.x, p.y};
}
Loop loopOf(const Run& run) {
    Loop loop;
    loop.type = AcDbHatch::kExternal | AcDbHatch::kPolyline;
    loop.vertices = run.points;
    loop.bulges = run.bulges;
    if (run.closes()) {
        loop.vertices.pop_back();
        loop.bulges.pop_back();
    }
    loop.hasBulges = std::any_of(loop.bulges.begin(), loop.bulges.end(), [](double b) { return b != 0.0; });
    return loop;
}
Loop loopOf(const Edge& edge) {
    Loop loop;
    loop.type = AcDbHatch::kExternal;
    loop.edges.push_back(edge);
    return loop;
}
Loop circleLoop(const AcDbCircle& circle) {
    Edge edge;
    edge.kind = Edge::kCircArc;
    edge.center = flat(circle.center());
    edge.radius = circle.radius();
    edge.endAngle = kTwoPi;
    return loopOf(edge);
}
Loop ellipseLoop(const AcDbEllipse& ellipse) {
    Edge edge;
    edge.kind = Edge::kEllArc;
    edge.center = flat(ellipse.center());
    edge.majorAxis = {ellipse.majorAxis().x, ellipse.majorAxis().y};
    edge.ratio = ellipse.radiusRatio();
    edge.endAngle = kTwoPi;
    return loopOf(edge);
}
Run runOf(const AcDbPolyline& polyline) {
    Run run;
    for (const AcDbPolyline::Vertex& vertex : polyline.vertices()) {
        run.points.push_back(vertex.point);
        run.bulges.push_back(vertex.bulge);
    }
    return run;
}
Run runOf(const AcDbArc& arc) {
    double sweep = arc.endAngle() - arc.startAngle();
    while (sweep <= 0.0)
        sweep += kTwoPi;
    const auto at = [&](double a) { return AcGePoint2d(arc.center().x + arc.radius() * std::cos(a), arc.center().y + arc.radius() * std::sin(a)); };
    return {{at(arc.startAngle()), at(arc.endAngle())}, {std::tan(sweep / 4.0), 0.0}};
}
Run runOf(const AcDbSpline& spline) {
    Run run;
    double size = 1.0;
    if (AcDbExtents box; spline.getGeomExtents(box) == Acad::eOk)
        size = box.minPoint().distanceTo(box.maxPoint());
    for (const AcGePoint3d& p : spline.sample(size / 2000.0))
        run.points.push_back(flat(p));
    run.bulges.assign(run.points.size(), 0.0);
    return run;
}
// Joins runs end to end until one closes or nothing fits.
void chainRuns(std::vector<Run> runs, std::vector<Loop>& loops) {
    while (!runs.empty()) {
        Run chain = std::move(runs.back());
        runs.pop_back();
        for (bool grew = true; grew && !chain.closes();) {
            grew = false;
            for (std::size_t i = 0; i < runs.size() && !grew; ++i) {
                if (runs[i].back().distanceTo(chain.back()) <= kMeet)
                    runs[i].turn();
                if (runs[i].front().distanceTo(chain.back()) > kMeet)
                    continue;
                chain.join(runs[i]);
                runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(i));
                grew = true;
            }
        }
        if (chain.closes() && chain.points.size() > 2)
            loops.push_back(loopOf(chain));
    }
}
void take(const AcDbEntity& entity, std::vector<Loop>& loops, std::vector<Run>& runs) {
    if (const auto* const circle = AcDbCircle::cast(&entity))
        return loops.push_back(circleLoop(*circle));
    if (const auto* const ellipse = AcDbEllipse::cast(&entity)) {
        if (ellipse->endParam() - ellipse->startParam() >= kTwoPi - 1.0e-9)
            loops.push_back(ellipseLoop(*ellipse));
        return;
    }
    if (const auto* const polyline = AcDbPolyline::cast(&entity)) {
        const Run run = runOf(*polyline);
        if (run.points.size() < 2)
            return;
        return polyline->isClosed() ? loops.push_back(loopOf(run)) : runs.push_back(run);
    }
    if (const auto* const line = AcDbLine::cast(&entity))
        return runs.push_back({{flat(line->startPoint()), flat(line->endPoint())}, {0.0, 0.0}});
    if (const auto* const arc = AcDbArc::cast(&entity))
        return runs.push_back(runOf(*arc));
    if (const auto* const spline = AcDbSpline::cast(&entity))
        if (Run run = runOf(*spline); run.points.size() > 2)
            runs.push_back(std::move(run));
}
} // namespace

std::vector<AcDbHatch::Loop> edHatchLoops(const AcDbObjectIdArray& ids) {
    std::vector<Loop> loops;
    std::vector<Run> runs;
    for (const AcDbObjectId id : ids)
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
            take(*entity.object(), loops, runs);
    chainRuns(std::move(runs), loops);
    return loops;
}
