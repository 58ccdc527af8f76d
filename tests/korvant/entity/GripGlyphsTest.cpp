// Glyphs of the grips: colours by mode and corners by size.
#include "AppFixture.h"

#include "TrfcDrawingUtils.h"
#include "TrfcGrips.h"

#include "AcEdAds.h"
#include "AcGiReceivers.h"

#include <cmath>

class GripGlyphs : public AppFixture {
protected:
    template <class Draw> std::vector<std::wstring> record(Draw draw) {
        GiDisplayListBuilder builder;
        draw(&builder.worldDraw(), builder.worldDraw().geometry());
        return giRecord(builder.list(), [](AcDbObjectId) { return std::wstring(L"-"); });
    }
    static bool has(const std::wstring& line, const wchar_t* part) { return line.find(part) != std::wstring::npos; }
    // A polygon with its colour, as the recorder writes it.
    static std::wstring polygon(const std::vector<AcGePoint2d>& corners, int color) {
        std::wstring text = L"polygon";
        for (const AcGePoint2d& corner : corners)
            text += L" (" + number(corner.x) + L"," + number(corner.y) + L",0)";
        return text + acFormat(L" color=%d ", color);
    }
    static void expectShapes(const std::vector<std::wstring>& lines, const std::vector<std::wstring>& shapes) {
        ASSERT_EQ(lines.size(), shapes.size());
        for (std::size_t i = 0; i < lines.size(); ++i)
            EXPECT_TRUE(lines[i].starts_with(shapes[i])) << acToUtf8(lines[i]) << "\n  and not\n" << acToUtf8(shapes[i]);
    }
    static void set(const ACHAR* variable, short value) {
        resbuf item{};
        item.restype = RTSHORT;
        item.resval.rint = value;
        ASSERT_EQ(acedSetVar(variable, &item), RTNORM);
    }

private:
    static std::wstring number(double value) {
        const std::wstring text = trimNumber(acFormat(L"%.9f", value));
        return text == L"-0" ? L"0" : text;
    }
};

namespace {
// Corners of an arrow head that the direction is turned away from: the head lies behind the position.
std::vector<AcGePoint2d> head(double angle, double size) {
    const AcGePoint2d forward(-std::cos(angle), -std::sin(angle)), side(-forward.y, forward.x);
    const AcGePoint2d middle(forward.x * size * 0.35, forward.y * size * 0.35);
    return {{middle.x + forward.x * size * 1.7, middle.y + forward.y * size * 1.7},
            {middle.x + side.x * size, middle.y + side.y * size},
            {middle.x - side.x * size, middle.y - side.y * size}};
}
constexpr double kUnitA = 1.0 / 2.3; // the size at which the larger glyphs are one unit high
} // namespace


TEST_F(GripGlyphs, a_plus_is_one_filled_polygon_lit_by_index_0) {
    const std::vector<AcGePoint2d> plus = {{10.5, 10.5}, {11.5, 10.5}, {11.5, 9.5}, {10.5, 9.5}, {10.5, 8.5}, {9.5, 8.5},
                                           {9.5, 9.5},   {8.5, 9.5},   {8.5, 10.5}, {9.5, 10.5}, {9.5, 11.5}, {10.5, 11.5}};
    for (const auto& [mode, color] : {std::pair{0, 92}, {1, 0}, {2, 0}, {3, 92}}) {
        const auto lines = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripPlus(d, g, mode, AcGePoint3d(10, 10, 0), 3.0 / 2.3); });
        expectShapes(lines, {polygon(plus, color)});
        EXPECT_TRUE(has(lines[0], L" filled"));
    }
}

TEST_F(GripGlyphs, left_triangles_are_each_filled_and_outlined_in_9) {
    for (const auto& [mode, color] : {std::pair{0, 1}, {1, 0}, {2, 0}}) {
        const auto lines = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripLeftTriangles(d, g, mode, AcGePoint3d(), kUnitA); });
        const std::vector<AcGePoint2d> left = {{0.0, -0.5}, {0.0, 0.5}, {-0.7, 0.0}}, right = {{0.7, -0.5}, {0.7, 0.5}, {0.0, 0.0}};
        expectShapes(lines, {polygon(left, color), polygon(left, 9), polygon(right, color), polygon(right, 9)});
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(has(lines[i], L" filled"), i % 2 == 0) << i;
    }
}

TEST_F(GripGlyphs, a_bar_carries_a_head_at_its_right) {
    for (const auto& [mode, color] : {std::pair{0, 1}, {1, 0}, {2, 0}}) {
        const auto lines = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripBar(d, g, mode, AcGePoint3d(), kUnitA); });
        const std::vector<AcGePoint2d> bar = {{-0.5, -0.5}, {0.1, -0.5}, {0.1, 0.5}, {-0.5, 0.5}}, tip = {{0.1, -0.5}, {0.1, 0.5}, {0.7, 0.0}};
        expectShapes(lines, {polygon(bar, color), polygon(bar, 9), polygon(tip, color), polygon(tip, 9)});
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(has(lines[i], L" filled"), i % 2 == 0) << i;
    }
}

TEST_F(GripGlyphs, arrows_take_the_colours_of_the_systems_grips) {
    set(L"GRIPCOLOR", 101);
    set(L"GRIPHOVER", 102);
    set(L"GRIPHOT", 103);
    for (const auto& [mode, color] : {std::pair{0, L"color=101 "}, {1, L"color=102 "}, {2, L"color=103 "}, {7, L"color=101 "}}) {
        const auto arrow = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrow(d, g, mode, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); });
        const auto bent = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrowBent(d, g, mode, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); });
        const auto circle = record([mode = mode](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripCircle(d, g, mode, AcGePoint3d(), 1.0); });
        EXPECT_TRUE(has(arrow[0], color)) << acToUtf8(arrow[0]);
        EXPECT_TRUE(has(bent[0], color)) << acToUtf8(bent[0]);
        EXPECT_TRUE(has(circle[0], color)) << acToUtf8(circle[0]);
    }
}

TEST_F(GripGlyphs, an_arrow_points_along_its_direction_and_its_reverse) {
    set(L"GRIPHOVER", 11);
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrow(d, g, 1, AcGePoint3d(), 2.0, AcGeVector3d(3.0, 0.0, 0.0)); });
    expectShapes(lines, {polygon(head(0.0, 2.0), 11), polygon(head(kPi, 2.0), 11)});
}

TEST_F(GripGlyphs, a_bent_arrow_has_its_heads_at_either_side_of_its_direction) {
    set(L"GRIPHOT", 12);
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrowBent(d, g, 2, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); });
    expectShapes(lines, {polygon(head(1.7592918860102844, 1.0), 12), polygon(head(-1.7592918860102844, 1.0), 12)});
}

TEST_F(GripGlyphs, resting_arrows_have_outlines_in_8) {
    set(L"GRIPCOLOR", 150);
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrow(d, g, 0, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); });
    expectShapes(lines, {polygon(head(0.0, 1.0), 150), polygon(head(0.0, 1.0), 8), polygon(head(kPi, 1.0), 150), polygon(head(kPi, 1.0), 8)});
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(has(lines[i], L" filled"), i % 2 == 0) << i;
    EXPECT_EQ(record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripArrowBent(d, g, 0, AcGePoint3d(), 1.0, AcGeVector3d::kXAxis); }).size(), 4u);
}

TEST_F(GripGlyphs, a_circle_is_filled_with_the_radius_of_its_size) {
    const auto lines = record([](AcGiCommonDraw* d, AcGiGeometry& g) { drawGripCircle(d, g, 0, AcGePoint3d(1, 2, 0), 4.0); });
    expectShapes(lines, {L"circle (1,2,0) radius=4 "});
    EXPECT_TRUE(has(lines[0], L" filled"));
}

TEST(GripData, has_a_point_at_the_origin_no_direction_and_no_index_unless_given) {
    const TrfcGripAppData name(L"grip1"), direction(L"grip2", AcGeVector3d::kYAxis), whole(L"gripLampRot", {1.0, 2.0, 0.0}, AcGeVector3d::kXAxis, 3);
    EXPECT_EQ(name.point, AcGePoint3d::kOrigin);
    EXPECT_EQ(name.vector, AcGeVector3d());
    EXPECT_EQ(name.index, -1);
    EXPECT_EQ(direction.vector, AcGeVector3d::kYAxis);
    EXPECT_EQ(direction.index, -1);
    EXPECT_EQ(whole.point, AcGePoint3d(1.0, 2.0, 0.0));
    EXPECT_EQ(whole.index, 3);
}
