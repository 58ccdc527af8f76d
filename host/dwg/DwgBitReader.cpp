// Reading of packed values; every read is checked against the end of the stream.
#include "DwgBits.h"

#include <cstring>

Adesk::UInt64 DwgHandleRef::absolute(Adesk::UInt64 base) const {
    switch (code) { // Open Design description of DWG, "Handle references"
    case 0x6: return base + 1;
    case 0x8: return base - 1;
    case 0xA: return base + value;
    case 0xC: return base - value;
    default: return value;
    }
}

void DwgBitReader::setPosition(std::size_t bit) {
    if (bit > mEnd) {
        mFailed = true;
        mAt = mEnd;
    } else {
        mAt = bit;
    }
}

void DwgBitReader::setEnd(std::size_t bit) {
    if (bit > mEnd || bit < mAt)
        mFailed = true;
    else
        mEnd = bit;
}

Adesk::UInt64 DwgBitReader::bits(unsigned count) {
    if (count > mEnd - mAt) {
        mFailed = true;
        mAt = mEnd;
        return 0;
    }
    const std::size_t first = mAt / 8;
    const auto offset = static_cast<unsigned>(mAt % 8);
    const std::size_t last = (mAt + count + 7) / 8;
    Adesk::UInt64 value = 0;
    for (std::size_t i = first; i < last; ++i)
        value = (value << 8U) | mBytes[i];
    mAt += count;
    const auto spare = static_cast<unsigned>((last - first) * 8) - offset - count;
    return (value >> spare) & ((Adesk::UInt64{1} << count) - 1);
}

Adesk::UInt16 DwgBitReader::RS() {
    const auto value = static_cast<unsigned>(bits(16));
    return static_cast<Adesk::UInt16>((value >> 8U) | (value << 8U));
}

Adesk::UInt32 DwgBitReader::RL() {
    return __builtin_bswap32(static_cast<Adesk::UInt32>(bits(32)));
}

double DwgBitReader::RD() {
    const Adesk::UInt64 low = RL();
    const Adesk::UInt64 value = low | (static_cast<Adesk::UInt64>(RL()) << 32U);
    double number = 0.0;
    std::memcpy(&number, &value, sizeof number);
    return number;
}

Adesk::Int16 DwgBitReader::BS() {
    switch (BB()) {
    case 0: return static_cast<Adesk::Int16>(RS());
    case 1: return RC();
    case 2: return 0;
    default: return 256;
    }
}

Adesk::Int32 DwgBitReader::BL() {
    switch (BB()) {
    case 0: return static_cast<Adesk::Int32>(RL());
    case 1: return RC();
    case 2: return 0;
    default: mFailed = true; return 0; // not used by any writer
    }
}

double DwgBitReader::BD() {
    switch (BB()) {
    case 0: return RD();
    case 1: return 1.0;
    case 2: return 0.0;
    default: mFailed = true; return 0.0;
    }
}

double DwgBitReader::DD(double standard) {
    const unsigned code = BB();
    if (code == 0)
        return standard;
    if (code == 3)
        return RD();
    Adesk::UInt8 bytes[8];
    std::memcpy(bytes, &standard, sizeof bytes);
    if (code == 2) { // bytes 5 and 6 of the number stand first
        bytes[4] = RC();
        bytes[5] = RC();
    }
    for (int i = 0; i < 4; ++i)
        bytes[i] = RC();
    double number = 0.0;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

AcGeVector3d DwgBitReader::BE() {
    return B() ? AcGeVector3d(0.0, 0.0, 1.0) : BD3v();
}

AcGePoint2d DwgBitReader::RD2() {
    AcGePoint2d p;
    p.x = RD();
    p.y = RD();
    return p;
}

AcGePoint3d DwgBitReader::RD3() {
    AcGePoint3d p;
    p.x = RD();
    p.y = RD();
    p.z = RD();
    return p;
}

AcGePoint3d DwgBitReader::BD3() {
    AcGePoint3d p;
    p.x = BD();
    p.y = BD();
    p.z = BD();
    return p;
}

AcGeVector3d DwgBitReader::BD3v() {
    const AcGePoint3d p = BD3();
    return {p.x, p.y, p.z};
}

DwgHandleRef DwgBitReader::H() {
    DwgHandleRef ref;
    ref.code = static_cast<Adesk::UInt8>(bits(4));
    const auto length = static_cast<unsigned>(bits(4));
    if (length > 8) {
        mFailed = true;
        return ref;
    }
    for (unsigned i = 0; i < length; ++i)
        ref.value = (ref.value << 8U) | RC();
    return ref;
}

std::size_t DwgBitReader::count(Adesk::Int64 number, std::size_t least) {
    if (number < 0 || static_cast<std::size_t>(number) > left() / least) {
        mFailed = true;
        return 0;
    }
    return static_cast<std::size_t>(number);
}

std::vector<Adesk::UInt8> DwgBitReader::bytes(std::size_t number) {
    if (number > left() / 8) {
        mFailed = true;
        mAt = mEnd;
        return {};
    }
    std::vector<Adesk::UInt8> result(number);
    if (mAt % 8 == 0) {
        if (number != 0)
            std::memcpy(result.data(), mBytes + mAt / 8, number);
        mAt += number * 8;
        return result;
    }
    for (Adesk::UInt8& byte : result)
        byte = RC();
    return result;
}

std::string DwgBitReader::TVbytes() {
    const std::vector<Adesk::UInt8> raw = bytes(static_cast<Adesk::UInt16>(BS()));
    return std::string(raw.begin(), raw.end());
}

std::wstring DwgBitReader::TV() {
    const std::string raw = TVbytes();
    return mText != nullptr ? mText->decode(raw) : std::wstring(raw.begin(), raw.end());
}

Adesk::UInt64 DwgBitReader::MC() {
    Adesk::UInt64 value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const Adesk::UInt64 byte = RC();
        value |= (byte & 0x7FU) << shift;
        if ((byte & 0x80U) == 0)
            return value;
    }
    mFailed = true;
    return 0;
}

Adesk::Int32 DwgBitReader::MCsigned() {
    Adesk::Int64 value = 0;
    for (unsigned shift = 0; shift < 35; shift += 7) {
        const Adesk::Int64 byte = RC();
        if ((byte & 0x80) != 0) {
            value |= (byte & 0x7F) << shift;
            continue;
        }
        value |= (byte & 0x3F) << shift;
        return static_cast<Adesk::Int32>((byte & 0x40) != 0 ? -value : value);
    }
    mFailed = true;
    return 0;
}

Adesk::UInt32 DwgBitReader::MS() {
    const Adesk::UInt32 low = RS();
    if ((low & 0x8000U) == 0)
        return low;
    const Adesk::UInt32 high = RS();
    if ((high & 0x8000U) != 0)
        mFailed = true; // a record of more than a thousand million bytes
    return (low & 0x7FFFU) | ((high & 0x7FFFU) << 15U);
}
