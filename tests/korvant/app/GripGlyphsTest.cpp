// Glyphs of the grips: colours by mode and corners by size.
#include "AppFixture.h"

#include "TrfcGrips.h"

#include "AcGiReceivers.h"

class GripGlyphs : public AppFixture {
protected:
    template <class Draw> std::vector<std::wstring> record(Draw draw) {
        GiDisplayListBuilder builder;
        draw(&builder.worldDraw(), builder.worldDraw().geometry());
        return giRecord(builder.list(), [](AcDbObjectId) { return std::wstring(L"-"); });
    }
    static bool has(const std::wstring& line, const wchar_t* part) { return line.find(part) != std::wstring::npos; }
};

TEST_F(GripGlyphs, a_plus_is_one_filled_polygon_lit_by_index_0) {
    for (const auto& [mode, color] : {std::pair{0, L"color=92"}, {1, L"color=0"}, {2, L"color=0"}}) {
        const auto lines = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripPlus(d, g, mode, AcGePoint3d(10, 10, 0), 3.0 / 2.3); });
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_TRUE(has(lines[0], color)) << acToUtf8(lines[0]);
        EXPECT_TRUE(has(lines[0], L"(10.5,10.5,0)"));
        EXPECT_TRUE(has(lines[0], L"(11.5,10.5,0)"));
    }
}

TEST_F(GripGlyphs, left_triangles_are_each_filled_and_outlined_in_9) {
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripLeftTriangles(d, g, 0, AcGePoint3d(), 1.0 / 2.3); });
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_TRUE(has(lines[0], L"color=1 "));
    EXPECT_TRUE(has(lines[1], L"color=9 "));
    EXPECT_TRUE(has(lines[0], L"(-0.7,0,0)"));
    EXPECT_TRUE(has(lines[2], L"(0.7,-0.5,0)"));
}

TEST_F(GripGlyphs, a_bar_carries_a_head_at_its_right) {
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripBar(d, g, 1, AcGePoint3d(), 1.0 / 2.3); });
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_TRUE(has(lines[0], L"color=0 "));
    EXPECT_TRUE(has(lines[2], L"(0.7,0,0)"));
}

TEST_F(GripGlyphs, resting_arrows_have_outlines_and_lit_ones_have_none) {
    EXPECT_EQ(record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrow(d, g, 0, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); }).size(), 4u);
    EXPECT_EQ(record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrowBent(d, g, 2, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); }).size(), 2u);
}

TEST_F(GripGlyphs, an_arrow_points_along_its_direction_and_its_reverse) {
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrow(d, g, 1, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); });
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(has(lines[0], L"(-2.05,0,0)"));
    EXPECT_TRUE(has(lines[1], L"(2.05,0,0)"));
}

TEST_F(GripGlyphs, a_circle_is_filled_with_the_radius_of_its_size) {
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripCircle(d, g, 0, AcGePoint3d(1, 2, 0), 4.0); });
    ASSERT_EQ(lines.size(), 1u);
}
