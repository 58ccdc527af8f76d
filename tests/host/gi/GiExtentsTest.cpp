// Exact extents: what is measured equals the picture flattened as finely as can be.
#include "GiExtentsMeter.h"
#include "GiTestDrawing.h"

#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>

namespace {
double within(double low, double high) {
    return low + (high - low) * *rc::gen::inRange(0, 1 << 20) / (1 << 20);
}
AcGeMatrix3d anyAffine() {
    AcGeMatrix3d m;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            m.entry[row][column] = within(-3.0, 3.0);
    return m;
}
AcGeVector3d anyNormal() {
    const AcGeVector3d v(within(-1, 1), within(-1, 1), within(-1, 1));
    return v.length() < 0.1 ? AcGeVector3d(0, 0, 1) : v.normal();
}

// Exact: never inside the picture's points, and no farther out than the chord error.
void expectTight(const AcDbExtents& exact, const AcDbExtents& picture, double tolerance) {
    RC_ASSERT(exact.isValid() && picture.isValid());
    for (double AcGePoint3d::*axis : {&AcGePoint3d::x, &AcGePoint3d::y, &AcGePoint3d::z}) {
        const double low = exact.minPoint().*axis - picture.minPoint().*axis;
        const double high = exact.maxPoint().*axis - picture.maxPoint().*axis;
        RC_ASSERT(low <= 1.0e-9 && low >= -tolerance);
        RC_ASSERT(high >= -1.0e-9 && high <= tolerance);
    }
}
void checkDrawable(const DrawFunction& draw, double deviation) {
    const AcGeMatrix3d matrix = anyAffine();
    TestDrawable block(draw, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        wd.geometry().pushModelTransform(matrix);
        wd.geometry().draw(&block);
        wd.geometry().popModelTransform();
    });
    const GiDisplayList list = drawnList(whole);
    const AcDbExtents exact = giExtentsOf(whole);
    TestSink sink;
    giFlatten(list, TestResolver(), deviation, sink);
    expectTight(exact, sink.extents(), deviation * 2.0);
    const AcDbExtents ofList = giExtentsOf(list);
    RC_ASSERT(exact.minPoint().distanceTo(ofList.minPoint()) < 1e-9);
    RC_ASSERT(exact.maxPoint().distanceTo(ofList.maxPoint()) < 1e-9);
}
} // namespace

RC_GTEST_PROP(Extents, of_an_arc_under_any_transform_are_exact, ()) {
    const AcGePoint3d center(within(-5, 5), within(-5, 5), within(-5, 5));
    const AcGeVector3d normal = anyNormal(), start = normal.perpVector();
    const double radius = within(0.1, 5.0), sweep = within(-7.0, 7.0);
    const auto type = *rc::gen::element(kAcGiArcSimple, kAcGiArcSector, kAcGiArcChord);
    RC_PRE(std::abs(sweep) > 0.01);
    checkDrawable([&](AcGiWorldDraw& wd) { wd.geometry().circularArc(center, radius, normal, start, sweep, type); }, 1e-4);
}
RC_GTEST_PROP(Extents, of_an_elliptic_arc_under_any_transform_are_exact, ()) {
    const AcGeVector3d normal = anyNormal(), major = normal.perpVector() * within(0.5, 5.0);
    const double ratio = within(0.05, 1.0), start = within(-7.0, 7.0), end = within(-7.0, 7.0);
    RC_PRE(std::abs(start - end) > 0.01);
    checkDrawable([&](AcGiWorldDraw& wd) { wd.geometry().ellipticalArc({1, 2, 3}, normal, major, ratio, start, end); }, 1e-4);
}
RC_GTEST_PROP(Extents, of_a_text_under_any_transform_are_exact, ()) {
    const std::wstring text = *rc::gen::elementOf(std::vector<std::wstring>{L"Őrség", L"Q8&", L"jű %%d", L"STOP"});
    AcGiTextStyle style;
    style.fontName = *rc::gen::elementOf(std::vector<std::wstring>{L"txt", L"Arial"});
    style.height = within(0.1, 3.0);
    style.widthFactor = within(0.5, 2.0);
    style.obliqueAngle = within(-0.5, 0.5);
    style.backward = *rc::gen::arbitrary<bool>();
    const AcGeVector3d normal = anyNormal(), direction = normal.perpVector();
    checkDrawable([&](AcGiWorldDraw& wd) { wd.geometry().text({1, 2, 3}, normal, direction, text.c_str(), style); }, 1e-4);
}

// Repetitions that cannot reach out are passed over; that must never be seen in the box.
RC_GTEST_PROP(Extents, of_many_repetitions_are_those_of_each_of_them, ()) {
    TestDrawable symbol(
        [](AcGiWorldDraw& wd) {
            wd.geometry().circularArc({1, 0, 0}, 2.0, {0, 0, 1}, {1, 0, 0}, 4.0, kAcGiArcSimple);
            const AcGePoint3d points[] = {{-1, -1, 0}, {3, 2, 1}};
            wd.geometry().polyline(2, points);
        },
        true);
    GiDisplayListBuilder builder; // keeps the shared picture while it is measured
    GiExtentsMeter meter;
    AcDbExtents each;
    for (int i = 0; i < 12; ++i) {
        const AcGeMatrix3d matrix = anyAffine();
        TestDrawable repeated([&](AcGiWorldDraw& wd) {
            wd.geometry().pushModelTransform(matrix);
            wd.geometry().draw(&symbol);
            wd.geometry().popModelTransform();
        });
        builder.list().primitives.clear();
        builder.add(repeated);
        meter.add(builder.list());
        each.addExt(giExtentsOf(repeated));
    }
    RC_ASSERT(meter.extents().minPoint().distanceTo(each.minPoint()) < 1e-9);
    RC_ASSERT(meter.extents().maxPoint().distanceTo(each.maxPoint()) < 1e-9);
    RC_ASSERT(meter.covers(AcDbExtents(each.minPoint() + AcGeVector3d(1e-6, 1e-6, 1e-6), each.maxPoint() - AcGeVector3d(1e-6, 1e-6, 1e-6))));
}

TEST(Extents, of_a_quarter_circle_reach_just_its_quarter) {
    TestDrawable arc([](AcGiWorldDraw& wd) {
        wd.geometry().circularArc({10, 20, 0}, 5.0, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kHalfPi);
    });
    const AcDbExtents box = giExtentsOf(arc);
    EXPECT_TRUE(box.minPoint().isEqualTo({10, 20, 0}));
    EXPECT_TRUE(box.maxPoint().isEqualTo({15, 25, 0}));
}
TEST(Extents, of_a_turned_ellipse_are_not_the_box_of_its_axes) {
    const AcGeVector3d major(std::sqrt(2.0), std::sqrt(2.0), 0.0); // half axes 2 and 1, turned by 45 degrees
    TestDrawable ellipse([&](AcGiWorldDraw& wd) {
        wd.geometry().ellipticalArc({}, AcGeVector3d::kZAxis, major, 0.5, 0.0, kTwoPi);
    });
    const AcDbExtents box = giExtentsOf(ellipse);
    EXPECT_NEAR(box.maxPoint().x, std::sqrt(2.5), 1e-12);
    EXPECT_NEAR(box.minPoint().y, -std::sqrt(2.5), 1e-12);
}
TEST(Extents, of_a_text_are_its_ink) {
    TestDrawable text([](AcGiWorldDraw& wd) {
        wd.geometry().text({100, 200, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, L"Ág", {L"txt", 2.0});
    });
    const GiTextOutline outline = giTextOutline(L"Ág", {L"txt", 2.0});
    const AcDbExtents box = giExtentsOf(text);
    EXPECT_NEAR(box.minPoint().x, 100.0 - outline.maxPoint.y, 1e-9);
    EXPECT_NEAR(box.maxPoint().y, 200.0 + outline.maxPoint.x, 1e-9);
}
TEST(Extents, leave_out_what_is_refused) {
    TestDrawable definition([](AcGiWorldDraw& wd) { drawLine(wd, {}, {50, 50, 0}); });
    TestDrawable line([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 1, 0}); });
    TestDrawable block([&](AcGiWorldDraw& wd) { wd.geometry().draw(&definition), wd.geometry().draw(&line); }, true);
    const AcDbExtents box = giExtentsOf(block, [&](AcGiDrawable& d) { return &d != &definition; });
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(giExtentsOf(block).maxPoint(), AcGePoint3d(50, 50, 0));
}
TEST(Extents, of_nothing_are_not_valid) {
    TestDrawable nothing([](AcGiWorldDraw& wd) {
        wd.geometry().polyline(0, nullptr);
        wd.geometry().text({}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"  ", {});
        wd.geometry().filledLoops({{{0, 0, 0}, {1, 0, 0}}});
    });
    EXPECT_FALSE(giExtentsOf(nothing).isValid());
}
TEST(Extents, tell_the_drawable_that_it_is_measured) {
    TestDrawable any([](AcGiWorldDraw& wd) {
        EXPECT_EQ(wd.regenType(), kAcGiForExtents);
        drawLine(wd, {}, {1, 0, 0});
    });
    EXPECT_TRUE(giExtentsOf(any).isValid());
}
TEST(Extents, are_not_spoilt_by_numbers_that_are_none) {
    const double none = std::nan(""), endless = std::numeric_limits<double>::infinity();
    TestDrawable broken([&](AcGiWorldDraw& wd) {
        AcGiGeometry& g = wd.geometry();
        drawLine(wd, {none, 0, 0}, {9, 9, 0});
        const AcGePoint3d ring[] = {{0, 0, 0}, {9, 0, 0}, {0, endless, 0}};
        g.polygon(3, ring);
        g.filledLoops({{ring, ring + 3}});
        g.circle({9, 9, 0}, none, AcGeVector3d::kZAxis);
        g.circularArc({9, 9, 0}, 1.0, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, none);
        g.ellipticalArc({}, AcGeVector3d::kZAxis, {9, 0, 0}, 0.5, endless, 1.0);
        g.text({9, 9, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"A", {L"txt", none});
        drawLine(wd, {}, {1, 1, 0});
    });
    EXPECT_EQ(giExtentsOf(broken).maxPoint(), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(drawnList(broken).primitives.size(), 1u);
}
TEST(Extents, of_an_ellipse_with_far_off_parameters_end) {
    TestDrawable ellipse([](AcGiWorldDraw& wd) {
        wd.geometry().ellipticalArc({}, AcGeVector3d::kZAxis, {2, 0, 0}, 0.5, 1.0e300, -1.0e300);
        wd.geometry().ellipticalArc({}, AcGeVector3d::kZAxis, {2, 0, 0}, 0.5, 1.0, 1.0);
    });
    EXPECT_NEAR(giExtentsOf(ellipse).maxPoint().x, 2.0, 1e-12);
}
