// The hyphen and the apostrophe in a sort key: they weigh nothing where they stand, and are told behind all
// others by their place. Worked by hand from the collation's published rules.
#include "JetTestSupport.h"
#include "jet/JetCollation.h"

#include <gtest/gtest.h>

using namespace odbc::jet;

namespace {
std::string key(std::u16string_view text) {
    std::string bytes, hex;
    EXPECT_TRUE(appendSortKey(text, bytes));
    for (const char byte : bytes) {
        constexpr char kDigits[] = "0123456789abcdef";
        hex += kDigits[static_cast<unsigned char>(byte) >> 4];
        hex += kDigits[static_cast<unsigned char>(byte) & 15];
    }
    return hex;
}
} // namespace

// A place is 0x8000 + 7 + 4 for each character before it that weighs something, high byte first; then 0x06
// and the character: 0x80 the apostrophe, 0x82 the hyphen. Three more 0x01 stand before the first.
TEST(JetLastWeights, a_hyphen_and_an_apostrophe_stand_behind_the_letters_with_their_places) {
    EXPECT_EQ(key(u"a-b"), "4a4c01"
                           "010101"
                           "800b0682"
                           "00");
    EXPECT_EQ(key(u"a'b"), "4a4c01"
                           "010101"
                           "800b0680"
                           "00");
    EXPECT_EQ(key(u"-"), "01010101"
                         "80070682"
                         "00");
    EXPECT_EQ(key(u"ab-"), "4a4c01010101800f068200");
    EXPECT_EQ(key(u"'a-b"), "4a4c01010101"
                            "80070680"
                            "800b0682"
                            "00");
    EXPECT_EQ(key(u"--"), "01010101"
                          "80070682"
                          "80070682"
                          "00") << "neither weighs anything, so both have the same place";
}

TEST(JetLastWeights, accents_come_before_them) {
    EXPECT_EQ(key(u"á-b"), "4a4c01"
                           "0e"
                           "010101"
                           "800b0682"
                           "00");
    EXPECT_EQ(key(u"a-ő"), "4a6401"
                           "021d"
                           "010101"
                           "800b0682"
                           "00");
}

TEST(JetLastWeights, a_word_with_a_hyphen_sorts_right_behind_the_same_word_without_it) {
    EXPECT_LT(key(u"coop"), key(u"co-op"));
    EXPECT_LT(key(u"co-op"), key(u"coops"));
    EXPECT_LT(key(u"can't"), key(u"can-t")) << "the apostrophe comes before the hyphen";
    EXPECT_LT(key(u"-a"), key(u"a-"));
}
