// The line weights: a closed list, each by its name in millimetres.
#include "EdSession.h"
#include "core/EdProperties.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {
// Hundredths of a millimetre, as every CAD program lists them.
constexpr int kAll[] = {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
} // namespace

TEST(EdLineWeight, each_of_the_24_is_taken_as_it_is_typed_and_shown_the_same) {
    ASSERT_EQ(std::size(kAll), 24u);
    for (const int weight : kAll) {
        const std::wstring text = acFormat(L"%d.%02d", weight / 100, weight % 100);
        EXPECT_EQ(edParseLineWeight(text), static_cast<AcDb::LineWeight>(weight)) << weight;
        EXPECT_EQ(edNearestLineWeight(weight), static_cast<AcDb::LineWeight>(weight)) << weight;
        EXPECT_EQ(edLineWeightName(static_cast<AcDb::LineWeight>(weight)), text);
    }
}

TEST(EdLineWeight, what_lies_between_two_takes_the_nearer_one) {
    for (std::size_t i = 0; i + 1 < std::size(kAll); ++i) {
        const int low = kAll[i], high = kAll[i + 1];
        for (int weight = low; weight <= high; ++weight) {
            if (2 * weight != low + high) { // the middle may go either way
                EXPECT_EQ(edNearestLineWeight(weight), static_cast<AcDb::LineWeight>(2 * weight < low + high ? low : high)) << weight;
            }
        }
    }
}

TEST(EdLineWeight, the_three_that_are_no_width_have_names) {
    for (const auto& [name, weight] : {std::pair{L"ByLayer", AcDb::kLnWtByLayer}, {L"ByBlock", AcDb::kLnWtByBlock}, {L"Default", AcDb::kLnWtByLwDefault}}) {
        EXPECT_EQ(edParseLineWeight(name), weight);
        EXPECT_EQ(edNearestLineWeight(weight), weight);
        EXPECT_EQ(edLineWeightName(weight), name);
    }
    for (const wchar_t* const none : {L"-0.01", L"2.12", L"thick", L""})
        EXPECT_FALSE(edParseLineWeight(none)) << acToUtf8(none);
    EXPECT_FALSE(edNearestLineWeight(-4));
    EXPECT_FALSE(edNearestLineWeight(212));
}
