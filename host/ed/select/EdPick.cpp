#include "EdPick.h"

#include "EdDocuments.h"
#include "EdStyleResolver.h"
#include "EdSysVars.h"
#include "EdView.h"

#include <algorithm>
#include <limits>

namespace {
struct Box {
    double x0, y0, x1, y1;
    bool holds(const AcGePoint3d& p) const { return p.x >= x0 && p.x <= x1 && p.y >= y0 && p.y <= y1; }
};
// Whether the segment passes the box, by clipping its parameter range at the four sides.
bool passes(const AcGePoint3d& a, const AcGePoint3d& b, const Box& box) {
    double from = 0.0, to = 1.0;
    const auto clip = [&](double start, double delta, double low, double high) {
        if (delta == 0.0)
            return start >= low && start <= high;
        double t0 = (low - start) / delta, t1 = (high - start) / delta;
        if (t0 > t1)
            std::swap(t0, t1);
        from = std::max(from, t0);
        to = std::min(to, t1);
        return from <= to;
    };
    return clip(a.x, b.x - a.x, box.x0, box.x1) && clip(a.y, b.y - a.y, box.y0, box.y1);
}
double distanceToSegment(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double t = length > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

// What the picture of one entity has to do with a box.
class BoxProbe : public GiPainterSink {
public:
    BoxProbe(const Box& box, const AcGePoint3d& middle) : mBox(box), mMiddle(middle) {}
    void stroke(const std::vector<AcGePoint3d>& points, bool closed, const GiStyle&) override { segments(points, closed); }
    void fill(const AcGiFillLoops& loops, const GiStyle&) override {
        for (const auto& loop : loops)
            segments(loop, true);
        if (giPointInLoops(mMiddle, loops)) {
            crosses = true;
            distance = 0.0;
        }
    }
    bool any = false, crosses = false, inside = true;
    double distance = std::numeric_limits<double>::max(); // of the box's middle to what crosses it

private:
    void segments(const std::vector<AcGePoint3d>& points, bool closed) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            any = true;
            inside = inside && mBox.holds(points[i]);
            if (i == 0 && !closed && points.size() > 1)
                continue;
            const AcGePoint3d& from = points[i == 0 ? points.size() - 1 : i - 1];
            if (passes(from, points[i], mBox)) {
                crosses = true;
                distance = std::min(distance, distanceToSegment(mMiddle, from, points[i]));
            }
        }
    }
    Box mBox;
    AcGePoint3d mMiddle;
};

struct Found {
    AcDbObjectId id;
    double distance;
};
std::vector<Found> probeAll(const Box& box, bool crossing) {
    std::vector<Found> found;
    AcDbDatabase& db = *edDatabase();
    const EdStyleResolver resolver(db);
    const AcGePoint3d middle((box.x0 + box.x1) / 2.0, (box.y0 + box.y1) / 2.0, 0.0);
    const double deviation = std::max(std::min(edPixelSize(db), (box.x1 - box.x0) / 8.0), 1.0e-6);
    for (const AcDbObjectId id : edAllEntities(true)) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity)
            continue;
        GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation);
        builder.add(*entity.object());
        BoxProbe probe(box, middle);
        giFlatten(builder.list(), resolver, deviation, probe);
        if (probe.any && (crossing ? probe.crosses : probe.inside))
            found.push_back({id, probe.distance});
    }
    return found;
}
} // namespace

AcDbObjectIdArray edAllEntities(bool shownOnly) {
    AcDbObjectIdArray ids;
    AcDbDatabase* const db = edDatabase();
    if (db == nullptr)
        return ids;
    const EdStyleResolver resolver(*db);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db->currentSpaceId());
    if (!space)
        return ids;
    for (const AcDbObjectId id : space->entityIds()) {
        if (id.isErased())
            continue;
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity && (!shownOnly || (entity->visibility() == AcDb::kVisible && resolver.isVisible(entity->layerId()))))
            ids.append(id);
    }
    return ids;
}

AcDbObjectIdArray edPickAll(const AcGePoint3d& at) {
    AcDbObjectIdArray ids;
    if (edDatabase() == nullptr)
        return ids;
    const double half = std::max(1, static_cast<int>(EdSysVars::instance().getShort(L"PICKBOX"))) * edPixelSize(*edDatabase());
    std::vector<Found> found = probeAll({at.x - half, at.y - half, at.x + half, at.y + half}, true);
    std::reverse(found.begin(), found.end());
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) { return a.distance < b.distance; });
    for (const Found& f : found)
        ids.append(f.id);
    return ids;
}
AcDbObjectId edPickOne(const AcGePoint3d& at) {
    const AcDbObjectIdArray ids = edPickAll(at);
    return ids.isEmpty() ? AcDbObjectId::kNull : ids.first();
}
AcDbObjectIdArray edPickWindow(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing) {
    AcDbObjectIdArray ids;
    if (edDatabase() == nullptr)
        return ids;
    const Box box{std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    for (const Found& f : probeAll(box, crossing))
        ids.append(f.id);
    return ids;
}
