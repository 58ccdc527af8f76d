// Lines, points, circles, arcs, ellipses, solids: exact boxes, snaps, grips, transforms.
#include "EntityTestSupport.h"

namespace {
AcGePoint3dArray snaps(const AcDbEntity& entity, AcDb::OsnapMode mode, const AcGePoint3d& pick = {}, const AcGePoint3d& last = {}) {
    AcGePoint3dArray points;
    EXPECT_EQ(entity.getOsnapPoints(mode, points, pick, last), Acad::eOk);
    return points;
}
AcGePoint3dArray grips(const AcDbEntity& entity) {
    AcGePoint3dArray points;
    AcIntArray modes, ids;
    EXPECT_EQ(entity.getGripPoints(points, modes, ids), Acad::eOk);
    return points;
}
void drag(AcDbEntity& entity, int grip, const AcGeVector3d& offset) {
    AcIntArray indices;
    indices.append(grip);
    EXPECT_EQ(entity.moveGripPointsAt(indices, offset), Acad::eOk);
}
} // namespace

TEST(Line, snaps_to_ends_middle_foot_and_nearest_point) {
    const AcDbLine line({0, 0, 0}, {10, 0, 0});
    EXPECT_EQ(snaps(line, AcDb::kOsModeEnd).length(), 2);
    expectPoint(snaps(line, AcDb::kOsModeMid)[0], {5, 0, 0});
    expectPoint(snaps(line, AcDb::kOsModePerp, {}, {3, 7, 0})[0], {3, 0, 0});
    expectPoint(snaps(line, AcDb::kOsModeNear, {12, 1, 0})[0], {10, 0, 0});
    EXPECT_TRUE(snaps(line, AcDb::kOsModeCen).isEmpty());
}

TEST(Line, its_middle_grip_moves_it_whole) {
    AcDbLine line({0, 0, 0}, {10, 0, 0});
    drag(line, 1, {0, 2, 0});
    expectPoint(line.endPoint(), {10, 2, 0});
    expectPoint(line.startPoint(), {0, 0, 0});
    drag(line, 2, {1, 0, 0});
    expectPoint(line.startPoint(), {1, 0, 0});
    expectPoint(line.endPoint(), {11, 2, 0});
}

TEST(Point, is_a_node) {
    const AcDbPoint point({1, 2, 3});
    expectPoint(snaps(point, AcDb::kOsModeNode)[0], {1, 2, 3});
    expectBox(extentsOf(point), {1, 2, 3}, {1, 2, 3});
}

TEST(Circle, extents_are_exact) {
    expectBox(extentsOf(AcDbCircle({1, 2, 3}, {0, 0, 1}, 2.5)), {-1.5, -0.5, 3}, {3.5, 4.5, 3});
}

TEST(Circle, of_a_tilted_plane_has_exact_extents) {
    // In the plane whose normal is at 45 degrees between Y and Z the circle reaches r/sqrt 2 up and along.
    const double reach = 2.0 / std::sqrt(2.0);
    expectBox(extentsOf(AcDbCircle({0, 0, 0}, AcGeVector3d(0, 1, 1).normal(), 2.0)), {-2, -reach, -reach}, {2, reach, reach});
}

TEST(Circle, snaps_to_centre_quadrants_and_tangents) {
    const AcDbCircle circle({0, 0, 0}, {0, 0, 1}, 3.0);
    expectPoint(snaps(circle, AcDb::kOsModeCen)[0], {0, 0, 0});
    EXPECT_EQ(snaps(circle, AcDb::kOsModeQuad).length(), 4);
    EXPECT_TRUE(snaps(circle, AcDb::kOsModeEnd).isEmpty());
    const AcGePoint3dArray tangents = snaps(circle, AcDb::kOsModeTan, {}, {5, 0, 0});
    ASSERT_EQ(tangents.length(), 2);
    for (const AcGePoint3d& p : tangents) {
        EXPECT_NEAR(p.x, 9.0 / 5.0, 1e-9); // r^2 / d
        EXPECT_NEAR(std::abs(p.y), 12.0 / 5.0, 1e-9);
    }
    EXPECT_TRUE(snaps(circle, AcDb::kOsModeTan, {}, {1, 0, 0}).isEmpty());
    expectPoint(snaps(circle, AcDb::kOsModeNear, {6, 8, 0})[0], {1.8, 2.4, 0});
}

TEST(Circle, a_quadrant_grip_sets_the_radius) {
    AcDbCircle circle({0, 0, 0}, {0, 0, 1}, 3.0);
    EXPECT_EQ(grips(circle).length(), 5);
    drag(circle, 2, {0, 2, 0});
    EXPECT_NEAR(circle.radius(), 5.0, 1e-12);
    expectPoint(circle.center(), {0, 0, 0});
}

TEST(Circle, a_scale_across_its_plane_leaves_it_a_circle) {
    AcDbCircle circle({0, 0, 1}, {0, 0, 1}, 3.0);
    ASSERT_EQ(circle.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(2, 2, 5))), Acad::eOk);
    EXPECT_NEAR(circle.radius(), 6.0, 1e-12);
    expectPoint(circle.center(), {0, 0, 5});
}

TEST(Circle, a_matrix_that_flattens_it_is_refused) {
    AcDbCircle circle({0, 0, 1}, {0, 0, 1}, 3.0);
    EXPECT_EQ(circle.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(0, 1, 1))), Acad::eCannotScaleNonUniformly);
    EXPECT_NEAR(circle.radius(), 3.0, 1e-12);
}

TEST(Arc, extents_go_through_the_quadrants_it_covers) {
    expectBox(extentsOf(AcDbArc({0, 0, 0}, 2.0, kPi / 4, 3 * kPi / 4)), {-std::sqrt(2.0), std::sqrt(2.0), 0}, {std::sqrt(2.0), 2, 0});
}

TEST(Arc, over_the_zero_angle_runs_counter_clockwise) {
    const AcDbArc arc({0, 0, 0}, 1.0, 1.5 * kPi, 0.5 * kPi);
    expectBox(extentsOf(arc), {0, -1, 0}, {1, 1, 0});
    expectPoint(snaps(arc, AcDb::kOsModeMid)[0], {1, 0, 0});
    EXPECT_EQ(snaps(arc, AcDb::kOsModeQuad).length(), 3); // both ends are quadrants too
}

TEST(Arc, mirrored_keeps_its_normal_and_swaps_its_ends) {
    AcDbArc arc({0, 0, 0}, 1.0, 0.0, kPi / 2);
    ASSERT_EQ(arc.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_NEAR(arc.startAngle(), kPi / 2, 1e-12);
    EXPECT_NEAR(arc.endAngle(), kPi, 1e-12);
    EXPECT_NEAR(arc.normal().z, 1.0, 1e-12);
}

TEST(Arc, a_dragged_middle_bends_it_through_the_same_ends) {
    AcDbArc arc({0, 0, 0}, 5.0, 0.0, kPi);
    drag(arc, 3, {0, -4, 0}); // through (5,0), (0,1), (-5,0)
    const AcGePoint3dArray now = grips(arc);
    expectPoint(now[1], {5, 0, 0});
    expectPoint(now[2], {-5, 0, 0});
    expectPoint(now[3], {0, 1, 0});
    EXPECT_NEAR(arc.radius(), 13.0, 1e-9);
}

TEST(Arc, points_on_a_line_make_no_arc) {
    AcDbArc arc({0, 0, 0}, 5.0, 0.0, kPi);
    AcIntArray middle;
    middle.append(3);
    EXPECT_EQ(arc.moveGripPointsAt(middle, {0, -5, 0}), Acad::eDegenerateGeometry);
    EXPECT_NEAR(arc.radius(), 5.0, 1e-12);
}

TEST(Ellipse, extents_of_a_turned_one_are_exact) {
    const AcDbEllipse ellipse({1, 1, 0}, {0, 0, 1}, AcGeVector3d(3, 3, 0), 0.5);
    // Half widths of an ellipse with axes a and b turned by 45 degrees: sqrt((a^2 + b^2) / 2).
    const double reach = std::sqrt((18.0 + 4.5) / 2.0);
    expectBox(extentsOf(ellipse), {1 - reach, 1 - reach, 0}, {1 + reach, 1 + reach, 0});
}

TEST(Ellipse, squeezed_across_its_long_axis_swaps_its_axes) {
    AcDbEllipse ellipse({0, 0, 0}, {0, 0, 1}, AcGeVector3d(4, 0, 0), 0.5, 0.0, kPi);
    ASSERT_EQ(ellipse.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(0.25, 1, 1))), Acad::eOk);
    EXPECT_NEAR(ellipse.majorAxis().length(), 2.0, 1e-12);
    EXPECT_NEAR(ellipse.radiusRatio(), 0.5, 1e-12);
    expectBox(extentsOf(ellipse), {-1, 0, 0}, {1, 2, 0});
}

TEST(Ellipse, an_axis_grip_sets_that_axis) {
    AcDbEllipse ellipse({0, 0, 0}, {0, 0, 1}, AcGeVector3d(4, 0, 0), 0.5);
    drag(ellipse, 2, {0, 1, 0});
    expectBox(extentsOf(ellipse), {-4, -3, 0}, {4, 3, 0});
    drag(ellipse, 2, {0, 3, 0}); // now the longer one: it leads
    expectBox(extentsOf(ellipse), {-4, -6, 0}, {4, 6, 0});
    EXPECT_LE(ellipse.radiusRatio(), 1.0);
}

TEST(Ellipse, parameters_beyond_all_measure_are_drawn_as_some_arc) {
    AcDbEllipse ellipse({0, 0, 0}, {0, 0, 1}, AcGeVector3d(4, 0, 0), 0.5, 1e300, 1e300 + 1);
    expectBox(extentsOf(ellipse), {-4, -2, 0}, {4, 2, 0});
}

TEST(Ellipse, perpendicular_points_stand_square) {
    const AcDbEllipse ellipse({0, 0, 0}, {0, 0, 1}, AcGeVector3d(4, 0, 0), 0.5);
    const AcGePoint3d from(6, 5, 0);
    const AcGePoint3dArray feet = snaps(ellipse, AcDb::kOsModePerp, {}, from);
    ASSERT_GE(feet.length(), 2);
    for (const AcGePoint3d& p : feet) {
        EXPECT_NEAR(p.x * p.x / 16 + p.y * p.y / 4, 1.0, 1e-9);
        const AcGeVector3d gradient(p.x / 16, p.y / 4, 0);
        EXPECT_LT((from - p).normal().crossProduct(gradient.normal()).length(), 1e-7);
    }
}

TEST(Solid, its_corners_are_drawn_around_the_edge) {
    AcDbSolid solid;
    const AcGePoint3d corners[] = {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {4, 3, 0}};
    for (int i = 0; i < 4; ++i)
        solid.setPointAt(i, corners[i]);
    EXPECT_EQ(solid.setPointAt(4, {}), Acad::eInvalidIndex);
    const GiDisplayList picture = pictureOf(solid);
    ASSERT_EQ(picture.primitives.size(), 1u);
    const auto& polygon = std::get<GiPolygon>(picture.primitives[0].shape);
    EXPECT_EQ(picture.primitives[0].traits.fill, kAcGiFillAlways);
    expectPoint(polygon.points[2], {4, 3, 0});
    expectPoint(polygon.points[3], {0, 3, 0});
}

TEST(Solid, with_two_equal_last_corners_is_a_triangle) {
    AcDbSolid solid;
    const AcGePoint3d corners[] = {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {0, 3, 0}};
    for (int i = 0; i < 4; ++i)
        solid.setPointAt(i, corners[i]);
    EXPECT_EQ(std::get<GiPolygon>(pictureOf(solid).primitives[0].shape).points.size(), 3u);
}
