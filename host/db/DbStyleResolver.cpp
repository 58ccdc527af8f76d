#include "DbStyleResolver.h"

#include "DbObjectAccess.h"

#include "AcDbStyles.h"
#include "AcUtText.h"

std::unique_ptr<GiStyleResolver> acdbNewStyleResolver(const AcDbDatabase& drawing) {
    return std::make_unique<DbStyleResolver>(drawing);
}

const AcDbLayerTableRecord* DbStyleResolver::layerOf(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = AcDbLayerTableRecord::cast(DbObjectAccess::peek(layer));
    return record != nullptr ? record : AcDbLayerTableRecord::cast(DbObjectAccess::peek(mDb.layerZero()));
}
bool DbStyleResolver::isVisible(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return record == nullptr || (!record->isOff() && !record->isFrozen());
}
bool DbStyleResolver::isFrozen(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return record != nullptr && record->isFrozen();
}
// The layer "Defpoints" never reaches paper: programs keep their dimension points there.
bool DbStyleResolver::isPlottable(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return isVisible(layer) && (record == nullptr || (record->isPlottable() && acutWcsicmp(record->name().c_str(), L"Defpoints") != 0));
}
bool DbStyleResolver::isLayerZero(AcDbObjectId layer) const {
    return layer.isNull() || layer == mDb.layerZero();
}
AcCmEntityColor DbStyleResolver::layerColor(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return record != nullptr ? record->color().entityColor() : AcCmEntityColor::fromIndex(AcCmEntityColor::kACIforeground);
}
AcDb::LineWeight DbStyleResolver::layerLineWeight(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return record != nullptr ? record->lineWeight() : AcDb::kLnWtByLwDefault;
}
AcDbObjectId DbStyleResolver::layerLineType(AcDbObjectId layer) const {
    const AcDbLayerTableRecord* const record = layerOf(layer);
    return record != nullptr && !record->linetypeObjectId().isNull() ? record->linetypeObjectId() : mDb.continuousLinetype();
}
bool DbStyleResolver::isByLayerLineType(AcDbObjectId lineType) const {
    return lineType.isNull() || lineType == mDb.byLayerLinetype();
}
bool DbStyleResolver::isByBlockLineType(AcDbObjectId lineType) const {
    return !lineType.isNull() && lineType == mDb.byBlockLinetype();
}
std::vector<double> DbStyleResolver::dashes(AcDbObjectId lineType) const {
    const AcDbLinetypeTableRecord* const record = AcDbLinetypeTableRecord::cast(DbObjectAccess::peek(lineType));
    return record != nullptr ? record->dashes() : std::vector<double>();
}
double DbStyleResolver::lineTypeScale() const {
    return mDb.ltscale();
}
