// Hit tests by point and by window.
#include "GiTestDrawing.h"

#include <gtest/gtest.h>

namespace {
const AcDbObjectId kLine = testId(51), kDisc = testId(52), kHidden = testId(53), kReference = testId(54);

GiDisplayList scene() {
    TestDrawable line([](AcGiWorldDraw& wd) { drawLine(wd, {0, 0, 0}, {10, 0, 0}); });
    TestDrawable disc([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setFillType(kAcGiFillAlways);
        wd.geometry().circle({5, 5, 0}, 2.0, AcGeVector3d::kZAxis);
    });
    TestDrawable hidden([](AcGiWorldDraw& wd) { wd.subEntityTraits().setLayer(kLayerOff), drawLine(wd, {0, 0, 0}, {10, 0, 0}); });
    TestDrawable block([](AcGiWorldDraw& wd) { drawLine(wd, {0, 0, 0}, {1, 0, 0}), drawLine(wd, {0, 0, 0}, {0, 1, 0}); }, true);
    TestDrawable reference([&](AcGiWorldDraw& wd) {
        wd.geometry().pushModelTransform(AcGeMatrix3d::translation({20, 0, 0}));
        wd.geometry().draw(&block);
        wd.geometry().popModelTransform();
    });
    line.own = kLine, disc.own = kDisc, hidden.own = kHidden, reference.own = kReference;
    GiDisplayListBuilder builder;
    for (TestDrawable* drawable : {&line, &disc, &hidden, &reference})
        builder.add(*drawable);
    return builder.take();
}
using Ids = std::vector<AcDbObjectId>;
Ids at(double x, double y, double aperture = 0.1) {
    return giOwnersAt(scene(), TestResolver(), {x, y, 0}, aperture);
}
Ids in(double x1, double y1, double x2, double y2, bool crossing) {
    return giOwnersInWindow(scene(), TestResolver(), {x1, y1, 0}, {x2, y2, 0}, crossing);
}
} // namespace

TEST(HitTest, a_line_is_hit_within_the_aperture) {
    EXPECT_EQ(at(5, 0.05), Ids{kLine});
    EXPECT_EQ(at(5, 0.2), Ids{});
    EXPECT_EQ(at(10.2, 0), Ids{});
}
TEST(HitTest, an_area_is_hit_inside_and_at_its_edge) {
    EXPECT_EQ(at(5, 5), Ids{kDisc});
    EXPECT_EQ(at(7.05, 5), Ids{kDisc});
    EXPECT_EQ(at(7.2, 5), Ids{});
}
TEST(HitTest, a_part_of_a_reference_hits_the_reference_once) {
    EXPECT_EQ(at(20, 0), Ids{kReference});
    EXPECT_EQ(at(20, 0.5), Ids{kReference});
}
TEST(HitTest, hits_come_in_drawing_order) {
    EXPECT_EQ(at(5, 1.5, 2.0), (Ids{kLine, kDisc}));
}
TEST(HitTest, a_window_takes_what_lies_wholly_within) {
    EXPECT_EQ(in(-1, -1, 11, 8, false), (Ids{kLine, kDisc}));
    EXPECT_EQ(in(9, 8, 2, -1, false), Ids{kDisc}); // corners in any order
    EXPECT_EQ(in(19, -1, 20.5, 2, false), Ids{});
}
TEST(HitTest, a_crossing_window_takes_what_it_touches) {
    EXPECT_EQ(in(4, -1, 4.5, 4, true), (Ids{kLine, kDisc}));
    EXPECT_EQ(in(4.9, 4.9, 5.1, 5.1, true), Ids{kDisc}); // inside the area
    EXPECT_EQ(in(20.5, -1, 21, 1, true), Ids{kReference});
    EXPECT_EQ(in(12, -1, 18, 1, true), Ids{});
}
