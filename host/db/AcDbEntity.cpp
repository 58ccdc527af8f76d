// Entities: common properties and behaviour.
#include "AcDbEntity.h"

#include "AcDbDatabase.h"
#include "DbFieldFiling.h"
#include "DbObjectAccess.h"

#include "AcUtText.h"

HOST_RX_DEFINE_ABSTRACT(AcDbEntity, AcDbObject)

AcDbEntity::AcDbEntity() = default;

namespace {
// The database an entity's names are looked up in.
AcDbDatabase* databaseFor(const AcDbEntity& entity) {
    return entity.database() != nullptr ? entity.database() : acdbHostApplicationServices()->workingDatabase();
}
std::wstring recordName(AcDbObjectId id, const ACHAR* missing) {
    AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead, true);
    if (record)
        return record->name();
    // Open for write just now: its name can be told all the same.
    const AcDbSymbolTableRecord* const peeked = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(id));
    return peeked != nullptr ? peeked->name() : missing;
}
template <class Table> Acad::ErrorStatus findRecord(const AcDbEntity& entity, const ACHAR* name, AcDbObjectId& id) {
    AcDbDatabase* const db = databaseFor(entity);
    if (db == nullptr)
        return Acad::eNoDatabase;
    AcDbObjectPointer<Table> table(db->tableId(Table::desc()));
    return table ? table->getAt(name, id) : table.openStatus();
}
} // namespace

// ---- properties ---------------------------------------------------------------------
AcCmColor AcDbEntity::color() const {
    assertReadEnabled();
    return mColor;
}
Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool) {
    assertWriteEnabled();
    mColor = color;
    mGiven |= kColorGiven;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, bool doSubents) {
    AcCmColor color;
    const Acad::ErrorStatus es = color.setColorIndex(index);
    return es == Acad::eOk ? setColor(color, doSubents) : es;
}
AcDbObjectId AcDbEntity::layerId() const {
    assertReadEnabled();
    if (!mLayer.isNull())
        return mLayer;
    AcDbDatabase* const db = databaseFor(*this);
    return db != nullptr ? db->layerZero() : AcDbObjectId::kNull;
}
std::wstring AcDbEntity::layerName() const {
    return recordName(layerId(), L"0");
}
ACHAR* AcDbEntity::layer() const {
    return acutNewString(layerName().c_str());
}
Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool) {
    assertWriteEnabled();
    if (AcDbLayerTableRecord::cast(DbObjectAccess::peek(id)) == nullptr)
        return Acad::eInvalidInput;
    mLayer = id;
    mGiven |= kLayerGiven;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool doSubents) {
    AcDbObjectId id;
    const Acad::ErrorStatus es = findRecord<AcDbLayerTable>(*this, name, id);
    return es == Acad::eOk ? setLayer(id, doSubents) : es;
}
AcDbObjectId AcDbEntity::linetypeId() const {
    assertReadEnabled();
    if (!mLinetype.isNull())
        return mLinetype;
    AcDbDatabase* const db = databaseFor(*this);
    return db != nullptr ? db->byLayerLinetype() : AcDbObjectId::kNull;
}
std::wstring AcDbEntity::linetypeName() const {
    return recordName(linetypeId(), L"ByLayer");
}
ACHAR* AcDbEntity::linetype() const {
    return acutNewString(linetypeName().c_str());
}
Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, bool) {
    assertWriteEnabled();
    if (AcDbLinetypeTableRecord::cast(DbObjectAccess::peek(id)) == nullptr)
        return Acad::eInvalidInput;
    mLinetype = id;
    mGiven |= kLinetypeGiven;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents) {
    AcDbObjectId id;
    const Acad::ErrorStatus es = findRecord<AcDbLinetypeTable>(*this, name, id);
    return es == Acad::eOk ? setLinetype(id, doSubents) : es;
}
double AcDbEntity::linetypeScale() const {
    assertReadEnabled();
    return mLinetypeScale;
}
Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool) {
    if (!(scale > 0.0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    mLinetypeScale = scale;
    mGiven |= kScaleGiven;
    return Acad::eOk;
}
AcDb::LineWeight AcDbEntity::lineWeight() const {
    assertReadEnabled();
    return mLineWeight;
}
Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool) {
    assertWriteEnabled();
    mLineWeight = weight;
    mGiven |= kWeightGiven;
    return Acad::eOk;
}
AcDb::Visibility AcDbEntity::visibility() const {
    assertReadEnabled();
    return mInvisible ? AcDb::kInvisible : AcDb::kVisible;
}
Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool) {
    assertWriteEnabled();
    mInvisible = visibility == AcDb::kInvisible;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, bool doSubents) {
    if (other == nullptr)
        return Acad::eNullEntityPointer;
    assertWriteEnabled();
    other->assertReadEnabled();
    mLayer = other->mLayer;
    mLinetype = other->mLinetype;
    mLinetypeScale = other->mLinetypeScale;
    mLineWeight = other->mLineWeight;
    mInvisible = other->mInvisible;
    const Acad::ErrorStatus es = setColor(other->mColor, doSubents);
    mGiven = other->hasAllGiven() ? Adesk::UInt8{kAllGiven} : other->mGiven;
    return es;
}
void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
    if (database == nullptr)
        database = databaseFor(*this);
    assertWriteEnabled();
    if (database == nullptr)
        return;
    mGiven = 0;
    takeCurrentProperties(*database);
}
void AcDbEntity::takeCurrentProperties(const AcDbDatabase& database) {
    if ((mGiven & kLayerGiven) == 0)
        mLayer = database.clayer();
    if ((mGiven & kLinetypeGiven) == 0)
        mLinetype = database.celtype();
    if ((mGiven & kScaleGiven) == 0)
        mLinetypeScale = database.celtscale();
    if ((mGiven & kWeightGiven) == 0)
        mLineWeight = database.celweight();
    if ((mGiven & kColorGiven) == 0)
        mColor = database.cecolor();
    mGiven = kAllGiven;
}

// ---- behaviour ----------------------------------------------------------------------
Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    return subTransformBy(matrix);
}
Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    const int before = entities.length();
    const Acad::ErrorStatus es = subExplode(entities);
    // What a part was not given shows as by layer, and goes on doing so wherever the part is added.
    for (int i = before; i < entities.length(); ++i)
        static_cast<AcDbEntity*>(entities[i])->mGiven = kAllGiven;
    return es;
}
Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    return subGetGeomExtents(extents);
}
Acad::ErrorStatus AcDbEntity::subGetGeomExtents(AcDbExtents& extents) const {
    static const AcRxClass* const attributeDefinition = acrxFindClass(L"AcDbAttributeDefinition");
    // An attribute definition counts when it is the one asked for, never inside a block.
    const auto accept = [this](AcGiDrawable& drawable) { return &drawable == this || !drawable.isKindOf(attributeDefinition); };
    // Drawing changes nothing; the drawable's operation is only not declared so.
    extents = giExtentsOf(const_cast<AcDbEntity&>(*this), accept);
    return extents.isValid() ? Acad::eOk : Acad::eInvalidExtents;
}
Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray& points, AcIntArray& osnapModes, AcIntArray& geomIds) const {
    assertReadEnabled();
    return subGetGripPoints(points, osnapModes, geomIds);
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    return subMoveGripPointsAt(indices, offset);
}
Acad::ErrorStatus AcDbEntity::getGripPoints(AcDbGripDataPtrArray& grips, double viewUnitSize, int gripSize,
                                            const AcGeVector3d& viewDirection, int bitflags) const {
    assertReadEnabled();
    return subGetGripPoints(grips, viewUnitSize, gripSize, viewDirection, bitflags);
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& offset, int bitflags) {
    assertWriteEnabled();
    return subMoveGripPointsAt(gripAppData, offset, bitflags);
}
Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode mode, AcGePoint3dArray& points, const AcGePoint3d& pick, const AcGePoint3d& last) const {
    assertReadEnabled();
    AcIntArray geomIds;
    return subGetOsnapPoints(mode, 0, pick, last, AcGeMatrix3d(), points, geomIds);
}
Acad::ErrorStatus AcDbEntity::subGetOsnapPoints(AcDb::OsnapMode, std::intptr_t, const AcGePoint3d&, const AcGePoint3d&,
                                                const AcGeMatrix3d&, AcGePoint3dArray&, AcIntArray&) const {
    return Acad::eOk; // nothing to snap to
}
Acad::ErrorStatus AcDbEntity::highlight() const {
    mHighlighted = true;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::unhighlight() const {
    mHighlighted = false;
    return Acad::eOk;
}
bool AcDbEntity::isHighlighted() const {
    return mHighlighted;
}
void AcDbEntity::recordGraphicsModified(bool setModified) {
    mModified = setModified;
}
bool AcDbEntity::isGraphicsModified() const {
    return mModified;
}
void AcDbEntity::subList() const {
    AcDbExtents extents;
    acdbPrintf(L"%s  handle %s  layer \"%s\"\n", isA()->dxfName() != nullptr ? isA()->dxfName() : isA()->name(),
               getAcDbHandle().text().c_str(), layerName().c_str());
    if (getGeomExtents(extents) == Acad::eOk)
        acdbPrintf(L"  from %.4f,%.4f to %.4f,%.4f\n", extents.minPoint().x, extents.minPoint().y, extents.maxPoint().x,
                   extents.maxPoint().y);
}
GiTraits AcDbEntity::startTraits() const {
    GiTraits traits;
    traits.color = mColor;
    traits.layer = layerId();
    traits.lineType = mLinetype;
    traits.lineTypeScale = mLinetypeScale;
    traits.lineWeight = mLineWeight;
    return traits;
}
Adesk::UInt32 AcDbEntity::subSetAttributes(AcGiSubEntityTraits* traits) {
    assertReadEnabled();
    const GiTraits own = startTraits();
    traits->setTrueColor(own.color);
    traits->setLayer(own.layer);
    traits->setLineType(own.lineType);
    traits->setLineTypeScale(own.lineTypeScale);
    traits->setLineWeight(own.lineWeight);
    return kDrawableIsAnEntity | (mInvisible ? kDrawableIsInvisible : kDrawableNone);
}

// ---- filing -------------------------------------------------------------------------
namespace {
// A drawing file keeps the common fields of its own entities in their records' heads; an entity that
// is filed inside another has no such head.
bool filesCommonFields(const AcDbEntity& entity, const AcDbDwgFiler& filer) {
    return filer.filerType() != AcDb::kFileFiler || entity.objectId().isNull();
}
} // namespace

Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    if (!filesCommonFields(*this, *filer))
        return filer->filerStatus();
    DbFieldsOut out(*filer);
    out.value(mColor);
    out.hardPointer(mLayer);
    out.hardPointer(mLinetype);
    out.value(mLinetypeScale);
    out.value(mLineWeight);
    out.value(mInvisible);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    if (!filesCommonFields(*this, *filer))
        return filer->filerStatus();
    DbFieldsIn in(*filer);
    in.value(mColor);
    in.hardPointer(mLayer);
    in.hardPointer(mLinetype);
    in.value(mLinetypeScale);
    in.value(mLineWeight);
    in.value(mInvisible);
    return filer->filerStatus();
}
