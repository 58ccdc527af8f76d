// The bit streams of drawing files: packed numbers, points, texts and handles, read from memory that is
// never trusted and written into one growing buffer.
// Names of the codes as in the Open Design description of DWG, chapter "Bit codes and data definitions".
#pragma once

#include "AcAdesk.h"
#include "AcGe.h"
#include "DwgText.h"

#include <string>
#include <vector>

// A handle as it stands in a file: a code and a number, which may be an offset.
struct DwgHandleRef {
    Adesk::UInt8 code = 0;
    Adesk::UInt64 value = 0;
    // 6, 8, A and C are relative to the handle of the object that holds the reference.
    Adesk::UInt64 absolute(Adesk::UInt64 base) const;
};

// Reading past the end gives zeros and sets failed(); it never touches foreign memory.
class DwgBitReader {
public:
    DwgBitReader() = default;
    DwgBitReader(const Adesk::UInt8* bytes, std::size_t count, const DwgTextCodec* text = nullptr)
        : mBytes(bytes), mEnd(count * 8), mText(text) {}
    bool failed() const { return mFailed; }
    void fail() { mFailed = true; }
    std::size_t position() const { return mAt; } // in bits
    std::size_t end() const { return mEnd; }
    std::size_t left() const { return mEnd - mAt; }
    void setPosition(std::size_t bit); // beyond the end fails
    void setEnd(std::size_t bit);      // narrows the stream; beyond the end fails
    void alignToByte() { setPosition((mAt + 7) / 8 * 8); }
    const DwgTextCodec* text() const { return mText; }

    Adesk::UInt64 bits(unsigned count); // up to 32, most significant first
    bool B() { return bits(1) != 0; }
    Adesk::UInt8 BB() { return static_cast<Adesk::UInt8>(bits(2)); }
    Adesk::UInt8 RC() { return static_cast<Adesk::UInt8>(bits(8)); }
    Adesk::UInt16 RS();
    Adesk::UInt32 RL();
    double RD();
    Adesk::Int16 BS();
    Adesk::Int32 BL();
    double BD();
    double DD(double standard);
    double BT() { return B() ? 0.0 : BD(); }
    AcGeVector3d BE();
    AcGePoint2d RD2();
    AcGePoint3d RD3();
    AcGePoint3d BD3();
    AcGeVector3d BD3v();
    DwgHandleRef H();
    std::string TVbytes();
    std::wstring TV();
    // A count of items of at least `least` bits each; fails when the stream cannot hold that many.
    std::size_t count(Adesk::Int64 number, std::size_t least);
    std::vector<Adesk::UInt8> bytes(std::size_t count);
    Adesk::UInt64 MC();  // modular char, not negative
    Adesk::Int32 MCsigned();
    Adesk::UInt32 MS();  // modular short

private:
    const Adesk::UInt8* mBytes = nullptr;
    std::size_t mAt = 0, mEnd = 0;
    bool mFailed = false;
    const DwgTextCodec* mText = nullptr;
};

class DwgBitWriter {
public:
    explicit DwgBitWriter(const DwgTextCodec* text = nullptr) : mText(text) {}
    std::size_t position() const { return mBytes.size() * 8 + mCount; }
    void clear() { mBytes.clear(), mRest = 0, mCount = 0; }
    void alignToByte();
    // The finished bytes, the last filled with zero bits.
    const std::vector<Adesk::UInt8>& finish() { alignToByte(); return mBytes; }
    const DwgTextCodec* text() const { return mText; }

    void bits(Adesk::UInt64 value, unsigned count); // up to 32
    void B(bool value) { bits(value ? 1 : 0, 1); }
    void BB(unsigned value) { bits(value & 3U, 2); }
    void RC(unsigned value) { bits(value & 0xFFU, 8); }
    void RS(unsigned value);
    void RL(Adesk::UInt32 value);
    void RD(double value);
    void BS(Adesk::Int32 value);
    void BL(Adesk::Int32 value);
    void BD(double value);
    void DD(double value, double standard);
    void BT(double value);
    void BE(const AcGeVector3d& value);
    void RD2(const AcGePoint2d& value) { RD(value.x), RD(value.y); }
    void RD3(const AcGePoint3d& value) { RD(value.x), RD(value.y), RD(value.z); }
    void BD3(const AcGePoint3d& value) { BD(value.x), BD(value.y), BD(value.z); }
    void BD3v(const AcGeVector3d& value) { BD(value.x), BD(value.y), BD(value.z); }
    void H(unsigned code, Adesk::UInt64 value);
    void TVbytes(std::string_view bytes);
    void TV(std::wstring_view text);
    void bytes(const Adesk::UInt8* bytes, std::size_t count);
    void MC(Adesk::UInt64 value);
    void MCsigned(Adesk::Int32 value);
    void MS(Adesk::UInt32 value);
    // Appends bits of another buffer.
    void copyBits(const Adesk::UInt8* bytes, std::size_t from, std::size_t to);
    // Puts a 32-bit number over one written before, at that bit; nothing may be pending there.
    void patchRL(std::size_t bit, Adesk::UInt32 value);

private:
    std::vector<Adesk::UInt8> mBytes;
    Adesk::UInt64 mRest = 0; // bits not yet a whole byte, in the low mCount bits
    unsigned mCount = 0;
    const DwgTextCodec* mText;
};
