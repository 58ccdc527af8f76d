// The dashes of a pattern between the rings of a hatch.
#include "HatchLoops.h"

#include <algorithm>

namespace {
constexpr double kMostRows = 20000.0, kMostDashes = 400000.0;

// A family of parallel lines in its own coordinates: x along the lines, y across, from the base point.
class Family {
public:
    Family(const DbRings& rings, const AcDbHatch::PatternLine& line)
        : mLine(line), mCos(std::cos(line.angle)), mSin(std::sin(line.angle)) {
        for (const DbRing& ring : rings) {
            DbRing turned;
            turned.reserve(ring.size());
            for (const AcGePoint2d& p : ring)
                turned.push_back(local(p - line.base));
            mRings.push_back(std::move(turned));
        }
        const AcGePoint2d step = local(line.offset);
        mAlong = step.x, mAcross = step.y;
        for (const double d : line.dashes)
            mPeriod += std::abs(d);
        findRows();
    }

    double rowCount() const { return mLast - mFirst + 1.0; }
    double dashEstimate() const { // a dash a period over the box, halved since boxes are rarely full
        return rowCount() * (mPeriod > 0.0 ? 1.0 + mWidth / mPeriod * static_cast<double>(mLine.dashes.size()) / 2.0 : 1.0);
    }
    void draw(const DbDashVisitor& dash) {
        for (double row = mFirst; row <= mLast; row += 1.0)
            drawRow(row, dash);
    }

private:
    AcGePoint2d local(const AcGeVector2d& v) const { return {v.x * mCos + v.y * mSin, v.y * mCos - v.x * mSin}; }
    AcGePoint2d world(double x, double y) const {
        return {mLine.base.x + x * mCos - y * mSin, mLine.base.y + x * mSin + y * mCos};
    }
    void findRows() {
        const AcDbExtents box = dbRingsBox(mRings);
        if (!box.isValid())
            return;
        mWidth = box.maxPoint().x - box.minPoint().x;
        const double low = box.minPoint().y, high = box.maxPoint().y;
        if (std::abs(mAcross) <= 1e-12 * (std::abs(mAlong) + high - low)) { // all rows coincide
            mFirst = mLast = 0.0;
            return;
        }
        const double a = low / mAcross, b = high / mAcross;
        mFirst = std::ceil(std::min(a, b)), mLast = std::floor(std::max(a, b));
    }
    void drawRow(double row, const DbDashVisitor& dash) {
        const double y = row * mAcross;
        mHits.clear();
        for (const DbRing& ring : mRings)
            for (std::size_t i = 0, k = ring.size() - 1; i < ring.size(); k = i++)
                if ((ring[i].y > y) != (ring[k].y > y))
                    mHits.push_back(ring[k].x + (ring[i].x - ring[k].x) * (y - ring[k].y) / (ring[i].y - ring[k].y));
        std::sort(mHits.begin(), mHits.end());
        for (std::size_t i = 1; i < mHits.size(); i += 2)
            if (mHits[i] > mHits[i - 1])
                drawStretch(mHits[i - 1], mHits[i], row * mAlong, y, dash);
    }
    void drawStretch(double from, double to, double origin, double y, const DbDashVisitor& dash) {
        if (!(mPeriod > 0.0)) {
            dash(world(from, y), world(to, y));
            return;
        }
        // Counted, since far from the origin a short period may be lost in the coordinate.
        const double first = origin + std::floor((from - origin) / mPeriod) * mPeriod;
        const double periods = std::min(std::ceil((to - first) / mPeriod), kMostDashes);
        for (double period = 0.0; period < periods; period += 1.0) {
            double at = first + period * mPeriod;
            for (const double length : mLine.dashes) {
                const double end = at + std::abs(length);
                if (length == 0.0 && at >= from && at <= to)
                    dash(world(at, y), world(at, y));
                else if (length > 0.0 && end > from && at < to)
                    dash(world(std::max(at, from), y), world(std::min(end, to), y));
                at = end;
            }
        }
    }

    const AcDbHatch::PatternLine& mLine;
    double mCos, mSin, mAlong = 0.0, mAcross = 0.0, mPeriod = 0.0, mWidth = 0.0;
    double mFirst = 0.0, mLast = -1.0;
    DbRings mRings;
    std::vector<double> mHits;
};
} // namespace

bool dbForEachDash(const DbRings& rings, const std::vector<AcDbHatch::PatternLine>& lines, const DbDashVisitor& dash) {
    std::vector<Family> families;
    double rows = 0.0, dashes = 0.0;
    for (const AcDbHatch::PatternLine& line : lines) {
        families.emplace_back(rings, line);
        rows += families.back().rowCount();
        dashes += families.back().dashEstimate();
    }
    if (!(rows <= kMostRows) || !(dashes <= kMostDashes))
        return false;
    for (Family& family : families)
        family.draw(dash);
    return true;
}
