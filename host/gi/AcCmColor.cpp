// The standard palette and the arithmetic of entity colours.
#include "AcCmColor.h"

#include <algorithm>
#include <array>

namespace {
constexpr Adesk::UInt32 kWhite = 0xFFFFFF;

constexpr Adesk::UInt32 rgbOf(int r, int g, int b) {
    return static_cast<Adesk::UInt32>((r << 16) | (g << 8) | b);
}

// The share of one primary at a hue, in quarters. Hues go round in 24 steps of 15 degrees;
// a primary is full within 60 degrees of its own hue and gone beyond 120.
constexpr int quarters(int hueStep, int ownStep) {
    const int apart = hueStep > ownStep ? hueStep - ownStep : ownStep - hueStep;
    const int distance = std::min(apart, 24 - apart);
    return std::clamp(8 - distance, 0, 4);
}

// 10..249: the tens are the hue, the units the shade: five levels of brightness, each in full
// (even) and half (odd) saturation.
constexpr Adesk::UInt32 hueColour(int index) {
    constexpr std::array<int, 5> kPercent{100, 65, 50, 30, 15};
    const int hueStep = index / 10 - 1;
    const int percent = kPercent[static_cast<std::size_t>(index % 10 / 2)];
    const bool half = index % 2 != 0;
    const auto part = [&](int ownStep) {
        const int q = quarters(hueStep, ownStep);
        return 255 * percent * (half ? 4 + q : 2 * q) / 800;
    };
    return rgbOf(part(0), part(8), part(16));
}

// 250..255: six even steps from a fifth of white to white.
constexpr Adesk::UInt32 greyColour(int index) {
    const int level = 255 * (5 + 4 * (index - 250)) / 25;
    return rgbOf(level, level, level);
}

constexpr std::array<Adesk::UInt32, 256> makePalette() {
    std::array<Adesk::UInt32, 256> palette{kWhite,   0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                           0x0000FF, 0xFF00FF, kWhite,   0x808080, 0xC0C0C0};
    for (int i = 10; i < 250; ++i)
        palette[static_cast<std::size_t>(i)] = hueColour(i);
    for (int i = 250; i < 256; ++i)
        palette[static_cast<std::size_t>(i)] = greyColour(i);
    return palette;
}
constexpr std::array<Adesk::UInt32, 256> kPalette = makePalette();

Adesk::UInt16 nearestIndex(Adesk::UInt32 rgb) {
    const auto part = [](Adesk::UInt32 value, int shift) { return static_cast<int>((value >> shift) & 0xFF); };
    int best = 1, bestDistance = 3 * 256 * 256;
    for (int i = 1; i < 256; ++i) {
        int distance = 0;
        for (const int shift : {16, 8, 0}) {
            const int d = part(rgb, shift) - part(kPalette[static_cast<std::size_t>(i)], shift);
            distance += d * d;
        }
        if (distance < bestDistance)
            best = i, bestDistance = distance;
    }
    return static_cast<Adesk::UInt16>(best);
}
} // namespace

Adesk::UInt32 acgiPaletteRgb(int index) {
    return index < 0 || index > 255 ? kWhite : kPalette[static_cast<std::size_t>(index)];
}

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod method) {
    switch (method) {
    case kByLayer:
        return setColorIndex(kACIbyLayer);
    case kByBlock:
        return setColorIndex(kACIbyBlock);
    case kForeground:
        return setColorIndex(kACIforeground);
    case kByACI:
        return mMethod == kByACI ? Acad::eOk : setColorIndex(colorIndex());
    case kByColor:
        setRGB(red(), green(), blue());
        return Acad::eOk;
    case kByPen:
    case kNone:
        break;
    }
    return Acad::eInvalidInput;
}

Adesk::UInt16 AcCmEntityColor::colorIndex() const {
    return mMethod == kByColor ? nearestIndex(mRgb) : mIndex;
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(Adesk::UInt16 index) {
    if (index > kACIbyLayer)
        return Acad::eInvalidInput;
    mMethod = index == kACIbyBlock ? kByBlock : index == kACIbyLayer ? kByLayer : kByACI;
    mIndex = index;
    mRgb = 0;
    return Acad::eOk;
}

void AcCmEntityColor::setRGB(Adesk::UInt8 r, Adesk::UInt8 g, Adesk::UInt8 b) {
    mMethod = kByColor;
    mIndex = 0;
    mRgb = rgbOf(r, g, b);
}

namespace {
Adesk::UInt8 partOf(Adesk::UInt32 rgb, int shift) {
    return static_cast<Adesk::UInt8>((rgb >> shift) & 0xFF);
}
} // namespace

Adesk::UInt8 AcCmEntityColor::red() const {
    return partOf(mMethod == kByColor ? mRgb : acgiPaletteRgb(mIndex), 16);
}
Adesk::UInt8 AcCmEntityColor::green() const {
    return partOf(mMethod == kByColor ? mRgb : acgiPaletteRgb(mIndex), 8);
}
Adesk::UInt8 AcCmEntityColor::blue() const {
    return partOf(mMethod == kByColor ? mRgb : acgiPaletteRgb(mIndex), 0);
}
