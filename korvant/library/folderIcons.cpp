#include "folderIcons.h"

#include <array>
#include <cstring>
#include <vector>

namespace {
using IconRows = std::array<const char*, kFolderIconHeight>;

// "." is the white around the icon, "#" the outline, "o" the paper, "+" its lit part.
constexpr IconRows kClosed = {
    "..................", "..................", "..................", "..................", "..................",
    "..#####...........", ".#ooooo#..........", ".#oooooo########..", ".#oooooooooooooo#.", ".#++++++++++++++#.",
    ".#+oooooooooooo+#.", ".#+oooooooooooo+#.", ".#+oooooooooooo+#.", ".#+oooooooooooo+#.", ".#+oooooooooooo+#.",
    ".#+oooooooooooo+#.", ".#++++++++++++++#.", "..##############..", "..................", "..................",
    "..................", ".................."};
constexpr IconRows kOpen = {
    "..................", "..................", "..................", "..................", "..................",
    "..#####...........", ".#ooooo#..........", ".#oooooo#######...", ".#oooooooooooo#...", ".#ooo#############",
    ".#oo#++++++++++++#", ".#oo#++++++++++++#", ".#o#+++++++++++#..", ".#o#+++++++++++#..", ".##+++++++++++#...",
    ".##+++++++++++#...", ".#+++++++++++#....", ".#############....", "..................", "..................",
    "..................", ".................."};

struct Pixel {
    unsigned char blue, green, red, unused;
};
Pixel pixelOf(char mark) {
    switch (mark) {
    case '#': return {32, 96, 144, 0};
    case 'o': return {96, 200, 240, 0};
    case '+': return {160, 228, 255, 0};
    }
    return {255, 255, 255, 0};
}

// Header of a device-independent bitmap of 32 bits a pixel, rows from the bottom.
struct DibHeader {
    std::uint32_t size = 40;
    std::int32_t width = kFolderIconWidth, height = kFolderIconHeight;
    std::uint16_t planes = 1, bits = 32;
    std::uint32_t compression = 0, imageSize = 0;
    std::int32_t xResolution = 0, yResolution = 0;
    std::uint32_t colorsUsed = 0, colorsImportant = 0;
};
static_assert(sizeof(DibHeader) == 40);

CBitmap draw(const IconRows& rows) {
    const DibHeader header;
    std::vector<unsigned char> dib(sizeof header);
    std::memcpy(dib.data(), &header, sizeof header);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        for (const char* mark = *row; *mark != '\0'; ++mark) {
            const Pixel pixel = pixelOf(*mark);
            dib.insert(dib.end(), {pixel.blue, pixel.green, pixel.red, pixel.unused});
        }
    CBitmap icon;
    icon.CreateFromDib(dib.data(), dib.size());
    return icon;
}
} // namespace

CBitmap closedFolderIcon() { return draw(kClosed); }
CBitmap openFolderIcon() { return draw(kOpen); }
