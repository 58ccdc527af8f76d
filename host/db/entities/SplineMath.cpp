// Points on splines.
#include "SplineMath.h"

#include <algorithm>
#include <functional>

namespace {
constexpr int kHighestDegree = 25; // what drawing files allow
constexpr int kDeepest = 12;       // halvings of a span

struct Weighted {
    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;
};
Weighted mix(const Weighted& a, const Weighted& b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t, a.w + (b.w - a.w) * t};
}

double distanceToChord(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGeVector3d chord = b - a;
    const double square = chord.lengthSqrd();
    const double t = square > 0.0 ? std::clamp((p - a).dotProduct(chord) / square, 0.0, 1.0) : 0.0;
    return p.distanceTo(a + chord * t);
}

// Halves a stretch until its quarters and its middle lie within the deviation of the chord.
class Sampler {
public:
    Sampler(const std::function<AcGePoint3d(double)>& curve, double deviation)
        : mCurve(curve), mDeviation(deviation) {}
    // At least two halvings, since a symmetric curve may meet its chord in the middle.
    void stretch(double t0, double t1) {
        if (mPoints.empty())
            mPoints.push_back(mCurve(t0));
        halve(t0, mPoints.back(), t1, mCurve(t1), 0);
    }
    std::vector<AcGePoint3d> take() { return std::move(mPoints); }

private:
    void halve(double t0, const AcGePoint3d p0, double t1, const AcGePoint3d p1, int depth) {
        const double middle = (t0 + t1) / 2.0;
        const AcGePoint3d p = mCurve(middle);
        const bool straight = distanceToChord(p, p0, p1) <= mDeviation &&
                              distanceToChord(mCurve((t0 + middle) / 2.0), p0, p1) <= mDeviation &&
                              distanceToChord(mCurve((middle + t1) / 2.0), p0, p1) <= mDeviation;
        if ((straight && depth >= 1) || depth >= kDeepest) {
            mPoints.push_back(p1);
            return;
        }
        halve(t0, p0, middle, p, depth + 1);
        halve(middle, p, t1, p1, depth + 1);
    }
    const std::function<AcGePoint3d(double)>& mCurve;
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

AcGePoint3d DbNurbs::at(double t) const {
    const auto p = static_cast<std::size_t>(degree);
    const double inside = std::clamp(t, startParameter(), endParameter());
    // The span that holds t; the last one that is not empty holds the end.
    const auto first = knots.begin() + degree, last = knots.begin() + static_cast<std::ptrdiff_t>(control.size());
    const auto above = inside >= *last ? std::lower_bound(first, last, inside) : std::upper_bound(first, last, inside);
    const auto span = static_cast<std::size_t>(above - knots.begin()) - 1;
    Weighted d[kHighestDegree + 1];
    for (std::size_t j = 0; j <= p; ++j) {
        const std::size_t i = span - p + j;
        const double w = weights.empty() ? 1.0 : weights[i];
        d[j] = {control[i].x * w, control[i].y * w, control[i].z * w, w};
    }
    for (std::size_t r = 1; r <= p; ++r)
        for (std::size_t j = p; j >= r; --j) {
            const double low = knots[span - p + j], high = knots[span + 1 + j - r];
            d[j] = mix(d[j - 1], d[j], high > low ? (inside - low) / (high - low) : 0.0);
        }
    return {d[p].x / d[p].w, d[p].y / d[p].w, d[p].z / d[p].w};
}

std::vector<AcGePoint3d> dbSampleNurbs(const DbNurbs& curve, double deviation) {
    if (!curve.isValid())
        return {};
    const std::function<AcGePoint3d(double)> at = [&](double t) { return curve.at(t); };
    Sampler sampler(at, usableDeviation(deviation, curve.control));
    for (auto i = static_cast<std::size_t>(curve.degree); i < curve.control.size(); ++i)
        if (curve.knots[i] < curve.knots[i + 1]) // a knot may break the curve's smoothness: chords end there
            sampler.stretch(curve.knots[i], curve.knots[i + 1]);
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
    std::size_t i = 0;
    const std::function<AcGePoint3d(double)> at = [&](double t) {
        const double h = through[i].distanceTo(through[i + 1]), t2 = t * t, t3 = t2 * t;
        const AcGeVector3d chord = through[i + 1] - through[i];
        return through[i] + chord * (3.0 * t2 - 2.0 * t3) + tangents[i] * (h * (t3 - 2.0 * t2 + t)) +
               tangents[i + 1] * (h * (t3 - t2));
    };
    Sampler sampler(at, usableDeviation(deviation, through));
    for (; i + 1 < through.size(); ++i)
        sampler.stretch(0.0, 1.0);
    return sampler.take();
}
