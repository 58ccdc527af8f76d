#include "EdStyleResolver.h"

#include "EdProperties.h"

EdStyleResolver::EdStyleResolver(AcDbDatabase& db)
    : mLayerZero(db.layerZero()), mByLayer(db.byLayerLinetype()), mByBlock(db.byBlockLinetype()), mLineTypeScale(db.ltscale()) {}

const EdStyleResolver::Look& EdStyleResolver::look(AcDbObjectId layer) const {
    const AcDbObjectId id = layer.isNull() ? mLayerZero : layer;
    const auto known = mLooks.find(id);
    if (known != mLooks.end())
        return known->second;
    Look& made = mLooks[id];
    const AcDbObjectPointer<AcDbLayerTableRecord> record(id);
    if (!record)
        return made;
    made.color = record->color();
    made.weight = record->lineWeight();
    made.lineType = record->linetypeObjectId();
    made.off = record->isOff();
    made.frozen = record->isFrozen();
    made.plottable = record->isPlottable();
    made.locked = record->isLocked();
    return made;
}
std::vector<double> EdStyleResolver::dashes(AcDbObjectId lineType) const {
    const auto known = mDashes.find(lineType);
    if (known != mDashes.end())
        return known->second;
    const AcDbObjectPointer<AcDbLinetypeTableRecord> record(lineType);
    return mDashes[lineType] = record ? record->dashes() : std::vector<double>();
}
GiNamer edNamer() {
    return [](AcDbObjectId id) { return edRecordName(id); };
}
