// Stored fields written down once: a class lists its fields with the version that brought each,
// and one list serves writing, reading and copying, so that the three cannot drift apart.
#pragma once

#include "AcDbFiler.h"

#include <string>
#include <type_traits>

// The version that every class of the module writes; a record above it belongs to a later program.
inline constexpr Adesk::UInt32 kTrfcFileVersion = 7;

// A 32-bit field or an enumeration kept in 16 unsigned bits.
template <class T> struct TrfcShortField { T& value; };
template <class T> TrfcShortField<T> trfcShort(T& value) { return {value}; }

inline void trfcWrite(AcDbDwgFiler& filer, bool v) { filer.writeBool(v); }
inline void trfcWrite(AcDbDwgFiler& filer, double v) { filer.writeDouble(v); }
inline void trfcWrite(AcDbDwgFiler& filer, Adesk::Int16 v) { filer.writeInt16(v); }
inline void trfcWrite(AcDbDwgFiler& filer, Adesk::UInt32 v) { filer.writeUInt32(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGePoint3d& v) { filer.writePoint3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGeVector3d& v) { filer.writeVector3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGeScale3d& v) { filer.writeScale3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const std::wstring& v) { filer.writeString(v.c_str()); }
template <class T> void trfcWrite(AcDbDwgFiler& filer, TrfcShortField<T> v) { filer.writeUInt16(static_cast<Adesk::UInt16>(v.value)); }

inline void trfcRead(AcDbDwgFiler& filer, bool& v) { filer.readBool(&v); }
inline void trfcRead(AcDbDwgFiler& filer, double& v) { filer.readDouble(&v); }
inline void trfcRead(AcDbDwgFiler& filer, Adesk::Int16& v) { filer.readInt16(&v); }
inline void trfcRead(AcDbDwgFiler& filer, Adesk::UInt32& v) { filer.readUInt32(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGePoint3d& v) { filer.readPoint3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGeVector3d& v) { filer.readVector3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGeScale3d& v) { filer.readScale3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, std::wstring& v) { filer.readString(v); }
// The upper half of the field is cleared: the file holds 16 bits.
template <class T> void trfcRead(AcDbDwgFiler& filer, TrfcShortField<T> v) {
    Adesk::UInt16 bits = 0;
    filer.readUInt16(&bits);
    v.value = static_cast<T>(bits);
}

// Visitors of a field list: operator()(first version, field).
struct TrfcFieldWriter {
    AcDbDwgFiler& filer;
    template <class T> void operator()(Adesk::UInt32, const T& field) const { trfcWrite(filer, field); }
};
struct TrfcFieldReader {
    AcDbDwgFiler& filer;
    Adesk::UInt32 version;
    template <class T> void operator()(Adesk::UInt32 first, T&& field) const {
        if (version >= first)
            trfcRead(filer, field);
    }
};
// Copies a record from filer to filer; the field tells the type alone.
struct TrfcFieldCopier {
    AcDbDwgFiler& source;
    AcDbDwgFiler& target;
    Adesk::UInt32 version;
    template <class T> void operator()(Adesk::UInt32 first, const T&) const {
        if (version < first)
            return;
        T value{};
        trfcRead(source, value);
        trfcWrite(target, value);
    }
};

// Reads the version at the head of a record. Above the known ones eMakeMeProxy: the object then stays
// as the file has it.
inline Acad::ErrorStatus trfcReadVersion(AcDbDwgFiler& filer, Adesk::UInt32& version) {
    version = 0;
    filer.readUInt32(&version);
    return version > kTrfcFileVersion ? Acad::eMakeMeProxy : Acad::eOk;
}
