#include "AcDbBlockReference.h"
#include "AcUtText.h"
#include "EdSession.h"
#include "commands/EdHatchPattern.h"
#include "core/EdProperties.h"

#include <gtest/gtest.h>

namespace {
TEST(EdDraw, a_polyline_goes_round_an_arc_along_its_tangent) {
    EdSession user;
    user.type({L"PLINE 90,4 11.5,4 A 3.5,12 L 3.5,55", L""});
    const auto line = user.only<AcDbPolyline>();
    ASSERT_TRUE(line);
    double bulge = 0.0;
    line->getBulgeAt(1, bulge);
    EXPECT_NEAR(bulge, -std::tan(kPi / 8.0), 1e-12) << "a quarter turn to the right";
    EXPECT_EQ(line->numVerts(), 4u);
    EXPECT_FALSE(line->isClosed());
}
TEST(EdDraw, a_polyline_takes_widths_and_closes) {
    EdSession user;
    user.type({L"PLINE 0,0 W 0.5 0.25 10,0 10,10 C", L"PLINE 0,0 W 0 0 1,0", L""});
    const AcDbObjectPointer<AcDbPolyline> line(user.entities()[0]);
    double from = 0.0, to = 0.0;
    line->getWidthsAt(0, from, to);
    EXPECT_EQ(from, 0.5);
    EXPECT_EQ(to, 0.25);
    line->getWidthsAt(1, from, to);
    EXPECT_EQ(from, 0.25);
    EXPECT_TRUE(line->isClosed());
}
TEST(EdDraw, arcs_of_a_polyline_by_angle_centre_and_second_point) {
    EdSession user;
    user.type({L"PLINE 1,0 A A 90 0,1", L"", L"PLINE 1,0 A CE 0,0 0,1", L"", L"PLINE 1,0 A S 0.70710678118654752,0.70710678118654752 0,1", L""});
    ASSERT_EQ(user.entities().size(), 3u);
    for (const AcDbObjectId id : user.entities()) {
        double bulge = 0.0;
        AcDbObjectPointer<AcDbPolyline>(id)->getBulgeAt(0, bulge);
        EXPECT_NEAR(bulge, std::tan(kPi / 8.0), 1e-9);
    }
}
TEST(EdDraw, an_arc_straight_back_is_a_half_turn_and_closing_there_adds_nothing) {
    EdSession user;
    user.type({L"PLINE -1,0 1,0 A -1,0 C"});
    const auto line = user.only<AcDbPolyline>();
    ASSERT_TRUE(line);
    double bulge = 0.0;
    line->getBulgeAt(1, bulge);
    EXPECT_EQ(bulge, 1.0);
    EXPECT_EQ(line->numVerts(), 2u);
    EXPECT_TRUE(line->isClosed());
}
TEST(EdDraw, circles_by_radius_diameter_and_points) {
    EdSession user;
    user.type({L"CIRCLE 0,0 2", L"CIRCLE 0,0 D 3", L"CIRCLE 2P 0,0 4,0", L"CIRCLE 3P 1,0 0,1 -1,0"});
    const double radii[] = {2.0, 1.5, 2.0, 1.0};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(AcDbObjectPointer<AcDbCircle>(user.entities()[i])->radius(), radii[i], 1e-12);
}
TEST(EdDraw, an_arc_runs_counter_clockwise_whichever_way_its_points_run) {
    EdSession user;
    user.type({L"ARC 1,0 0,1 -1,0", L"ARC -1,0 0,1 1,0", L"ARC C 0,0 1,0 A 90", L"ARC 1,0 E -1,0 A 180"});
    for (const AcDbObjectId id : user.entities()) {
        const AcDbObjectPointer<AcDbArc> arc(id);
        EXPECT_NEAR(arc->startAngle(), 0.0, 1e-12);
        EXPECT_NEAR(arc->radius(), 1.0, 1e-12);
    }
}
TEST(EdDraw, points_in_line_make_no_arc) {
    EdSession user;
    user.type({L"ARC 0,0 1,0 2,0"});
    EXPECT_EQ(user.refusal, L"The three points lie in line.");
}
TEST(EdDraw, a_text_is_set_by_its_justification) {
    EdSession user;
    user.type({L"TEXT J MC 10,5 2 0 STOP here"});
    const auto text = user.only<AcDbText>();
    ASSERT_TRUE(text);
    EXPECT_STREQ(text->textStringConst(), L"STOP here");
    EXPECT_EQ(text->alignmentPoint(), AcGePoint3d(10, 5, 0));
    EXPECT_LT(text->position().x, 10.0);
    EXPECT_EQ(user.db().textsize(), 2.0);
}
TEST(EdDraw, new_objects_take_the_current_layer_and_colour) {
    EdSession user;
    user.type({L"LAYER M Kerb C 250 Kerb LW 0.35 Kerb", L"", L"CECOLOR 1", L"POINT 0,0"});
    const auto point = user.only<AcDbPoint>();
    EXPECT_EQ(point->layerName(), L"Kerb");
    EXPECT_EQ(point->colorIndex(), 1);
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(edFindRecord<AcDbLayerTable>(user.db(), L"kerb"));
    EXPECT_EQ(layer->color().colorIndex(), 250);
    EXPECT_EQ(layer->lineWeight(), AcDb::kLnWt035);
}
TEST(EdDraw, a_hatch_fills_closed_objects_and_chains_of_open_ones) {
    EdSession user;
    user.type({L"CIRCLE 0,0 1", L"HATCH SOLID L", L"", L"ERASE ALL", L"", L"LINE 0,0 4,0 4,3", L"", L"LINE 0,0 4,3", L"", L"HATCH SOLID ALL", L""});
    double area = 0.0;
    ASSERT_EQ(user.entities().size(), 4u);
    EXPECT_EQ(AcDbObjectPointer<AcDbHatch>(user.entities()[3])->getArea(area), Acad::eOk);
    EXPECT_NEAR(area, 6.0, 1e-9);
}
TEST(EdDraw, open_objects_make_no_hatch) {
    EdSession user;
    user.type({L"LINE 0,0 4,0", L"", L"HATCH SOLID L", L""});
    EXPECT_EQ(user.refusal, L"The objects close no area.");
}
TEST(EdHatchPattern, a_file_is_read_and_a_broken_pattern_left_out) {
    const auto patterns = edReadHatchPatterns(L"; a file\n*ONE, first\n45, 0,0, 0,3\n*BAD, no\n45, 0\n*TWO\n0, 1,2, 3,4, 1,-1 ; note\n");
    ASSERT_EQ(patterns.size(), 2u);
    EXPECT_EQ(patterns[0].name, L"ONE");
    EXPECT_EQ(patterns[0].comment, L"first");
    EXPECT_EQ(patterns[1].lines[0].dashes.size(), 2u);
    const auto lines = edScaledLines(patterns[0], 2.0, kPi / 4);
    EXPECT_NEAR(lines[0].angle, kHalfPi, 1e-12);
    EXPECT_NEAR(lines[0].offset.x, -6.0, 1e-12);
}
TEST(EdBlock, a_block_is_made_and_inserted_with_its_attributes) {
    EdSession user;
    user.type({L"CIRCLE 0,0 1", L"ATTDEF", L"", L"SPEED", L"Speed limit", L"50", L"0,0 0.5 0", L"BLOCK Sign 0,0 ALL", L"", L"INSERT Sign 10,0 2 2 90", L"70"});
    ASSERT_TRUE(user.refusal.empty()) << acToUtf8(user.refusal);
    const auto reference = user.only<AcDbBlockReference>();
    ASSERT_TRUE(reference);
    EXPECT_EQ(reference->scaleFactors(), AcGeScale3d(2, 2, 2));
    EXPECT_NEAR(reference->rotation(), kHalfPi, 1e-12);
    ASSERT_EQ(reference->attributeIds().length(), 1);
    const AcDbObjectPointer<AcDbAttribute> attribute(reference->attributeIds()[0]);
    EXPECT_STREQ(attribute->textStringConst(), L"70");
    EXPECT_EQ(attribute->tagConst(), L"SPEED");
}
TEST(EdBlock, an_unknown_block_is_refused) {
    EdSession user;
    user.type({L"INSERT", L"nosuch", L"nosuch", L"nosuch"});
    EXPECT_EQ(user.refusal, L"\"nosuch\": There is no block or file \"nosuch\".");
}
TEST(EdEdit, moves_copies_turns_and_mirrors) {
    EdSession user;
    user.type({L"POINT 1,0", L"COPY L", L"", L"0,0 0,5", L"ROTATE L", L"", L"0,0 90", L"MIRROR L", L"", L"0,0 0,1", L"N", L"SCALE L", L"", L"0,0 2"});
    ASSERT_TRUE(user.refusal.empty()) << acToUtf8(user.refusal);
    ASSERT_EQ(user.entities().size(), 3u);
    const auto at = [&](std::size_t i) { return AcDbObjectPointer<AcDbPoint>(user.entities()[i])->position(); };
    EXPECT_TRUE(at(0).isEqualTo({1, 0, 0}));
    EXPECT_TRUE(at(1).isEqualTo({-5, 1, 0}));
    EXPECT_TRUE(at(2).isEqualTo({10, 2, 0}));
}
TEST(EdEdit, a_polyline_explodes_into_its_parts) {
    EdSession user;
    user.type({L"PLINE 0,0 1,0 1,1 C", L"EXPLODE L", L""});
    EXPECT_EQ(user.entities().size(), 3u);
}
TEST(EdPlot, an_empty_drawing_cannot_be_plotted) {
    EdSession user;
    user.type({L"PLOT nothing.pdf"});
    EXPECT_EQ(user.refusal, L"There is nothing to plot.");
}
} // namespace
