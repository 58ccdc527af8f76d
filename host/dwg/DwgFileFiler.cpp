// Bit codes of the filer's calls: B for truth values, RC for bytes, BS and BL for shorts and longs, BD
// for reals and coordinates, TV for texts.
#include "DwgFileFiler.h"

template <class Action> Acad::ErrorStatus DwgFileFiler::put(Action action) {
    if (mStatus != Acad::eOk)
        return mStatus;
    if (mOut == nullptr)
        return mStatus = Acad::eNotApplicable;
    action(mOut->data());
    return Acad::eOk;
}
template <class Action> Acad::ErrorStatus DwgFileFiler::get(Action action) {
    if (mStatus != Acad::eOk)
        return mStatus;
    if (mIn == nullptr)
        return mStatus = Acad::eNotApplicable;
    action(mIn->data());
    return mIn->failed() ? mStatus = Acad::eEndOfObject : Acad::eOk;
}

Acad::ErrorStatus DwgFileFiler::filerStatus() const { return mStatus; }
void DwgFileFiler::resetFilerStatus() { mStatus = Acad::eOk; }
void DwgFileFiler::setFilerStatus(Acad::ErrorStatus es) { mStatus = es; }
AcDb::FilerType DwgFileFiler::filerType() const { return AcDb::kFileFiler; }

// A failed read gives zero.
#define DWG_FILER_PAIR(NAME, TYPE, WRITE, READ)                                                                        \
    Acad::ErrorStatus DwgFileFiler::write##NAME(TYPE value) {                                                          \
        return put([value](DwgBitWriter& data) { WRITE; });                                                            \
    }                                                                                                                  \
    Acad::ErrorStatus DwgFileFiler::read##NAME(TYPE* value) {                                                          \
        *value = TYPE();                                                                                               \
        return get([value](DwgBitReader& data) { *value = static_cast<TYPE>(READ); });                                 \
    }
namespace {
void put64(DwgBitWriter& data, Adesk::UInt64 value) {
    data.RL(static_cast<Adesk::UInt32>(value));
    data.RL(static_cast<Adesk::UInt32>(value >> 32U));
}
Adesk::UInt64 get64(DwgBitReader& data) {
    const Adesk::UInt64 low = data.RL();
    return low | static_cast<Adesk::UInt64>(data.RL()) << 32U;
}
} // namespace
DWG_FILER_PAIR(Bool, bool, data.B(value), data.B())
DWG_FILER_PAIR(Int8, Adesk::Int8, data.RC(static_cast<unsigned>(value)), data.RC())
DWG_FILER_PAIR(UInt8, Adesk::UInt8, data.RC(value), data.RC())
DWG_FILER_PAIR(Int16, Adesk::Int16, data.BS(value), data.BS())
DWG_FILER_PAIR(UInt16, Adesk::UInt16, data.BS(static_cast<Adesk::Int16>(value)), data.BS())
DWG_FILER_PAIR(Int32, Adesk::Int32, data.BL(value), data.BL())
DWG_FILER_PAIR(UInt32, Adesk::UInt32, data.BL(static_cast<Adesk::Int32>(value)), data.BL())
DWG_FILER_PAIR(Int64, Adesk::Int64, put64(data, static_cast<Adesk::UInt64>(value)), get64(data))
DWG_FILER_PAIR(UInt64, Adesk::UInt64, put64(data, value), get64(data))
DWG_FILER_PAIR(Double, double, data.BD(value), data.BD())
DWG_FILER_PAIR(AcDbHandle, AcDbHandle, data.H(0, value), AcDbHandle(data.H().value))
#undef DWG_FILER_PAIR

// Open Design description of DWG, "Handle references": 2 soft owner, 3 hard owner, 4 soft pointer, 5 hard pointer.
#define DWG_FILER_ID(NAME, CODE)                                                                                       \
    Acad::ErrorStatus DwgFileFiler::write##NAME(AcDb##NAME value) {                                                    \
        return put([&](DwgBitWriter&) { mOut->H(CODE, value); });                                                      \
    }                                                                                                                  \
    Acad::ErrorStatus DwgFileFiler::read##NAME(AcDb##NAME* value) {                                                    \
        *value = AcDb##NAME();                                                                                         \
        return get([&](DwgBitReader&) { *value = AcDb##NAME(mIn->H()); });                                             \
    }
DWG_FILER_ID(SoftOwnershipId, 2)
DWG_FILER_ID(HardOwnershipId, 3)
DWG_FILER_ID(SoftPointerId, 4)
DWG_FILER_ID(HardPointerId, 5)
#undef DWG_FILER_ID

#define DWG_FILER_COORDINATES(NAME, TYPE, WRITE, READ)                                                                 \
    Acad::ErrorStatus DwgFileFiler::write##NAME(const TYPE& v) {                                                       \
        return put([&v](DwgBitWriter& data) { WRITE; });                                                               \
    }                                                                                                                  \
    Acad::ErrorStatus DwgFileFiler::read##NAME(TYPE* value) {                                                          \
        TYPE& v = *value = TYPE();                                                                                     \
        return get([&v](DwgBitReader& data) { READ; });                                                                \
    }
#define DWG_PUT2 data.BD(v.x), data.BD(v.y)
#define DWG_GET2 v.x = data.BD(), v.y = data.BD()
#define DWG_PUT3 DWG_PUT2, data.BD(v.z)
#define DWG_GET3 DWG_GET2, v.z = data.BD()
DWG_FILER_COORDINATES(Point2d, AcGePoint2d, DWG_PUT2, DWG_GET2)
DWG_FILER_COORDINATES(Point3d, AcGePoint3d, DWG_PUT3, DWG_GET3)
DWG_FILER_COORDINATES(Vector2d, AcGeVector2d, DWG_PUT2, DWG_GET2)
DWG_FILER_COORDINATES(Vector3d, AcGeVector3d, DWG_PUT3, DWG_GET3)
DWG_FILER_COORDINATES(Scale3d, AcGeScale3d, (data.BD(v.sx), data.BD(v.sy), data.BD(v.sz)), (v.sx = data.BD(), v.sy = data.BD(), v.sz = data.BD()))
#undef DWG_FILER_COORDINATES

Acad::ErrorStatus DwgFileFiler::writeString(const ACHAR* value) {
    return put([value](DwgBitWriter& data) { data.TV(value != nullptr ? value : L""); });
}
Acad::ErrorStatus DwgFileFiler::readString(std::wstring& value) {
    value.clear();
    return get([&value](DwgBitReader& data) { value = data.TV(); });
}
Acad::ErrorStatus DwgFileFiler::writeBytes(const void* bytes, Adesk::UInt32 size) {
    return put([bytes, size](DwgBitWriter& data) { data.bytes(static_cast<const Adesk::UInt8*>(bytes), size); });
}
Acad::ErrorStatus DwgFileFiler::readBytes(void* bytes, Adesk::UInt32 size) {
    return get([bytes, size](DwgBitReader& data) {
        const std::vector<Adesk::UInt8> read = data.bytes(size);
        std::copy(read.begin(), read.end(), static_cast<Adesk::UInt8*>(bytes));
    });
}

Acad::ErrorStatus DwgFileFiler::seek(Adesk::Int64, int) { return Acad::eNotApplicable; }
Adesk::Int64 DwgFileFiler::tell() const {
    return static_cast<Adesk::Int64>(mOut != nullptr ? mOut->data().position() : mIn->data().position());
}
