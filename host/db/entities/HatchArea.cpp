// The area of hatches by the even-odd rule.
#include "HatchLoops.h"

#include <algorithm>

namespace {
constexpr std::size_t kMostEdgesChecked = 3000; // for crossings; each is compared with each

double cross(const AcGeVector2d& a, const AcGeVector2d& b) { return a.x * b.y - a.y * b.x; }
double side(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& p) { return cross(b - a, p - a); }

// Signed area by Green's rule, piece by piece, with coordinates from the first point of the loop.
class AreaSum : public DbLoopVisitor {
public:
    double area() {
        if (mStarted)
            chord(mFirst);
        return mDoubled / 2.0;
    }
    void line(const AcGePoint2d& from, const AcGePoint2d& to) override {
        chord(from);
        chord(to);
    }
    void arc(const DbHatchArc& arc) override {
        const AcGePoint3d from = arc.from(), to = arc.to();
        chord({from.x, from.y});
        const DbEllipse& c = arc.curve;
        const AcGeVector2d center = AcGePoint2d(c.center.x, c.center.y) - mFirst;
        const AcGeVector2d run(to.x - from.x, to.y - from.y);
        const double turned = (c.major.x * c.minor.y - c.major.y * c.minor.x) * (c.end - c.start);
        mDoubled += cross(center, run) + (arc.backwards ? -turned : turned);
        mAt = {to.x, to.y};
    }
    void spline(const AcDbHatch::Edge& edge) override {
        for (const AcGePoint3d& p : dbSampleEdge(edge, 0.0))
            chord({p.x, p.y});
    }

private:
    void chord(const AcGePoint2d& to) {
        if (!mStarted)
            mFirst = to, mStarted = true;
        else
            mDoubled += cross(mAt - mFirst, to - mFirst);
        mAt = to;
    }
    bool mStarted = false;
    AcGePoint2d mFirst, mAt;
    double mDoubled = 0.0;
};

double loopArea(const AcDbHatch::Loop& loop) {
    AreaSum sum;
    dbWalkLoop(loop, sum);
    return std::abs(sum.area());
}

struct Segment {
    AcGePoint2d a, b;
};

std::vector<Segment> segmentsOf(const DbRings& rings) {
    std::vector<Segment> segments;
    for (const DbRing& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i)
            segments.push_back({ring[i], ring[(i + 1) % ring.size()]});
    return segments;
}

bool crosses(const Segment& s, const Segment& t) {
    const auto apart = [](double u, double v) { return (u > 0.0 && v < 0.0) || (u < 0.0 && v > 0.0); };
    return apart(side(s.a, s.b, t.a), side(s.a, s.b, t.b)) && apart(side(t.a, t.b, s.a), side(t.a, t.b, s.b));
}

bool inside(const DbRing& ring, const AcGePoint2d& p) {
    bool in = false;
    for (std::size_t i = 0, k = ring.size() - 1; i < ring.size(); k = i++)
        if ((ring[i].y > p.y) != (ring[k].y > p.y) &&
            p.x < ring[k].x + (ring[i].x - ring[k].x) * (p.y - ring[k].y) / (ring[i].y - ring[k].y))
            in = !in;
    return in;
}
} // namespace

bool dbRingsCross(const DbRings& rings) {
    const std::vector<Segment> segments = segmentsOf(rings);
    if (segments.size() > kMostEdgesChecked)
        return false;
    for (std::size_t i = 0; i < segments.size(); ++i)
        for (std::size_t k = i + 1; k < segments.size(); ++k)
            if (crosses(segments[i], segments[k]))
                return true;
    return false;
}

namespace {
// Heights at which an edge ends or two edges cross: between two of them the edges keep their order.
std::vector<double> levelsOf(const std::vector<Segment>& segments) {
    std::vector<double> levels;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        const Segment& s = segments[i];
        levels.push_back(s.a.y);
        for (std::size_t k = i + 1; k < segments.size(); ++k)
            if (const Segment& t = segments[k]; crosses(s, t)) {
                const double u = side(t.a, t.b, s.a), v = side(t.a, t.b, s.b);
                levels.push_back(s.a.y + (s.b.y - s.a.y) * u / (u - v));
            }
    }
    std::sort(levels.begin(), levels.end());
    return levels;
}
} // namespace

double dbEvenOddArea(const DbRings& rings) {
    const std::vector<Segment> segments = segmentsOf(rings);
    const std::vector<double> levels = levelsOf(segments);
    double area = 0.0;
    std::vector<double> hits;
    for (std::size_t i = 1; i < levels.size(); ++i) {
        const double height = levels[i] - levels[i - 1], y = (levels[i] + levels[i - 1]) / 2.0;
        if (!(height > 0.0))
            continue;
        hits.clear();
        for (const Segment& s : segments)
            if ((s.a.y > y) != (s.b.y > y))
                hits.push_back(s.a.x + (s.b.x - s.a.x) * (y - s.a.y) / (s.b.y - s.a.y));
        std::sort(hits.begin(), hits.end());
        for (std::size_t k = 1; k < hits.size(); k += 2)
            area += height * (hits[k] - hits[k - 1]);
    }
    return area;
}

namespace {
// A place inside a ring, hard by its edge: not on it, since loops may share edges, and not far from it, since an
// island may lie there.
AcGePoint2d placeInside(const DbRing& ring) {
    std::vector<double> levels, hits;
    for (const AcGePoint2d& p : ring)
        levels.push_back(p.y);
    std::sort(levels.begin(), levels.end());
    std::size_t widest = 1;
    for (std::size_t i = 2; i < levels.size(); ++i)
        if (levels[i] - levels[i - 1] > levels[widest] - levels[widest - 1])
            widest = i;
    const double y = (levels[widest] + levels[widest - 1]) / 2.0;
    for (std::size_t i = 0, k = ring.size() - 1; i < ring.size(); k = i++)
        if ((ring[i].y > y) != (ring[k].y > y))
            hits.push_back(ring[k].x + (ring[i].x - ring[k].x) * (y - ring[k].y) / (ring[i].y - ring[k].y));
    std::sort(hits.begin(), hits.end());
    return hits.size() < 2 ? ring[0] : AcGePoint2d(hits[0] + (hits[1] - hits[0]) * 1e-4, y);
}

// How many of the other rings lie round a ring: an even number and it fills, an odd one and it cuts.
std::ptrdiff_t ringsAround(const DbRings& rings, std::size_t own) {
    const AcGePoint2d place = placeInside(rings[own]);
    std::ptrdiff_t around = 0;
    for (std::size_t i = 0; i < rings.size(); ++i)
        around += i != own && inside(rings[i], place) ? 1 : 0;
    return around;
}
} // namespace

double dbHatchArea(const std::vector<AcDbHatch::Loop>& loops) {
    const double deviation = dbHatchDeviation(loops);
    DbRings rings;
    std::vector<double> areas;
    for (const AcDbHatch::Loop& loop : loops) {
        DbRings own = dbFlattenLoops({loop}, deviation);
        if (own.empty())
            continue;
        rings.push_back(std::move(own[0]));
        areas.push_back(loopArea(loop));
    }
    if (dbRingsCross(rings))
        return dbEvenOddArea(rings);
    double area = 0.0;
    for (std::size_t i = 0; i < rings.size(); ++i)
        area += ringsAround(rings, i) % 2 == 0 ? areas[i] : -areas[i];
    return area;
}
