// Hatches: area by the even-odd rule, solid filling, pattern lines, explode.
#include "EntityTestSupport.h"
#include "entities/HatchLoops.h"

#include <algorithm>
#include <rapidcheck/gtest.h>

namespace {
using Hatch = AcDbHatch;
void addRing(Hatch& hatch, const std::vector<AcGePoint2d>& points, const std::vector<double>& bulges = {}) {
    AcGePoint2dArray ring;
    AcGeDoubleArray values;
    for (const AcGePoint2d& p : points)
        ring.append(p);
    for (const double b : bulges)
        values.append(b);
    ASSERT_EQ(hatch.appendLoop(Hatch::kExternal, ring, values), Acad::eOk);
}
void addSquare(Hatch& hatch, double x, double y, double size) {
    addRing(hatch, {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}});
}
double areaOf(const Hatch& hatch) {
    double area = -1.0;
    EXPECT_EQ(hatch.getArea(area), Acad::eOk);
    return area;
}
Hatch::Edge line(const AcGePoint2d& from, const AcGePoint2d& to) {
    Hatch::Edge e;
    e.start = from, e.end = to;
    return e;
}
Hatch::Edge arc(const AcGePoint2d& center, double radius, double start, double end, bool counterClockwise = true) {
    Hatch::Edge e;
    e.kind = Hatch::Edge::kCircArc;
    e.center = center, e.radius = radius, e.startAngle = start, e.endAngle = end;
    e.counterClockwise = counterClockwise;
    return e;
}
void addEdges(Hatch& hatch, std::vector<Hatch::Edge> edges) {
    Hatch::Loop loop;
    loop.edges = std::move(edges);
    ASSERT_EQ(hatch.appendLoop(loop), Acad::eOk);
}
void setLines(Hatch& hatch, double angle, double distance, std::vector<double> dashes = {}) {
    const AcGeVector2d across(-std::sin(angle) * distance, std::cos(angle) * distance);
    ASSERT_EQ(hatch.setPattern(L"LINES", 1.0, 0.0, {{angle, {0, 0}, across, std::move(dashes)}}), Acad::eOk);
}
double drawnLength(AcGiDrawable& hatch) {
    double length = 0.0;
    for (const GiPrimitive& primitive : pictureOf(hatch).primitives) {
        const GiPoints& points = std::get<GiPolyline>(primitive.shape).points;
        length += points.front().distanceTo(points.back());
    }
    return length;
}
double within(double low, double high) {
    return low + (high - low) * *rc::gen::inRange(0, 1 << 20) / (1 << 20);
}
} // namespace

TEST(HatchArea, of_a_ring_does_not_ask_for_its_sense) {
    Hatch clockwise, counter;
    addRing(clockwise, {{0, 0}, {0, 3}, {4, 3}, {4, 0}});
    addRing(counter, {{0, 0}, {4, 0}, {4, 3}, {0, 3}});
    EXPECT_NEAR(areaOf(clockwise), 12, 1e-12);
    EXPECT_NEAR(areaOf(counter), 12, 1e-12);
}
TEST(HatchArea, a_closing_vertex_that_repeats_the_first_is_dropped) {
    Hatch hatch;
    addRing(hatch, {{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}, {0, 0, 0, 0, 0});
    EXPECT_EQ(hatch.loops()[0].vertices.size(), 4u);
    EXPECT_EQ(hatch.loops()[0].bulges.size(), 4u);
    EXPECT_NEAR(areaOf(hatch), 12, 1e-12);
}
TEST(HatchArea, of_bulged_loops_is_exact) {
    Hatch hatch;
    addRing(hatch, {{-2, 0}, {2, 0}}, {1, 1});
    EXPECT_NEAR(areaOf(hatch), 4 * kPi, 1e-9);
}
TEST(HatchArea, of_arcs_that_meet_at_an_extreme_is_exact) {
    // Ends that rounding puts a hair beyond the next arc's start must not pass for a crossing.
    for (int i = 1; i < 60; ++i) {
        Hatch hatch;
        const double turn = 0.1 * i, radius = 3.0 + 0.37 * i;
        const AcGePoint2d a(radius * std::cos(turn), radius * std::sin(turn)), b(-a.x, -a.y);
        addRing(hatch, {a, b}, {1, 1});
        EXPECT_NEAR(areaOf(hatch), kPi * radius * radius, 1e-9 * radius * radius) << i;
    }
}
TEST(HatchArea, of_arc_edges_is_exact_in_both_senses) {
    Hatch counter, clockwise;
    addEdges(counter, {arc({1, 1}, 2, 0, kPi), line({-1, 1}, {3, 1})});
    EXPECT_NEAR(areaOf(counter), 2 * kPi, 1e-9);
    // Clockwise over the upper half: from 180 degrees to 0, counted clockwise from 180 to 360.
    addEdges(clockwise, {arc({1, 1}, 2, kPi, kTwoPi, false), line({3, 1}, {-1, 1})});
    EXPECT_NEAR(areaOf(clockwise), 2 * kPi, 1e-9);
    expectBox(giExtentsOf(clockwise), {-1, 1, 0}, {3, 3, 0});
}
TEST(HatchArea, of_an_ellipse_is_exact) {
    Hatch hatch;
    Hatch::Edge e;
    e.kind = Hatch::Edge::kEllArc;
    e.center = {5, 5}, e.majorAxis = {3, 4}, e.ratio = 0.5, e.startAngle = 0, e.endAngle = kTwoPi;
    addEdges(hatch, {e});
    EXPECT_NEAR(areaOf(hatch), kPi * 5 * 2.5, 1e-9);
}
TEST(HatchArea, islands_cut_and_islands_in_islands_fill) {
    Hatch hatch;
    addSquare(hatch, 0, 0, 10);
    addSquare(hatch, 2, 2, 6);
    addSquare(hatch, 4, 4, 2);
    addSquare(hatch, 20, 0, 3);
    EXPECT_NEAR(areaOf(hatch), 100 - 36 + 4 + 9, 1e-12);
}
TEST(HatchArea, loops_that_share_an_edge_add_up) {
    for (const double x : {4.0, -4.0}) {
        Hatch hatch;
        addRing(hatch, {{0, 0}, {4, 0}, {4, 4}, {0, 4}});
        addRing(hatch, {{x, 4}, {x, 0}, {x + 4, 0}, {x + 4, 4}});
        EXPECT_NEAR(areaOf(hatch), 32, 1e-12);
    }
    Hatch inner; // an island at the edge
    addSquare(inner, 0, 0, 4);
    addSquare(inner, 0, 0, 2);
    EXPECT_NEAR(areaOf(inner), 12, 1e-12);
}
TEST(HatchArea, of_loops_that_cross_leaves_out_what_both_cover) {
    Hatch hatch;
    addSquare(hatch, 0, 0, 4);
    addSquare(hatch, 2, 2, 4);
    EXPECT_NEAR(areaOf(hatch), 16 + 16 - 2 * 4, 1e-9);
}
TEST(HatchArea, of_a_ring_that_crosses_itself_is_that_of_its_wings) {
    Hatch hatch;
    addRing(hatch, {{0, 0}, {4, 4}, {4, 0}, {0, 4}});
    EXPECT_NEAR(areaOf(hatch), 8, 1e-9);
}
TEST(HatchArea, without_a_loop_there_is_none) {
    Hatch hatch;
    double area = 0.0;
    EXPECT_EQ(hatch.getArea(area), Acad::eInvalidInput);
    EXPECT_EQ(hatch.evaluateHatch(), Acad::eInvalidInput);
    EXPECT_EQ(hatch.appendLoop(Hatch::Loop()), Acad::eInvalidInput);
    addSquare(hatch, 0, 0, 1);
    EXPECT_EQ(hatch.evaluateHatch(false), Acad::eOk);
}
TEST(HatchArea, a_collapsed_loop_has_none) {
    Hatch hatch;
    addRing(hatch, {{1, 1}, {1, 1}, {1, 1}});
    EXPECT_EQ(areaOf(hatch), 0.0);
}

TEST(Hatch, bulges_that_do_not_match_the_vertices_are_refused) {
    Hatch hatch;
    AcGePoint2dArray ring;
    ring.append({0, 0});
    ring.append({1, 0});
    AcGeDoubleArray bulges;
    bulges.append(1.0);
    EXPECT_EQ(hatch.appendLoop(Hatch::kExternal, ring, bulges), Acad::eInvalidInput);
}
TEST(Hatch, a_solid_one_fills_its_loops) {
    Hatch hatch;
    addSquare(hatch, 0, 0, 10);
    addSquare(hatch, 2, 2, 6);
    const GiDisplayList picture = pictureOf(hatch);
    ASSERT_EQ(picture.primitives.size(), 1u);
    EXPECT_EQ(std::get<GiFill>(picture.primitives[0].shape).loops.size(), 2u);
}
// The one primitive that the hatch draws.
GiPrimitive primitiveOf(Hatch& hatch) {
    const GiDisplayList picture = pictureOf(hatch);
    EXPECT_EQ(picture.primitives.size(), 1u);
    return picture.primitives.at(0);
}
void expectDisc(Hatch& hatch, const AcGePoint3d& center, double radius) {
    const GiPrimitive drawn = primitiveOf(hatch);
    EXPECT_EQ(drawn.traits.fill, kAcGiFillAlways);
    ASSERT_TRUE(std::holds_alternative<GiArc>(drawn.shape));
    const GiArc& arc = std::get<GiArc>(drawn.shape);
    expectPoint(arc.center, center);
    EXPECT_NEAR(arc.major.length(), radius, 1e-9);
    EXPECT_NEAR(arc.minor.length(), radius, 1e-9);
    EXPECT_TRUE(arc.isFullTurn());
}
TEST(Hatch, a_solid_disc_is_drawn_as_a_circle_however_its_loop_is_made) {
    Hatch whole, halves, thirds, backwards;
    addEdges(whole, {arc({3, 4}, 0.5, 0.0, kTwoPi)});
    expectDisc(whole, {3, 4, 0}, 0.5);
    addRing(halves, {{2.5, 4}, {3.5, 4}}, {1.0, 1.0});
    expectDisc(halves, {3, 4, 0}, 0.5);
    addEdges(thirds, {arc({3, 4}, 0.5, 1.0, 2.0), arc({3, 4}, 0.5, 2.0, 5.0), arc({3, 4}, 0.5, 5.0, kTwoPi + 1.0)});
    expectDisc(thirds, {3, 4, 0}, 0.5);
    addEdges(backwards, {arc({3, 4}, 0.5, 0.0, kTwoPi, false)});
    expectDisc(backwards, {3, 4, 0}, 0.5);
}
TEST(Hatch, a_solid_ellipse_is_drawn_as_one) {
    Hatch hatch;
    Hatch::Edge edge = arc({1, 2}, 0.0, 0.0, kTwoPi);
    edge.kind = Hatch::Edge::kEllArc;
    edge.majorAxis = {0.0, 4.0};
    edge.ratio = 0.25;
    addEdges(hatch, {edge});
    const GiPrimitive drawn = primitiveOf(hatch);
    ASSERT_TRUE(std::holds_alternative<GiArc>(drawn.shape));
    expectBox(giExtentsOf(pictureOf(hatch)), {0, -2, 0}, {2, 6, 0});
}
TEST(Hatch, what_is_no_whole_circle_is_filled_by_its_loops) {
    Hatch half, ring, overlapping, apart;
    addRing(half, {{0, 0}, {1, 0}}, {1.0, 0.0});
    EXPECT_TRUE(std::holds_alternative<GiFill>(primitiveOf(half).shape)) << "an arc and its chord";
    addEdges(ring, {arc({0, 0}, 1.0, 0.0, kTwoPi)});
    addEdges(ring, {arc({0, 0}, 0.5, 0.0, kTwoPi)});
    EXPECT_TRUE(std::holds_alternative<GiFill>(primitiveOf(ring).shape)) << "a circle with a hole";
    addEdges(overlapping, {arc({0, 0}, 1.0, 0.0, kPi), arc({0, 0}, 1.0, 0.0, kPi)});
    EXPECT_TRUE(std::holds_alternative<GiFill>(primitiveOf(overlapping).shape)) << "a half twice";
    addEdges(apart, {arc({0, 0}, 1.0, 0.0, kPi), arc({0.5, 0}, 1.5, kPi, kTwoPi)});
    EXPECT_TRUE(std::holds_alternative<GiFill>(primitiveOf(apart).shape)) << "halves of two circles";
}
TEST(Hatch, only_solid_is_known_by_name) {
    Hatch hatch;
    EXPECT_EQ(hatch.setPattern(Hatch::kPreDefined, L"solid"), Acad::eOk);
    EXPECT_TRUE(hatch.isSolidFill());
    EXPECT_EQ(hatch.setPattern(Hatch::kPreDefined, L"ANSI31"), Acad::eInvalidInput);
    EXPECT_EQ(hatch.setPattern(L"LINES", 1.0, 0.0, {}), Acad::eInvalidInput);
}
TEST(Hatch, a_solid_one_cannot_be_exploded) {
    Hatch hatch;
    addSquare(hatch, 0, 0, 10);
    EXPECT_EQ(Exploded(hatch).status, Acad::eCannotExplodeEntity);
}
TEST(Hatch, extents_of_arcs_are_exact_under_any_turn) {
    Hatch hatch;
    addRing(hatch, {{-2, 0}, {2, 0}}, {1, 1});
    const AcDbExtents box = extentsUnder(AcGeMatrix3d::rotation(0.37, {0, 0, 1}), hatch);
    expectBox(box, {-2, -2, 0}, {2, 2, 0});
}
TEST(Hatch, drops_its_sources_when_it_is_no_longer_associative) {
    Hatch hatch;
    Hatch::Loop loop;
    loop.vertices = {{0, 0}, {1, 0}, {1, 1}};
    loop.associated.append(AcDbObjectId());
    hatch.appendLoop(loop);
    hatch.setAssociative(true);
    EXPECT_EQ(hatch.loops()[0].associated.length(), 1);
    hatch.setAssociative(false);
    EXPECT_TRUE(hatch.loops()[0].associated.isEmpty());
    EXPECT_FALSE(hatch.associative());
}
TEST(Hatch, squeezed_bulges_become_elliptic_edges) {
    Hatch hatch;
    addRing(hatch, {{-2, 0}, {2, 0}}, {1, 1});
    ASSERT_EQ(hatch.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(1, 0.5, 1))), Acad::eOk);
    EXPECT_NEAR(areaOf(hatch), 2 * kPi, 1e-9);
    expectBox(giExtentsOf(hatch), {-2, -1, 0}, {2, 1, 0});
}

TEST(HatchPattern, lines_are_clipped_to_the_area_between_the_loops) {
    Hatch hatch;
    addSquare(hatch, 0, 0.5, 10);
    addSquare(hatch, 2, 2.5, 6);
    setLines(hatch, 0.0, 1.0);
    EXPECT_NEAR(drawnLength(hatch), 100 - 36, 1e-9); // a line a unit: length and area agree
}
TEST(HatchPattern, dashes_begin_at_the_base_point_in_every_row) {
    Hatch hatch;
    addRing(hatch, {{-5, -0.5}, {5, -0.5}, {5, 0.5}, {-5, 0.5}});
    setLines(hatch, 0.0, 1.0, {2.0, -1.0});
    std::vector<std::pair<double, double>> dashes;
    for (const GiPrimitive& primitive : pictureOf(hatch).primitives) {
        const GiPoints& p = std::get<GiPolyline>(primitive.shape).points;
        dashes.emplace_back(p.front().x, p.back().x);
    }
    const std::vector<std::pair<double, double>> expected{{-5, -4}, {-3, -1}, {0, 2}, {3, 5}};
    ASSERT_EQ(dashes.size(), expected.size());
    for (std::size_t i = 0; i < dashes.size(); ++i) {
        EXPECT_NEAR(dashes[i].first, expected[i].first, 1e-9);
        EXPECT_NEAR(dashes[i].second, expected[i].second, 1e-9);
    }
}
TEST(HatchPattern, rows_are_shifted_along_by_the_offset) {
    Hatch hatch;
    addRing(hatch, {{0, -0.5}, {9.5, -0.5}, {9.5, 1.5}, {0, 1.5}});
    ASSERT_EQ(hatch.setPattern(L"BRICK", 1.0, 0.0, {{0.0, {0, 0}, {1.5, 1.0}, {0.0, -3.0}}}), Acad::eOk);
    const Exploded dots(hatch);
    ASSERT_EQ(dots.size(), 4u + 3u);
    expectPoint(dots.as<AcDbPoint>(0)->position(), {0, 0, 0});
    expectPoint(dots.as<AcDbPoint>(4)->position(), {1.5, 1, 0});
}
TEST(HatchPattern, explodes_to_the_lines_it_draws) {
    Hatch hatch;
    addSquare(hatch, 0, 0.5, 10);
    setLines(hatch, 0.0, 1.0);
    hatch.setElevation(4.0);
    hatch.setColorIndex(6);
    const Exploded pieces(hatch);
    ASSERT_EQ(pieces.status, Acad::eOk);
    ASSERT_EQ(pieces.size(), 10u);
    ASSERT_NE(pieces.as<AcDbLine>(0), nullptr);
    expectPoint(pieces.as<AcDbLine>(0)->startPoint(), {0, 1, 4});
    EXPECT_EQ(pieces[0].colorIndex(), 6);
}
TEST(HatchPattern, too_dense_to_tell_apart_is_filled) {
    Hatch hatch;
    addSquare(hatch, 0, 0, 1000);
    setLines(hatch, 0.0, 1e-6);
    const GiDisplayList picture = pictureOf(hatch);
    ASSERT_EQ(picture.primitives.size(), 1u);
    EXPECT_TRUE(std::holds_alternative<GiFill>(picture.primitives[0].shape));
    EXPECT_EQ(Exploded(hatch).status, Acad::eCannotExplodeEntity);
}
TEST(HatchPattern, a_family_without_distance_is_one_line) {
    Hatch hatch;
    addSquare(hatch, -1, -1, 2);
    ASSERT_EQ(hatch.setPattern(L"ONE", 1.0, 0.0, {{0.0, {0, 0}, {0, 0}, {}}}), Acad::eOk);
    EXPECT_EQ(pictureOf(hatch).primitives.size(), 1u);
}
TEST(HatchPattern, dashes_that_vanish_in_their_coordinates_end) {
    Hatch hatch;
    addSquare(hatch, 1e9, 1e9, 1e-6);
    ASSERT_EQ(hatch.setPattern(L"TINY", 1.0, 0.0, {{0.0, {0, 1e9 + 5e-7}, {0, 1.0}, {1e-10, -1e-10}}}), Acad::eOk);
    EXPECT_LT(pictureOf(hatch).primitives.size(), 100000u);
}
TEST(Hatch, angles_beyond_all_measure_are_drawn_as_some_arc) {
    Hatch hatch;
    addEdges(hatch, {arc({0, 0}, 2, 1e300, -1e300), line({2, 0}, {0, 0})});
    expectPoint(giExtentsOf(hatch).minPoint(), {0, 0, 0}, 2.1);
    EXPECT_FALSE(pictureOf(hatch).primitives.empty());
}
TEST(HatchPattern, is_carried_along_exactly) {
    Hatch hatch;
    addSquare(hatch, 0.25, 0.25, 8);
    setLines(hatch, 0.6, 0.75, {1.0, -0.5});
    const double before = drawnLength(hatch);
    const std::unique_ptr<AcDbEntity> image(AcDbEntity::cast(hatch.clone()));
    const AcGeMatrix3d matrix = AcGeMatrix3d::translation({3, 4, 0}) * AcGeMatrix3d::rotation(1.0, {0, 0, 1}) * AcGeMatrix3d::scaling(2.0);
    ASSERT_EQ(image->transformBy(matrix), Acad::eOk);
    EXPECT_NEAR(drawnLength(*image), 2 * before, 1e-6);
    const auto first = std::get<GiPolyline>(pictureOf(hatch).primitives[0].shape).points.front();
    const auto moved = std::get<GiPolyline>(pictureOf(*image).primitives[0].shape).points.front();
    expectPoint(moved, matrix * first, 1e-9);
}

RC_GTEST_PROP(HatchProperty, crossing_polygons_have_the_area_that_points_find, ()) {
    DbRings rings(static_cast<std::size_t>(*rc::gen::inRange(1, 4)));
    for (DbRing& ring : rings)
        for (int i = *rc::gen::inRange(3, 7); i > 0; --i)
            ring.push_back({within(0, 10), within(0, 10)});
    // The rows of a fine hatch measure the same area by themselves.
    double length = 0.0;
    const double step = 10.0 / 4000;
    dbForEachDash(rings, {{0.0, {0, step / 2}, {0, step}, {}}}, [&](const AcGePoint2d& a, const AcGePoint2d& b) { length += a.distanceTo(b); });
    RC_ASSERT(std::abs(dbEvenOddArea(rings) - length * step) < 0.1);
}
RC_GTEST_PROP(HatchProperty, nested_arcs_have_the_area_of_the_general_rule, ()) {
    Hatch hatch;
    const double radius = within(3, 9);
    addRing(hatch, {{-radius, 0}, {radius, 0}}, {1, 1});
    addRing(hatch, {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}, {within(-0.4, 0.4), 0, within(-0.4, 0.4), 0});
    const double general = dbEvenOddArea(dbFlattenLoops(hatch.loops(), 1e-4));
    RC_ASSERT(std::abs(areaOf(hatch) - general) < 0.01);
}
