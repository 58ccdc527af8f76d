// Symbol tables and what their records share.
#include "AcDbSymbolTables.h"

#include "AcDbBlockReference.h"
#include "DbDatabaseData.h"
#include "DbFieldFiling.h"

#include "AcUtText.h"

HOST_RX_DEFINE_ABSTRACT(AcDbSymbolTableRecord, AcDbObject)
HOST_RX_DEFINE_ABSTRACT(AcDbSymbolTable, AcDbObject)
HOST_RX_DEFINE(AcDbBlockTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbLayerTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbTextStyleTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbLinetypeTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbRegAppTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbDimStyleTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbViewTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbUCSTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbViewportTable, AcDbSymbolTable, nullptr)
HOST_RX_DEFINE(AcDbVXTable, AcDbSymbolTable, nullptr)

namespace {
Adesk::UInt64 gNamesChangedAt = 1; // counts changes of names; an index made earlier is stale

std::wstring folded(const ACHAR* name) {
    std::wstring out(name);
    for (ACHAR& c : out)
        c = acFoldCase(c);
    return out;
}
} // namespace

void DbObjectAccess::namesChanged() {
    ++gNamesChangedAt;
}

// ---- records -------------------------------------------------------------------------
Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    assertReadEnabled();
    name = acutNewString(mName.c_str());
    return Acad::eOk;
}
Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    AcDbObjectPointer<AcDbSymbolTable> table(ownerId());
    AcDbObjectId other;
    if (table && table->getAt(name, other) == Acad::eOk && other != objectId())
        return Acad::eDuplicateKey;
    mName = name;
    DbObjectAccess::namesChanged();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbSymbolTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    return filer->writeString(mName.c_str());
}
Acad::ErrorStatus AcDbSymbolTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    filer->readString(mName);
    DbObjectAccess::namesChanged();
    return filer->filerStatus();
}

// ---- tables --------------------------------------------------------------------------
AcDbObjectId AcDbSymbolTable::find(const ACHAR* name) const {
    if (mIndexedAt != gNamesChangedAt || mIndexedCount != mRecords.length()) {
        mIndex.clear();
        for (const AcDbObjectId id : mRecords) {
            const AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(id));
            if (record != nullptr && !id.isErased())
                mIndex.emplace(folded(record->name().c_str()), id);
        }
        mIndexedAt = gNamesChangedAt;
        mIndexedCount = mRecords.length();
    }
    const auto found = mIndex.find(folded(name));
    return found == mIndex.end() ? AcDbObjectId::kNull : found->second;
}
Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
    assertReadEnabled();
    if (name == nullptr)
        return Acad::eInvalidInput;
    id = find(name);
    for (int i = 0; getErased && id.isNull() && i < mRecords.length(); ++i) {
        const AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(mRecords[i]));
        if (record != nullptr && acutWcsicmp(record->name().c_str(), name) == 0)
            id = mRecords[i];
    }
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}
bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

namespace {
// "*U" asks for an anonymous block: its number is the first free one.
std::wstring anonymousName(const AcDbSymbolTable& table, const std::wstring& prefix) {
    int number = 1;
    while (table.has((prefix + std::to_wstring(number)).c_str()))
        ++number;
    return prefix + std::to_wstring(number);
}
bool asksForNumber(const AcDbSymbolTableRecord& record) {
    const std::wstring name = record.name();
    return AcDbBlockTableRecord::cast(&record) != nullptr && name.size() == 2 && name[0] == L'*' && name != L"**";
}
// Every layer of a file names a line type and a plot style.
void completeLayer(AcDbDatabase& db, AcDbLayerTableRecord& layer) {
    if (DbObjectAccess::linetype(layer).isNull())
        DbObjectAccess::linetype(layer) = db.continuousLinetype();
    if (DbObjectAccess::plotStyle(layer).isNull())
        DbObjectAccess::plotStyle(layer) = DbObjectAccess::data(db).normalPlotStyle;
}
// Files keep two markers around a block's entities.
Acad::ErrorStatus addMarkers(AcDbDatabase& db, AcDbBlockTableRecord& block) {
    if (!block.blockBeginId().isNull())
        return Acad::eOk;
    auto* const begin = new AcDbBlockBegin;
    auto* const end = new AcDbBlockEnd;
    DbObjectAccess::adopt(db, *begin, block.objectId(), DbObjectAccess::blockBegin(block));
    DbObjectAccess::adopt(db, *end, block.objectId(), DbObjectAccess::blockEnd(block));
    begin->close();
    end->close();
    return Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    if (!record->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (record->name().empty())
        return Acad::eInvalidInput;
    assertWriteEnabled();
    if (asksForNumber(*record))
        DbObjectAccess::name(*record) = anonymousName(*this, record->name());
    if (has(record->name().c_str()))
        return Acad::eDuplicateKey;
    const Acad::ErrorStatus es = DbObjectAccess::adopt(*database(), *record, objectId(), id);
    if (es != Acad::eOk)
        return es;
    mRecords.append(id);
    if (mIndexedAt == gNamesChangedAt && mIndexedCount == mRecords.length() - 1) { // else made anew when asked
        mIndex.emplace(folded(record->name().c_str()), id);
        ++mIndexedCount;
    }
    if (AcDbLayerTableRecord* const layer = AcDbLayerTableRecord::cast(record))
        completeLayer(*database(), *layer);
    if (AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(record))
        return addMarkers(*database(), *block);
    return Acad::eOk;
}

namespace {
class Iterator : public AcDbSymbolTableIterator {
public:
    explicit Iterator(const AcDbObjectIdArray& records) {
        for (const AcDbObjectId id : records)
            if (id.isValid() && !id.isErased())
                mRecords.append(id);
    }
    void start() override { mAt = 0; }
    bool done() const override { return mAt >= mRecords.length(); }
    void step() override { ++mAt; }
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const override {
        if (done())
            return Acad::eIteratorDone;
        id = mRecords[mAt];
        return Acad::eOk;
    }
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode) const override {
        record = nullptr;
        return done() ? Acad::eIteratorDone : acdbOpenObject(record, mRecords[mAt], mode);
    }

private:
    AcDbObjectIdArray mRecords;
    int mAt = 0;
};
} // namespace

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator) const {
    assertReadEnabled();
    iterator = new Iterator(mRecords);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbSymbolTable::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    DbFieldsOut(*filer).sequence(mRecords, [](DbFieldsOut& out, AcDbObjectId id) { out.softOwner(id); });
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbSymbolTable::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    DbFieldsIn(*filer).sequence(mRecords, [](DbFieldsIn& in, AcDbObjectId& id) { in.softOwner(id); });
    DbObjectAccess::namesChanged();
    return filer->filerStatus();
}
