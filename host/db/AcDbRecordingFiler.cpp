// The filer that lists the write calls as text.
#include "DbFilerTags.h"

#include "AcUtText.h"

#include <charconv>

struct AcDbRecordingFiler::Impl {
    std::vector<std::wstring> lines;
    std::size_t depth = 0;
    Acad::ErrorStatus status = Acad::eOk;

    Acad::ErrorStatus add(const std::wstring& line) {
        if (status == Acad::eOk)
            lines.push_back(std::wstring(depth * 2, L' ') + line);
        return status;
    }
};

namespace {
// Numbers in their shortest form that reads back the same.
template <class T> std::wstring text(T value) {
    char digits[48];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return std::wstring(digits, end);
}
std::wstring text(bool value) { return value ? L"true" : L"false"; }
std::wstring text(Adesk::Int8 value) { return text(static_cast<int>(value)); }
std::wstring text(Adesk::UInt8 value) { return text(static_cast<int>(value)); }
std::wstring text(AcDbHandle value) { return value.text(); }
std::wstring text(const AcGePoint2d& p) { return text(p.x) + L' ' + text(p.y); }
std::wstring text(const AcGeVector2d& p) { return text(p.x) + L' ' + text(p.y); }
std::wstring text(const AcGePoint3d& p) { return text(p.x) + L' ' + text(p.y) + L' ' + text(p.z); }
std::wstring text(const AcGeVector3d& p) { return text(p.x) + L' ' + text(p.y) + L' ' + text(p.z); }
std::wstring text(const AcGeScale3d& p) { return text(p.sx) + L' ' + text(p.sy) + L' ' + text(p.sz); }
std::wstring quoted(const ACHAR* value) {
    std::wstring out = L"\"";
    for (; value != nullptr && *value != 0; ++value) // one call stays one line
        out += *value == L'\n' ? L"\\n" : *value == L'\r' ? L"\\r" : std::wstring(1, *value);
    return out + L'"';
}
} // namespace

AcDbRecordingFiler::AcDbRecordingFiler() : mImpl(std::make_unique<Impl>()) {}
AcDbRecordingFiler::~AcDbRecordingFiler() = default;
const std::vector<std::wstring>& AcDbRecordingFiler::lines() const {
    return mImpl->lines;
}
void AcDbRecordingFiler::beginNested(const ACHAR* className) {
    mImpl->add(className != nullptr ? className : L"");
    ++mImpl->depth;
}
void AcDbRecordingFiler::endNested() {
    if (mImpl->depth > 0)
        --mImpl->depth;
}
Acad::ErrorStatus AcDbRecordingFiler::filerStatus() const {
    return mImpl->status;
}
void AcDbRecordingFiler::resetFilerStatus() {
    mImpl->status = Acad::eOk;
}
void AcDbRecordingFiler::setFilerStatus(Acad::ErrorStatus es) {
    mImpl->status = es;
}
AcDb::FilerType AcDbRecordingFiler::filerType() const {
    return AcDb::kCopyFiler;
}

#define DB_RECORD_VALUE(NAME, TYPE)                                                                                    \
    Acad::ErrorStatus AcDbRecordingFiler::write##NAME(TYPE value) { return mImpl->add(L"write" #NAME " " + text(value)); } \
    Acad::ErrorStatus AcDbRecordingFiler::read##NAME(TYPE* value) {                                                    \
        *value = TYPE();                                                                                               \
        return Acad::eNotApplicable;                                                                                   \
    }
#define DB_RECORD_GEOMETRY(NAME, TYPE)                                                                                 \
    Acad::ErrorStatus AcDbRecordingFiler::write##NAME(const TYPE& value) { return mImpl->add(L"write" #NAME " " + text(value)); } \
    Acad::ErrorStatus AcDbRecordingFiler::read##NAME(TYPE* value) {                                                    \
        *value = TYPE();                                                                                               \
        return Acad::eNotApplicable;                                                                                   \
    }
#define DB_RECORD_ID(NAME, TYPE)                                                                                       \
    Acad::ErrorStatus AcDbRecordingFiler::write##NAME(TYPE value) { return mImpl->add(L"write" #NAME " " + value.handle().text()); } \
    Acad::ErrorStatus AcDbRecordingFiler::read##NAME(TYPE* value) {                                                    \
        *value = TYPE();                                                                                               \
        return Acad::eNotApplicable;                                                                                   \
    }
DB_FILER_PLAIN_TYPES(DB_RECORD_VALUE)
DB_FILER_GEOMETRY_TYPES(DB_RECORD_GEOMETRY)
DB_FILER_ID_TYPES(DB_RECORD_ID)

Acad::ErrorStatus AcDbRecordingFiler::writeString(const ACHAR* value) {
    return mImpl->add(L"writeString " + quoted(value));
}
Acad::ErrorStatus AcDbRecordingFiler::readString(std::wstring& value) {
    value.clear();
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbRecordingFiler::writeBytes(const void* bytes, Adesk::UInt32 size) {
    std::wstring line = L"writeBytes " + text(size);
    for (Adesk::UInt32 i = 0; i < size; ++i) {
        const Adesk::UInt8 b = static_cast<const Adesk::UInt8*>(bytes)[i];
        line += i == 0 ? L" " : L"";
        line += L"0123456789ABCDEF"[b >> 4];
        line += L"0123456789ABCDEF"[b & 15];
    }
    return mImpl->add(line);
}
Acad::ErrorStatus AcDbRecordingFiler::readBytes(void* bytes, Adesk::UInt32 size) {
    if (size != 0)
        std::memset(bytes, 0, size);
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbRecordingFiler::seek(Adesk::Int64, int) {
    return Acad::eNotApplicable;
}
Adesk::Int64 AcDbRecordingFiler::tell() const {
    return static_cast<Adesk::Int64>(mImpl->lines.size());
}

AcDbFilerNest::AcDbFilerNest(AcDbDwgFiler* filer, const ACHAR* className) : mFiler(dynamic_cast<AcDbRecordingFiler*>(filer)) {
    if (mFiler != nullptr)
        mFiler->beginNested(className);
}
AcDbFilerNest::~AcDbFilerNest() {
    if (mFiler != nullptr)
        mFiler->endNested();
}
