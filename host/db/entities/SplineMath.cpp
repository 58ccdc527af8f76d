// Points on splines.
#include "SplineMath.h"

#include <algorithm>

namespace {
constexpr int kHighestDegree = 25; // what drawing files allow
constexpr int kDeepest = 12;       // halvings of a piece

struct Weighted {
    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;
    AcGePoint3d point() const { return {x / w, y / w, z / w}; }
};
Weighted weighted(const AcGePoint3d& p, double w) {
    return {p.x * w, p.y * w, p.z * w, w};
}
Weighted mix(const Weighted& a, const Weighted& b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t, a.w + (b.w - a.w) * t};
}

double distanceToChord(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGeVector3d chord = b - a;
    const double square = chord.lengthSqrd();
    const double t = square > 0.0 ? std::clamp((p - a).dotProduct(chord) / square, 0.0, 1.0) : 0.0;
    return p.distanceTo(a + chord * t);
}

// Turns Bezier curves into chords: halves a curve until it keeps within the deviation of its chord. No finite number
// of its points could tell that, but the control points can: with weights above zero the curve lies in their
// convex hull, and the places within a distance of a segment are a convex set, so that a curve
// whose control points lie there cannot leave it.
class Sampler {
public:
    explicit Sampler(double deviation) : mDeviation(deviation) {}
    void append(const std::vector<Weighted>& bezier) {
        if (mPoints.empty())
            mPoints.push_back(bezier.front().point());
        halve(bezier, 0);
    }
    std::vector<AcGePoint3d> take() { return std::move(mPoints); }

private:
    bool isFlat(const std::vector<Weighted>& bezier) const {
        const AcGePoint3d first = bezier.front().point(), last = bezier.back().point();
        for (std::size_t i = 1; i + 1 < bezier.size(); ++i)
            if (!(distanceToChord(bezier[i].point(), first, last) <= mDeviation))
                return false;
        return true;
    }
    void halve(const std::vector<Weighted>& bezier, int depth) {
        if (depth >= kDeepest || isFlat(bezier)) {
            mPoints.push_back(bezier.back().point());
            return;
        }
        std::vector<Weighted> left(bezier.size()), right = bezier;
        for (std::size_t i = 0; i < bezier.size(); ++i) {
            left[i] = right.front();
            for (std::size_t j = 0; j + i + 1 < bezier.size(); ++j)
                right[j] = mix(right[j], right[j + 1], 0.5);
        }
        halve(left, depth + 1);
        halve(right, depth + 1);
    }
    double mDeviation;
    std::vector<AcGePoint3d> mPoints;
};

// The same however the curve is turned.
double sizeOf(const std::vector<AcGePoint3d>& points) {
    double farthest = 0.0;
    for (const AcGePoint3d& p : points)
        farthest = std::max(farthest, p.distanceTo(points.front()));
    return farthest;
}
double usableDeviation(double asked, const std::vector<AcGePoint3d>& points) {
    return asked > 0.0 ? asked : std::max(sizeOf(points) / 1000.0, 1e-12);
}
} // namespace

bool DbNurbs::isValid() const {
    const std::size_t n = control.size();
    if (degree < 1 || degree > kHighestDegree || n < static_cast<std::size_t>(degree) + 1)
        return false;
    if (knots.size() != n + static_cast<std::size_t>(degree) + 1 || (!weights.empty() && weights.size() != n))
        return false;
    if (!std::is_sorted(knots.begin(), knots.end()) || !(startParameter() < endParameter()))
        return false;
    return std::ranges::all_of(knots, [](double k) { return std::isfinite(k); }) &&
           std::ranges::all_of(weights, [](double w) { return w > 0.0; });
}

namespace {
// De Boor's rule in the span that begins at the knot, with a parameter of its own, `parameter(r)`, in each of the
// rounds 1 to the degree. With one parameter in all rounds it gives the point there; mixed from the ends of
// the span, the control points of the span's Bezier curve.
template <class Parameter> Weighted deBoor(const DbNurbs& curve, std::size_t span, const Parameter& parameter) {
    const auto p = static_cast<std::size_t>(curve.degree);
    Weighted d[kHighestDegree + 1];
    for (std::size_t j = 0; j <= p; ++j) {
        const std::size_t i = span - p + j;
        d[j] = weighted(curve.control[i], curve.weights.empty() ? 1.0 : curve.weights[i]);
    }
    for (std::size_t r = 1; r <= p; ++r)
        for (std::size_t j = p; j >= r; --j) {
            const double low = curve.knots[span - p + j], high = curve.knots[span + 1 + j - r];
            d[j] = mix(d[j - 1], d[j], high > low ? (parameter(r) - low) / (high - low) : 0.0);
        }
    return d[p];
}
std::vector<Weighted> bezierOf(const DbNurbs& curve, std::size_t span) {
    const auto p = static_cast<std::size_t>(curve.degree);
    std::vector<Weighted> bezier;
    for (std::size_t k = 0; k <= p; ++k) // k of the parameters are the span's end, the others its start
        bezier.push_back(deBoor(curve, span, [&](std::size_t r) { return curve.knots[r <= k ? span + 1 : span]; }));
    return bezier;
}
} // namespace

AcGePoint3d DbNurbs::at(double t) const {
    const double inside = std::clamp(t, startParameter(), endParameter());
    // The span that holds t; the last one that is not empty holds the end.
    const auto first = knots.begin() + degree, last = knots.begin() + static_cast<std::ptrdiff_t>(control.size());
    const auto above = inside >= *last ? std::lower_bound(first, last, inside) : std::upper_bound(first, last, inside);
    const auto span = static_cast<std::size_t>(above - knots.begin()) - 1;
    return deBoor(*this, span, [&](std::size_t) { return inside; }).point();
}

std::vector<AcGePoint3d> dbSampleNurbs(const DbNurbs& curve, double deviation) {
    if (!curve.isValid())
        return {};
    Sampler sampler(usableDeviation(deviation, curve.control));
    for (auto i = static_cast<std::size_t>(curve.degree); i < curve.control.size(); ++i)
        if (curve.knots[i] < curve.knots[i + 1])
            sampler.append(bezierOf(curve, i));
    return sampler.take();
}

namespace {
// Points without repetitions of the one before.
std::vector<AcGePoint3d> distinct(const std::vector<AcGePoint3d>& points) {
    std::vector<AcGePoint3d> kept;
    for (const AcGePoint3d& p : points)
        if (kept.empty() || !(p - kept.back()).isZeroLength())
            kept.push_back(p);
    return kept;
}
} // namespace

// Curvature runs through the inner points: (1/h0) m0 + 2 (1/h0 + 1/h1) m1 + (1/h1) m2 =
// 3 ((p1 - p0)/h0^2 + (p2 - p1)/h1^2).
std::vector<AcGeVector3d> dbFitTangents(const std::vector<AcGePoint3d>& points, const AcGeVector3d& start,
                                        const AcGeVector3d& end) {
    const std::size_t n = points.size();
    std::vector<AcGeVector3d> right(n);
    if (n < 2)
        return right;
    std::vector<double> diagonal(n, 1.0), upper(n, 0.0), lower(n, 0.0);
    const auto h = [&](std::size_t i) { return points[i].distanceTo(points[i + 1]); };
    const auto slope = [&](std::size_t i) { return (points[i + 1] - points[i]) / h(i); };
    if (start.isZeroLength())
        diagonal[0] = 2.0, upper[0] = 1.0, right[0] = slope(0) * 3.0;
    else
        right[0] = start.normal();
    for (std::size_t i = 1; i + 1 < n; ++i) {
        lower[i] = 1.0 / h(i - 1), upper[i] = 1.0 / h(i);
        diagonal[i] = 2.0 * (lower[i] + upper[i]);
        right[i] = (slope(i - 1) * lower[i] + slope(i) * upper[i]) * 3.0;
    }
    if (end.isZeroLength())
        diagonal[n - 1] = 2.0, lower[n - 1] = 1.0, right[n - 1] = slope(n - 2) * 3.0;
    else
        right[n - 1] = end.normal();
    for (std::size_t i = 1; i < n; ++i) { // three diagonals: eliminate downwards, then substitute back
        const double factor = lower[i] / diagonal[i - 1];
        diagonal[i] -= factor * upper[i - 1];
        right[i] -= right[i - 1] * factor;
    }
    for (std::size_t i = n; i-- > 0;)
        right[i] = (right[i] - (i + 1 < n ? right[i + 1] * upper[i] : AcGeVector3d())) / diagonal[i];
    return right;
}

std::vector<AcGePoint3d> dbSampleFit(const std::vector<AcGePoint3d>& points, const AcGeVector3d& start,
                                     const AcGeVector3d& end, double deviation) {
    const std::vector<AcGePoint3d> through = distinct(points);
    if (through.size() < 2)
        return through;
    const std::vector<AcGeVector3d> tangents = dbFitTangents(through, start, end);
    Sampler sampler(usableDeviation(deviation, through));
    for (std::size_t i = 0; i + 1 < through.size(); ++i) {
        const double third = through[i].distanceTo(through[i + 1]) / 3.0;
        sampler.append({weighted(through[i], 1.0), weighted(through[i] + tangents[i] * third, 1.0),
                        weighted(through[i + 1] - tangents[i + 1] * third, 1.0), weighted(through[i + 1], 1.0)});
    }
    return sampler.take();
}
