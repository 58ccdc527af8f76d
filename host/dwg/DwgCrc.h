// The 16-bit checksum of drawing files: polynomial 0xA001 reflected, table driven, one byte a step.
#pragma once

#include <cstddef>
#include <cstdint>

// Open Design description of DWG, chapter "CRC computation": sections, objects and the object map begin
// with 0xC0C1, the file header with 0.
inline constexpr std::uint16_t kDwgCrcSeed = 0xC0C1;
std::uint16_t dwgCrc(std::uint16_t seed, const std::uint8_t* bytes, std::size_t count);
