// Hit tests on what is drawn, in the plan view.
#include "AcGiReceivers.h"

#include <algorithm>
#include <unordered_map>

namespace {
constexpr double kChordsPerAperture = 10.0;

struct Window {
    double left, bottom, right, top;
    Window(const AcGePoint3d& a, const AcGePoint3d& b)
        : left(std::min(a.x, b.x)), bottom(std::min(a.y, b.y)), right(std::max(a.x, b.x)), top(std::max(a.y, b.y)) {}
    bool holds(const AcGePoint3d& p) const { return p.x >= left && p.x <= right && p.y >= bottom && p.y <= top; }
};

// Whether the segment has a point in the window: what is left of it between each pair of sides.
bool touches(const Window& window, const AcGePoint3d& a, const AcGePoint3d& b) {
    double from = 0.0, to = 1.0;
    const auto cut = [&](double start, double step, double low, double high) {
        if (step == 0.0)
            return start >= low && start <= high;
        const double t1 = (low - start) / step, t2 = (high - start) / step;
        from = std::max(from, std::min(t1, t2));
        to = std::min(to, std::max(t1, t2));
        return from <= to;
    };
    return cut(a.x, b.x - a.x, window.left, window.right) && cut(a.y, b.y - a.y, window.bottom, window.top);
}

double distanceTo(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double t = square > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

// Whether `test` holds for one of the segments; a single point is a segment without length.
template <class Test> bool anySegment(const std::vector<AcGePoint3d>& points, bool closed, const Test& test) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        if (test(points[i], points[i + 1]))
            return true;
    return !points.empty() && (closed || points.size() == 1) && test(points.back(), points.front());
}

// Owners in the order of their first sight, each with a mark.
class Owners {
public:
    bool& mark(AcDbObjectId owner, bool initial) {
        const auto [found, fresh] = mMarks.try_emplace(owner, initial);
        if (fresh)
            mOrder.push_back(owner);
        return found->second;
    }
    std::vector<AcDbObjectId> marked() const {
        std::vector<AcDbObjectId> result;
        std::ranges::copy_if(mOrder, std::back_inserter(result), [&](AcDbObjectId owner) { return mMarks.at(owner); });
        return result;
    }

private:
    std::unordered_map<AcDbObjectId, bool> mMarks;
    std::vector<AcDbObjectId> mOrder;
};

class PointSink final : public GiPainterSink {
public:
    PointSink(const AcGePoint3d& point, double aperture) : mPoint(point), mAperture(aperture) {}
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override {
        if (isNear(points, closed))
            owners.mark(style.owner, true);
    }
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override {
        if (giPointInLoops(mPoint, loops) || std::ranges::any_of(loops, [&](const auto& loop) { return isNear(loop, true); }))
            owners.mark(style.owner, true);
    }
    Owners owners;

private:
    bool isNear(const std::vector<AcGePoint3d>& points, bool closed) const {
        return anySegment(points, closed, [&](const auto& a, const auto& b) { return distanceTo(mPoint, a, b) <= mAperture; });
    }
    AcGePoint3d mPoint;
    double mAperture;
};

class WindowSink final : public GiPainterSink {
public:
    WindowSink(const Window& window, bool crossing) : mWindow(window), mCrossing(crossing) {}
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle& style) override {
        add(style.owner, mCrossing ? isTouched(points, closed) : isWithin(points));
    }
    void fill(const AcGiFillLoops& loops, const GiStyle& style) override {
        if (!mCrossing)
            return add(style.owner, std::ranges::all_of(loops, [&](const auto& loop) { return isWithin(loop); }));
        // A window that lies inside an area touches no edge of it.
        const AcGePoint3d corner(mWindow.left, mWindow.bottom, 0.0);
        add(style.owner, giPointInLoops(corner, loops) ||
                             std::ranges::any_of(loops, [&](const auto& loop) { return isTouched(loop, true); }));
    }
    Owners owners;

private:
    void add(AcDbObjectId owner, bool hit) {
        bool& mark = owners.mark(owner, !mCrossing);
        mark = mCrossing ? mark || hit : mark && hit;
    }
    bool isWithin(const std::vector<AcGePoint3d>& points) const {
        return std::ranges::all_of(points, [&](const AcGePoint3d& p) { return mWindow.holds(p); });
    }
    bool isTouched(const std::vector<AcGePoint3d>& points, bool closed) const {
        return anySegment(points, closed, [&](const auto& a, const auto& b) { return touches(mWindow, a, b); });
    }
    Window mWindow;
    bool mCrossing;
};
} // namespace

std::vector<AcDbObjectId> giOwnersAt(const GiDisplayList& list, const GiStyleResolver& resolver, const AcGePoint3d& point,
                                     double aperture) {
    PointSink sink(point, aperture);
    const AcGeVector3d around(aperture, aperture, 0.0);
    const AcDbExtents window(point - around, point + around);
    giFlatten(list, resolver, aperture / kChordsPerAperture, sink, &window);
    return sink.owners.marked();
}

std::vector<AcDbObjectId> giOwnersInWindow(const GiDisplayList& list, const GiStyleResolver& resolver, const AcGePoint3d& corner,
                                           const AcGePoint3d& opposite, bool crossing) {
    const Window window(corner, opposite);
    WindowSink sink(window, crossing);
    const double size = std::max(window.right - window.left, window.top - window.bottom);
    const AcDbExtents bounds({window.left, window.bottom, 0.0}, {window.right, window.top, 0.0});
    // Whether all of a picture lies within can be told only from all of it.
    giFlatten(list, resolver, size / 1000.0, sink, crossing ? &bounds : nullptr);
    return sink.owners.marked();
}
