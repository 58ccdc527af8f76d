#include "DbResbufFiling.h"

#include "AcUtText.h"
#include "ResbufKind.h"

#include <cstring>

AcDbObjectId dbIdOf(const resbuf& item) {
    return AcDbObjectId(reinterpret_cast<AcDbStub*>(item.resval.rlname[0]));
}

namespace {
// The group code tells what kind of reference an id is.
enum class IdKind { kHandle, kSoftPointer, kHardPointer, kSoftOwner, kHardOwner };
IdKind idKindOf(int type) {
    if (type >= 330 && type <= 339)
        return IdKind::kSoftPointer;
    if (type >= 350 && type <= 359)
        return IdKind::kSoftOwner;
    if (type >= 360 && type <= 369)
        return IdKind::kHardOwner;
    if (type >= 320 && type <= 329)
        return IdKind::kHandle; // a plain number: no cloning changes it
    return IdKind::kHardPointer;
}
void writeId(AcDbDwgFiler& filer, const resbuf& item) {
    const AcDbObjectId id = dbIdOf(item);
    switch (idKindOf(item.restype)) {
    case IdKind::kHandle:
        filer.writeInt64(id.asOldId());
        break;
    case IdKind::kSoftPointer:
        filer.writeSoftPointerId(id);
        break;
    case IdKind::kHardPointer:
        filer.writeHardPointerId(id);
        break;
    case IdKind::kSoftOwner:
        filer.writeSoftOwnershipId(id);
        break;
    case IdKind::kHardOwner:
        filer.writeHardOwnershipId(id);
        break;
    }
}
template <class Id, class Read> AcDbObjectId readAs(Read read) {
    Id id;
    read(&id);
    return id;
}
AcDbObjectId readId(AcDbDwgFiler& filer, int type) {
    switch (idKindOf(type)) {
    case IdKind::kHandle: {
        Adesk::Int64 old = 0;
        filer.readInt64(&old);
        AcDbObjectId id;
        id.setFromOldId(old);
        return id;
    }
    case IdKind::kSoftPointer:
        return readAs<AcDbSoftPointerId>([&](auto* id) { filer.readSoftPointerId(id); });
    case IdKind::kHardPointer:
        return readAs<AcDbHardPointerId>([&](auto* id) { filer.readHardPointerId(id); });
    case IdKind::kSoftOwner:
        return readAs<AcDbSoftOwnershipId>([&](auto* id) { filer.readSoftOwnershipId(id); });
    case IdKind::kHardOwner:
        return readAs<AcDbHardOwnershipId>([&](auto* id) { filer.readHardOwnershipId(id); });
    }
    return AcDbObjectId::kNull;
}
void writeValue(AcDbDwgFiler& filer, const resbuf& item) {
    const ads_u_val& v = item.resval;
    switch (rbKindOf(item.restype)) {
    case RbKind::kUnknown:
    case RbKind::kNothing:
        break;
    case RbKind::kText:
        filer.writeString(v.rstring);
        break;
    case RbKind::kReal:
        filer.writeDouble(v.rreal);
        break;
    case RbKind::kPoint:
        filer.writePoint3d({v.rpoint[0], v.rpoint[1], v.rpoint[2]});
        break;
    case RbKind::kShort:
        filer.writeInt16(v.rint);
        break;
    case RbKind::kLong:
        filer.writeInt32(v.rlong);
        break;
    case RbKind::kInt64:
        filer.writeInt64(v.mnInt64);
        break;
    case RbKind::kBinary:
        filer.writeInt16(v.rbinary.clen);
        filer.writeBytes(v.rbinary.buf, static_cast<Adesk::UInt32>(v.rbinary.clen));
        break;
    case RbKind::kName:
        writeId(filer, item);
        break;
    }
}
void readBinary(AcDbDwgFiler& filer, ads_binary& binary) {
    filer.readInt16(&binary.clen);
    if (binary.clen < 0)
        binary.clen = 0;
    binary.buf = new char[static_cast<std::size_t>(binary.clen) + 1];
    filer.readBytes(binary.buf, static_cast<Adesk::UInt32>(binary.clen));
}
void readValue(AcDbDwgFiler& filer, resbuf& item) {
    ads_u_val& v = item.resval;
    switch (rbKindOf(item.restype)) {
    case RbKind::kUnknown:
    case RbKind::kNothing:
        break;
    case RbKind::kText:
        filer.readString(&v.rstring);
        break;
    case RbKind::kReal:
        filer.readDouble(&v.rreal);
        break;
    case RbKind::kPoint: {
        AcGePoint3d p;
        filer.readPoint3d(&p);
        v.rpoint[0] = p.x, v.rpoint[1] = p.y, v.rpoint[2] = p.z;
        break;
    }
    case RbKind::kShort:
        filer.readInt16(&v.rint);
        break;
    case RbKind::kLong:
        filer.readInt32(&v.rlong);
        break;
    case RbKind::kInt64:
        filer.readInt64(&v.mnInt64);
        break;
    case RbKind::kBinary:
        readBinary(filer, v.rbinary);
        break;
    case RbKind::kName:
        v.rlname[0] = readId(filer, item.restype).asOldId();
        break;
    }
}
} // namespace

void dbWriteChain(AcDbDwgFiler& filer, const resbuf* chain) {
    Adesk::UInt32 count = 0;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext)
        ++count;
    filer.writeUInt32(count);
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        filer.writeInt16(item->restype);
        writeValue(filer, *item);
    }
}

resbuf* dbReadChain(AcDbDwgFiler& filer) {
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    resbuf* first = nullptr;
    resbuf** link = &first;
    for (; count > 0 && filer.filerStatus() == Acad::eOk; --count) {
        Adesk::Int16 type = 0;
        filer.readInt16(&type);
        resbuf* const item = acutNewRb(type);
        if (item == nullptr || filer.filerStatus() != Acad::eOk) {
            filer.setFilerStatus(Acad::eFilerError);
            acutRelRb(item);
            break;
        }
        *link = item;
        link = &item->rbnext;
        readValue(filer, *item);
    }
    return first;
}
