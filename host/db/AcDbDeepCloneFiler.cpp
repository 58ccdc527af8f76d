// The typed stream in memory.
#include "DbFilerTags.h"
#include "DbIdTranslation.h"

#include "AcUtText.h"

#include <cstdlib>
#include <cwchar>
#include <new>

Acad::ErrorStatus AcDbDwgFiler::readString(ACHAR** value) {
    std::wstring text;
    const Acad::ErrorStatus es = readString(text);
    *value = acutNewString(text.c_str());
    return es;
}

AcDbDeepCloneFiler::AcDbDeepCloneFiler(AcDb::FilerType type) : mType(type) {}
AcDbDeepCloneFiler::~AcDbDeepCloneFiler() {
    std::free(mBytes);
}
Acad::ErrorStatus AcDbDeepCloneFiler::filerStatus() const {
    return mStatus;
}
void AcDbDeepCloneFiler::resetFilerStatus() {
    mStatus = Acad::eOk;
}
void AcDbDeepCloneFiler::setFilerStatus(Acad::ErrorStatus es) {
    mStatus = es;
}
AcDb::FilerType AcDbDeepCloneFiler::filerType() const {
    return mType;
}

void AcDbDeepCloneFiler::grow(std::size_t needed) {
    std::size_t capacity = mCapacity == 0 ? 256 : mCapacity * 2;
    while (capacity < needed)
        capacity *= 2;
    void* const bytes = std::realloc(mBytes, capacity);
    if (bytes == nullptr)
        throw std::bad_alloc();
    mBytes = static_cast<Adesk::UInt8*>(bytes);
    mCapacity = capacity;
}
void AcDbDeepCloneFiler::releaseSpare() {
    if (mSize == 0 || mSize == mCapacity)
        return;
    if (void* const bytes = std::realloc(mBytes, mSize)) {
        mBytes = static_cast<Adesk::UInt8*>(bytes);
        mCapacity = mSize;
    }
}
// Room for a tag and its payload; null when an error stands.
inline Adesk::UInt8* AcDbDeepCloneFiler::beginWrite(Adesk::UInt8 tag, std::size_t payload) {
    if (mStatus != Acad::eOk)
        return nullptr;
    const std::size_t end = mAt + 1 + payload;
    if (end > mCapacity)
        grow(end);
    Adesk::UInt8* const at = mBytes + mAt;
    *at = tag;
    mAt = mSize = end;
    return at + 1;
}
inline const Adesk::UInt8* AcDbDeepCloneFiler::beginRead(Adesk::UInt8 tag, std::size_t payload) {
    if (mStatus != Acad::eOk)
        return nullptr;
    if (mAt + 1 + payload > mSize) {
        mStatus = mAt < mSize && mBytes[mAt] != tag ? Acad::eFilerError : Acad::eEndOfObject;
        return nullptr;
    }
    if (mBytes[mAt] != tag) {
        mStatus = Acad::eFilerError;
        return nullptr;
    }
    const Adesk::UInt8* const at = mBytes + mAt + 1;
    mAt += 1 + payload;
    return at;
}
template <class T> inline Acad::ErrorStatus AcDbDeepCloneFiler::put(Adesk::UInt8 tag, const T& value) {
    if (Adesk::UInt8* const at = beginWrite(tag, sizeof(T)))
        std::memcpy(at, static_cast<const void*>(&value), sizeof(T));
    return mStatus;
}
template <class T> inline Acad::ErrorStatus AcDbDeepCloneFiler::take(Adesk::UInt8 tag, T* value) {
    if (const Adesk::UInt8* const at = beginRead(tag, sizeof(T)))
        std::memcpy(static_cast<void*>(value), at, sizeof(T));
    else
        *value = T();
    return mStatus;
}
Acad::ErrorStatus AcDbDeepCloneFiler::takeId(Adesk::UInt8 tag, AcDbObjectId& id) {
    AcDbStub* stub = nullptr;
    take(tag, &stub);
    id = AcDbObjectId(stub);
    if (mTranslation != nullptr && stub != nullptr)
        id = mTranslation->translate(id);
    return mStatus;
}

#define DB_DEFINE_PLAIN(NAME, TYPE)                                                                                    \
    Acad::ErrorStatus AcDbDeepCloneFiler::write##NAME(TYPE value) { return put(DbFilerTag::k##NAME, value); }          \
    Acad::ErrorStatus AcDbDeepCloneFiler::read##NAME(TYPE* value) { return take(DbFilerTag::k##NAME, value); }
#define DB_DEFINE_GEOMETRY(NAME, TYPE)                                                                                 \
    Acad::ErrorStatus AcDbDeepCloneFiler::write##NAME(const TYPE& value) { return put(DbFilerTag::k##NAME, value); }   \
    Acad::ErrorStatus AcDbDeepCloneFiler::read##NAME(TYPE* value) { return take(DbFilerTag::k##NAME, value); }
#define DB_DEFINE_ID(NAME, TYPE)                                                                                       \
    Acad::ErrorStatus AcDbDeepCloneFiler::write##NAME(TYPE value) { return put(DbFilerTag::k##NAME, value.stub()); }   \
    Acad::ErrorStatus AcDbDeepCloneFiler::read##NAME(TYPE* value) {                                                    \
        AcDbObjectId id;                                                                                               \
        takeId(DbFilerTag::k##NAME, id);                                                                               \
        *value = id;                                                                                                   \
        return mStatus;                                                                                                \
    }
DB_FILER_PLAIN_TYPES(DB_DEFINE_PLAIN)
DB_FILER_GEOMETRY_TYPES(DB_DEFINE_GEOMETRY)
DB_FILER_ID_TYPES(DB_DEFINE_ID)

Acad::ErrorStatus AcDbDeepCloneFiler::writeString(const ACHAR* value) {
    const std::size_t length = value != nullptr ? std::wcslen(value) : 0;
    const auto stored = static_cast<Adesk::UInt32>(length);
    if (Adesk::UInt8* const at = beginWrite(DbFilerTag::kString, sizeof stored + length * sizeof(ACHAR))) {
        std::memcpy(at, &stored, sizeof stored);
        if (length != 0)
            std::memcpy(at + sizeof stored, value, length * sizeof(ACHAR));
    }
    return mStatus;
}
// The count that stands before a text or a run of bytes, and where its data begins.
bool AcDbDeepCloneFiler::takeBlock(Adesk::UInt8 tag, std::size_t unit, std::size_t& count, const Adesk::UInt8*& data) {
    Adesk::UInt32 stored = 0;
    const std::size_t start = mAt;
    if (take(tag, &stored) != Acad::eOk)
        return false;
    if (stored * unit > mSize - mAt) {
        mAt = start;
        mStatus = Acad::eEndOfObject;
        return false;
    }
    count = stored;
    data = mBytes + mAt;
    mAt += stored * unit;
    return true;
}
Acad::ErrorStatus AcDbDeepCloneFiler::readString(std::wstring& value) {
    std::size_t length = 0;
    const Adesk::UInt8* data = nullptr;
    if (!takeBlock(DbFilerTag::kString, sizeof(ACHAR), length, data)) {
        value.clear();
        return mStatus;
    }
    value.resize(length);
    if (length != 0)
        std::memcpy(value.data(), data, length * sizeof(ACHAR));
    return mStatus;
}
Acad::ErrorStatus AcDbDeepCloneFiler::writeBytes(const void* bytes, Adesk::UInt32 size) {
    if (Adesk::UInt8* const at = beginWrite(DbFilerTag::kBytes, sizeof size + size)) {
        std::memcpy(at, &size, sizeof size);
        if (size != 0)
            std::memcpy(at + sizeof size, bytes, size);
    }
    return mStatus;
}
Acad::ErrorStatus AcDbDeepCloneFiler::readBytes(void* bytes, Adesk::UInt32 size) {
    std::size_t count = 0;
    const Adesk::UInt8* data = nullptr;
    if (takeBlock(DbFilerTag::kBytes, 1, count, data) && count == size) {
        if (size != 0)
            std::memcpy(bytes, data, size);
        return mStatus;
    }
    if (mStatus == Acad::eOk) // another number of bytes was written
        mStatus = Acad::eFilerError;
    if (size != 0)
        std::memset(bytes, 0, size);
    return mStatus;
}

// Only places that tell() gave make sense to seek to: a value must begin there.
Acad::ErrorStatus AcDbDeepCloneFiler::seek(Adesk::Int64 offset, int method) {
    const auto base = static_cast<Adesk::Int64>(method == AcDb::kSeekFromCurrent ? mAt : method == AcDb::kSeekFromEnd ? mSize : 0);
    const Adesk::Int64 target = base + offset;
    if (method < AcDb::kSeekFromStart || method > AcDb::kSeekFromEnd || target < 0 || target > static_cast<Adesk::Int64>(mSize))
        return Acad::eInvalidInput;
    mAt = static_cast<std::size_t>(target);
    return Acad::eOk;
}
Adesk::Int64 AcDbDeepCloneFiler::tell() const {
    return static_cast<Adesk::Int64>(mAt);
}
