// The order of texts in an index is written down twice, by the writer and by the checker.
#include "jet/JetCollation.h"
#include "rules/CheckWeights.h"

#include <gtest/gtest.h>

using namespace odbc::jet;

TEST(Collation, the_writer_and_the_checker_know_the_same_characters_by_the_same_weights) {
    int known = 0;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto c = static_cast<char16_t>(code);
        const SortWeight writer = sortWeightOf(c);
        const CheckWeight checker = checkWeightOf(c);
        ASSERT_EQ(writer.known(), checker.known()) << code;
        const unsigned letter = writer.extra != 0 ? writer.weight * 256u + writer.extra : writer.weight;
        ASSERT_EQ(letter, checker.letter) << code;
        ASSERT_EQ(writer.last, checker.atTheEnd) << code;
        if (writer.known()) {
            ASSERT_EQ(writer.accent, checker.accent) << code;
            ++known;
        }
    }
    EXPECT_GT(known, 200);
}
