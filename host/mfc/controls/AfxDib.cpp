#include "controls/AfxDib.h"

#include <QtEndian>
#include <string>

namespace {
constexpr std::size_t kFileHeader = 14, kInfoHeader = 40;
constexpr std::uint32_t kNoCompression = 0, kBitFields = 3;

std::uint32_t at32(std::string_view bytes, std::size_t offset) {
    return qFromLittleEndian<std::uint32_t>(bytes.data() + offset);
}
unsigned at16(std::string_view bytes, std::size_t offset) {
    return qFromLittleEndian<std::uint16_t>(bytes.data() + offset);
}
void put32(std::string& bytes, std::size_t offset, std::uint32_t value) {
    qToLittleEndian(value, bytes.data() + offset);
}

// Where the rows begin, from the header's end over masks and palette.
std::size_t rowsOffset(std::string_view dib) {
    const std::size_t header = at32(dib, 0);
    const unsigned bits = at16(dib, 14);
    const std::size_t used = at32(dib, 32);
    const std::size_t colors = bits <= 8 ? (used != 0 ? used : std::size_t{1} << bits) : used;
    const std::size_t masks = at32(dib, 16) == kBitFields && header == kInfoHeader ? 12 : 0;
    return header + masks + colors * 4;
}
} // namespace

QImage afxReadDib(std::string_view bytes) {
    if (bytes.size() > kFileHeader && bytes.substr(0, 2) == "BM")
        return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "BMP");
    if (bytes.size() < kInfoHeader || at32(bytes, 0) < kInfoHeader || at32(bytes, 0) > bytes.size() || at32(bytes, 32) > 256)
        return {};
    const std::uint32_t compression = at32(bytes, 16);
    const std::size_t offset = rowsOffset(bytes);
    if ((compression != kNoCompression && compression != kBitFields) || offset > bytes.size())
        return {};
    std::string file(kFileHeader, '\0'); // the toolkit's reader wants the header of a file
    file[0] = 'B';
    file[1] = 'M';
    put32(file, 2, static_cast<std::uint32_t>(kFileHeader + bytes.size()));
    put32(file, 10, static_cast<std::uint32_t>(kFileHeader + offset));
    file += bytes;
    return QImage::fromData(reinterpret_cast<const uchar*>(file.data()), static_cast<int>(file.size()), "BMP");
}
