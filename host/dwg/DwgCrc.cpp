// Checksum by a table that the compiler computes from the polynomial.
#include "DwgCrc.h"

#include <array>

namespace {
constexpr std::array<std::uint16_t, 256> makeTable() {
    std::array<std::uint16_t, 256> table{};
    for (unsigned i = 0; i < 256; ++i) {
        unsigned value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xA001U : value >> 1U;
        table[i] = static_cast<std::uint16_t>(value);
    }
    return table;
}
constexpr std::array<std::uint16_t, 256> kTable = makeTable();
} // namespace

std::uint16_t dwgCrc(std::uint16_t seed, const std::uint8_t* bytes, std::size_t count) {
    unsigned crc = seed;
    for (std::size_t i = 0; i < count; ++i)
        crc = (crc >> 8U) ^ kTable[(crc ^ bytes[i]) & 0xFFU];
    return static_cast<std::uint16_t>(crc);
}
