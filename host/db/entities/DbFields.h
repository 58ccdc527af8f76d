// Archives over a filer: an entity lists its stored fields once, and the same list writes and
// reads them, so that the two cannot drift.
#pragma once

#include "AcDbFiler.h"

#include <memory>
#include <type_traits>

class DbFieldWriter {
public:
    static constexpr bool kReading = false;
    explicit DbFieldWriter(AcDbDwgFiler& filer) : mFiler(filer) {}
    template <class... T> void operator()(const T&... values) { (put(values), ...); }
    void hardPointer(const AcDbObjectId& id) { mFiler.writeHardPointerId(id); }
    void softPointer(const AcDbObjectId& id) { mFiler.writeSoftPointerId(id); }
    void hardOwner(const AcDbObjectId& id) { mFiler.writeHardOwnershipId(id); }
    void hardOwners(const AcDbObjectIdArray& ids) {
        mFiler.writeInt32(ids.length());
        for (const AcDbObjectId& id : ids)
            mFiler.writeHardOwnershipId(id);
    }
    void softPointers(const AcDbObjectIdArray& ids) {
        mFiler.writeInt32(ids.length());
        for (const AcDbObjectId& id : ids)
            mFiler.writeSoftPointerId(id);
    }
    // A list of records; `item` files one of them.
    template <class T, class Item> void list(const std::vector<T>& values, Item item) {
        mFiler.writeInt32(static_cast<Adesk::Int32>(values.size()));
        for (const T& value : values)
            item(*this, value);
    }
    template <class T> void list(const std::vector<T>& values) {
        list(values, [](auto& archive, const T& value) { archive(value); });
    }
    // An object of a known class inside another one, or none.
    template <class T> void nested(const std::unique_ptr<T>& object, const ACHAR* className) {
        mFiler.writeBool(object != nullptr);
        if (object == nullptr)
            return;
        const AcDbFilerNest nest(&mFiler, className);
        object->dwgOutFields(&mFiler);
    }

private:
    void put(bool v) { mFiler.writeBool(v); }
    void put(int v) { mFiler.writeInt32(v); }
    void put(Adesk::Int16 v) { mFiler.writeInt16(v); }
    void put(Adesk::UInt8 v) { mFiler.writeUInt8(v); }
    void put(double v) { mFiler.writeDouble(v); }
    void put(const AcGePoint2d& v) { mFiler.writePoint2d(v); }
    void put(const AcGePoint3d& v) { mFiler.writePoint3d(v); }
    void put(const AcGeVector2d& v) { mFiler.writeVector2d(v); }
    void put(const AcGeVector3d& v) { mFiler.writeVector3d(v); }
    void put(const AcGeScale3d& v) { mFiler.writeScale3d(v); }
    void put(const std::wstring& v) { mFiler.writeString(v.c_str()); }
    template <class E> requires std::is_enum_v<E> void put(E v) { mFiler.writeInt16(static_cast<Adesk::Int16>(v)); }
    AcDbDwgFiler& mFiler;
};

class DbFieldReader {
public:
    static constexpr bool kReading = true;
    explicit DbFieldReader(AcDbDwgFiler& filer) : mFiler(filer) {}
    template <class... T> void operator()(T&... values) { (get(values), ...); }
    void hardPointer(AcDbObjectId& id) { id = taken<AcDbHardPointerId>(&AcDbDwgFiler::readHardPointerId); }
    void softPointer(AcDbObjectId& id) { id = taken<AcDbSoftPointerId>(&AcDbDwgFiler::readSoftPointerId); }
    void hardOwner(AcDbObjectId& id) { id = taken<AcDbHardOwnershipId>(&AcDbDwgFiler::readHardOwnershipId); }
    void hardOwners(AcDbObjectIdArray& ids) {
        readIds(ids, [this](AcDbObjectId& id) { hardOwner(id); });
    }
    void softPointers(AcDbObjectIdArray& ids) {
        readIds(ids, [this](AcDbObjectId& id) { softPointer(id); });
    }
    // The count comes from outside: nothing is set aside for it, and a stream that ends ends the list.
    template <class T, class Item> void list(std::vector<T>& values, Item item) {
        values.clear();
        Adesk::Int32 count = 0;
        mFiler.readInt32(&count);
        for (Adesk::Int32 i = 0; i < count && isOk(); ++i)
            item(*this, values.emplace_back());
    }
    template <class T> void list(std::vector<T>& values) {
        list(values, [](auto& archive, T& value) { archive(value); });
    }
    template <class T> void nested(std::unique_ptr<T>& object, const ACHAR*) {
        bool there = false;
        mFiler.readBool(&there);
        object = there && isOk() ? std::make_unique<T>() : nullptr;
        if (object != nullptr)
            object->dwgInFields(&mFiler);
    }

private:
    bool isOk() const { return mFiler.filerStatus() == Acad::eOk; }
    template <class Id> AcDbObjectId taken(Acad::ErrorStatus (AcDbDwgFiler::*read)(Id*)) {
        Id id;
        (mFiler.*read)(&id);
        return id;
    }
    template <class Read> void readIds(AcDbObjectIdArray& ids, Read read) {
        ids.removeAll();
        Adesk::Int32 count = 0;
        mFiler.readInt32(&count);
        for (Adesk::Int32 i = 0; i < count && isOk(); ++i) {
            AcDbObjectId id;
            read(id);
            ids.append(id);
        }
    }
    void get(bool& v) { mFiler.readBool(&v); }
    void get(int& v) {
        Adesk::Int32 read = 0;
        mFiler.readInt32(&read);
        v = read;
    }
    void get(Adesk::Int16& v) { mFiler.readInt16(&v); }
    void get(Adesk::UInt8& v) { mFiler.readUInt8(&v); }
    void get(double& v) { mFiler.readDouble(&v); }
    void get(AcGePoint2d& v) { mFiler.readPoint2d(&v); }
    void get(AcGePoint3d& v) { mFiler.readPoint3d(&v); }
    void get(AcGeVector2d& v) { mFiler.readVector2d(&v); }
    void get(AcGeVector3d& v) { mFiler.readVector3d(&v); }
    void get(AcGeScale3d& v) { mFiler.readScale3d(&v); }
    void get(std::wstring& v) { mFiler.readString(v); }
    template <class E> requires std::is_enum_v<E> void get(E& v) {
        Adesk::Int16 read = 0;
        mFiler.readInt16(&read);
        v = static_cast<E>(read);
    }
    AcDbDwgFiler& mFiler;
};

// Filing and reading of a class by its field list, after its parent's fields.
#define DB_FILE_FIELDS(CLASS, PARENT)                                                                                  \
    Acad::ErrorStatus CLASS::dwgOutFields(AcDbDwgFiler* filer) const {                                                 \
        assertReadEnabled();                                                                                           \
        const Acad::ErrorStatus es = PARENT::dwgOutFields(filer);                                                      \
        if (es != Acad::eOk)                                                                                           \
            return es;                                                                                                 \
        DbFieldWriter archive(*filer);                                                                                 \
        fields(*this, archive);                                                                                        \
        return filer->filerStatus();                                                                                   \
    }                                                                                                                  \
    Acad::ErrorStatus CLASS::dwgInFields(AcDbDwgFiler* filer) {                                                        \
        const Acad::ErrorStatus es = PARENT::dwgInFields(filer);                                                       \
        if (es != Acad::eOk)                                                                                           \
            return es;                                                                                                 \
        DbFieldReader archive(*filer);                                                                                 \
        fields(*this, archive);                                                                                        \
        return filer->filerStatus();                                                                                   \
    }                                                                                                                  \
    static_assert(true)
