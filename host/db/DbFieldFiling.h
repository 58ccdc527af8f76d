// A class's fields listed once, filed in both directions: a template function over Filing is called
// with DbFieldsOut in dwgOutFields and with DbFieldsIn in dwgInFields.
#pragma once

#include "AcDbFiler.h"
#include "AcGi.h"

#include <string>
#include <vector>

void dbWriteColor(AcDbDwgFiler& filer, const AcCmEntityColor& color);
AcCmEntityColor dbReadColor(AcDbDwgFiler& filer);

class DbFieldsOut {
public:
    explicit DbFieldsOut(AcDbDwgFiler& filer) : mFiler(filer) {}
    void value(bool v) { mFiler.writeBool(v); }
    void value(Adesk::UInt8 v) { mFiler.writeUInt8(v); }
    void value(Adesk::Int16 v) { mFiler.writeInt16(v); }
    void value(Adesk::UInt16 v) { mFiler.writeUInt16(v); }
    void value(Adesk::Int32 v) { mFiler.writeInt32(v); }
    void value(double v) { mFiler.writeDouble(v); }
    void value(const AcGePoint2d& v) { mFiler.writePoint2d(v); }
    void value(const AcGePoint3d& v) { mFiler.writePoint3d(v); }
    void value(const AcGeVector3d& v) { mFiler.writeVector3d(v); }
    void value(const AcCmColor& v) { dbWriteColor(mFiler, v); }
    void value(AcDb::LineWeight v) { mFiler.writeInt16(v); }
    void text(const std::wstring& v) { mFiler.writeString(v.c_str()); }
    void softPointer(AcDbObjectId v) { mFiler.writeSoftPointerId(v); }
    void hardPointer(AcDbObjectId v) { mFiler.writeHardPointerId(v); }
    void softOwner(AcDbObjectId v) { mFiler.writeSoftOwnershipId(v); }
    void hardOwner(AcDbObjectId v) { mFiler.writeHardOwnershipId(v); }
    template <class Items, class Each> void sequence(const Items& items, Each each) {
        Adesk::UInt32 count = 0;
        for ([[maybe_unused]] const auto& item : items)
            ++count;
        mFiler.writeUInt32(count);
        for (const auto& item : items)
            each(*this, item);
    }

private:
    AcDbDwgFiler& mFiler;
};

class DbFieldsIn {
public:
    explicit DbFieldsIn(AcDbDwgFiler& filer) : mFiler(filer) {}
    void value(bool& v) { mFiler.readBool(&v); }
    void value(Adesk::UInt8& v) { mFiler.readUInt8(&v); }
    void value(Adesk::Int16& v) { mFiler.readInt16(&v); }
    void value(Adesk::UInt16& v) { mFiler.readUInt16(&v); }
    void value(Adesk::Int32& v) { mFiler.readInt32(&v); }
    void value(double& v) { mFiler.readDouble(&v); }
    void value(AcGePoint2d& v) { mFiler.readPoint2d(&v); }
    void value(AcGePoint3d& v) { mFiler.readPoint3d(&v); }
    void value(AcGeVector3d& v) { mFiler.readVector3d(&v); }
    void value(AcCmColor& v) { v = dbReadColor(mFiler); }
    void value(AcDb::LineWeight& v) {
        Adesk::Int16 stored = 0;
        mFiler.readInt16(&stored);
        v = static_cast<AcDb::LineWeight>(stored);
    }
    void text(std::wstring& v) { mFiler.readString(v); }
    void softPointer(AcDbObjectId& v) { readId<AcDbSoftPointerId>(v, &AcDbDwgFiler::readSoftPointerId); }
    void hardPointer(AcDbObjectId& v) { readId<AcDbHardPointerId>(v, &AcDbDwgFiler::readHardPointerId); }
    void softOwner(AcDbObjectId& v) { readId<AcDbSoftOwnershipId>(v, &AcDbDwgFiler::readSoftOwnershipId); }
    void hardOwner(AcDbObjectId& v) { readId<AcDbHardOwnershipId>(v, &AcDbDwgFiler::readHardOwnershipId); }
    template <class Item, class Each> void sequence(std::vector<Item>& items, Each each) {
        items.clear();
        count([&] { each(*this, items.emplace_back()); });
    }
    template <class Item, class Each> void sequence(AcArray<Item>& items, Each each) {
        items.removeAll();
        count([&] {
            Item item{};
            each(*this, item);
            items.append(item);
        });
    }

private:
    template <class Id> void readId(AcDbObjectId& v, Acad::ErrorStatus (AcDbDwgFiler::*read)(Id*)) {
        Id id;
        (mFiler.*read)(&id);
        v = id;
    }
    // A damaged count ends with the stream.
    template <class One> void count(One one) {
        Adesk::UInt32 n = 0;
        mFiler.readUInt32(&n);
        for (; n > 0 && mFiler.filerStatus() == Acad::eOk; --n)
            one();
    }
    AcDbDwgFiler& mFiler;
};
