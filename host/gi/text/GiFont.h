// A font's glyphs, read through FreeType on first use and kept for the life of the process:
// outlines never change. Safe to use from several threads.
#pragma once

#include "GiGlyph.h"

#include <memory>
#include <string>
#include <unordered_map>

class GiFont {
public:
    // The font for a name of a drawing, never failing: where the machine has no font at all, every
    // character is an empty one of ordinary width.
    static GiFont& byName(const std::wstring& name);
    // From this font, else from the fallback font, else this font's mark for a missing character.
    const GiGlyph& glyph(wchar_t character);

    explicit GiFont(const std::string& file);
    ~GiFont();
    GiFont(const GiFont&) = delete;
    GiFont& operator=(const GiFont&) = delete;

private:
    struct Face;
    bool has(wchar_t character) const;
    GiGlyph read(wchar_t character) const;
    std::unique_ptr<Face> mFace;
    std::unordered_map<wchar_t, std::unique_ptr<const GiGlyph>> mGlyphs;
};
