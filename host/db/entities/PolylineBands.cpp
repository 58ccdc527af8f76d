// Polylines with widths: a filled band about each segment, mitred where two lines meet.
#include "PolylineParts.h"

#include "FillScope.h"

namespace {
constexpr double kMiterLimit = 0.12; // 1 + cos of the turn; sharper corners stay open

struct Band { // corners of a line's band
    AcGePoint2d startLeft, startRight, endLeft, endRight;
};

class BandDrawer {
public:
    BandDrawer(const DbPolylineShape& shape, AcGiWorldDraw& worldDraw)
        : mShape(shape), mWorldDraw(worldDraw), mPlane(shape.normal) {}
    bool draw() {
        const DbFillScope filled(mWorldDraw.subEntityTraits());
        for (std::size_t i = 0; i < mShape.segmentCount(); ++i)
            if (!(mShape.isStraight(i) ? line(i) : arc(i)))
                return false;
        return true;
    }

private:
    AcGeVector2d along(std::size_t i) const {
        const AcGeVector2d d = mShape.vertex(i + 1).point - mShape.vertex(i).point;
        const double length = d.length();
        return length > 0.0 ? d * (1.0 / length) : AcGeVector2d(1.0, 0.0);
    }
    // From the joint to the left corner that the bands of both segments share, when they can share one.
    bool miter(std::size_t before, std::size_t after, double width, AcGeVector2d& left) const {
        if (!mShape.isStraight(before) || !mShape.isStraight(after))
            return false;
        if (std::abs(mShape.endWidth(before) - width) > 1e-9 || std::abs(mShape.startWidth(after) - width) > 1e-9)
            return false;
        const AcGeVector2d a = along(before), b = along(after);
        const double turn = 1.0 + a.x * b.x + a.y * b.y;
        if (turn < kMiterLimit)
            return false;
        left = AcGeVector2d(-a.y - b.y, a.x + b.x) * (width / 2.0 / turn);
        return true;
    }
    bool hasPrevious(std::size_t i) const { return i > 0 || mShape.closed; }
    bool hasNext(std::size_t i) const { return i + 1 < mShape.segmentCount() || mShape.closed; }
    std::size_t previous(std::size_t i) const { return i > 0 ? i - 1 : mShape.segmentCount() - 1; }
    std::size_t next(std::size_t i) const { return (i + 1) % mShape.segmentCount(); }

    Band bandOf(std::size_t i) const {
        const AcGeVector2d d = along(i), left(-d.y, d.x);
        AcGeVector2d start = left * (mShape.startWidth(i) / 2.0), end = left * (mShape.endWidth(i) / 2.0);
        AcGeVector2d shared;
        if (hasPrevious(i) && miter(previous(i), i, mShape.startWidth(i), shared))
            start = shared;
        if (hasNext(i) && miter(i, next(i), mShape.endWidth(i), shared))
            end = shared;
        const AcGePoint2d &a = mShape.vertex(i).point, &b = mShape.vertex(i + 1).point;
        return {a + start, a - start, b + end, b - end};
    }
    bool line(std::size_t i) {
        const double e = mShape.elevation;
        if (!(mShape.startWidth(i) > 0.0) && !(mShape.endWidth(i) > 0.0)) {
            const AcGePoint3d ends[2] = {mPlane.point(mShape.vertex(i).point, e), mPlane.point(mShape.vertex(i + 1).point, e)};
            return !mWorldDraw.geometry().polyline(2, ends);
        }
        const Band band = bandOf(i);
        const AcGePoint3d ring[4] = {mPlane.point(band.startLeft, e), mPlane.point(band.startRight, e),
                                     mPlane.point(band.endRight, e), mPlane.point(band.endLeft, e)};
        return !mWorldDraw.geometry().polygon(4, ring);
    }
    bool arc(std::size_t i) {
        const DbEllipse curve = dbSegmentArc(mShape, mPlane, i);
        const double start = mShape.startWidth(i) / 2.0, end = mShape.endWidth(i) / 2.0;
        if (!(start > 0.0) && !(end > 0.0))
            return curveArc(curve, curve.major.length());
        // A curve's chords fall short of it, so a measured band gives its true edges.
        if (mWorldDraw.regenType() == kAcGiForExtents && start == end)
            return curveArc(curve, curve.major.length() + start) &&
                   curveArc(curve, std::abs(curve.major.length() - start));
        return band(curve, mShape.vertex(i).bulge > 0.0 ? start : end, mShape.vertex(i).bulge > 0.0 ? end : start);
    }
    bool curveArc(const DbEllipse& curve, double radius) {
        const AcGeVector3d start = mPlane.direction(curve.start);
        return !mWorldDraw.geometry().circularArc(curve.center, radius, mPlane.normal, start, curve.end - curve.start);
    }
    // Half widths at the counter-clockwise start and end.
    bool band(const DbEllipse& curve, double start, double end) {
        const double radius = curve.major.length(), sweep = curve.end - curve.start;
        const int chords = dbChordCount(radius + std::max(start, end), sweep, mWorldDraw.deviation());
        const std::vector<double> parameters = dbChordParameters(curve.start, curve.end, 0.0, kHalfPi, chords);
        const auto edge = [&](double t, double side) {
            const double half = start + (end - start) * (t - curve.start) / sweep;
            return curve.center + mPlane.direction(t) * (radius + side * half);
        };
        AcGiFillLoops loops(1);
        loops[0].reserve(parameters.size() * 2);
        for (const double t : parameters)
            loops[0].push_back(edge(t, 1.0));
        for (auto t = parameters.rbegin(); t != parameters.rend(); ++t)
            loops[0].push_back(edge(*t, -1.0));
        return !mWorldDraw.geometry().filledLoops(loops);
    }

    const DbPolylineShape& mShape;
    AcGiWorldDraw& mWorldDraw;
    DbPlane mPlane;
};
} // namespace

bool dbDrawBands(const DbPolylineShape& shape, AcGiWorldDraw& worldDraw) {
    return BandDrawer(shape, worldDraw).draw();
}
