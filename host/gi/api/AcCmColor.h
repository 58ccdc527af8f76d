// Entity colours. Index 0 is by block, 256 by layer, 1..255 the standard palette.
#pragma once

#include "AcAdesk.h"

class AcCmEntityColor {
public:
    enum ColorMethod { kByLayer = 0xC0, kByBlock = 0xC1, kByColor = 0xC2, kByACI = 0xC3, kByPen = 0xC4, kForeground = 0xC5, kNone = 0xC8 };
    enum Color { kACIbyBlock = 0, kACIforeground = 7, kACIbyLayer = 256 };

    AcCmEntityColor() = default; // by layer
    AcCmEntityColor(Adesk::UInt8 r, Adesk::UInt8 g, Adesk::UInt8 b) { setRGB(r, g, b); }
    static AcCmEntityColor fromIndex(int index) {
        AcCmEntityColor c;
        c.setColorIndex(static_cast<Adesk::UInt16>(index));
        return c;
    }
    ColorMethod colorMethod() const { return mMethod; }
    Acad::ErrorStatus setColorMethod(ColorMethod method);
    bool isByLayer() const { return mMethod == kByLayer; }
    bool isByBlock() const { return mMethod == kByBlock; }
    bool isByACI() const { return mMethod == kByACI; }
    bool isByColor() const { return mMethod == kByColor; }
    // The index; for a true colour the nearest of the palette.
    Adesk::UInt16 colorIndex() const;
    // 0 makes it by block, 256 by layer, 1..255 by index; others give eInvalidInput.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    void setRGB(Adesk::UInt8 r, Adesk::UInt8 g, Adesk::UInt8 b);
    // Of a true colour its own parts, of an index the palette's.
    Adesk::UInt8 red() const;
    Adesk::UInt8 green() const;
    Adesk::UInt8 blue() const;
    bool operator==(const AcCmEntityColor&) const = default;

private:
    ColorMethod mMethod = kByLayer;
    Adesk::UInt16 mIndex = kACIbyLayer;
    Adesk::UInt32 mRgb = 0; // 0xRRGGBB when by colour
};

// The colour as entities and dialogs hold it.
class AcCmColor : public AcCmEntityColor {
public:
    using AcCmEntityColor::AcCmEntityColor;
    AcCmColor() = default;
    AcCmColor(const AcCmEntityColor& c) : AcCmEntityColor(c) {}
    AcCmEntityColor entityColor() const { return *this; }
};

// The standard 256-colour palette: 0xRRGGBB of an index (0 and 256 give the foreground, white).
Adesk::UInt32 acgiPaletteRgb(int index);
