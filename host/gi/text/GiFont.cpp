// Reads glyph outlines with FreeType and keeps them.
#include "GiFont.h"

#include "GiFontFolders.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

#include <map>
#include <mutex>

namespace {
constexpr double kEmptyAdvance = 0.8; // of the height of capitals

std::mutex& fontLock() {
    static std::mutex lock;
    return lock;
}

// Held open for the process: faces live in static storage and are closed by its end.
FT_Library library() {
    static const FT_Library opened = [] {
        FT_Library fresh = nullptr;
        return FT_Init_FreeType(&fresh) == 0 ? fresh : nullptr;
    }();
    return opened;
}

struct OutlineReader {
    GiGlyph& glyph;
    double scale;
    AcGePoint2d point(const FT_Vector* v) const {
        return {static_cast<double>(v->x) * scale, static_cast<double>(v->y) * scale};
    }
    static int moveTo(const FT_Vector* to, void* user) {
        auto& self = *static_cast<OutlineReader*>(user);
        self.glyph.contours.push_back({self.point(to), {}});
        return 0;
    }
    static int add(void* user, int degree, const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to) {
        auto& self = *static_cast<OutlineReader*>(user);
        self.glyph.contours.back().segments.push_back({degree, self.point(c1), self.point(c2), self.point(to)});
        return 0;
    }
    static int lineTo(const FT_Vector* to, void* user) { return add(user, 1, to, to, to); }
    static int conicTo(const FT_Vector* c, const FT_Vector* to, void* user) { return add(user, 2, c, c, to); }
    static int cubicTo(const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* user) {
        return add(user, 3, c1, c2, to);
    }
};

void boundControls(GiGlyph& glyph) {
    AcDbExtents box;
    const auto add = [&](const AcGePoint2d& p) { box.addPoint({p.x, p.y, 0.0}); };
    for (const GiGlyphContour& contour : glyph.contours) {
        add(contour.start);
        for (const GiGlyphSegment& segment : contour.segments)
            add(segment.control1), add(segment.control2), add(segment.end);
    }
    glyph.low = {box.minPoint().x, box.minPoint().y};
    glyph.high = {box.maxPoint().x, box.maxPoint().y};
}
} // namespace

struct GiFont::Face {
    FT_Face face = nullptr;
    double scale = 1.0; // font units to heights of a capital
    ~Face() {
        if (face != nullptr)
            FT_Done_Face(face);
    }
};

GiFont::GiFont(const std::string& file) : mFace(std::make_unique<Face>()) {
    if (file.empty() || library() == nullptr || FT_New_Face(library(), file.c_str(), 0, &mFace->face) != 0) {
        mFace->face = nullptr;
        return;
    }
    FT_Select_Charmap(mFace->face, FT_ENCODING_UNICODE);
    FT_BBox box{0, 0, 0, mFace->face->units_per_EM};
    if (FT_Load_Char(mFace->face, 'H', FT_LOAD_NO_SCALE) == 0)
        FT_Outline_Get_BBox(&mFace->face->glyph->outline, &box);
    mFace->scale = 1.0 / static_cast<double>(box.yMax > 0 ? box.yMax : 1);
}
GiFont::~GiFont() = default;

bool GiFont::has(wchar_t character) const {
    return mFace->face != nullptr && FT_Get_Char_Index(mFace->face, static_cast<FT_ULong>(character)) != 0;
}

GiGlyph GiFont::read(wchar_t character) const {
    GiGlyph glyph;
    glyph.advance = kEmptyAdvance;
    if (mFace->face == nullptr || FT_Load_Char(mFace->face, static_cast<FT_ULong>(character), FT_LOAD_NO_SCALE) != 0)
        return glyph;
    const FT_GlyphSlot slot = mFace->face->glyph;
    glyph.advance = static_cast<double>(slot->metrics.horiAdvance) * mFace->scale;
    OutlineReader reader{glyph, mFace->scale};
    const FT_Outline_Funcs funcs{OutlineReader::moveTo, OutlineReader::lineTo, OutlineReader::conicTo,
                                 OutlineReader::cubicTo, 0, 0};
    FT_Outline_Decompose(&slot->outline, &funcs, &reader);
    boundControls(glyph);
    return glyph;
}

const GiGlyph& GiFont::glyph(wchar_t character) {
    const std::lock_guard guard(fontLock());
    std::unique_ptr<const GiGlyph>& kept = mGlyphs[character];
    if (!kept) {
        static GiFont fallback(giFallbackFontFile());
        const GiFont& source = !has(character) && fallback.has(character) ? fallback : *this;
        kept = std::make_unique<const GiGlyph>(source.read(character));
    }
    return *kept;
}

GiFont& GiFont::byName(const std::wstring& name) {
    static std::map<std::wstring, GiFont*> byDrawingName;
    static std::map<std::string, std::unique_ptr<GiFont>> byFile;
    const std::lock_guard guard(fontLock());
    GiFont*& font = byDrawingName[name];
    if (font == nullptr) {
        const std::string file = giFontFile(name);
        std::unique_ptr<GiFont>& kept = byFile[file];
        if (!kept)
            kept = std::make_unique<GiFont>(file);
        font = kept.get();
    }
    return *font;
}
