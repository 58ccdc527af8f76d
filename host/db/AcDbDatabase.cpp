// The database: tables, ids, current properties, undo.
#include "AcDbDatabase.h"

#include "AcDbAnnotationScale.h"
#include "DbDatabaseData.h"
#include "DbDefaultDrawing.h"
#include "DbScaleList.h"

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : mData(std::make_unique<AcDbDatabaseImpData>(*this)) {
    mData->contexts = dbNewContextManager(*this);
    if (buildDefaultDrawing)
        dbBuildDefaultDrawing(*this);
    mData->changed = false;
}
AcDbDatabase::~AcDbDatabase() {
    if (acdbHostApplicationServices()->workingDatabase() == this)
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    mData->deleteObjects();
}

std::wstring AcDbDatabase::lastError() const {
    return mData->lastError;
}
Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& name) const {
    name = mData->filename.c_str();
    return Acad::eOk;
}

// ---- tables ------------------------------------------------------------------------------
AcDbObjectId AcDbDatabase::tableId(const AcRxClass* tableClass) const {
    for (const auto& [known, id] : mData->tables)
        if (known == tableClass)
            return id;
    return AcDbObjectId::kNull;
}
#define DB_TABLE_GETTER(OPERATION, TABLE)                                                                              \
    Acad::ErrorStatus AcDbDatabase::OPERATION(TABLE*& table, AcDb::OpenMode mode) {                                    \
        return acdbOpenObject(table, tableId(TABLE::desc()), mode);                                                    \
    }
DB_TABLE_GETTER(getBlockTable, AcDbBlockTable)
DB_TABLE_GETTER(getLayerTable, AcDbLayerTable)
DB_TABLE_GETTER(getTextStyleTable, AcDbTextStyleTable)
DB_TABLE_GETTER(getLinetypeTable, AcDbLinetypeTable)
DB_TABLE_GETTER(getRegAppTable, AcDbRegAppTable)

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode) {
    return acdbOpenObject(dictionary, mData->namedObjects, mode);
}
AcDbObjectId AcDbDatabase::blockTableId() const {
    return tableId(AcDbBlockTable::desc());
}
AcDbObjectId AcDbDatabase::layerTableId() const {
    return tableId(AcDbLayerTable::desc());
}
AcDbObjectId AcDbDatabase::textStyleTableId() const {
    return tableId(AcDbTextStyleTable::desc());
}
AcDbObjectId AcDbDatabase::linetypeTableId() const {
    return tableId(AcDbLinetypeTable::desc());
}
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const {
    return mData->namedObjects;
}
AcDbObjectId AcDbDatabase::modelSpaceId() const {
    return mData->modelSpace;
}
AcDbObjectId AcDbDatabase::paperSpaceId() const {
    return mData->paperSpace;
}
AcDbObjectId AcDbDatabase::currentSpaceId() const {
    const auto tileMode = mData->header.find(L"TILEMODE");
    return tileMode != mData->header.end() && tileMode->second.integer == 0 ? mData->paperSpace : mData->modelSpace;
}
AcDbObjectId AcDbDatabase::layerZero() const {
    return mData->layerZero;
}
AcDbObjectId AcDbDatabase::byLayerLinetype() const {
    return mData->byLayer;
}
AcDbObjectId AcDbDatabase::byBlockLinetype() const {
    return mData->byBlock;
}
AcDbObjectId AcDbDatabase::continuousLinetype() const {
    return mData->continuous;
}
AcDbObjectId AcDbDatabase::textStyleStandard() const {
    return mData->standardStyle;
}

// ---- objects -----------------------------------------------------------------------------
Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
    return object == nullptr ? Acad::eNullObjectPointer : DbObjectAccess::adopt(*this, *object, object->ownerId(), id);
}
Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle) const {
    id.setNull();
    if (handle.isNull())
        return Acad::eNullHandle;
    const auto found = mData->byHandle.find(handle);
    if (found != mData->byHandle.end() && (createIfNotFound || found->second->object != nullptr))
        id = AcDbObjectId(found->second);
    else if (createIfNotFound) // an id alone is no change of the drawing
        id = AcDbObjectId(&mData->newStub(const_cast<AcDbDatabase&>(*this), handle));
    return id.isNull() ? Acad::eUnknownHandle : Acad::eOk;
}
AcDbHandle AcDbDatabase::handseed() const {
    return AcDbHandle(mData->handseed);
}

// ---- undo --------------------------------------------------------------------------------
void AcDbDatabase::disableUndoRecording(bool disable) {
    mData->undo.setEnabled(!disable);
}
bool AcDbDatabase::undoRecording() const {
    return mData->undo.isEnabled();
}
void AcDbDatabase::startUndoRecord() {
    mData->undo.startGroup();
}
bool AcDbDatabase::undo() {
    return mData->undo.undo();
}
bool AcDbDatabase::redo() {
    return mData->undo.redo();
}
bool AcDbDatabase::hasChangedSinceSave() const {
    return mData->changed;
}
void AcDbDatabase::markSaved() {
    mData->changed = false;
}

std::vector<Adesk::UInt8> AcDbDatabase::thumbnailBitmap() const {
    return mData->thumbnail;
}
Acad::ErrorStatus AcDbDatabase::setThumbnailBitmap(const std::vector<Adesk::UInt8>& dib) {
    mData->thumbnail = dib;
    return Acad::eOk;
}

AcDbExtents AcDbDatabase::extents() const {
    AcDbExtents box;
    AcDbObjectPointer<AcDbBlockTableRecord> space(mData->modelSpace);
    if (space)
        space->getGeomExtents(box);
    return box;
}

void AcDbIdMapping::assign(const AcDbIdPair& pair) {
    const auto [found, isNew] = mIndex.emplace(pair.key, mPairs.size());
    if (isNew)
        mPairs.push_back(pair);
    else
        mPairs[found->second] = pair;
}
bool AcDbIdMapping::compute(AcDbIdPair& pair) const {
    const auto found = mIndex.find(pair.key);
    if (found == mIndex.end())
        return false;
    pair = mPairs[found->second];
    return true;
}
