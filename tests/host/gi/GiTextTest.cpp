// Text outlines, their measures, fonts and control codes.
#include "AcGiReceivers.h"
#include "text/GiFont.h"

#include <gtest/gtest.h>

namespace {
AcGiTextStyle styleOf(const wchar_t* font, double height = 2.5) {
    AcGiTextStyle style;
    style.fontName = font;
    style.height = height;
    return style;
}
double inkArea(const GiTextOutline& outline) {
    double area = 0.0;
    for (const auto& loop : outline.loops)
        area += giLoopArea(loop);
    return std::abs(area);
}
bool sameLoops(const GiTextOutline& a, const GiTextOutline& b) {
    if (a.loops.size() != b.loops.size())
        return false;
    for (std::size_t i = 0; i < a.loops.size(); ++i)
        if (a.loops[i].size() != b.loops[i].size() || giLoopArea(a.loops[i]) != giLoopArea(b.loops[i]))
            return false;
    return true;
}
} // namespace

TEST(TextOutline, a_capital_measures_the_height_of_the_style) {
    for (const wchar_t* font : {L"txt", L"simplex", L"romans", L"isocp.shx", L"Standard", L"osifont", L"Arial", L"DejaVu Sans"}) {
        const GiTextOutline outline = giTextOutline(L"H", styleOf(font));
        EXPECT_NEAR(outline.minPoint.y, 0.0, 1e-9);
        EXPECT_NEAR(outline.maxPoint.y, 2.5, 1e-9);
        EXPECT_GT(outline.maxPoint.x - outline.minPoint.x, 0.5);
    }
}
TEST(TextOutline, the_advance_is_the_sum_of_its_characters) {
    const AcGiTextStyle style = styleOf(L"txt");
    const double a = giTextOutline(L"A", style).advance, b = giTextOutline(L"b", style).advance;
    EXPECT_GT(a, 0.0);
    EXPECT_NEAR(giTextOutline(L"AbA", style).advance, 2.0 * a + b, 1e-9);
    EXPECT_NEAR(giTextOutline(L"AbA", styleOf(L"txt", 5.0)).advance, 2.0 * (2.0 * a + b), 1e-9);
}
TEST(TextOutline, a_blank_moves_the_pen_and_draws_nothing) {
    const GiTextOutline outline = giTextOutline(L"  ", styleOf(L"txt"));
    EXPECT_GT(outline.advance, 0.0);
    EXPECT_TRUE(outline.loops.empty());
    EXPECT_EQ(outline.minPoint.x, 0.0);
    EXPECT_EQ(outline.maxPoint.y, 0.0);
}
TEST(TextOutline, hungarian_letters_are_their_own) {
    for (const wchar_t* font : {L"txt", L"Arial"}) {
        const AcGiTextStyle style = styleOf(font);
        const GiTextOutline question = giTextOutline(L"?", style), missing = giTextOutline(L"\xE123", style);
        for (const wchar_t* letter : {L"ő", L"ű", L"Ő", L"Ű", L"á", L"é", L"í", L"ö", L"ü", L"Á"}) {
            const GiTextOutline outline = giTextOutline(letter, style);
            EXPECT_FALSE(outline.loops.empty());
            EXPECT_FALSE(sameLoops(outline, question));
            EXPECT_FALSE(sameLoops(outline, missing));
        }
        EXPECT_GT(giTextOutline(L"ő", style).maxPoint.y, giTextOutline(L"o", style).maxPoint.y);
        EXPECT_FALSE(sameLoops(giTextOutline(L"ő", style), giTextOutline(L"ö", style)));
    }
}
TEST(TextOutline, a_character_the_font_lacks_comes_from_the_fallback_font) {
    const GiTextOutline cyrillicYat = giTextOutline(L"\x265E", styleOf(L"Arial")); // a chess knight
    EXPECT_TRUE(sameLoops(cyrillicYat, giTextOutline(L"\x265E", styleOf(L"DejaVu Sans"))));
    EXPECT_GT(inkArea(cyrillicYat), 0.0);
}
TEST(TextOutline, width_factor_and_slant_act_along_the_base_line) {
    AcGiTextStyle style = styleOf(L"txt");
    const GiTextOutline plain = giTextOutline(L"HAB", style);
    style.widthFactor = 0.5;
    const GiTextOutline narrow = giTextOutline(L"HAB", style);
    EXPECT_NEAR(narrow.advance, plain.advance / 2.0, 1e-9);
    EXPECT_NEAR(narrow.maxPoint.x, plain.maxPoint.x / 2.0, 1e-9);
    EXPECT_NEAR(narrow.maxPoint.y, plain.maxPoint.y, 1e-9);
    AcGiTextStyle oblique = styleOf(L"Arial"); // whose H has square corners
    const GiTextOutline upright = giTextOutline(L"H", oblique);
    oblique.obliqueAngle = kPi / 4.0;
    const GiTextOutline slanted = giTextOutline(L"H", oblique);
    EXPECT_NEAR(slanted.maxPoint.x, upright.maxPoint.x + 2.5, 1e-9);
    EXPECT_NEAR(slanted.minPoint.x, upright.minPoint.x, 1e-9);
    EXPECT_NEAR(slanted.advance, upright.advance, 1e-9);
}
TEST(TextOutline, backward_and_upside_down_mirror_the_text_at_its_start) {
    AcGiTextStyle style = styleOf(L"txt");
    const GiTextOutline plain = giTextOutline(L"Ág", style);
    style.backward = style.upsideDown = true;
    const GiTextOutline turned = giTextOutline(L"Ág", style);
    EXPECT_NEAR(turned.minPoint.x, -plain.maxPoint.x, 1e-9);
    EXPECT_NEAR(turned.maxPoint.x, -plain.minPoint.x, 1e-9);
    EXPECT_NEAR(turned.minPoint.y, -plain.maxPoint.y, 1e-9);
    EXPECT_NEAR(turned.advance, -plain.advance, 1e-9);
}
TEST(TextOutline, the_ink_box_bounds_the_outline_closely) {
    const GiTextOutline fine = giTextOutline(L"Őszi Qj&8", styleOf(L"Arial", 10.0), 1e-5);
    AcDbExtents box;
    for (const auto& loop : fine.loops)
        for (const AcGePoint3d& p : loop)
            box.addPoint(p);
    EXPECT_NEAR(box.minPoint().x, fine.minPoint.x, 2e-4);
    EXPECT_NEAR(box.minPoint().y, fine.minPoint.y, 2e-4);
    EXPECT_NEAR(box.maxPoint().x, fine.maxPoint.x, 2e-4);
    EXPECT_NEAR(box.maxPoint().y, fine.maxPoint.y, 2e-4);
    EXPECT_LE(fine.minPoint.x, box.minPoint().x + 1e-12);
    EXPECT_GE(fine.maxPoint.y, box.maxPoint().y - 1e-12);
}
TEST(TextOutline, measuring_alone_gives_the_box_and_the_advance_of_the_outline) {
    AcGiTextStyle style;
    style.height = 2.5;
    style.obliqueAngle = 0.2;
    const GiTextOutline outline = giTextOutline(L"Tábla g12", style), box = giTextBox(L"Tábla g12", style);
    EXPECT_TRUE(box.loops.empty());
    EXPECT_EQ(box.minPoint, outline.minPoint);
    EXPECT_EQ(box.maxPoint, outline.maxPoint);
    EXPECT_EQ(box.advance, outline.advance);
}

TEST(TextOutline, an_unknown_font_is_shown_in_the_drafting_font) {
    EXPECT_TRUE(sameLoops(giTextOutline(L"Út 12", styleOf(L"no such font")), giTextOutline(L"Út 12", styleOf(L"osifont"))));
    EXPECT_FALSE(sameLoops(giTextOutline(L"Út 12", styleOf(L"Arial")), giTextOutline(L"Út 12", styleOf(L"osifont"))));
    EXPECT_TRUE(sameLoops(giTextOutline(L"Út", styleOf(L"ARIAL.TTF")), giTextOutline(L"Út", styleOf(L"Arial"))));
}

TEST(TextOutline, without_any_font_characters_keep_their_room) {
    GiFont none("/no/such/font.ttf");
    EXPECT_GT(none.glyph(L' ').advance, 0.0);
    EXPECT_GT(none.glyph(L'\xE123').advance, 0.0);
    EXPECT_TRUE(none.glyph(L'\xE123').contours.empty());
}

TEST(ControlCodes, the_signs_of_drafting_are_expanded) {
    EXPECT_EQ(giExpandControlCodes(L"45%%d %%P0.1 %%c30"), L"45\x00B0 \x00B1" L"0.1 \x2300" L"30");
    EXPECT_EQ(giExpandControlCodes(L"%%065b"), L"Ab");
    EXPECT_EQ(giExpandControlCodes(L"%%245"), L"ő");
    EXPECT_EQ(giExpandControlCodes(L"100%%%"), L"100%");
    EXPECT_EQ(giExpandControlCodes(L"\\U+0171"), L"ű");
}
TEST(ControlCodes, under_and_overlining_leave_no_trace) {
    EXPECT_EQ(giExpandControlCodes(L"%%uUt%%u %%Oa%%o"), L"Ut a");
}
TEST(ControlCodes, what_is_no_code_stays_as_it_is) {
    for (const wchar_t* text : {L"50%", L"%%", L"%%x", L"%%9", L"%%999", L"%%000", L"\\U+12G4", L"\\U+12", L"\\"})
        EXPECT_EQ(giExpandControlCodes(text), text);
}
TEST(ControlCodes, outlines_expand_them) {
    EXPECT_NEAR(giTextOutline(L"%%d", styleOf(L"txt")).advance, giTextOutline(L"\x00B0", styleOf(L"txt")).advance, 1e-12);
}

TEST(Loops, the_area_has_the_sign_of_the_turn) {
    const std::vector<AcGePoint3d> square{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
    EXPECT_DOUBLE_EQ(giLoopArea(square), 4.0);
    EXPECT_DOUBLE_EQ(giLoopArea({square.rbegin(), square.rend()}), -4.0);
    EXPECT_EQ(giLoopArea({}), 0.0);
}
TEST(Loops, a_point_in_a_hole_is_outside) {
    const AcGiFillLoops loops{{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}}, {{3, 3, 0}, {6, 3, 0}, {6, 6, 0}, {3, 6, 0}}};
    EXPECT_TRUE(giPointInLoops({1, 1, 0}, loops));
    EXPECT_FALSE(giPointInLoops({4, 4, 0}, loops));
    EXPECT_FALSE(giPointInLoops({10, 4, 0}, loops));
    EXPECT_TRUE(giPointInLoops({4, 3 - 1e-9, 0}, loops));
}
