#include "DbCloner.h"

#include "DbDatabaseData.h"

#include "AcUtText.h"

namespace {
// Opens by force for a change that undo must know of, whatever others have open.
class ForcedChange {
public:
    explicit ForcedChange(AcDbObjectId id, bool undo = true) : mWrite(*id.stub()) { id.stub()->object->assertWriteEnabled(undo); }

private:
    DbForcedWrite mWrite;
};

bool isLive(AcDbObjectId id) {
    return id.isValid() && !id.isErased();
}
const std::wstring& nameOf(AcDbSymbolTableRecord& record) {
    return DbObjectAccess::name(record);
}
// A dictionary's name of an entry, without opening it.
std::wstring entryName(AcDbDictionary& dictionary, AcDbObjectId id) {
    for (const auto& [name, entry] : DbObjectAccess::entries(dictionary))
        if (entry == id)
            return name;
    return {};
}
AcDbObjectId entryId(AcDbObjectId dictionaryId, const std::wstring& name) {
    AcDbDictionary* const dictionary = AcDbDictionary::cast(DbObjectAccess::peek(dictionaryId));
    if (dictionary == nullptr)
        return AcDbObjectId::kNull;
    const auto& entries = DbObjectAccess::entries(*dictionary);
    const auto found = entries.find(name);
    return found != entries.end() && isLive(found->second) ? found->second : AcDbObjectId::kNull;
}
AcDbObjectId recordId(AcDbObjectId tableId, const std::wstring& name) {
    const AcDbSymbolTable* const table = AcDbSymbolTable::cast(DbObjectAccess::peek(tableId));
    return table != nullptr ? DbObjectAccess::findRecord(*table, name.c_str()) : AcDbObjectId::kNull;
}
bool isAnonymousBlock(const AcDbObject& object) {
    const AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(&object);
    return block != nullptr && block->isAnonymous();
}
// The owner's own list of what it owns.
void listWithOwner(AcDbObjectId ownerId, AcDbObjectId id) {
    AcDbObject* const owner = DbObjectAccess::peek(ownerId);
    if (AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(owner)) {
        const ForcedChange change(ownerId, false); // as when an entity is appended
        DbObjectAccess::entities(*block).append(id);
    } else if (AcDbSymbolTable* const table = AcDbSymbolTable::cast(owner)) {
        const ForcedChange change(ownerId);
        DbObjectAccess::records(*table).append(id);
        DbObjectAccess::namesChanged();
    }
}
} // namespace

std::wstring dbAnonymousBlockName(const AcDbDatabase& db, const std::wstring& prefix) {
    int number = 1;
    while (!recordId(db.blockTableId(), prefix + std::to_wstring(number)).isNull())
        ++number;
    return prefix + std::to_wstring(number);
}
void dbEmptyBlock(AcDbBlockTableRecord& block) {
    const AcDbObjectIdArray entities = block.entityIds();
    for (const AcDbObjectId id : entities) {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite, false, true);
        if (entity)
            entity->erase();
    }
}

DbCloner::DbCloner(AcDbDatabase& source, AcDbDatabase& target, bool replaceRecords)
    : mSource(source), mTarget(target), mSameDatabase(&source == &target), mReplaceRecords(replaceRecords) {
    if (mSameDatabase)
        return;
    for (const auto& [type, id] : DbObjectAccess::data(source).tables)
        map(id, target.tableId(type));
    map(source.namedObjectsDictionaryId(), target.namedObjectsDictionaryId());
    map(source.paperSpaceId(), target.paperSpaceId());
}

AcDbObjectId DbCloner::translate(AcDbObjectId id) const {
    const auto found = mMap.find(id);
    if (found != mMap.end())
        return found->second;
    return mSameDatabase || id.database() == &mTarget ? id : AcDbObjectId::kNull;
}

// ---- filing the originals ---------------------------------------------------------------
Acad::ErrorStatus DbCloner::add(AcDbObjectId id, AcDbObjectId owner) {
    if (!isLive(id))
        return id.isNull() ? Acad::eNullObjectId : Acad::eWasErased;
    Acad::ErrorStatus es = Acad::eOk;
    if (isKnown(id))
        return es;
    AcDbObject* const ownerObject = DbObjectAccess::peek(owner);
    if (!mSameDatabase && AcDbSymbolTable::cast(ownerObject) != nullptr)
        es = addRecord(id, true);
    else if (!mSameDatabase && AcDbDictionary::cast(ownerObject) != nullptr)
        es = addEntry(id, owner, true);
    else if (es = file(id, owner, true); es == Acad::eOk) {
        nameCopy(mMap[id], id);
        listWithOwner(owner, mMap[id]);
    }
    // What the new items need, item by item; more items come as they are looked at.
    for (; es == Acad::eOk && mFollowed < mItems.size(); ++mFollowed)
        follow(*mItems[mFollowed]);
    return es;
}

// A copy of a table record within its drawing needs a name of its own.
void DbCloner::nameCopy(AcDbObjectId to, AcDbObjectId from) const {
    AcDbSymbolTableRecord* const copy = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(to));
    if (copy == nullptr)
        return;
    AcDbSymbolTableRecord& original = *AcDbSymbolTableRecord::cast(DbObjectAccess::peek(from));
    std::wstring& name = DbObjectAccess::name(*copy);
    if (isAnonymousBlock(original)) {
        name = dbAnonymousBlockName(mTarget, nameOf(original).substr(0, 2));
        return;
    }
    for (int number = 1; name.empty() || !recordId(original.ownerId(), name).isNull(); ++number)
        name = nameOf(original) + L"$" + std::to_wstring(number);
}

Acad::ErrorStatus DbCloner::file(AcDbObjectId id, AcDbObjectId owner, bool primary, AcDbObjectId existing) {
    AcDbObject* const from = DbObjectAccess::peek(id);
    const AcDb::FilerType type = mSameDatabase ? AcDb::kDeepCloneFiler : AcDb::kWblockCloneFiler;
    auto item = std::make_unique<Item>(type, primary, !existing.isNull());
    item->from = id;
    item->to = existing;
    {
        const DbForcedWrite open(*id.stub()); // also one that the caller has open can be copied
        if (const Acad::ErrorStatus es = from->dwgOut(&item->filer); es != Acad::eOk)
            return es;
    }
    if (existing.isNull()) {
        AcDbObject* const copy = AcDbObject::cast(from->isA()->create());
        if (copy == nullptr)
            return Acad::eNotApplicable;
        DbObjectAccess::adopt(mTarget, *copy, owner, item->to);
        copy->close();
    }
    map(id, item->to);
    mItems.push_back(std::move(item));
    return Acad::eOk;
}

void DbCloner::follow(const Item& item) {
    const AcDbObjectId to = item.to;
    for (const DbObjectAccess::FiledId& filed : DbObjectAccess::filedIds(item.filer)) {
        switch (filed.kind) {
        case DbObjectAccess::FiledId::kHardOwner:
        case DbObjectAccess::FiledId::kSoftOwner:
            if (!isKnown(filed.id) && isLive(filed.id))
                file(filed.id, to, false);
            else if (!isKnown(filed.id))
                map(filed.id, AcDbObjectId::kNull);
            break;
        case DbObjectAccess::FiledId::kHardPointer:
            followPointer(filed.id);
            break;
        case DbObjectAccess::FiledId::kSoftPointer:
            break;
        }
    }
    const AcDbObjectId extension = DbObjectAccess::peek(item.from)->extensionDictionary();
    if (isLive(extension) && !isKnown(extension))
        file(extension, to, false);
}

void DbCloner::followPointer(AcDbObjectId id) {
    if (mSameDatabase || isKnown(id) || !isLive(id) || id.database() != &mSource)
        return;
    AcDbObject* const object = DbObjectAccess::peek(id);
    if (AcDbSymbolTableRecord::cast(object) != nullptr) {
        addRecord(id, false);
        return;
    }
    const AcDbObjectId dictionary = dictionaryInTarget(object->ownerId(), 0);
    if (!dictionary.isNull())
        addEntry(id, dictionary, false);
}

Acad::ErrorStatus DbCloner::addRecord(AcDbObjectId id, bool primary) {
    AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(DbObjectAccess::peek(id));
    const AcDbObjectId table = record == nullptr ? AcDbObjectId::kNull : translate(record->ownerId());
    if (table.isNull())
        return Acad::eNotThatKindOfClass;
    AcDbObjectId existing = isAnonymousBlock(*record) ? AcDbObjectId::kNull : recordId(table, nameOf(*record));
    if (!existing.isNull() && !(mReplaceRecords && primary)) {
        map(id, existing);
        return Acad::eOk;
    }
    if (AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(DbObjectAccess::peek(existing)))
        dbEmptyBlock(*block);
    const Acad::ErrorStatus es = file(id, table, primary, existing);
    if (es != Acad::eOk || !existing.isNull())
        return es;
    AcDbSymbolTableRecord& copy = *AcDbSymbolTableRecord::cast(DbObjectAccess::peek(mMap[id]));
    const bool numbered = isAnonymousBlock(*record); // its number may be taken here
    DbObjectAccess::name(copy) = numbered ? dbAnonymousBlockName(mTarget, nameOf(*record).substr(0, 2)) : nameOf(*record);
    listWithOwner(table, mMap[id]);
    return es;
}

Acad::ErrorStatus DbCloner::addEntry(AcDbObjectId id, AcDbObjectId dictionaryId, bool primary) {
    AcDbObject* const object = DbObjectAccess::peek(id);
    AcDbDictionary* const from = AcDbDictionary::cast(DbObjectAccess::peek(object->ownerId()));
    const std::wstring name = from == nullptr ? std::wstring() : entryName(*from, id);
    if (name.empty())
        return Acad::eInvalidKey;
    const AcDbObjectId existing = entryId(dictionaryId, name);
    if (!existing.isNull() && !(mReplaceRecords && primary)) {
        map(id, existing);
        return Acad::eOk;
    }
    if (!existing.isNull() && DbObjectAccess::peek(existing)->isA() == object->isA())
        return file(id, dictionaryId, primary, existing);
    const Acad::ErrorStatus es = file(id, dictionaryId, primary);
    if (es != Acad::eOk)
        return es;
    const ForcedChange change(dictionaryId);
    DbObjectAccess::entries(*AcDbDictionary::cast(DbObjectAccess::peek(dictionaryId)))[name] = mMap[id];
    return es;
}

// The target's dictionary under the same names, counted from the named objects dictionary.
AcDbObjectId DbCloner::dictionaryInTarget(AcDbObjectId id, int depth) const {
    constexpr int kDeepest = 16; // a damaged drawing may own itself
    const auto known = mMap.find(id);
    if (known != mMap.end())
        return known->second;
    AcDbDictionary* const dictionary = AcDbDictionary::cast(DbObjectAccess::peek(id));
    if (dictionary == nullptr || depth > kDeepest)
        return AcDbObjectId::kNull;
    AcDbDictionary* const owner = AcDbDictionary::cast(DbObjectAccess::peek(dictionary->ownerId()));
    if (owner == nullptr)
        return AcDbObjectId::kNull;
    return entryId(dictionaryInTarget(dictionary->ownerId(), depth + 1), entryName(*owner, id));
}

// ---- reading the copies -------------------------------------------------------------------
Acad::ErrorStatus DbCloner::read(Item& item) {
    AcDbObject& to = *DbObjectAccess::peek(item.to);
    const DbForcedWrite write(*item.to.stub());
    AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(&to);
    const std::wstring name = record != nullptr ? nameOf(*record) : std::wstring();
    const AcDbObjectId owner = to.ownerId();
    item.filer.seek(0, AcDb::kSeekFromStart);
    DbObjectAccess::setTranslation(item.filer, this);
    const Acad::ErrorStatus es = to.dwgIn(&item.filer);
    DbObjectAccess::setTranslation(item.filer, nullptr);
    item.to.stub()->modified = false;
    if (record != nullptr && !name.empty())
        DbObjectAccess::name(*record) = name;
    if (AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(&to); block != nullptr && !item.replaces)
        DbObjectAccess::layout(*block) = AcDbObjectId::kNull;
    finishData(*DbObjectAccess::peek(item.from), to, owner);
    return es;
}
void DbCloner::finishData(const AcDbObject& from, AcDbObject& to, AcDbObjectId owner) const {
    const AcDbObjectImpData* const source = DbObjectAccess::dataIfAny(from);
    AcDbObjectImpData& data = DbObjectAccess::data(to);
    data.owner = owner;
    data.reactors.removeAll();
    const auto counterpart = [this](AcDbObjectId id) {
        const auto found = mMap.find(id);
        return found == mMap.end() ? AcDbObjectId::kNull : found->second;
    };
    if (source == nullptr)
        return;
    data.extensionDictionary = counterpart(source->extensionDictionary);
    for (const AcDbObjectId reactor : source->reactors)
        if (const AcDbObjectId other = counterpart(reactor); !other.isNull())
            data.reactors.append(other);
    finishHandles(to);
}
// Extended data names objects by their handles' text.
void DbCloner::finishHandles(AcDbObject& to) const {
    constexpr short kHandleText = 1005;
    for (resbuf* item = DbObjectAccess::data(to).xdata; item != nullptr; item = item->rbnext) {
        AcDbObjectId from;
        if (item->restype != kHandleText || mSource.getAcDbObjectId(from, false, AcDbHandle(item->resval.rstring)) != Acad::eOk)
            continue;
        acutUpdString(translate(from).handle().text().c_str(), item->resval.rstring);
    }
}

Acad::ErrorStatus DbCloner::finish(AcDbIdMapping* mapping) {
    Acad::ErrorStatus es = Acad::eOk;
    // An object of a module's class may look at what it points to while it reads itself (a plate at the definitions
    // of its texts, say), so what it points to has to stand by then.
    for (const bool ofModules : {false, true})
        for (const auto& item : mItems)
            if ((item->from.stub()->object->isA()->appName() != nullptr) == ofModules)
                if (const Acad::ErrorStatus one = read(*item); one != Acad::eOk && es == Acad::eOk)
                    es = one;
    for (const auto& item : mItems)
        if (mapping != nullptr)
            mapping->assign({item->from, item->to, item->primary});
    DbObjectAccess::namesChanged();
    return es;
}
