#include "DbObjectAccess.h"

#include "DbDatabaseData.h"
#include "DbFilerTags.h"
#include "DbOpenState.h"

#include <algorithm>

AcDbStub& AcDbDatabaseImpData::newStub(AcDbDatabase& db, Adesk::UInt64 handle) {
    AcDbStub& stub = stubs.emplace_back();
    stub.database = &db;
    stub.handle = handle;
    byHandle.emplace(handle, &stub);
    handseed = std::max(handseed, handle + 1);
    return stub;
}
void AcDbDatabaseImpData::noteLock(const AcDbObject& object) {
    const AcDbLayerTableRecord* const layer = AcDbLayerTableRecord::cast(&object);
    hadLockedLayer = hadLockedLayer || (layer != nullptr && layer->isLocked());
}
void AcDbDatabaseImpData::deleteObjects() {
    for (AcDbStub& stub : stubs) {
        gDbOpenObjects -= stub.readers + (stub.writer ? 1 : 0);
        delete stub.object;
        stub.object = nullptr;
    }
}

AcDbObjectId DbObjectAccess::idFor(AcDbDatabase& db, AcDbHandle handle) {
    if (handle.isNull())
        return AcDbObjectId::kNull;
    AcDbDatabaseImpData& d = data(db);
    const auto found = d.byHandle.find(handle);
    return AcDbObjectId(found != d.byHandle.end() ? found->second : &d.newStub(db, handle));
}
void DbObjectAccess::place(AcDbDatabase& db, AcDbObjectId id, std::unique_ptr<AcDbObject> object) {
    AcDbStub& stub = *id.stub();
    object->mId = id;
    delete stub.object;
    stub.object = object.release();
    data(db).noteLock(*stub.object);
    data(db).changed = true;
    namesChanged();
}
void DbObjectAccess::replace(AcDbObjectId id, std::unique_ptr<AcDbObject> object) {
    place(*id.database(), id, std::move(object));
}
AcDbObject* DbObjectAccess::peek(AcDbObjectId id) {
    return id.isNull() ? nullptr : id.stub()->object;
}
std::vector<AcDbObjectId> DbObjectAccess::allIds(const AcDbDatabase& db) {
    std::vector<AcDbObjectId> ids;
    for (const AcDbStub& stub : data(db).stubs)
        if (stub.object != nullptr && !stub.erased)
            ids.emplace_back(const_cast<AcDbStub*>(&stub));
    std::sort(ids.begin(), ids.end(), [](AcDbObjectId a, AcDbObjectId b) { return a.stub()->handle < b.stub()->handle; });
    return ids;
}
void DbObjectAccess::setHandseed(AcDbDatabase& db, AcDbHandle seed) {
    data(db).handseed = std::max<Adesk::UInt64>(data(db).handseed, seed);
}
// Asked at each opening for write, so the classes of nearly every case are told by one comparison.
bool DbObjectAccess::isOnLockedLayer(const AcDbEntity& entity) {
    static const AcRxClass* const layerClass = AcDbLayerTableRecord::desc();
    static const AcRxClass* const blockClass = AcDbBlockTableRecord::desc();
    const auto isLocked = [](AcDbObjectId id) {
        const AcDbObject* const layer = peek(id);
        return layer != nullptr && layer->isA() == layerClass && static_cast<const AcDbLayerTableRecord*>(layer)->isLocked();
    };
    if (isLocked(entity.mLayer))
        return true;
    const AcDbObject* const owner = peek(entity.ownerId());
    if (owner == nullptr || owner->isA() == blockClass)
        return false;
    const AcDbEntity* const holder = AcDbEntity::cast(owner);
    return holder != nullptr && isLocked(holder->mLayer);
}
AcDbObjectImpData& DbObjectAccess::data(AcDbObject& object) {
    if (object.mData == nullptr)
        object.mData = std::make_unique<AcDbObjectImpData>();
    return *object.mData;
}
const AcDbObjectImpData* DbObjectAccess::dataIfAny(const AcDbObject& object) {
    return object.mData.get();
}

namespace {
// An entity of a drawing names its layer and line type. A vertex or an attribute without one of its
// own takes its owner's layer.
void completeProperties(AcDbDatabase& db, AcDbEntity& entity) {
    AcDbObjectId& layer = DbObjectAccess::layer(entity);
    if (layer.isNull()) {
        AcDbEntity* const owner = AcDbEntity::cast(DbObjectAccess::peek(entity.ownerId()));
        layer = owner != nullptr ? DbObjectAccess::layer(*owner) : AcDbObjectId::kNull;
    }
    if (layer.isNull())
        layer = db.layerZero();
    if (DbObjectAccess::linetype(entity).isNull())
        DbObjectAccess::linetype(entity) = db.byLayerLinetype();
}
} // namespace

Acad::ErrorStatus DbObjectAccess::adopt(AcDbDatabase& db, AcDbObject& object, AcDbObjectId owner, AcDbObjectId& id) {
    if (!object.mId.isNull())
        return Acad::eAlreadyInDb;
    AcDbDatabaseImpData& d = data(db);
    AcDbStub& stub = d.newStub(db, d.handseed);
    stub.object = &object;
    stub.writer = true;
    ++gDbOpenObjects;
    object.mId = id = AcDbObjectId(&stub);
    object.mModified = true;
    data(object).owner = owner;
    if (AcDbEntity* const entity = AcDbEntity::cast(&object))
        completeProperties(db, *entity);
    d.noteLock(object);
    d.changed = true;
    if (!d.loading)
        d.undo.recordCreation(stub);
    return Acad::eOk;
}

void DbObjectAccess::setLoading(AcDbDatabase& db, bool loading) {
    data(db).loading = loading;
}
void DbObjectAccess::setTableId(AcDbDatabase& db, const AcRxClass* tableClass, AcDbObjectId id) {
    for (auto& [known, tableId] : data(db).tables)
        if (known == tableClass) {
            tableId = id;
            return;
        }
    data(db).tables.emplace_back(tableClass, id);
}
void DbObjectAccess::setNamedObjects(AcDbDatabase& db, AcDbObjectId id) {
    data(db).namedObjects = id;
}
std::map<std::wstring, DbHeaderValue>& DbObjectAccess::header(AcDbDatabase& db) {
    return data(db).header;
}
std::vector<DbFileClass>& DbObjectAccess::classes(AcDbDatabase& db) {
    return data(db).classes;
}
void DbObjectAccess::setFilename(AcDbDatabase& db, const std::wstring& path) {
    data(db).filename = path;
}
void DbObjectAccess::setLastError(AcDbDatabase& db, const std::wstring& error) {
    data(db).lastError = error;
}

// ---- walking a memory stream by its tags
namespace {
std::size_t payloadSize(Adesk::UInt8 tag, const Adesk::UInt8* payload) {
    switch (tag) {
#define DB_SIZE_OF(NAME, TYPE)                                                                                         \
    case DbFilerTag::k##NAME:                                                                                          \
        return sizeof(TYPE);
        DB_FILER_PLAIN_TYPES(DB_SIZE_OF)
        DB_FILER_GEOMETRY_TYPES(DB_SIZE_OF)
        DB_FILER_ID_TYPES(DB_SIZE_OF)
#undef DB_SIZE_OF
    case DbFilerTag::kString:
    case DbFilerTag::kBytes: {
        Adesk::UInt32 count = 0;
        std::memcpy(&count, payload, sizeof count);
        return sizeof count + count * (tag == DbFilerTag::kString ? sizeof(ACHAR) : 1);
    }
    default:
        return 0;
    }
}
std::optional<DbObjectAccess::FiledId::Kind> referenceKind(Adesk::UInt8 tag) {
    switch (tag) {
    case DbFilerTag::kHardOwnershipId:
        return DbObjectAccess::FiledId::kHardOwner;
    case DbFilerTag::kSoftOwnershipId:
        return DbObjectAccess::FiledId::kSoftOwner;
    case DbFilerTag::kHardPointerId:
        return DbObjectAccess::FiledId::kHardPointer;
    case DbFilerTag::kSoftPointerId:
        return DbObjectAccess::FiledId::kSoftPointer;
    default:
        return std::nullopt;
    }
}
} // namespace

std::vector<DbObjectAccess::FiledId> DbObjectAccess::filedIds(const AcDbDeepCloneFiler& filer) {
    std::vector<FiledId> ids;
    for (std::size_t at = 0; at < filer.mSize;) {
        const Adesk::UInt8 tag = filer.mBytes[at];
        const Adesk::UInt8* const payload = filer.mBytes + at + 1;
        if (const auto kind = referenceKind(tag)) {
            AcDbStub* stub = nullptr;
            std::memcpy(&stub, payload, sizeof stub);
            if (stub != nullptr)
                ids.push_back({*kind, AcDbObjectId(stub)});
        }
        at += 1 + payloadSize(tag, payload);
    }
    return ids;
}
