#include "DwgExtents.h"

#include "DbObjectAccess.h"

#include <algorithm>

namespace {
// Extents of an empty space: the lower corner above the upper one.
const AcGePoint3d kEmptyMinimum(1.0e20, 1.0e20, 1.0e20), kEmptyMaximum(-1.0e20, -1.0e20, -1.0e20);

bool drawsItself(const AcDbEntity& entity) {
    return entity.isA()->appName() != nullptr && AcDbProxyEntity::cast(&entity) == nullptr;
}
AcDbEntity* liveEntity(AcDbObjectId id) {
    return id.isErased() ? nullptr : AcDbEntity::cast(DbObjectAccess::peek(id));
}
bool hasModulesObjects(AcDbObjectId blockId) {
    auto* const block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(blockId));
    if (block == nullptr)
        return false;
    const AcDbObjectIdArray& ids = DbObjectAccess::entities(*block);
    return std::any_of(ids.begin(), ids.end(), [](AcDbObjectId id) {
        const AcDbEntity* const entity = liveEntity(id);
        return entity != nullptr && drawsItself(*entity);
    });
}
} // namespace

DwgExtents::DwgExtents(AcDbDatabase& db)
    : mDb(db), mIsUnchanged(!db.hasChangedSinceSave()), mModel(db.modelSpaceId(), L"EXTMIN", L"EXTMAX"),
      mPaper(db.paperSpaceId(), L"PEXTMIN", L"PEXTMAX") {
    for (Space* const space : {&mModel, &mPaper})
        space->isKept = mIsUnchanged && known(*space).isValid() && !hasModulesObjects(space->block);
}

AcDbExtents DwgExtents::known(const Space& space) const {
    const auto& header = DbObjectAccess::header(mDb);
    const auto minimum = header.find(space.minimum), maximum = header.find(space.maximum);
    if (minimum == header.end() || maximum == header.end())
        return {};
    const AcGePoint3d lower = minimum->second.point, upper = maximum->second.point;
    const bool isBox = lower.x <= upper.x && lower.y <= upper.y && lower.z <= upper.z && !(lower == upper);
    return isBox ? AcDbExtents(lower, upper) : AcDbExtents();
}

void DwgExtents::addDrawn(const AcDbEntity& entity, const GiDisplayList& picture) {
    const AcDbObjectId owner = entity.ownerId();
    for (Space* const space : {&mModel, &mPaper})
        if (owner == space->block && !space->isKept)
            space->meter.add(picture);
}

void DwgExtents::finish() {
    for (Space* const space : {&mModel, &mPaper}) {
        if (space->isKept)
            continue;
        measure(*space);
        // A layout that was never shown has both corners at the origin (observed in drawings of other programs).
        if (space->meter.extents().isValid() || !mIsUnchanged || DbObjectAccess::header(mDb).count(space->minimum) == 0)
            tell(*space);
    }
}

void DwgExtents::measure(Space& space) {
    auto* const block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(space.block));
    if (block == nullptr)
        return;
    for (const AcDbObjectId id : DbObjectAccess::entities(*block))
        if (AcDbEntity* const entity = liveEntity(id); entity != nullptr && !drawsItself(*entity))
            measure(space, *entity);
}

void DwgExtents::measure(Space& space, AcDbEntity& entity) {
    const auto* const reference = AcDbBlockReference::cast(&entity);
    if (reference != nullptr && isCovered(space, *reference))
        return;
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk)
        space.meter.add(box);
    else if (AcDbProxyEntity::cast(&entity) != nullptr)
        space.meter.add(known(space));
}

// Whether the reference cannot reach out of what has been measured. Definitions are drawn once for that;
// attributes stand where they like.
bool DwgExtents::isCovered(const Space& space, const AcDbBlockReference& reference) {
    if (!DbObjectAccess::attributeIds(const_cast<AcDbBlockReference&>(reference)).isEmpty())
        return false;
    const AcDbObjectId id = reference.blockTableRecord();
    auto found = mBlocks.find(id);
    if (found == mBlocks.end()) {
        AcDbExtents box;
        if (const auto* const block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(id)))
            block->getGeomExtents(box);
        found = mBlocks.emplace(id, box).first;
    }
    AcDbExtents box = found->second;
    box.transformBy(reference.blockTransform());
    return space.meter.covers(box);
}

void DwgExtents::tell(const Space& space) {
    const AcDbExtents& box = space.meter.extents();
    auto& header = DbObjectAccess::header(mDb);
    const auto set = [&header](const wchar_t* name, const AcGePoint3d& point) {
        header[name].kind = DbHeaderValue::kPoint;
        header[name].point = point;
    };
    set(space.minimum, box.isValid() ? box.minPoint() : kEmptyMinimum);
    set(space.maximum, box.isValid() ? box.maxPoint() : kEmptyMaximum);
}
