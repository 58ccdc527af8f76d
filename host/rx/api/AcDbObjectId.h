// Object ids and handles. An id is a pointer-sized name of a database object, valid while
// its database lives; layers below the database know it as opaque. A handle is the
// object's number in the drawing file.
#pragma once

#include "AcAdesk.h"
#include "AcArray.h"

#include <compare>
#include <functional>
#include <string>

class AcDbStub; // the database's record of one object; defined by host/db
class AcDbDatabase;

class AcDbHandle {
public:
    AcDbHandle() = default;
    explicit AcDbHandle(Adesk::UInt64 value) : mValue(value) {}
    explicit AcDbHandle(const ACHAR* hexText); // 0 when the text is no hexadecimal number
    operator Adesk::UInt64() const { return mValue; }
    bool isNull() const { return mValue == 0; }
    // Upper-case hexadecimal without leading zeros into a buffer of at least 17 characters.
    bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t size = 17) const;
    std::wstring text() const;

private:
    Adesk::UInt64 mValue = 0;
};

class AcDbObjectId {
public:
    constexpr AcDbObjectId() = default;
    explicit constexpr AcDbObjectId(AcDbStub* stub) : mStub(stub) {}
    static const AcDbObjectId kNull;
    bool isNull() const { return mStub == nullptr; }
    void setNull() { mStub = nullptr; }
    // True when the id names an object that stands in memory (erased or not).
    bool isValid() const;
    bool isErased() const;
    AcDbHandle handle() const;      // null handle for a null id
    AcDbDatabase* database() const; // null for a null id
    AcDbStub* stub() const { return mStub; }
    operator AcDbStub*() const { return mStub; }
    Adesk::IntDbId asOldId() const { return reinterpret_cast<Adesk::IntDbId>(mStub); }
    void setFromOldId(Adesk::IntDbId id) { mStub = reinterpret_cast<AcDbStub*>(id); }
    auto operator<=>(const AcDbObjectId&) const = default;

private:
    AcDbStub* mStub = nullptr;
};
inline constexpr AcDbObjectId AcDbObjectId::kNull{};

// The four kinds of reference a file distinguishes.
class AcDbSoftPointerId : public AcDbObjectId { using AcDbObjectId::AcDbObjectId; public: AcDbSoftPointerId(AcDbObjectId id) : AcDbObjectId(id) {} AcDbSoftPointerId() = default; };
class AcDbHardPointerId : public AcDbObjectId { using AcDbObjectId::AcDbObjectId; public: AcDbHardPointerId(AcDbObjectId id) : AcDbObjectId(id) {} AcDbHardPointerId() = default; };
class AcDbSoftOwnershipId : public AcDbObjectId { using AcDbObjectId::AcDbObjectId; public: AcDbSoftOwnershipId(AcDbObjectId id) : AcDbObjectId(id) {} AcDbSoftOwnershipId() = default; };
class AcDbHardOwnershipId : public AcDbObjectId { using AcDbObjectId::AcDbObjectId; public: AcDbHardOwnershipId(AcDbObjectId id) : AcDbObjectId(id) {} AcDbHardOwnershipId() = default; };

using AcDbObjectIdArray = AcArray<AcDbObjectId>;

template <> struct std::hash<AcDbObjectId> {
    std::size_t operator()(const AcDbObjectId& id) const noexcept { return std::hash<AcDbStub*>()(id.stub()); }
};
