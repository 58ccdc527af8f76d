// Sets a text: which glyph stands where, as affine maps of glyph units to the text's plane.
#pragma once

#include "AcGiReceivers.h"
#include "GiGlyph.h"

// Glyph units to any space: origin + x * gx + y * gy.
struct GiGlyphPlace {
    AcGePoint3d origin;
    AcGeVector3d x, y;
    AcGePoint3d operator()(const AcGePoint2d& g) const { return origin + x * g.x + y * g.y; }
};
struct GiPlacedGlyph {
    const GiGlyph* glyph;
    GiGlyphPlace place;
};
struct GiTextLayout {
    std::vector<GiPlacedGlyph> glyphs;
    double advance = 0.0;
};
// The text's plane: a point (x, y) of it lies at position + xAxis*x + yAxis*y.
GiTextLayout giLayText(const std::wstring& text, const AcGiTextStyle& style, const AcGePoint3d& position,
                       const AcGeVector3d& xAxis, const AcGeVector3d& yAxis);
GiTextLayout giLayText(const GiText& text, const AcGeMatrix3d& transform);

// Adds the exact box of the ink.
void giAddTextExtents(const GiTextLayout& layout, AcDbExtents& extents);
// The rings of one glyph, within the deviation.
void giFlattenGlyph(const GiPlacedGlyph& glyph, double deviation, AcGiFillLoops& loops);
