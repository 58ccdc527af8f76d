// Splines: points by de Boor's rule, chords within the deviation, fit data.
#include "EntityTestSupport.h"
#include "entities/SplineMath.h"

#include <algorithm>
#include <rapidcheck/gtest.h>

namespace {
double within(double low, double high) {
    return low + (high - low) * *rc::gen::inRange(0, 1 << 20) / (1 << 20);
}
AcGePoint3d bezier(const std::vector<AcGePoint3d>& c, double t) {
    const double u = 1 - t;
    const AcGeVector3d p = c[0].asVector() * (u * u * u) + c[1].asVector() * (3 * u * u * t) +
                           c[2].asVector() * (3 * u * t * t) + c[3].asVector() * (t * t * t);
    return AcGePoint3d(p.x, p.y, p.z);
}
double distanceTo(const std::vector<AcGePoint3d>& chords, const AcGePoint3d& p) {
    double best = 1e300;
    for (std::size_t i = 1; i < chords.size(); ++i) {
        const AcGeVector3d c = chords[i] - chords[i - 1];
        const double t = c.lengthSqrd() > 0 ? std::clamp((p - chords[i - 1]).dotProduct(c) / c.lengthSqrd(), 0.0, 1.0) : 0.0;
        best = std::min(best, p.distanceTo(chords[i - 1] + c * t));
    }
    return best;
}
const std::vector<double> kNone;
} // namespace

TEST(Spline, of_degree_one_is_its_control_polygon) {
    AcDbSpline spline;
    spline.setDegree(1);
    spline.setKnots({0, 0, 1, 2, 2});
    spline.setControlPoints({{0, 0, 0}, {4, 0, 0}, {4, 3, 0}});
    const std::vector<AcGePoint3d> points = spline.sample(0.01);
    for (const AcGePoint3d& p : points)
        EXPECT_TRUE(std::abs(p.y) < 1e-12 || std::abs(p.x - 4) < 1e-12);
    EXPECT_LT(distanceTo(points, {4, 0, 0}), 1e-12);
}

TEST(Spline, a_rational_quarter_is_a_true_circle) {
    AcDbSpline spline;
    spline.setDegree(2);
    spline.setRational(true);
    spline.setKnots({0, 0, 0, 1, 1, 1});
    spline.setControlPoints({{5, 0, 0}, {5, 5, 0}, {0, 5, 0}});
    spline.setWeights({1, std::sqrt(0.5), 1});
    for (const AcGePoint3d& p : spline.sample(0.001))
        EXPECT_NEAR(p.asVector().length(), 5.0, 1e-12);
    expectBox(extentsOf(spline), {0, 0, 0}, {5, 5, 0});
}

TEST(Spline, weights_count_only_in_a_rational_one) {
    AcDbSpline spline;
    spline.setDegree(2);
    spline.setKnots({0, 0, 0, 1, 1, 1});
    spline.setControlPoints({{0, 0, 0}, {1, 2, 0}, {2, 0, 0}});
    spline.setWeights({1, 100, 1});
    EXPECT_NEAR(extentsOf(spline).maxPoint().y, 1.0, 1e-6);
}

TEST(Spline, through_fit_points_meets_them_and_its_tangents) {
    AcDbSpline spline;
    const std::vector<AcGePoint3d> fit = {{0, 0, 0}, {2, 3, 0}, {5, 1, 0}, {7, 4, 0}};
    spline.setFitPoints(fit);
    spline.setStartTangent({0, 2, 0});
    const std::vector<AcGePoint3d> points = spline.sample(1e-6);
    for (const AcGePoint3d& p : fit)
        EXPECT_LT(distanceTo(points, p), 1e-6);
    EXPECT_GT((points[1] - points[0]).normal().dotProduct({0, 1, 0}), 0.999);
}

TEST(Spline, fit_points_on_a_line_give_the_line) {
    AcDbSpline spline;
    spline.setFitPoints({{0, 0, 0}, {1, 1, 0}, {1, 1, 0}, {5, 5, 0}});
    for (const AcGePoint3d& p : spline.sample(0.01))
        EXPECT_NEAR(p.x, p.y, 1e-12);
}

TEST(Spline, of_damaged_data_draws_nothing) {
    AcDbSpline spline;
    AcDbExtents extents;
    EXPECT_EQ(spline.getGeomExtents(extents), Acad::eInvalidExtents);
    spline.setControlPoints({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {3, 0, 0}});
    spline.setKnots({0, 0, 0, 0, 1, 1, 1});
    EXPECT_TRUE(spline.sample(0.1).empty()) << "a knot too few";
    spline.setKnots({0, 0, 0, 2, 1, 1, 1, 1});
    EXPECT_TRUE(spline.sample(0.1).empty()) << "knots that fall";
    spline.setKnots({0, 0, 0, 0, 1, 1, 1, 1});
    spline.setRational(true);
    spline.setWeights({1, 0, 1, 1});
    EXPECT_TRUE(spline.sample(0.1).empty()) << "a weight of zero";
    spline.setRational(false);
    spline.setDegree(-5);
    EXPECT_TRUE(spline.sample(0.1).empty()) << "a degree below one";
    spline.setDegree(1000000);
    EXPECT_TRUE(spline.sample(0.1).empty()) << "a degree beyond all curves";
}

TEST(Spline, a_dragged_control_point_drops_the_fit_points) {
    AcDbSpline spline;
    spline.setKnots({0, 0, 0, 0, 1, 1, 1, 1});
    spline.setControlPoints({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {3, 0, 0}});
    spline.setFitPoints({{0, 0, 0}, {3, 0, 0}});
    AcIntArray second;
    second.append(1);
    ASSERT_EQ(spline.moveGripPointsAt(second, {0, 1, 0}), Acad::eOk);
    expectPoint(spline.controlPoints()[1], {1, 2, 0});
    EXPECT_TRUE(spline.fitPoints().empty());
}

RC_GTEST_PROP(SplineProperty, a_curve_of_one_span_is_its_bezier_curve, ()) {
    std::vector<AcGePoint3d> control(4);
    for (AcGePoint3d& p : control)
        p.set(within(-9, 9), within(-9, 9), within(-9, 9));
    const std::vector<double> knots{0, 0, 0, 0, 1, 1, 1, 1};
    const DbNurbs curve{3, knots, control, kNone};
    const double t = within(0, 1);
    RC_ASSERT(curve.at(t).distanceTo(bezier(control, t)) < 1e-12);
}

RC_GTEST_PROP(SplineProperty, samples_lie_on_the_curve_and_chords_within_the_deviation, ()) {
    const int degree = *rc::gen::inRange(1, 6);
    const auto count = static_cast<std::size_t>(*rc::gen::inRange(degree + 1, degree + 7));
    std::vector<AcGePoint3d> control(count);
    for (AcGePoint3d& p : control)
        p.set(within(-9, 9), within(-9, 9), 0);
    std::vector<double> knots(static_cast<std::size_t>(degree) + 1, 0.0), weights(count);
    for (std::size_t i = static_cast<std::size_t>(degree) + 1; i < count; ++i)
        knots.push_back(knots.back() + within(0.1, 2.0));
    knots.insert(knots.end(), static_cast<std::size_t>(degree) + 1, knots.back() + 1.0);
    for (double& w : weights)
        w = within(0.2, 3.0);
    const DbNurbs curve{degree, knots, control, weights};
    RC_ASSERT(curve.isValid());
    const double deviation = 0.01;
    const std::vector<AcGePoint3d> chords = dbSampleNurbs(curve, deviation);
    RC_ASSERT(chords.front().distanceTo(control.front()) < 1e-9);
    RC_ASSERT(chords.back().distanceTo(control.back()) < 1e-9);
    for (int i = 0; i <= 300; ++i) {
        const AcGePoint3d p = curve.at(knots.back() * i / 300.0);
        RC_ASSERT(distanceTo(chords, p) < deviation + 1e-9);
    }
}
