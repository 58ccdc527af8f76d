// Objects of the database: opening, filing, extended data.
#include "AcDbObject.h"

#include "DbDatabaseData.h"
#include "DbOpenState.h"
#include "DbResbufFiling.h"

#include "AcUtText.h"

#include <cstdio>

HOST_RX_DEFINE_ABSTRACT(AcDbObject, AcGiDrawable)

int gDbOpenObjects = 0;

AcDbObject::AcDbObject() = default;
AcDbObject::~AcDbObject() = default;

int acdbOpenObjectCount() {
    return gDbOpenObjects;
}

void dbReportBreach(const AcDbObject& object, Acad::ErrorStatus status) {
    const std::string what = acToUtf8(acFormat(L"open rule broken: %s of the %s with handle %s", acadErrorStatusText(status),
                                               object.isA()->name(), object.objectId().handle().text().c_str()));
    std::fprintf(stderr, "%s\n", what.c_str());
    throw AcDbOpenRuleBreach{status};
}

// ---- opening -----------------------------------------------------------------------
namespace {
bool isOnLockedLayer(const AcDbObject& object) {
    if (!DbObjectAccess::data(*object.objectId().database()).hadLockedLayer)
        return false;
    const AcDbEntity* const entity = AcDbEntity::cast(&object);
    return entity != nullptr && DbObjectAccess::isOnLockedLayer(*entity);
}
} // namespace

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased, bool openOnLockedLayer) {
    object = nullptr;
    AcDbStub* const stub = id.stub();
    if (stub == nullptr)
        return Acad::eNullObjectId;
    if (stub->object == nullptr)
        return Acad::eUnknownHandle;
    if (stub->erased && !openErased)
        return Acad::eWasErased;
    if (stub->writer)
        return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) {
        if (stub->readers != 0)
            return Acad::eWasOpenForRead;
        if (!openOnLockedLayer && isOnLockedLayer(*stub->object))
            return Acad::eOnLockedLayer;
        stub->writer = true;
    } else {
        constexpr int kMostReaders = 256;
        if (stub->readers == kMostReaders)
            return Acad::eAtMaxReaders;
        ++stub->readers;
    }
    ++gDbOpenObjects;
    object = stub->object;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close() {
    AcDbStub* const stub = mId.stub();
    if (stub == nullptr)
        return Acad::eNotInDatabase;
    if (stub->writer) {
        if (stub->modified) {
            stub->modified = false;
            subClose();
        }
        stub->writer = false;
    } else if (stub->readers != 0) {
        --stub->readers;
    } else {
        return Acad::eInvalidOpenState;
    }
    --gDbOpenObjects;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    AcDbStub* const stub = mId.stub();
    if (stub == nullptr)
        return Acad::eNotInDatabase;
    if (stub->writer)
        return Acad::eOk;
    if (stub->readers != 1)
        return stub->readers == 0 ? Acad::eNotOpenForRead : Acad::eWasOpenForRead;
    if (isOnLockedLayer(*this))
        return Acad::eOnLockedLayer;
    stub->readers = 0;
    stub->writer = true;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbObject::downgradeOpen() {
    AcDbStub* const stub = mId.stub();
    if (stub == nullptr)
        return Acad::eNotInDatabase;
    if (!stub->writer)
        return Acad::eNotOpenForWrite;
    if (stub->modified) {
        stub->modified = false;
        subClose();
    }
    stub->writer = false;
    stub->readers = 1;
    return Acad::eOk;
}

bool AcDbObject::isReadEnabled() const {
    const AcDbStub* const stub = mId.stub();
    return stub == nullptr || stub->writer || stub->readers != 0;
}
bool AcDbObject::isWriteEnabled() const {
    const AcDbStub* const stub = mId.stub();
    return stub == nullptr || stub->writer;
}
void AcDbObject::assertReadEnabled() const {
    const AcDbStub* const stub = mId.stub();
    if (stub == nullptr || stub->writer || stub->readers != 0)
        return;
    if (!DbObjectAccess::data(*stub->database).loading)
        dbReportBreach(*this, Acad::eNotOpenForRead);
}
void AcDbObject::assertWriteEnabled(bool autoUndo, bool recordModified) {
    AcDbStub* const stub = mId.stub();
    if (stub == nullptr)
        return;
    AcDbDatabaseImpData& db = DbObjectAccess::data(*stub->database);
    if (db.loading)
        return;
    if (!stub->writer)
        dbReportBreach(*this, Acad::eNotOpenForWrite);
    if (autoUndo && stub->undoTick != db.undo.tick())
        db.undo.recordState(*this);
    if (recordModified) {
        stub->modified = true;
        mModified = true;
        db.changed = true;
    }
}

// ---- standing in the database --------------------------------------------------------
AcDbObjectId AcDbObject::ownerId() const {
    return mData == nullptr ? AcDbObjectId::kNull : mData->owner;
}
Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner) {
    assertWriteEnabled();
    DbObjectAccess::data(*this).owner = owner;
    return Acad::eOk;
}
AcDbDatabase* AcDbObject::database() const {
    return mId.database();
}
bool AcDbObject::isErased() const {
    return mId.isErased();
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    AcDbStub* const stub = mId.stub();
    if (stub == nullptr)
        return Acad::eNotInDatabase;
    assertWriteEnabled();
    if (stub->erased == erasing)
        return erasing ? Acad::eWasErased : Acad::eOk;
    const Acad::ErrorStatus es = subErase(erasing);
    if (es != Acad::eOk)
        return es;
    stub->erased = erasing;
    if (isKindOf(AcDbSymbolTableRecord::desc()))
        DbObjectAccess::namesChanged();
    AcDbObjectPointer<AcDbObject> extension(extensionDictionary(), AcDb::kForWrite, true);
    if (extension)
        extension->erase(erasing);
    return Acad::eOk;
}

// ---- filing ------------------------------------------------------------------------
namespace {
// What stands before the fields in every stream but a file's, whose codec keeps these things in
// the object's record. A listing tells of them only where there are any. A copy of an entity that stands
// in no drawing yet must know what its original was given: the rest becomes current properties later.
enum Extra : Adesk::UInt8 { kHasXData = 1, kHasRaw = 2, kHasGraphics = 4, kHasUngiven = 8 };

void writeBlob(AcDbDwgFiler& filer, const std::vector<Adesk::UInt8>& bytes) {
    const auto size = static_cast<Adesk::UInt32>(bytes.size());
    filer.writeUInt32(size);
    filer.writeBytes(bytes.data(), size);
}
std::vector<Adesk::UInt8> readBlob(AcDbDwgFiler& filer) {
    Adesk::UInt32 size = 0;
    filer.readUInt32(&size);
    std::vector<Adesk::UInt8> bytes(filer.filerStatus() == Acad::eOk ? size : 0);
    filer.readBytes(bytes.data(), static_cast<Adesk::UInt32>(bytes.size()));
    return bytes;
}
void writeReference(AcDbDwgFiler& filer, const DbRawRecord::Reference& reference) {
    filer.writeUInt8(reference.code);
    switch (reference.code) {
    case 2:
        filer.writeSoftOwnershipId(reference.id);
        break;
    case 3:
        filer.writeHardOwnershipId(reference.id);
        break;
    case 4:
        filer.writeSoftPointerId(reference.id);
        break;
    default:
        filer.writeHardPointerId(reference.id);
    }
}
template <class Id, class Read> AcDbObjectId readAs(Read read) {
    Id id;
    read(&id);
    return id;
}
DbRawRecord::Reference readReference(AcDbDwgFiler& filer) {
    DbRawRecord::Reference reference;
    filer.readUInt8(&reference.code);
    switch (reference.code) {
    case 2:
        reference.id = readAs<AcDbSoftOwnershipId>([&](auto* id) { filer.readSoftOwnershipId(id); });
        break;
    case 3:
        reference.id = readAs<AcDbHardOwnershipId>([&](auto* id) { filer.readHardOwnershipId(id); });
        break;
    case 4:
        reference.id = readAs<AcDbSoftPointerId>([&](auto* id) { filer.readSoftPointerId(id); });
        break;
    default:
        reference.id = readAs<AcDbHardPointerId>([&](auto* id) { filer.readHardPointerId(id); });
    }
    return reference;
}
void writeRaw(AcDbDwgFiler& filer, const DbRawRecord& raw) {
    filer.writeInt32(raw.objectType);
    filer.writeString(raw.dxfName.c_str());
    filer.writeUInt32(raw.dataBits);
    filer.writeBool(raw.referencesChanged);
    writeBlob(filer, raw.bytes);
    filer.writeUInt32(static_cast<Adesk::UInt32>(raw.references.size()));
    for (const DbRawRecord::Reference& reference : raw.references)
        writeReference(filer, reference);
}
// References that cloning turned into others can no longer be told from the bits.
DbRawRecord readRaw(AcDbDwgFiler& filer, bool cloning) {
    DbRawRecord raw;
    filer.readInt32(&raw.objectType);
    filer.readString(raw.dxfName);
    filer.readUInt32(&raw.dataBits);
    filer.readBool(&raw.referencesChanged);
    raw.bytes = readBlob(filer);
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    for (; count > 0 && filer.filerStatus() == Acad::eOk; --count)
        raw.references.push_back(readReference(filer));
    raw.referencesChanged = raw.referencesChanged || (cloning && !raw.references.empty());
    return raw;
}
AcDbEntity* newEntity(const AcDbObject& object) {
    return object.objectId().isNull() ? AcDbEntity::cast(const_cast<AcDbObject*>(&object)) : nullptr;
}
void writeExtras(AcDbDwgFiler& filer, const AcDbObject& object) {
    const AcDbObjectImpData* const data = DbObjectAccess::dataIfAny(object);
    AcDbEntity* const entity = newEntity(object);
    const bool isListing = dynamic_cast<AcDbRecordingFiler*>(&filer) != nullptr;
    const bool hasUngiven = entity != nullptr && !isListing && DbObjectAccess::given(*entity) != DbObjectAccess::kAllGiven;
    Adesk::UInt8 extras = hasUngiven ? kHasUngiven : 0;
    if (data != nullptr)
        extras = static_cast<Adesk::UInt8>(extras | (data->xdata != nullptr ? kHasXData : 0) | (data->raw ? kHasRaw : 0)
                                           | (!data->proxyGraphics.empty() ? kHasGraphics : 0));
    if (extras == 0 && isListing)
        return;
    filer.writeUInt8(extras);
    if (hasUngiven)
        filer.writeUInt8(DbObjectAccess::given(*entity));
    if ((extras & kHasXData) != 0)
        dbWriteChain(filer, data->xdata);
    if ((extras & kHasRaw) != 0)
        writeRaw(filer, *data->raw);
    if ((extras & kHasGraphics) != 0)
        writeBlob(filer, data->proxyGraphics);
}
void readExtras(AcDbDwgFiler& filer, AcDbObject& object) {
    Adesk::UInt8 extras = 0;
    filer.readUInt8(&extras);
    Adesk::UInt8 given = DbObjectAccess::kAllGiven;
    if ((extras & kHasUngiven) != 0)
        filer.readUInt8(&given);
    if (AcDbEntity* const entity = newEntity(object))
        DbObjectAccess::given(*entity) = given;
    if (extras == 0 && DbObjectAccess::dataIfAny(object) == nullptr)
        return;
    const bool cloning = filer.filerType() == AcDb::kDeepCloneFiler || filer.filerType() == AcDb::kWblockCloneFiler;
    AcDbObjectImpData& data = DbObjectAccess::data(object);
    acutRelRb(data.xdata);
    data.xdata = (extras & kHasXData) != 0 ? dbReadChain(filer) : nullptr;
    data.raw.reset();
    if ((extras & kHasRaw) != 0)
        data.raw = readRaw(filer, cloning);
    data.proxyGraphics = (extras & kHasGraphics) != 0 ? readBlob(filer) : std::vector<Adesk::UInt8>();
}
} // namespace

Acad::ErrorStatus AcDbObject::dwgOut(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    if (filer->filerType() != AcDb::kFileFiler)
        writeExtras(*filer, *this);
    const Acad::ErrorStatus es = dwgOutFields(filer);
    return es != Acad::eOk ? es : filer->filerStatus();
}
Acad::ErrorStatus AcDbObject::dwgIn(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    if (filer->filerType() != AcDb::kFileFiler)
        readExtras(*filer, *this);
    const Acad::ErrorStatus es = dwgInFields(filer);
    return es != Acad::eOk ? es : filer->filerStatus();
}
Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    return filer->filerStatus();
}

AcDbObject* AcDbObject::clone() const {
    std::unique_ptr<AcDbObject> copy(AcDbObject::cast(isA()->create()));
    return copy != nullptr && copy->copyFrom(this) == Acad::eOk ? copy.release() : nullptr;
}
Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* other) {
    if (other == nullptr)
        return Acad::eNullObjectPointer;
    if (other->isA() != isA())
        return Acad::eNotThatKindOfClass;
    AcDbDeepCloneFiler filer(AcDb::kCopyFiler);
    const Acad::ErrorStatus es = static_cast<const AcDbObject*>(other)->dwgOut(&filer);
    filer.seek(0, AcDb::kSeekFromStart);
    return es != Acad::eOk ? es : dwgIn(&filer);
}

// ---- names of entities ----------------------------------------------------------------
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    name[0] = id.asOldId();
    name[1] = 0;
    return id.isNull() ? Acad::eNullObjectId : Acad::eOk;
}
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    id.setFromOldId(name[0]);
    return id.isNull() ? Acad::eNullObjectId : Acad::eOk;
}
