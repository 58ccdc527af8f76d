// The lightweight polyline: bulges as exact arcs, widths as bands, area, explode.
#include "EntityTestSupport.h"
#include "entities/CurveMath.h"

#include <algorithm>
#include <limits>
#include <rapidcheck/gtest.h>

namespace {
std::unique_ptr<AcDbPolyline> polyline(const std::vector<AcDbPolyline::Vertex>& vertices, bool closed) {
    auto p = std::make_unique<AcDbPolyline>();
    for (const AcDbPolyline::Vertex& v : vertices)
        p->addVertexAt(p->numVerts(), v.point, v.bulge, v.startWidth, v.endWidth);
    p->setClosed(closed);
    return p;
}
double within(double low, double high) {
    return low + (high - low) * *rc::gen::inRange(0, 1 << 20) / (1 << 20);
}
std::vector<AcDbPolyline::Vertex> anyVertices() {
    std::vector<AcDbPolyline::Vertex> vertices(static_cast<std::size_t>(*rc::gen::inRange(2, 8)));
    for (AcDbPolyline::Vertex& v : vertices)
        v = {{within(-50, 50), within(-50, 50)}, *rc::gen::inRange(0, 3) == 0 ? 0.0 : within(-3, 3)};
    return vertices;
}
// The polyline as points, densely: the arc that a bulge means, by turning about its centre.
std::vector<AcGePoint2d> dense(const AcDbPolyline& p, int steps) {
    std::vector<AcGePoint2d> points;
    const auto& v = p.vertices();
    const std::size_t segments = p.isClosed() ? v.size() : v.size() - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const AcGePoint2d a = v[i].point, b = v[(i + 1) % v.size()].point;
        const double angle = 4.0 * std::atan(v[i].bulge);
        for (int k = 0; k < steps; ++k) {
            const double t = 1.0 * k / steps;
            if (std::abs(angle) < 1e-12) {
                points.push_back(a + (b - a) * t);
                continue;
            }
            // Turning about the centre: a + (b - a) * (1 - e^(i angle t)) / (1 - e^(i angle)).
            const AcGeVector2d n(1 - std::cos(angle * t), -std::sin(angle * t)), d(1 - std::cos(angle), -std::sin(angle));
            const double dd = d.x * d.x + d.y * d.y;
            const AcGeVector2d q((n.x * d.x + n.y * d.y) / dd, (n.y * d.x - n.x * d.y) / dd), c = b - a;
            points.push_back({a.x + c.x * q.x - c.y * q.y, a.y + c.x * q.y + c.y * q.x});
        }
    }
    points.push_back(p.isClosed() ? v.front().point : v.back().point);
    return points;
}
} // namespace

TEST(Polyline, extents_of_a_half_circle_are_exact) {
    const auto p = polyline({{{0, 0}, 1.0}, {{2, 0}}}, false); // counter-clockwise: below the chord
    expectBox(extentsOf(*p), {0, -1, 0}, {2, 0, 0});
    p->setBulgeAt(0, -1.0);
    expectBox(extentsOf(*p), {0, 0, 0}, {2, 1, 0});
}

TEST(Polyline, area_of_a_circle_of_two_arcs_is_exact) {
    EXPECT_NEAR(polyline({{{-3, 0}, 1.0}, {{3, 0}, 1.0}}, true)->getArea(), kPi * 9, 1e-9);
    EXPECT_NEAR(polyline({{{-3, 0}, -1.0}, {{3, 0}, -1.0}}, true)->getArea(), kPi * 9, 1e-9);
}

TEST(Polyline, an_open_one_encloses_the_area_up_to_its_chord) {
    EXPECT_NEAR(polyline({{{0, 0}}, {{4, 0}}, {{4, 3}}}, false)->getArea(), 6.0, 1e-12);
}

TEST(Polyline, area_far_from_the_origin_keeps_its_digits) {
    EXPECT_NEAR(polyline({{{650000, 240000}}, {{650001, 240000}}, {{650001, 240001}}, {{650000, 240001}}}, true)->getArea(), 1.0, 1e-9);
}

TEST(Polyline, a_tiny_bulge_adds_its_sliver_of_area) {
    const double b = 1e-5; // a sliver's area is two thirds of chord times sagitta
    EXPECT_NEAR(dbBulgeArea({0, 0}, {2, 0}, b) / (2.0 / 3.0 * 2.0 * b), 1.0, 1e-6);
    EXPECT_NEAR(dbBulgeArea({0, 0}, {2, 0}, -b) / (-2.0 / 3.0 * 2.0 * b), 1.0, 1e-6);
}

TEST(Polyline, without_bulges_is_one_primitive) {
    const auto p = polyline({{{0, 0}}, {{1, 0}}, {{1, 1}}, {{0, 1}}}, true);
    const GiDisplayList picture = pictureOf(*p);
    ASSERT_EQ(picture.primitives.size(), 1u);
    EXPECT_EQ(std::get<GiPolyline>(picture.primitives[0].shape).points.size(), 5u);
}

TEST(Polyline, straight_runs_stay_together_between_arcs) {
    const auto p = polyline({{{0, 0}}, {{1, 0}}, {{2, 0}, 0.5}, {{3, 1}}, {{4, 4}}, {{0, 4}}}, false);
    const GiDisplayList picture = pictureOf(*p);
    ASSERT_EQ(picture.primitives.size(), 3u);
    EXPECT_EQ(std::get<GiPolyline>(picture.primitives[0].shape).points.size(), 3u);
    EXPECT_TRUE(std::holds_alternative<GiArc>(picture.primitives[1].shape));
    EXPECT_EQ(std::get<GiPolyline>(picture.primitives[2].shape).points.size(), 3u);
}

TEST(Polyline, a_constant_width_is_a_filled_band_with_mitred_corners) {
    const auto p = polyline({{{0, 0}}, {{10, 0}}, {{10, 10}}}, false);
    p->setConstantWidth(2.0);
    expectBox(extentsOf(*p), {0, -1, 0}, {11, 10, 0});
    const GiDisplayList picture = pictureOf(*p);
    ASSERT_EQ(picture.primitives.size(), 2u);
    EXPECT_EQ(picture.primitives[0].traits.fill, kAcGiFillAlways);
    const auto& first = std::get<GiPolygon>(picture.primitives[0].shape).points;
    const auto has = [&](const AcGePoint3d& corner) { return std::ranges::any_of(first, [&](auto& q) { return q.isEqualTo(corner); }); };
    EXPECT_TRUE(has({11, -1, 0}));
    EXPECT_TRUE(has({9, 1, 0}));
}

TEST(Polyline, a_taper_is_a_band_that_narrows) {
    const auto p = polyline({{{0, 0}, 0.0, 2.0, 0.0}, {{10, 0}}}, false);
    expectBox(extentsOf(*p), {0, -1, 0}, {10, 1, 0});
}

TEST(Polyline, a_wide_ring_reaches_half_its_width_beyond_its_circle) {
    const auto p = polyline({{{-3, 0}, 1.0}, {{3, 0}, 1.0}}, true);
    p->setConstantWidth(1.0);
    expectBox(extentsOf(*p), {-3.5, -3.5, 0}, {3.5, 3.5, 0});
    const GiDisplayList picture = pictureOf(*p, 0.01);
    ASSERT_EQ(picture.primitives.size(), 2u);
    for (const GiPrimitive& primitive : picture.primitives)
        for (const auto& loop : std::get<GiFill>(primitive.shape).loops)
            for (const AcGePoint3d& q : loop)
                EXPECT_NEAR(std::abs(q.asVector().length() - 3.0), 0.5, 1e-9);
}

TEST(Polyline, explodes_to_lines_and_counter_clockwise_arcs_in_its_colour) {
    const auto p = polyline({{{0, 0}}, {{2, 0}, -1.0}, {{2, 2}, 1.0}, {{2, 4}}}, true);
    p->setColorIndex(5);
    p->setElevation(7.0);
    const Exploded pieces(*p);
    ASSERT_EQ(pieces.status, Acad::eOk);
    ASSERT_EQ(pieces.size(), 4u);
    ASSERT_NE(pieces.as<AcDbLine>(0), nullptr);
    expectPoint(pieces.as<AcDbLine>(0)->endPoint(), {2, 0, 7});
    ASSERT_NE(pieces.as<AcDbArc>(1), nullptr);
    expectBox(extentsOf(pieces[1]), {1, 0, 7}, {2, 2, 7}); // bulge -1 from (2,0) to (2,2): to the left
    expectBox(extentsOf(pieces[2]), {2, 2, 7}, {3, 4, 7});
    ASSERT_NE(pieces.as<AcDbLine>(3), nullptr);
    for (std::size_t i = 0; i < pieces.size(); ++i)
        EXPECT_EQ(pieces[i].colorIndex(), 5);
}

TEST(Polyline, unequal_scale_is_refused_only_where_it_would_bend_an_arc) {
    const AcGeMatrix3d unequal = AcGeMatrix3d::scaling(AcGeScale3d(2, 1, 1));
    const auto bent = polyline({{{0, 0}, 1.0}, {{2, 0}}}, false), straight = polyline({{{0, 0}}, {{2, 3}}}, false);
    EXPECT_EQ(bent->transformBy(unequal), Acad::eCannotScaleNonUniformly);
    EXPECT_EQ(straight->transformBy(unequal), Acad::eOk);
    expectBox(extentsOf(*straight), {0, 0, 0}, {4, 3, 0});
}

TEST(Polyline, vertices_beyond_the_end_are_refused) {
    AcDbPolyline p;
    EXPECT_EQ(p.addVertexAt(1, {0, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(p.addVertexAt(0, {1, 2}), Acad::eOk);
    AcGePoint2d point;
    double a = 0.0, b = 0.0;
    EXPECT_EQ(p.getPointAt(1, point), Acad::eInvalidIndex);
    EXPECT_EQ(p.setPointAt(1, point), Acad::eInvalidIndex);
    EXPECT_EQ(p.getBulgeAt(1, a), Acad::eInvalidIndex);
    EXPECT_EQ(p.setBulgeAt(1, a), Acad::eInvalidIndex);
    EXPECT_EQ(p.getWidthsAt(1, a, b), Acad::eInvalidIndex);
    EXPECT_EQ(p.setWidthsAt(1, a, b), Acad::eInvalidIndex);
    EXPECT_EQ(p.removeVertexAt(1), Acad::eInvalidIndex);
    EXPECT_EQ(p.removeVertexAt(0), Acad::eOk);
    EXPECT_EQ(p.numVerts(), 0u);
}

TEST(Polyline, of_one_vertex_or_none_draws_nothing) {
    AcDbPolyline p;
    AcDbExtents extents;
    EXPECT_EQ(p.getGeomExtents(extents), Acad::eInvalidExtents);
    p.addVertexAt(0, {1, 1});
    p.setClosed(true);
    EXPECT_EQ(p.getGeomExtents(extents), Acad::eInvalidExtents);
    EXPECT_EQ(p.getArea(), 0.0);
}

TEST(Polyline, a_bulge_between_equal_points_is_no_arc) {
    const auto p = polyline({{{1, 1}, 1.0}, {{1, 1}}}, false);
    expectBox(extentsOf(*p), {1, 1, 0}, {1, 1, 0});
}

TEST(Polyline, a_bulge_that_is_no_number_is_a_line) {
    const auto p = polyline({{{0, 0}, std::numeric_limits<double>::quiet_NaN()}, {{4, 0}, std::numeric_limits<double>::infinity()}, {{4, 3}}}, false);
    expectBox(extentsOf(*p), {0, 0, 0}, {4, 3, 0});
}

TEST(Polyline, snaps_to_the_ends_and_middles_of_its_segments) {
    const auto p = polyline({{{0, 0}}, {{4, 0}, 1.0}, {{6, 0}}}, false);
    AcGePoint3dArray middles, near;
    p->getOsnapPoints(AcDb::kOsModeMid, middles);
    ASSERT_EQ(middles.length(), 2);
    expectPoint(middles[0], {2, 0, 0});
    expectPoint(middles[1], {5, -1, 0});
    p->getOsnapPoints(AcDb::kOsModeNear, near, {5, -3, 0});
    ASSERT_EQ(near.length(), 1);
    expectPoint(near[0], {5, -1, 0});
}

RC_GTEST_PROP(PolylineProperty, extents_are_those_of_the_points_on_its_arcs, ()) {
    const auto p = polyline(anyVertices(), *rc::gen::arbitrary<bool>());
    AcDbExtents exact, points;
    RC_ASSERT(p->getGeomExtents(exact) == Acad::eOk);
    constexpr int kSteps = 4000;
    for (const AcGePoint2d& q : dense(*p, kSteps))
        points.addPoint({q.x, q.y, 0});
    // The points lie on the curve, so never outside; and a step of them misses an extreme by little.
    const double step = 0.0 + 500.0 * kTwoPi / kSteps, missed = step * step / 8.0;
    RC_ASSERT(exact.minPoint().x <= points.minPoint().x + 1e-9 && exact.minPoint().x >= points.minPoint().x - missed);
    RC_ASSERT(exact.maxPoint().x >= points.maxPoint().x - 1e-9 && exact.maxPoint().x <= points.maxPoint().x + missed);
    RC_ASSERT(exact.minPoint().y <= points.minPoint().y + 1e-9 && exact.minPoint().y >= points.minPoint().y - missed);
    RC_ASSERT(exact.maxPoint().y >= points.maxPoint().y - 1e-9 && exact.maxPoint().y <= points.maxPoint().y + missed);
}

RC_GTEST_PROP(PolylineProperty, area_is_that_of_the_points_on_its_arcs, ()) {
    const auto p = polyline(anyVertices(), true);
    const std::vector<AcGePoint2d> points = dense(*p, 4000);
    double doubled = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        doubled += points[i - 1].x * points[i].y - points[i - 1].y * points[i].x;
    RC_ASSERT(std::abs(p->getArea() - std::abs(doubled) / 2.0) < 0.2); // of areas up to tens of thousands
}

RC_GTEST_PROP(PolylineProperty, turning_and_growing_multiplies_the_area, ()) {
    const auto p = polyline(anyVertices(), true);
    const double before = p->getArea(), factor = within(0.1, 10.0);
    RC_ASSERT(p->transformBy(AcGeMatrix3d::rotation(within(0, 6), {0, 0, 1}) * AcGeMatrix3d::scaling(factor)) == Acad::eOk);
    RC_ASSERT(std::abs(p->getArea() - before * factor * factor) <= 1e-7 * (1.0 + before * factor * factor));
}

RC_GTEST_PROP(PolylineProperty, its_pieces_have_its_extents, ()) {
    const auto p = polyline(anyVertices(), *rc::gen::arbitrary<bool>());
    const Exploded pieces(*p);
    AcDbExtents all;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        all.addExt(extentsOf(pieces[i]));
    const AcDbExtents own = extentsOf(*p);
    RC_ASSERT(all.minPoint().distanceTo(own.minPoint()) < 1e-9 && all.maxPoint().distanceTo(own.maxPoint()) < 1e-9);
}
