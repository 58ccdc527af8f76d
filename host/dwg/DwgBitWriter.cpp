// Writing of packed values, each in its shortest form.
#include "DwgBits.h"

#include <cstring>

void DwgBitWriter::bits(Adesk::UInt64 value, unsigned count) {
    mRest = (mRest << count) | (value & ((Adesk::UInt64{1} << count) - 1));
    mCount += count;
    while (mCount >= 8) {
        mCount -= 8;
        mBytes.push_back(static_cast<Adesk::UInt8>(mRest >> mCount));
    }
}

void DwgBitWriter::alignToByte() {
    if (mCount != 0)
        bits(0, 8 - mCount);
}

void DwgBitWriter::RS(unsigned value) {
    bits(((value & 0xFFU) << 8U) | ((value >> 8U) & 0xFFU), 16);
}

void DwgBitWriter::RL(Adesk::UInt32 value) {
    bits(__builtin_bswap32(value), 32);
}

void DwgBitWriter::RD(double value) {
    Adesk::UInt64 whole = 0;
    std::memcpy(&whole, &value, sizeof whole);
    RL(static_cast<Adesk::UInt32>(whole));
    RL(static_cast<Adesk::UInt32>(whole >> 32U));
}

void DwgBitWriter::BS(Adesk::Int32 value) {
    if (value == 0) {
        BB(2);
    } else if (value == 256) {
        BB(3);
    } else if (value > 0 && value < 256) {
        BB(1);
        RC(static_cast<unsigned>(value));
    } else {
        BB(0);
        RS(static_cast<unsigned>(value));
    }
}

void DwgBitWriter::BL(Adesk::Int32 value) {
    if (value == 0) {
        BB(2);
    } else if (value > 0 && value < 256) {
        BB(1);
        RC(static_cast<unsigned>(value));
    } else {
        BB(0);
        RL(static_cast<Adesk::UInt32>(value));
    }
}

namespace {
// Compared as bits: a negative zero is kept.
bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}
} // namespace

void DwgBitWriter::BD(double value) {
    if (sameBits(value, 0.0)) {
        BB(2);
    } else if (sameBits(value, 1.0)) {
        BB(1);
    } else {
        BB(0);
        RD(value);
    }
}

void DwgBitWriter::DD(double value, double standard) {
    if (sameBits(value, standard)) {
        BB(0);
        return;
    }
    Adesk::UInt8 ours[8], theirs[8];
    std::memcpy(ours, &value, sizeof ours);
    std::memcpy(theirs, &standard, sizeof theirs);
    const bool sameTop = ours[6] == theirs[6] && ours[7] == theirs[7];
    const bool sameHigh = sameTop && ours[4] == theirs[4] && ours[5] == theirs[5];
    if (!sameTop) {
        BB(3);
        RD(value);
        return;
    }
    BB(sameHigh ? 1 : 2);
    if (!sameHigh) {
        RC(ours[4]);
        RC(ours[5]);
    }
    for (int i = 0; i < 4; ++i)
        RC(ours[i]);
}

void DwgBitWriter::BT(double value) {
    B(sameBits(value, 0.0));
    if (!sameBits(value, 0.0))
        BD(value);
}

void DwgBitWriter::BE(const AcGeVector3d& value) {
    const bool plain = sameBits(value.x, 0.0) && sameBits(value.y, 0.0) && sameBits(value.z, 1.0);
    B(plain);
    if (!plain)
        BD3v(value);
}

void DwgBitWriter::H(unsigned code, Adesk::UInt64 value) {
    unsigned length = 0;
    while (length < 8 && (value >> (8U * length)) != 0)
        ++length;
    bits((code << 4U) | length, 8);
    for (unsigned i = length; i > 0; --i)
        RC(static_cast<unsigned>(value >> (8U * (i - 1))) & 0xFFU);
}

void DwgBitWriter::TVbytes(std::string_view text) {
    const std::size_t size = text.size() < 0xFFFF ? text.size() : 0xFFFF; // the length is a 16-bit number
    BS(static_cast<Adesk::Int32>(static_cast<Adesk::Int16>(size)));
    bytes(reinterpret_cast<const Adesk::UInt8*>(text.data()), size);
}

void DwgBitWriter::TV(std::wstring_view wide) {
    TVbytes(mText != nullptr ? mText->encode(wide) : std::string(wide.begin(), wide.end()));
}

void DwgBitWriter::bytes(const Adesk::UInt8* source, std::size_t count) {
    if (mCount == 0) {
        mBytes.insert(mBytes.end(), source, source + count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        RC(source[i]);
}

void DwgBitWriter::MC(Adesk::UInt64 value) {
    while (value >= 0x80U) {
        RC(static_cast<unsigned>(value & 0x7FU) | 0x80U);
        value >>= 7U;
    }
    RC(static_cast<unsigned>(value));
}

void DwgBitWriter::MCsigned(Adesk::Int32 value) {
    auto rest = static_cast<Adesk::UInt32>(value < 0 ? -static_cast<Adesk::Int64>(value) : value);
    while (rest >= 0x40U) { // the sign takes bit 6 of the last byte
        RC((rest & 0x7FU) | 0x80U);
        rest >>= 7U;
    }
    RC(rest | (value < 0 ? 0x40U : 0U));
}

void DwgBitWriter::MS(Adesk::UInt32 value) {
    if (value > 0x7FFFU) {
        RS((value & 0x7FFFU) | 0x8000U);
        RS(value >> 15U);
    } else {
        RS(value);
    }
}

void DwgBitWriter::copyBits(const Adesk::UInt8* source, std::size_t from, std::size_t to) {
    DwgBitReader reader(source, (to + 7) / 8);
    reader.setPosition(from);
    while (to - reader.position() >= 32)
        bits(reader.bits(32), 32);
    const auto rest = static_cast<unsigned>(to - reader.position());
    if (rest != 0)
        bits(reader.bits(rest), rest);
}

void DwgBitWriter::patchRL(std::size_t bit, Adesk::UInt32 value) {
    const Adesk::UInt32 swapped = __builtin_bswap32(value);
    for (unsigned i = 0; i < 32; ++i) {
        const std::size_t at = bit + i;
        const auto mask = static_cast<Adesk::UInt8>(0x80U >> (at % 8));
        Adesk::UInt8& byte = mBytes[at / 8];
        byte = static_cast<Adesk::UInt8>(((swapped >> (31U - i)) & 1U) != 0 ? byte | mask : byte & ~mask);
    }
}
