// Stored fields written down once: a class lists its fields with the version that brought each,
// and one list serves writing, reading and copying, so that the three cannot drift apart.
//
// A list is a callable that shows every field of an object to a visitor, in the file's order:
//     template <class Self, class Fields> static void fields(Self& self, Fields&& field) {
//         field(1, self.mPoint);                 // from version 1 on
//         field(6, self.mAnchor);                // read from version 6 on
//         field(1, trfcShort(self.mState));      // 32 bits in memory, 16 in the file
//     }
// The kind says which integers a class files its version and its short fields with: the typed streams in
// memory check that each read asks for what was written, so the two kinds do not mix.
#pragma once

#include "AcDbFiler.h"

#include <string>
#include <type_traits>

// The version that every class of the module writes; a record above it belongs to a later program.
inline constexpr Adesk::UInt32 kTrfcFileVersion = 7;

// Posts, markings, blocks and chains.
struct TrfcUnsignedKind {
    static void writeVersion(AcDbDwgFiler& filer, Adesk::UInt32 version) { filer.writeUInt32(version); }
    static void readVersion(AcDbDwgFiler& filer, Adesk::UInt32& version) { filer.readUInt32(&version); }
    static void writeShort(AcDbDwgFiler& filer, Adesk::Int32 value) { filer.writeUInt16(static_cast<Adesk::UInt16>(value)); }
    static Adesk::Int32 readShort(AcDbDwgFiler& filer) {
        Adesk::UInt16 bits = 0;
        filer.readUInt16(&bits);
        return bits;
    }
};
// Post pairs and crossings.
struct TrfcSignedKind {
    static void writeVersion(AcDbDwgFiler& filer, Adesk::UInt32 version) { filer.writeInt32(static_cast<Adesk::Int32>(version)); }
    static void readVersion(AcDbDwgFiler& filer, Adesk::UInt32& version) {
        Adesk::Int32 number = 0;
        filer.readInt32(&number);
        version = static_cast<Adesk::UInt32>(number); // a negative one is above every known version
    }
    static void writeShort(AcDbDwgFiler& filer, Adesk::Int32 value) { filer.writeInt16(static_cast<Adesk::Int16>(value)); }
    // The upper half of the field is cleared: the file holds 16 bits.
    static Adesk::Int32 readShort(AcDbDwgFiler& filer) {
        Adesk::Int16 bits = 0;
        filer.readInt16(&bits);
        return static_cast<Adesk::UInt16>(bits);
    }
};

// A 32-bit field or an enumeration kept in 16 bits.
template <class T> struct TrfcShortField { T& value; };
template <class T> TrfcShortField<T> trfcShort(T& value) { return {value}; }

inline void trfcWrite(AcDbDwgFiler& filer, bool v) { filer.writeBool(v); }
inline void trfcWrite(AcDbDwgFiler& filer, double v) { filer.writeDouble(v); }
inline void trfcWrite(AcDbDwgFiler& filer, Adesk::Int16 v) { filer.writeInt16(v); }
inline void trfcWrite(AcDbDwgFiler& filer, Adesk::Int32 v) { filer.writeInt32(v); }
inline void trfcWrite(AcDbDwgFiler& filer, Adesk::UInt32 v) { filer.writeUInt32(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGePoint3d& v) { filer.writePoint3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGeVector3d& v) { filer.writeVector3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const AcGeScale3d& v) { filer.writeScale3d(v); }
inline void trfcWrite(AcDbDwgFiler& filer, const std::wstring& v) { filer.writeString(v.c_str()); }

inline void trfcRead(AcDbDwgFiler& filer, bool& v) { filer.readBool(&v); }
inline void trfcRead(AcDbDwgFiler& filer, double& v) { filer.readDouble(&v); }
inline void trfcRead(AcDbDwgFiler& filer, Adesk::Int16& v) { filer.readInt16(&v); }
inline void trfcRead(AcDbDwgFiler& filer, Adesk::Int32& v) { filer.readInt32(&v); }
inline void trfcRead(AcDbDwgFiler& filer, Adesk::UInt32& v) { filer.readUInt32(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGePoint3d& v) { filer.readPoint3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGeVector3d& v) { filer.readVector3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, AcGeScale3d& v) { filer.readScale3d(&v); }
inline void trfcRead(AcDbDwgFiler& filer, std::wstring& v) { filer.readString(v); }

// Visitors of a field list: operator()(first version, field).
template <class Kind> struct TrfcFieldWriter {
    AcDbDwgFiler& filer;
    template <class T> void operator()(Adesk::UInt32, const T& field) const { trfcWrite(filer, field); }
    template <class T> void operator()(Adesk::UInt32, TrfcShortField<T> field) const { Kind::writeShort(filer, static_cast<Adesk::Int32>(field.value)); }
};
template <class Kind> struct TrfcFieldReader {
    AcDbDwgFiler& filer;
    Adesk::UInt32 version;
    template <class T> void operator()(Adesk::UInt32 first, T& field) const {
        if (version >= first)
            trfcRead(filer, field);
    }
    template <class T> void operator()(Adesk::UInt32 first, TrfcShortField<T> field) const {
        if (version >= first)
            field.value = static_cast<T>(Kind::readShort(filer));
    }
};
// Copies a record from filer to filer; the field tells the type alone.
template <class Kind> struct TrfcFieldCopier {
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
    template <class T> void operator()(Adesk::UInt32 first, TrfcShortField<T>) const {
        if (version >= first)
            Kind::writeShort(target, Kind::readShort(source));
    }
};

// Reads the version at the head of a record. Above the known ones eMakeMeProxy: the object then stays
// as the file has it.
template <class Kind = TrfcUnsignedKind> Acad::ErrorStatus trfcReadVersion(AcDbDwgFiler& filer, Adesk::UInt32& version) {
    version = 0;
    Kind::readVersion(filer, version);
    return version > kTrfcFileVersion ? Acad::eMakeMeProxy : Acad::eOk;
}

// A record that is its version and one field list: what an entity keeps for each scale. The list is called
// as list(object, visitor); version 0 means that nothing follows.
template <class Kind, class Self, class List> Acad::ErrorStatus trfcWriteRecord(AcDbDwgFiler& filer, const Self& self, const List& list) {
    Kind::writeVersion(filer, kTrfcFileVersion);
    list(self, TrfcFieldWriter<Kind>{filer});
    return filer.filerStatus();
}
template <class Kind, class Self, class List> Acad::ErrorStatus trfcReadRecord(AcDbDwgFiler& filer, Self& self, const List& list) {
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus es = trfcReadVersion<Kind>(filer, version);
    if (es == Acad::eOk && version > 0)
        list(self, TrfcFieldReader<Kind>{filer, version});
    return es != Acad::eOk ? es : filer.filerStatus();
}
// The copy keeps the version that the record has; the object tells the types of the fields and is not touched.
template <class Kind, class Self, class List>
Acad::ErrorStatus trfcCopyRecord(AcDbDwgFiler& source, AcDbDwgFiler& target, const Self& self, const List& list) {
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus es = trfcReadVersion<Kind>(source, version);
    if (es != Acad::eOk)
        return es;
    Kind::writeVersion(target, version);
    if (version > 0)
        list(self, TrfcFieldCopier<Kind>{source, target, version});
    return source.filerStatus() != Acad::eOk ? source.filerStatus() : target.filerStatus();
}

// A part that files itself, under its name in a recording.
template <class Part> void trfcWritePart(AcDbDwgFiler& filer, const Part& part, const ACHAR* name) {
    const AcDbFilerNest nest(&filer, name);
    part.dwgOutFields(&filer);
}
