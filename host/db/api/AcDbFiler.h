// Filers: the one way an object becomes data. The memory filer serves clones, undo and
// scale records; the recording filer lists the calls as text; the file filer belongs to
// the DWG codec.
#pragma once

#include "AcDbObjectId.h"
#include "AcGe.h"

#include <memory>
#include <string>
#include <vector>

namespace AcDb {
enum FilerType { kFileFiler = 0, kCopyFiler = 1, kUndoFiler = 2, kDeepCloneFiler = 6, kWblockCloneFiler = 8 };
enum FilerSeekType { kSeekFromStart = 0, kSeekFromCurrent = 1, kSeekFromEnd = 2 };
}

struct DbIdTranslation; // host internals

class AcDbDwgFiler {
public:
    virtual ~AcDbDwgFiler() = default;
    // The first error met; later calls are without effect until it is reset.
    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual void resetFilerStatus() = 0;
    virtual void setFilerStatus(Acad::ErrorStatus es) = 0;
    virtual AcDb::FilerType filerType() const = 0;
    virtual AcDb::AcDbDwgVersion dwgVersion() const { return AcDb::kDHL_1015; }

    // Reading takes values in the order they were written, each by its own type; a read of
    // another type than was written sets eFilerError and gives zero.
#define ACDB_FILER_PAIR(NAME, TYPE)                                                                                    \
    virtual Acad::ErrorStatus write##NAME(TYPE value) = 0;                                                             \
    virtual Acad::ErrorStatus read##NAME(TYPE* value) = 0;
    ACDB_FILER_PAIR(Bool, bool)
    ACDB_FILER_PAIR(Int8, Adesk::Int8)
    ACDB_FILER_PAIR(Int16, Adesk::Int16)
    ACDB_FILER_PAIR(Int32, Adesk::Int32)
    ACDB_FILER_PAIR(Int64, Adesk::Int64)
    ACDB_FILER_PAIR(UInt8, Adesk::UInt8)
    ACDB_FILER_PAIR(UInt16, Adesk::UInt16)
    ACDB_FILER_PAIR(UInt32, Adesk::UInt32)
    ACDB_FILER_PAIR(UInt64, Adesk::UInt64)
    ACDB_FILER_PAIR(Double, double)
    ACDB_FILER_PAIR(AcDbHandle, AcDbHandle)
    ACDB_FILER_PAIR(HardOwnershipId, AcDbHardOwnershipId)
    ACDB_FILER_PAIR(SoftOwnershipId, AcDbSoftOwnershipId)
    ACDB_FILER_PAIR(HardPointerId, AcDbHardPointerId)
    ACDB_FILER_PAIR(SoftPointerId, AcDbSoftPointerId)
#undef ACDB_FILER_PAIR
    virtual Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) = 0;
    virtual Acad::ErrorStatus readPoint2d(AcGePoint2d* value) = 0;
    virtual Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) = 0;
    virtual Acad::ErrorStatus readPoint3d(AcGePoint3d* value) = 0;
    virtual Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) = 0;
    virtual Acad::ErrorStatus readVector2d(AcGeVector2d* value) = 0;
    virtual Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) = 0;
    virtual Acad::ErrorStatus readVector3d(AcGeVector3d* value) = 0;
    virtual Acad::ErrorStatus writeScale3d(const AcGeScale3d& value) = 0;
    virtual Acad::ErrorStatus readScale3d(AcGeScale3d* value) = 0;
    // Null is written as the empty text.
    virtual Acad::ErrorStatus writeString(const ACHAR* value) = 0;
    virtual Acad::ErrorStatus readString(std::wstring& value) = 0;
    // A copy to be released with acutDelString; the old text is not released.
    Acad::ErrorStatus readString(ACHAR** value);
    virtual Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UInt32 size) = 0;
    virtual Acad::ErrorStatus readBytes(void* bytes, Adesk::UInt32 size) = 0;

    virtual Acad::ErrorStatus seek(Adesk::Int64 offset, int method) = 0; // eNotApplicable where unsupported
    virtual Adesk::Int64 tell() const = 0;
};

// Typed in-memory stream. Reading starts where it stands; seek(0, 0) rewinds.
class AcDbDeepCloneFiler : public AcDbDwgFiler {
public:
    explicit AcDbDeepCloneFiler(AcDb::FilerType type = AcDb::kDeepCloneFiler);
    ~AcDbDeepCloneFiler() override;
    AcDbDeepCloneFiler(const AcDbDeepCloneFiler&) = delete;
    AcDbDeepCloneFiler& operator=(const AcDbDeepCloneFiler&) = delete;
#define ACDB_FILER_OVERRIDES                                                                                           \
    Acad::ErrorStatus filerStatus() const override;                                                                    \
    void resetFilerStatus() override;                                                                                  \
    void setFilerStatus(Acad::ErrorStatus es) override;                                                                \
    AcDb::FilerType filerType() const override;                                                                        \
    Acad::ErrorStatus writeBool(bool value) override;                                                                  \
    Acad::ErrorStatus readBool(bool* value) override;                                                                  \
    Acad::ErrorStatus writeInt8(Adesk::Int8 value) override;                                                           \
    Acad::ErrorStatus readInt8(Adesk::Int8* value) override;                                                           \
    Acad::ErrorStatus writeInt16(Adesk::Int16 value) override;                                                         \
    Acad::ErrorStatus readInt16(Adesk::Int16* value) override;                                                         \
    Acad::ErrorStatus writeInt32(Adesk::Int32 value) override;                                                         \
    Acad::ErrorStatus readInt32(Adesk::Int32* value) override;                                                         \
    Acad::ErrorStatus writeInt64(Adesk::Int64 value) override;                                                         \
    Acad::ErrorStatus readInt64(Adesk::Int64* value) override;                                                         \
    Acad::ErrorStatus writeUInt8(Adesk::UInt8 value) override;                                                         \
    Acad::ErrorStatus readUInt8(Adesk::UInt8* value) override;                                                         \
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 value) override;                                                       \
    Acad::ErrorStatus readUInt16(Adesk::UInt16* value) override;                                                       \
    Acad::ErrorStatus writeUInt32(Adesk::UInt32 value) override;                                                       \
    Acad::ErrorStatus readUInt32(Adesk::UInt32* value) override;                                                       \
    Acad::ErrorStatus writeUInt64(Adesk::UInt64 value) override;                                                       \
    Acad::ErrorStatus readUInt64(Adesk::UInt64* value) override;                                                       \
    Acad::ErrorStatus writeDouble(double value) override;                                                              \
    Acad::ErrorStatus readDouble(double* value) override;                                                              \
    Acad::ErrorStatus writeAcDbHandle(AcDbHandle value) override;                                                      \
    Acad::ErrorStatus readAcDbHandle(AcDbHandle* value) override;                                                      \
    Acad::ErrorStatus writeHardOwnershipId(AcDbHardOwnershipId value) override;                                        \
    Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* value) override;                                        \
    Acad::ErrorStatus writeSoftOwnershipId(AcDbSoftOwnershipId value) override;                                        \
    Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* value) override;                                        \
    Acad::ErrorStatus writeHardPointerId(AcDbHardPointerId value) override;                                            \
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* value) override;                                            \
    Acad::ErrorStatus writeSoftPointerId(AcDbSoftPointerId value) override;                                            \
    Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* value) override;                                            \
    Acad::ErrorStatus writePoint2d(const AcGePoint2d& value) override;                                                 \
    Acad::ErrorStatus readPoint2d(AcGePoint2d* value) override;                                                        \
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& value) override;                                                 \
    Acad::ErrorStatus readPoint3d(AcGePoint3d* value) override;                                                        \
    Acad::ErrorStatus writeVector2d(const AcGeVector2d& value) override;                                               \
    Acad::ErrorStatus readVector2d(AcGeVector2d* value) override;                                                      \
    Acad::ErrorStatus writeVector3d(const AcGeVector3d& value) override;                                               \
    Acad::ErrorStatus readVector3d(AcGeVector3d* value) override;                                                      \
    Acad::ErrorStatus writeScale3d(const AcGeScale3d& value) override;                                                 \
    Acad::ErrorStatus readScale3d(AcGeScale3d* value) override;                                                        \
    Acad::ErrorStatus writeString(const ACHAR* value) override;                                                        \
    Acad::ErrorStatus readString(std::wstring& value) override;                                                        \
    Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UInt32 size) override;                                      \
    Acad::ErrorStatus readBytes(void* bytes, Adesk::UInt32 size) override;                                             \
    Acad::ErrorStatus seek(Adesk::Int64 offset, int method) override;                                                  \
    Adesk::Int64 tell() const override;                                                                                \
    using AcDbDwgFiler::readString
    ACDB_FILER_OVERRIDES;
    // Size of the stream in bytes, for memory accounting.
    std::size_t byteSize() const { return mSize; }
    // Gives back the room kept for further writing; for a stream that is complete and stays long.
    void releaseSpare();
    // Writing after a seek cuts off what followed.

private:
    friend struct DbObjectAccess;
    Adesk::UInt8* beginWrite(Adesk::UInt8 tag, std::size_t payload);
    const Adesk::UInt8* beginRead(Adesk::UInt8 tag, std::size_t payload);
    template <class T> Acad::ErrorStatus put(Adesk::UInt8 tag, const T& value);
    template <class T> Acad::ErrorStatus take(Adesk::UInt8 tag, T* value);
    Acad::ErrorStatus takeId(Adesk::UInt8 tag, AcDbObjectId& id);
    bool takeBlock(Adesk::UInt8 tag, std::size_t unit, std::size_t& count, const Adesk::UInt8*& data);
    void grow(std::size_t needed);

    // One stretch of bytes: a type tag before each value, texts and bytes in place.
    Adesk::UInt8* mBytes = nullptr;
    std::size_t mSize = 0, mCapacity = 0, mAt = 0;
    AcDb::FilerType mType;
    Acad::ErrorStatus mStatus = Acad::eOk;
    const DbIdTranslation* mTranslation = nullptr; // ids are turned by it on reading; cloning sets it
};

// Lists the write calls as text, one a line: writeInt32 7, writePoint3d 0 0 0,
// writeString "…", writeHardPointerId 2F. beginNested and endNested indent. Reads give eNotApplicable.
class AcDbRecordingFiler : public AcDbDwgFiler {
public:
    AcDbRecordingFiler();
    ~AcDbRecordingFiler() override;
    ACDB_FILER_OVERRIDES;
    const std::vector<std::wstring>& lines() const;
    void beginNested(const ACHAR* className);
    void endNested();

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};

// Indents a recorded listing around an object filed inside another; no effect on other filers.
class AcDbFilerNest {
public:
    AcDbFilerNest(AcDbDwgFiler* filer, const ACHAR* className);
    ~AcDbFilerNest();
    AcDbFilerNest(const AcDbFilerNest&) = delete;
    AcDbFilerNest& operator=(const AcDbFilerNest&) = delete;

private:
    AcDbRecordingFiler* mFiler;
};
