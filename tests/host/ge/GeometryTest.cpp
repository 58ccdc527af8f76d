#include "AcGe.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <functional>


namespace {
AcGeVector3d anyVector(double limit = 1000.0) {
    const auto one = [limit] { return *rc::gen::inRange(-1000000, 1000000) * limit / 1.0e6; };
    const double x = one(), y = one(), z = one();
    return {x, y, z};
}
AcGePoint3d anyPoint() {
    return AcGePoint3d() + anyVector();
}
AcGeMatrix3d anyMotion() {
    AcGeVector3d axis = anyVector();
    if (axis.length() < 1.0)
        axis = AcGeVector3d(0.0, 0.0, 1.0);
    const double angle = *rc::gen::inRange(-3141, 3141) / 1000.0;
    return AcGeMatrix3d::translation(anyVector()) * AcGeMatrix3d::rotation(angle, axis, anyPoint());
}
AcGeTol loose(double size) {
    AcGeTol tol;
    tol.setEqualPoint(size);
    tol.setEqualVector(size);
    return tol;
}
bool holds(const char* what, const std::function<void()>& property) {
    return rc::check(what, property);
}
} // namespace

TEST(Matrix, its_inverse_takes_everything_back) {
    EXPECT_TRUE(holds("inverse", [] {
        const double factor = *rc::gen::inRange(1, 100000) / 1000.0;
        const AcGeMatrix3d m = anyMotion() * AcGeMatrix3d::scaling(factor, anyPoint());
        const AcGePoint3d p = anyPoint();
        RC_ASSERT((m.inverse() * (m * p)).isEqualTo(p, loose(1e-4)));
        RC_ASSERT((m.inverse() * m).isEqualTo(AcGeMatrix3d::kIdentity, loose(1e-4)));
    }));
}
TEST(Matrix, a_motion_keeps_lengths_and_angles) {
    EXPECT_TRUE(holds("motion", [] {
        const AcGeMatrix3d m = anyMotion();
        const AcGeVector3d a = anyVector(), b = anyVector();
        RC_ASSERT(std::fabs((m * a).length() - a.length()) < 1e-8);
        RC_ASSERT(std::fabs((m * a).dotProduct(m * b) - a.dotProduct(b)) < 1e-4);
        RC_ASSERT(m.isUniScaledOrtho(loose(1e-8)));
        RC_ASSERT(std::fabs(m.det() - 1.0) < 1e-9);
    }));
}
TEST(Matrix, the_product_applies_the_right_one_first) {
    EXPECT_TRUE(holds("product", [] {
        const AcGeMatrix3d a = anyMotion(), b = anyMotion();
        const AcGePoint3d p = anyPoint();
        RC_ASSERT((a * b * p).isEqualTo(a * (b * p), loose(1e-6)));
    }));
}
TEST(Matrix, mirroring_twice_changes_nothing) {
    EXPECT_TRUE(holds("mirror", [] {
        AcGeVector3d normal = anyVector();
        RC_PRE(normal.length() > 1e-3);
        const AcGeMatrix3d m = AcGeMatrix3d::mirroring(anyPoint(), normal);
        RC_ASSERT((m * m).isEqualTo(AcGeMatrix3d::kIdentity, loose(1e-6)));
        RC_ASSERT(m.det() < 0.0);
    }));
}
TEST(Matrix, an_objects_plane_is_right_handed_about_its_normal) {
    EXPECT_TRUE(holds("plane", [] {
        AcGeVector3d normal = anyVector();
        RC_PRE(normal.length() > 1e-3);
        const AcGeMatrix3d m = AcGeMatrix3d::planeToWorld(normal);
        RC_ASSERT((m * AcGeVector3d(0.0, 0.0, 1.0)).isEqualTo(normal.normal(), loose(1e-9)));
        RC_ASSERT(std::fabs(m.det() - 1.0) < 1e-9);
        RC_ASSERT((AcGeMatrix3d::worldToPlane(normal) * m).isEqualTo(AcGeMatrix3d::kIdentity, loose(1e-9)));
    }));
}
TEST(Matrix, the_plane_of_the_z_axis_is_the_world) {
    EXPECT_TRUE(AcGeMatrix3d::planeToWorld(AcGeVector3d::kZAxis).isEqualTo(AcGeMatrix3d::kIdentity));
    const AcGeMatrix3d down = AcGeMatrix3d::planeToWorld({0.0, 0.0, -1.0});
    EXPECT_TRUE((down * AcGeVector3d(1.0, 0.0, 0.0)).isEqualTo({-1.0, 0.0, 0.0}));
}
TEST(Matrix, a_singular_one_has_itself_for_inverse) {
    const AcGeMatrix3d flat = AcGeMatrix3d::scaling(AcGeScale3d(1.0, 1.0, 0.0));
    EXPECT_TRUE(flat.inverse().isEqualTo(flat));
}
TEST(Matrix, scaling_keeps_its_centre) {
    const AcGePoint3d centre(10.0, 20.0, 0.0);
    const AcGeMatrix3d m = AcGeMatrix3d::scaling(3.0, centre);
    EXPECT_TRUE((m * centre).isEqualTo(centre));
    EXPECT_DOUBLE_EQ(m.scale(), 3.0);
    EXPECT_FALSE(AcGeMatrix3d::scaling(AcGeScale3d(1.0, 2.0, 1.0)).isUniScaledOrtho());
}
TEST(Vector, a_zero_vector_stays_zero_when_normalised) {
    EXPECT_TRUE(AcGeVector3d().normal().isZeroLength());
}
TEST(Vector, angles_are_exact_for_tiny_turns) {
    const AcGeVector3d a(1.0, 0.0, 0.0), b(1.0, 1e-9, 0.0);
    EXPECT_NEAR(a.angleTo(b), 1e-9, 1e-15);
    EXPECT_NEAR(b.angleTo(a, AcGeVector3d::kZAxis), kTwoPi - 1e-9, 1e-12);
}
TEST(Vector, the_perpendicular_turns_left) {
    EXPECT_TRUE(AcGeVector3d(2.0, 1.0, 0.0).perpVector().isEqualTo({-1.0, 2.0, 0.0}));
}
TEST(Vector, a_plane_angle_lies_within_a_full_turn) {
    EXPECT_DOUBLE_EQ(AcGeVector2d(0.0, -1.0).angle(), 1.5 * kPi);
    EXPECT_DOUBLE_EQ(AcGeVector2d(1.0, -0.0).angle(), 0.0);
    EXPECT_DOUBLE_EQ(AcGeVector2d().angle(), 0.0);
    EXPECT_LT(AcGeVector2d(1.0, -1e-300).angle(), kTwoPi);
}
TEST(Vector, projection_along_a_direction_lands_on_the_plane) {
    const AcGeVector3d v(1.0, 2.0, 3.0);
    EXPECT_TRUE(v.orthoProject(AcGeVector3d::kZAxis).isEqualTo({1.0, 2.0, 0.0}));
    EXPECT_TRUE(v.project(AcGeVector3d::kZAxis, {1.0, 0.0, 1.0}).isEqualTo({-2.0, 2.0, 0.0}));
}
TEST(Line, gives_the_foot_of_the_perpendicular) {
    const AcGeLine3d line(AcGePoint3d(0.0, 0.0, 0.0), AcGeVector3d(2.0, 0.0, 0.0));
    EXPECT_TRUE(line.closestPointTo({5.0, 7.0, 0.0}).isEqualTo({5.0, 0.0, 0.0}));
    EXPECT_DOUBLE_EQ(line.distanceTo({5.0, 7.0, 0.0}), 7.0);
    const AcGeLine3d point(AcGePoint3d(1.0, 1.0, 0.0), AcGeVector3d());
    EXPECT_TRUE(point.closestPointTo({5.0, 7.0, 0.0}).isEqualTo({1.0, 1.0, 0.0}));
}
TEST(Extents, begin_empty_and_grow) {
    AcDbExtents box;
    EXPECT_FALSE(box.isValid());
    AcDbExtents other;
    box.addExt(other);
    EXPECT_FALSE(box.isValid());
    box.addPoint({1.0, 2.0, 3.0});
    box.addPoint({-1.0, 5.0, 3.0});
    EXPECT_TRUE(box.minPoint().isEqualTo({-1.0, 2.0, 3.0}));
    box.transformBy(AcGeMatrix3d::rotation(kHalfPi, AcGeVector3d::kZAxis));
    EXPECT_TRUE(box.maxPoint().isEqualTo({-2.0, 1.0, 3.0}));
}
