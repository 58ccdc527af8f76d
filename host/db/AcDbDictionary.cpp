// Dictionaries.
#include "AcDbDictionary.h"

#include "DbDatabaseData.h"

#include "AcUtText.h"

HOST_RX_DEFINE(AcDbDictionary, AcDbObject, L"DICTIONARY")
HOST_RX_DEFINE(AcDbDictionaryWithDefault, AcDbDictionary, L"ACDBDICTIONARYWDFLT")

bool AcDbKeyLess::operator()(const ACHAR* a, const ACHAR* b) const {
    for (;; ++a, ++b) {
        if (*a != *b) {
            const ACHAR x = acFoldCase(*a), y = acFoldCase(*b);
            if (x != y)
                return x < y;
        } else if (*a == 0) {
            return false;
        }
    }
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
    assertReadEnabled();
    id.setNull();
    if (name == nullptr)
        return Acad::eInvalidInput;
    const auto found = mEntries.find(name);
    if (found == mEntries.end() || found->second.isErased())
        return Acad::eKeyNotFound;
    id = found->second;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& entry, AcDb::OpenMode mode) const {
    entry = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(name, id);
    return es == Acad::eOk ? acdbOpenAcDbObject(entry, id, mode) : es;
}
bool AcDbDictionary::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    if (!object->objectId().isNull() && object->database() != database())
        return Acad::eWrongDatabase;
    assertWriteEnabled();
    AcDbObjectId earlier;
    if (getAt(name, earlier) == Acad::eOk && earlier != object->objectId()) {
        AcDbObject* old = nullptr;
        const Acad::ErrorStatus es = acdbOpenAcDbObject(old, earlier, AcDb::kForWrite);
        if (es != Acad::eOk)
            return es;
        old->erase();
        old->close();
    }
    if (object->objectId().isNull()) {
        const Acad::ErrorStatus es = DbObjectAccess::adopt(*database(), *object, objectId(), id);
        if (es != Acad::eOk)
            return es;
        object->addPersistentReactor(objectId()); // files name the dictionary among its entry's reactors
    } else {
        id = object->objectId();
        object->setOwnerId(objectId());
    }
    mEntries.erase(name); // the spelling of the new name counts
    mEntries.emplace(name, id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(name, id);
    if (es != Acad::eOk)
        return es;
    assertWriteEnabled();
    mEntries.erase(mEntries.find(name));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    const std::wstring name = nameAt(id);
    return name.empty() ? Acad::eKeyNotFound : remove(name.c_str());
}
std::wstring AcDbDictionary::nameAt(AcDbObjectId id) const {
    assertReadEnabled();
    for (const auto& [name, entry] : mEntries)
        if (entry == id && !entry.isErased())
            return name;
    return {};
}
Adesk::UInt32 AcDbDictionary::numEntries() const {
    assertReadEnabled();
    Adesk::UInt32 count = 0;
    for (const auto& [name, entry] : mEntries)
        count += entry.isErased() ? 0u : 1u;
    return count;
}
void AcDbDictionary::setTreatElementsAsHard(bool hard) {
    assertWriteEnabled();
    mHard = hard;
}

namespace {
// Walks a copy of the entries, so that the walker may remove and add some.
class Iterator : public AcDbDictionaryIterator {
public:
    explicit Iterator(std::vector<std::pair<std::wstring, AcDbObjectId>> entries) : mEntries(std::move(entries)) {}
    const ACHAR* name() const override { return done() ? L"" : mEntries[mAt].first.c_str(); }
    AcDbObjectId objectId() const override { return done() ? AcDbObjectId::kNull : mEntries[mAt].second; }
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode) override {
        object = nullptr;
        return done() ? Acad::eIteratorDone : acdbOpenAcDbObject(object, objectId(), mode);
    }
    bool done() const override { return mAt >= mEntries.size(); }
    bool next() override {
        ++mAt;
        return !done();
    }

private:
    std::vector<std::pair<std::wstring, AcDbObjectId>> mEntries;
    std::size_t mAt = 0;
};
} // namespace

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    assertReadEnabled();
    std::vector<std::pair<std::wstring, AcDbObjectId>> entries;
    for (const auto& entry : mEntries)
        if (!entry.second.isErased())
            entries.emplace_back(entry);
    return new Iterator(std::move(entries));
}

Acad::ErrorStatus AcDbDictionary::subErase(bool erasing) {
    for (const auto& [name, id] : mEntries) {
        AcDbObjectPointer<AcDbObject> entry(id, AcDb::kForWrite, true);
        if (entry && entry->ownerId() == objectId() && entry->isErased() != erasing)
            entry->erase(erasing);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    filer->writeBool(mHard);
    filer->writeInt16(static_cast<Adesk::Int16>(mMergeStyle));
    filer->writeUInt32(static_cast<Adesk::UInt32>(mEntries.size()));
    for (const auto& [name, id] : mEntries) {
        filer->writeString(name.c_str());
        if (mHard)
            filer->writeHardOwnershipId(id);
        else
            filer->writeSoftOwnershipId(id);
    }
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbDictionary::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    Adesk::Int16 style = 0;
    Adesk::UInt32 count = 0;
    filer->readBool(&mHard);
    filer->readInt16(&style);
    mMergeStyle = static_cast<AcDb::DuplicateRecordCloning>(style);
    filer->readUInt32(&count);
    mEntries.clear();
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        std::wstring name;
        AcDbHardOwnershipId hard;
        AcDbSoftOwnershipId soft;
        filer->readString(name);
        if (mHard)
            filer->readHardOwnershipId(&hard);
        else
            filer->readSoftOwnershipId(&soft);
        const AcDbObjectId id = mHard ? AcDbObjectId(hard) : AcDbObjectId(soft);
        if (!id.isNull()) // an entry that a cloning left behind
            mEntries.emplace(name, id);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionaryWithDefault::setDefaultId(AcDbObjectId id) {
    assertWriteEnabled();
    mDefault = id;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDictionaryWithDefault::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbDictionary::dwgOutFields(filer);
    return filer->writeHardPointerId(mDefault);
}
Acad::ErrorStatus AcDbDictionaryWithDefault::dwgInFields(AcDbDwgFiler* filer) {
    AcDbDictionary::dwgInFields(filer);
    AcDbHardPointerId id;
    filer->readHardPointerId(&id);
    mDefault = id;
    return filer->filerStatus();
}
