// Block definitions.
#include "AcDbDatabase.h"
#include "AcDbSymbolTables.h"

#include "AcDbBlockReference.h"
#include "DbDatabaseData.h"
#include "DbFieldFiling.h"

#include "AcUtText.h"

HOST_RX_DEFINE(AcDbBlockTableRecord, AcDbSymbolTableRecord, L"BLOCK_RECORD")

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    if (entity == nullptr)
        return Acad::eNullEntityPointer;
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    // The list of entities is not filed for undo: an appended entity is taken back by erasing it, and
    // a space of ten thousand entities would be filed for every one that is added.
    assertWriteEnabled(false);
    if (entity->objectId().isNull())
        DbObjectAccess::takeCurrentProperties(*entity, *database());
    const Acad::ErrorStatus es = DbObjectAccess::adopt(*database(), *entity, objectId(), id);
    if (es != Acad::eOk)
        return es;
    mEntities.append(id);
    return Acad::eOk;
}

bool AcDbBlockTableRecord::isLayout() const {
    const std::wstring& own = DbObjectAccess::name(const_cast<AcDbBlockTableRecord&>(*this));
    const auto begins = [&own](std::wstring_view with) { return own.size() >= with.size() && acutWcsicmp(own.substr(0, with.size()).c_str(), std::wstring(with).c_str()) == 0; };
    return !mLayout.isNull() || begins(ACDB_MODEL_SPACE) || begins(ACDB_PAPER_SPACE);
}
bool AcDbBlockTableRecord::isAnonymous() const {
    const std::wstring own = name();
    return !own.empty() && own[0] == L'*' && !isLayout();
}
bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    assertReadEnabled();
    for (const AcDbObjectId id : mEntities)
        if (!id.isErased() && AcDbAttributeDefinition::cast(DbObjectAccess::peek(id)) != nullptr)
            return true;
    return false;
}
Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    assertWriteEnabled();
    mOrigin = origin;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text) {
    assertWriteEnabled();
    mComments = text != nullptr ? text : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids) const {
    assertReadEnabled();
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    for (const AcDbObjectId id : DbObjectAccess::allIds(*database())) {
        AcDbObjectPointer<AcDbBlockReference> reference(id);
        if (reference && reference->blockTableRecord() == objectId())
            ids.append(id);
    }
    return Acad::eOk;
}

namespace {
class Iterator : public AcDbBlockTableRecordIterator {
public:
    Iterator(const AcDbObjectIdArray& entities, bool atBeginning, bool skipDeleted) : mEntities(entities), mSkip(skipDeleted) {
        if (atBeginning)
            start();
        else
            settle(mEntities.length() - 1, -1, mSkip);
    }
    void start() override { settle(0, 1, mSkip); }
    bool done() const override { return mAt < 0 || mAt >= mEntities.length(); }
    void step(bool forward, bool skipDeleted) override {
        const int way = forward ? 1 : -1;
        settle(mAt + way, way, skipDeleted);
    }
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const override {
        if (done())
            return Acad::eIteratorDone;
        id = mEntities[mAt];
        return Acad::eOk;
    }
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode, bool openErased, bool openOnLockedLayer) const override {
        entity = nullptr;
        return done() ? Acad::eIteratorDone : acdbOpenObject(entity, mEntities[mAt], mode, openErased, openOnLockedLayer);
    }

private:
    void settle(int at, int way, bool skip) {
        mAt = at;
        while (!done() && (!mEntities[mAt].isValid() || (skip && mEntities[mAt].isErased())))
            mAt += way;
    }
    AcDbObjectIdArray mEntities; // as it was: the walker may append
    bool mSkip;
    int mAt = 0;
};
} // namespace

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning, bool skipDeleted) const {
    assertReadEnabled();
    iterator = new Iterator(mEntities, atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::subErase(bool erasing) {
    if (isLayout())
        return Acad::eNotApplicable;
    for (int i = 0; i < mEntities.length(); ++i) {
        AcDbObjectPointer<AcDbEntity> entity(mEntities[i], AcDb::kForWrite, true, true); // locks hold in a space, not for what goes with its block
        if (entity && entity->isErased() != erasing)
            entity->erase(erasing);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.sequence(mEntities, [](DbFieldsOut& o, AcDbObjectId id) { o.hardOwner(id); });
    out.hardOwner(mBlockBegin), out.hardOwner(mBlockEnd), out.softPointer(mLayout);
    out.value(mOrigin), out.text(mComments), out.value(mInsertUnits), out.value(mFlags);
    filer->writeUInt32(static_cast<Adesk::UInt32>(mPreview.size()));
    filer->writeBytes(mPreview.data(), static_cast<Adesk::UInt32>(mPreview.size()));
    out.text(mXrefPath);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbBlockTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.sequence(mEntities, [](DbFieldsIn& i, AcDbObjectId& id) { i.hardOwner(id); });
    for (int i = mEntities.length(); i-- > 0;) // those that a cloning left behind
        if (mEntities[i].isNull())
            mEntities.removeAt(i);
    in.hardOwner(mBlockBegin), in.hardOwner(mBlockEnd), in.softPointer(mLayout);
    in.value(mOrigin), in.text(mComments), in.value(mInsertUnits), in.value(mFlags);
    Adesk::UInt32 size = 0;
    filer->readUInt32(&size);
    mPreview.assign(filer->filerStatus() == Acad::eOk ? size : 0, 0);
    filer->readBytes(mPreview.data(), static_cast<Adesk::UInt32>(mPreview.size()));
    in.text(mXrefPath);
    return filer->filerStatus();
}
