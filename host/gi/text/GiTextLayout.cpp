// Sets text along the base line; exact ink boxes from the curves themselves.
#include "GiTextLayout.h"

#include "GiFont.h"

#include <algorithm>

namespace {
constexpr double kDefaultDeviation = 1.0 / 200.0; // of the height
constexpr int kMostChords = 64;

AcGePoint3d bezier(const AcGePoint3d* p, int degree, double t) {
    AcGePoint3d q[4];
    std::copy(p, p + degree + 1, q);
    for (int level = degree; level > 0; --level)
        for (int i = 0; i < level; ++i)
            q[i] = q[i] + (q[i + 1] - q[i]) * t;
    return q[0];
}

// Parameters strictly inside the curve at which a coordinate stands still; at most two.
int stillPoints(const double* v, int degree, double* t) {
    int count = 0;
    const auto keep = [&](double value) {
        if (value > 0.0 && value < 1.0)
            t[count++] = value;
    };
    if (degree == 2) {
        const double bend = v[0] - 2.0 * v[1] + v[2];
        if (bend != 0.0)
            keep((v[0] - v[1]) / bend);
        return count;
    }
    // Derivative of the cubic over 3: a t^2 + b t + c.
    const double a = -v[0] + 3.0 * v[1] - 3.0 * v[2] + v[3];
    const double b = 2.0 * (v[0] - 2.0 * v[1] + v[2]);
    const double c = v[1] - v[0];
    const double root = b * b - 4.0 * a * c;
    if (root < 0.0)
        return count;
    // The form that does not cancel where a is small.
    const double q = -0.5 * (b + std::copysign(std::sqrt(root), b));
    if (a != 0.0)
        keep(q / a);
    if (q != 0.0)
        keep(c / q);
    return count;
}

bool holds(const AcDbExtents& box, const AcGePoint3d& p) {
    const AcGePoint3d low = box.minPoint(), high = box.maxPoint();
    return p.x >= low.x && p.x <= high.x && p.y >= low.y && p.y <= high.y && p.z >= low.z && p.z <= high.z;
}

void addCurve(const AcGePoint3d* p, int degree, AcDbExtents& extents) {
    extents.addPoint(p[degree]);
    bool within = true; // a curve lies in the hull of its control points
    for (int i = 0; i < degree; ++i)
        within = within && holds(extents, p[i]);
    if (within)
        return;
    for (double AcGePoint3d::*axis : {&AcGePoint3d::x, &AcGePoint3d::y, &AcGePoint3d::z}) {
        double v[4] = {}, t[2];
        for (int i = 0; i <= degree; ++i)
            v[i] = p[i].*axis;
        const int count = stillPoints(v, degree, t);
        for (int i = 0; i < count; ++i)
            extents.addPoint(bezier(p, degree, t[i]));
    }
}

int fillControls(const GiGlyphPlace& place, const AcGePoint3d& from, const GiGlyphSegment& s, AcGePoint3d* p) {
    p[0] = from;
    p[1] = place(s.control1);
    p[2] = place(s.control2);
    p[s.degree] = place(s.end);
    return s.degree;
}

// A curve lies in the hull of its control points, so a glyph whose box lies within adds nothing;
// that spares all but the outermost letters of a text.
bool holdsAll(const AcDbExtents& box, const GiPlacedGlyph& placed) {
    const AcGePoint2d low = placed.glyph->low, high = placed.glyph->high;
    return box.isValid() && holds(box, placed.place(low)) && holds(box, placed.place(high)) &&
           holds(box, placed.place({low.x, high.y})) && holds(box, placed.place({high.x, low.y}));
}

void addGlyphExtents(const GiPlacedGlyph& placed, AcDbExtents& extents) {
    AcGePoint3d p[4];
    for (const GiGlyphContour& contour : placed.glyph->contours) {
        AcGePoint3d from = placed.place(contour.start);
        extents.addPoint(from);
        for (const GiGlyphSegment& segment : contour.segments) {
            const int degree = fillControls(placed.place, from, segment, p);
            addCurve(p, degree, extents);
            from = p[degree];
        }
    }
}

// Chords so that none is farther from its curve than the deviation: a quadratic curve of
// second difference d strays d/4 from its chord, a quarter of that for each halving.
int chordCount(const AcGePoint3d* p, int degree, double deviation) {
    if (degree == 1)
        return 1;
    double bend = 0.0;
    for (int i = 0; i + 2 <= degree; ++i)
        bend = std::max(bend, ((p[i] - p[i + 1]) + (p[i + 2] - p[i + 1])).length());
    const double worst = bend * static_cast<double>(degree * (degree - 1)) / 8.0;
    if (worst <= deviation)
        return 1;
    const double chords = std::ceil(std::sqrt(worst / deviation));
    return std::clamp(static_cast<int>(std::min(chords, 1.0 * kMostChords)), 1, kMostChords);
}
} // namespace

GiTextLayout giLayText(const std::wstring& text, const AcGiTextStyle& style, const AcGePoint3d& position,
                       const AcGeVector3d& xAxis, const AcGeVector3d& yAxis) {
    const double width = style.height * style.widthFactor * (style.backward ? -1.0 : 1.0);
    const double slant = style.height * std::tan(style.obliqueAngle) * (style.backward ? -1.0 : 1.0);
    const double rise = style.height * (style.upsideDown ? -1.0 : 1.0);
    const AcGeVector3d x = xAxis * width;
    const AcGeVector3d y = xAxis * slant + yAxis * rise;
    GiFont& font = GiFont::byName(style.fontName);
    GiTextLayout layout;
    double pen = 0.0;
    for (const wchar_t character : giExpandControlCodes(text)) {
        const GiGlyph& glyph = font.glyph(character);
        if (!glyph.contours.empty())
            layout.glyphs.push_back({&glyph, {position + x * pen, x, y}});
        pen += glyph.advance;
    }
    layout.advance = pen * width;
    return layout;
}

GiTextLayout giLayText(const GiText& text, const AcGeMatrix3d& transform) {
    return giLayText(text.text(), text.style(), transform * text.position, transform * text.xAxis,
                     transform * text.yAxis);
}

void giAddTextExtents(const GiTextLayout& layout, AcDbExtents& extents) {
    // The last letter first: it and the first one commonly reach farthest.
    for (auto glyph = layout.glyphs.rbegin(); glyph != layout.glyphs.rend(); ++glyph)
        if (!holdsAll(extents, *glyph))
            addGlyphExtents(*glyph, extents);
}

void giFlattenGlyph(const GiPlacedGlyph& placed, double deviation, AcGiFillLoops& loops) {
    AcGePoint3d p[4];
    for (const GiGlyphContour& contour : placed.glyph->contours) {
        std::vector<AcGePoint3d> ring{placed.place(contour.start)};
        for (const GiGlyphSegment& segment : contour.segments) {
            const int degree = fillControls(placed.place, ring.back(), segment, p);
            const int chords = chordCount(p, degree, deviation);
            for (int i = 1; i < chords; ++i)
                ring.push_back(bezier(p, degree, static_cast<double>(i) / chords));
            ring.push_back(p[degree]);
        }
        loops.push_back(std::move(ring));
    }
}

namespace {
GiTextLayout layAtOrigin(const std::wstring& text, const AcGiTextStyle& style) {
    return giLayText(text, style, {}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0});
}
GiTextOutline measured(const GiTextLayout& layout) {
    GiTextOutline outline;
    outline.advance = layout.advance;
    AcDbExtents box;
    giAddTextExtents(layout, box);
    if (box.isValid()) {
        outline.minPoint = {box.minPoint().x, box.minPoint().y};
        outline.maxPoint = {box.maxPoint().x, box.maxPoint().y};
    }
    return outline;
}
} // namespace

GiTextOutline giTextBox(const std::wstring& text, const AcGiTextStyle& style) {
    return measured(layAtOrigin(text, style));
}

GiTextOutline giTextOutline(const std::wstring& text, const AcGiTextStyle& style, double deviation) {
    const GiTextLayout layout = layAtOrigin(text, style);
    const double finest = deviation > 0.0 ? deviation : style.height * kDefaultDeviation;
    GiTextOutline outline = measured(layout);
    for (const GiPlacedGlyph& glyph : layout.glyphs)
        giFlattenGlyph(glyph, finest, outline.loops);
    return outline;
}
