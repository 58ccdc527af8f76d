// Cuts a polyline into the dashes of a line type.
#include "GiDashes.h"

#include <algorithm>

namespace {
constexpr double kMostPatterns = 100000.0;

// Walks along the polyline, handing out the stretches that are drawn.
class Walker {
public:
    Walker(const std::vector<AcGePoint2d>& points, const GiDashVisitor& dash)
        : mPoints(points), mDash(dash), mAt(points.front()) {}
    void draw(double length) {
        mPiece.assign(1, mAt);
        const double from = place();
        advance(length, true);
        if (mPiece.size() == 1)
            mPiece.push_back(mAt);
        mDash(mPiece, from, place());
    }
    void skip(double length) { advance(length, false); }

private:
    double place() const {
        const double before = static_cast<double>(mNext - 1);
        if (mNext >= mPoints.size())
            return before;
        const double length = mPoints[mNext - 1].distanceTo(mPoints[mNext]);
        return length > 0.0 ? before + mPoints[mNext - 1].distanceTo(mAt) / length : before;
    }
    void advance(double length, bool drawing) {
        while (length > 0.0 && mNext < mPoints.size()) {
            const AcGeVector2d rest = mPoints[mNext] - mAt;
            const double restLength = rest.length();
            if (restLength > length) {
                mAt = mAt + rest * (length / restLength);
                length = 0.0;
            } else {
                mAt = mPoints[mNext++];
                length -= restLength;
            }
            if (drawing)
                mPiece.push_back(mAt);
        }
    }
    const std::vector<AcGePoint2d>& mPoints;
    const GiDashVisitor& mDash;
    AcGePoint2d mAt;
    std::size_t mNext = 1;
    std::vector<AcGePoint2d> mPiece;
};

double lengthOf(const std::vector<AcGePoint2d>& points) {
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += points[i - 1].distanceTo(points[i]);
    return length;
}
} // namespace

bool giCutDashes(const std::vector<AcGePoint2d>& points, bool closed, const std::vector<double>& pattern,
                 const GiDashVisitor& dash) {
    double period = 0.0;
    bool hasGap = false;
    for (const double part : pattern) {
        period += std::abs(part);
        hasGap = hasGap || part < 0.0;
    }
    if (!hasGap || points.size() < 2 || pattern.front() < 0.0)
        return false;
    std::vector<AcGePoint2d> ring;
    if (closed) {
        ring = points;
        ring.push_back(points.front());
    }
    const std::vector<AcGePoint2d>& line = closed ? ring : points;
    const double length = lengthOf(line), patterns = std::floor(length / period);
    if (!(patterns >= 1.0) || patterns > kMostPatterns)
        return false;
    // What the whole patterns leave over goes to the first and the last dash.
    const double endDash = (length - patterns * period + pattern.front()) / 2.0;
    Walker walker(line, dash);
    walker.draw(endDash);
    for (int n = 0; n < static_cast<int>(patterns); ++n) {
        if (n > 0)
            walker.draw(pattern.front());
        for (std::size_t i = 1; i < pattern.size(); ++i)
            pattern[i] < 0.0 ? walker.skip(-pattern[i]) : walker.draw(pattern[i]);
    }
    walker.draw(length); // to the very end, whatever rounding left
    return true;
}
