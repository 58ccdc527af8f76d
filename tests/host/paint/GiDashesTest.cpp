// Cutting lines into dashes.
#include "GiDashes.h"

#include <gtest/gtest.h>

namespace {
struct Pieces {
    std::vector<std::vector<AcGePoint2d>> list;
    bool cut = false;
};
Pieces cut(const std::vector<AcGePoint2d>& points, const std::vector<double>& pattern, bool closed = false) {
    Pieces pieces;
    pieces.cut = giCutDashes(points, closed, pattern, [&](const auto& piece, double, double) { pieces.list.push_back(piece); });
    return pieces;
}
} // namespace

TEST(Dashes, begin_and_end_the_line_alike) {
    const Pieces pieces = cut({{0, 0}, {10, 0}}, {2.0, -1.0});
    ASSERT_TRUE(pieces.cut);
    ASSERT_EQ(pieces.list.size(), 4u); // three whole patterns and 1 unit left over
    EXPECT_NEAR(pieces.list.front().back().x, 1.5, 1e-12);
    EXPECT_NEAR(pieces.list.back().front().x, 8.5, 1e-12);
    EXPECT_NEAR(pieces.list.back().back().x, 10.0, 1e-12);
    EXPECT_NEAR(pieces.list[1].front().x, 2.5, 1e-12);
    EXPECT_NEAR(pieces.list[1].back().x, 4.5, 1e-12);
}
TEST(Dashes, run_round_corners) {
    const Pieces pieces = cut({{0, 0}, {5, 0}, {5, 5}}, {4.0, -1.0});
    ASSERT_EQ(pieces.list.size(), 3u);
    EXPECT_EQ(pieces.list[1].size(), 3u);
    EXPECT_EQ(pieces.list[1][1], AcGePoint2d(5, 0));
}
TEST(Dashes, a_dot_is_a_piece_without_length) {
    const Pieces pieces = cut({{0, 0}, {10, 0}}, {1.0, -0.5, 0.0, -0.5});
    ASSERT_GE(pieces.list.size(), 3u);
    EXPECT_EQ(pieces.list[1].size(), 2u);
    EXPECT_EQ(pieces.list[1][0], pieces.list[1][1]);
}
TEST(Dashes, a_ring_closes) {
    const Pieces pieces = cut({{0, 0}, {3, 0}, {3, 3}, {0, 3}}, {1.0, -0.5}, true);
    ASSERT_TRUE(pieces.cut);
    EXPECT_NEAR(pieces.list.back().back().distanceTo({0, 0}), 0.0, 1e-12);
}
TEST(Dashes, lines_that_gain_nothing_stay_whole) {
    EXPECT_FALSE(cut({{0, 0}, {2, 0}}, {2.0, -1.0}).cut);       // shorter than the pattern
    EXPECT_FALSE(cut({{0, 0}, {10, 0}}, {}).cut);               // no pattern
    EXPECT_FALSE(cut({{0, 0}, {10, 0}}, {2.0, 1.0}).cut);       // no gap
    EXPECT_FALSE(cut({{0, 0}, {10, 0}}, {0.00001, -1e-5}).cut); // half a million pieces
    EXPECT_FALSE(cut({{0, 0}, {0, 0}}, {2.0, -1.0}).cut);
    EXPECT_FALSE(cut({{1, 1}}, {2.0, -1.0}).cut);
}
