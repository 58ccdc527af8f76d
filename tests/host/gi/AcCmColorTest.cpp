// The palette and entity colours.
#include "AcCmColor.h"

#include <gtest/gtest.h>

TEST(Palette, the_first_nine_are_the_named_colours) {
    const Adesk::UInt32 expected[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(acgiPaletteRgb(i), expected[i - 1]) << i;
}
TEST(Palette, hues_and_shades_follow_the_index) {
    EXPECT_EQ(acgiPaletteRgb(10), 0xFF0000u);
    EXPECT_EQ(acgiPaletteRgb(11), 0xFF7F7Fu);
    EXPECT_EQ(acgiPaletteRgb(20), 0xFF3F00u);
    EXPECT_EQ(acgiPaletteRgb(30), 0xFF7F00u);
    EXPECT_EQ(acgiPaletteRgb(42), 0xA57C00u);
    EXPECT_EQ(acgiPaletteRgb(50), 0xFFFF00u);
    EXPECT_EQ(acgiPaletteRgb(90), 0x00FF00u);
    EXPECT_EQ(acgiPaletteRgb(170), 0x0000FFu);
    EXPECT_EQ(acgiPaletteRgb(178), 0x000026u);
    EXPECT_EQ(acgiPaletteRgb(240), 0xFF003Fu);
}
TEST(Palette, the_last_six_are_greys_up_to_white) {
    for (int i = 250; i <= 255; ++i) {
        const Adesk::UInt32 rgb = acgiPaletteRgb(i);
        EXPECT_EQ(rgb >> 16, rgb & 0xFF) << i;
        EXPECT_EQ((rgb >> 8) & 0xFF, rgb & 0xFF) << i;
        if (i > 250) {
            EXPECT_GT(rgb, acgiPaletteRgb(i - 1)) << i;
        }
    }
    EXPECT_EQ(acgiPaletteRgb(250), 0x333333u);
    EXPECT_EQ(acgiPaletteRgb(255), 0xFFFFFFu);
}
TEST(Palette, by_block_and_by_layer_show_the_foreground) {
    EXPECT_EQ(acgiPaletteRgb(0), 0xFFFFFFu);
    EXPECT_EQ(acgiPaletteRgb(256), 0xFFFFFFu);
    EXPECT_EQ(acgiPaletteRgb(-1), 0xFFFFFFu);
}

TEST(EntityColor, an_index_sets_the_method) {
    AcCmEntityColor color;
    EXPECT_TRUE(color.isByLayer());
    EXPECT_EQ(color.setColorIndex(0), Acad::eOk);
    EXPECT_TRUE(color.isByBlock());
    EXPECT_EQ(color.setColorIndex(3), Acad::eOk);
    EXPECT_TRUE(color.isByACI());
    EXPECT_EQ(color.green(), 255);
    EXPECT_EQ(color.setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(color.colorIndex(), 3);
}
TEST(EntityColor, a_true_colour_answers_its_parts_and_the_nearest_index) {
    const AcCmEntityColor color(255, 140, 0);
    EXPECT_TRUE(color.isByColor());
    EXPECT_EQ(color.red(), 255);
    EXPECT_EQ(color.green(), 140);
    EXPECT_EQ(color.blue(), 0);
    EXPECT_EQ(color.colorIndex(), 30);
    EXPECT_EQ(AcCmEntityColor(254, 1, 0).colorIndex(), 1);
}
TEST(EntityColor, changing_the_method_keeps_the_look_where_it_can) {
    AcCmEntityColor color = AcCmEntityColor::fromIndex(30);
    EXPECT_EQ(color.setColorMethod(AcCmEntityColor::kByColor), Acad::eOk);
    EXPECT_EQ(color, AcCmEntityColor(255, 127, 0));
    EXPECT_EQ(color.setColorMethod(AcCmEntityColor::kByACI), Acad::eOk);
    EXPECT_EQ(color, AcCmEntityColor::fromIndex(30));
    EXPECT_EQ(color.setColorMethod(AcCmEntityColor::kByBlock), Acad::eOk);
    EXPECT_EQ(color.colorIndex(), 0);
    EXPECT_EQ(color.setColorMethod(AcCmEntityColor::kByPen), Acad::eInvalidInput);
}
