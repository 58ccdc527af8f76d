#include "EdPick.h"

#include "core/EdDocuments.h"
#include "DbStyleResolver.h"
#include "core/EdSysVars.h"
#include "core/EdView.h"

#include <algorithm>

namespace {
// One picture of the current space; curves fine enough for the aperture.
GiDisplayList pictureOfSpace(double deviation) {
    GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation);
    for (const AcDbObjectId id : edAllEntities(true))
        if (const AcDbObjectPointer<AcDbEntity> entity(id); entity)
            builder.add(*entity.object());
    return builder.take();
}
AcDbObjectIdArray asArray(const std::vector<AcDbObjectId>& owners) {
    AcDbObjectIdArray ids;
    for (const AcDbObjectId id : owners)
        if (!id.isNull())
            ids.append(id);
    return ids;
}
} // namespace

AcDbObjectIdArray edAllEntities(bool shownOnly) {
    AcDbObjectIdArray ids;
    AcDbDatabase* const db = edDatabase();
    if (db == nullptr)
        return ids;
    const DbStyleResolver resolver(*db);
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
    const DbStyleResolver resolver(*edDatabase());
    const double box = std::max(1, static_cast<int>(EdSysVars::instance().getShort(L"PICKBOX"))) * edPixelSize(*edDatabase());
    const GiDisplayList picture = pictureOfSpace(box / 16.0);
    // From a small aperture to the whole box, so that the nearest comes first.
    for (const double part : {1.0 / 64.0, 1.0 / 16.0, 1.0 / 4.0, 1.0}) {
        std::vector<AcDbObjectId> owners = giOwnersAt(picture, resolver, at, box * part);
        std::reverse(owners.begin(), owners.end());
        for (const AcDbObjectId id : asArray(owners))
            if (!ids.contains(id))
                ids.append(id);
    }
    return ids;
}
AcDbObjectId edPickOne(const AcGePoint3d& at) {
    const AcDbObjectIdArray ids = edPickAll(at);
    return ids.isEmpty() ? AcDbObjectId::kNull : ids.first();
}
AcDbObjectIdArray edPickWindow(const AcGePoint3d& a, const AcGePoint3d& b, bool crossing) {
    if (edDatabase() == nullptr)
        return {};
    const DbStyleResolver resolver(*edDatabase());
    const double deviation = std::max(a.distanceTo(b) / 1000.0, 1.0e-6);
    return asArray(giOwnersInWindow(pictureOfSpace(deviation), resolver, a, b, crossing));
}
