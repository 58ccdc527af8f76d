#include "input/EdParse.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

namespace {
const AcGePoint3d kLast(10.0, 20.0, 0.0);

TEST(EdParse, a_point_has_two_or_three_coordinates) {
    EXPECT_EQ(*edParsePoint(L"1,2", kLast), AcGePoint3d(1, 2, 0));
    EXPECT_EQ(*edParsePoint(L"1.5,-2,+3", kLast), AcGePoint3d(1.5, -2, 3));
    for (const wchar_t* junk : {L"", L"1", L"1,", L",1", L"1,2,3,4", L"1,x", L"1;2", L"1,2 3", L"1,inf", L"nan,1", L"1e999,0"})
        EXPECT_FALSE(edParsePoint(junk, kLast)) << acToUtf8(junk);
}
TEST(EdParse, a_relative_point_counts_from_the_last) {
    EXPECT_EQ(*edParsePoint(L"@1,2", kLast), AcGePoint3d(11, 22, 0));
    EXPECT_EQ(*edParsePoint(L"@", kLast), kLast);
    EXPECT_TRUE(edParsePoint(L"@2<90", kLast)->isEqualTo(AcGePoint3d(10, 22, 0)));
    EXPECT_TRUE(edParsePoint(L"2<180", kLast)->isEqualTo(AcGePoint3d(-2, 0, 0)));
}
TEST(EdParse, capitals_of_a_keyword_are_its_key) {
    const auto words = edParseKeywords(L"Close Undo eXit LType LWeight 2P");
    EXPECT_EQ(*edMatchKeyword(words, L"c"), L"Close");
    EXPECT_EQ(*edMatchKeyword(words, L"CLO"), L"Close");
    EXPECT_EQ(*edMatchKeyword(words, L"x"), L"eXit");
    EXPECT_EQ(*edMatchKeyword(words, L"lw"), L"LWeight");
    EXPECT_EQ(*edMatchKeyword(words, L"_undo"), L"Undo");
    EXPECT_EQ(*edMatchKeyword(words, L"2p"), L"2P");
    for (const wchar_t* junk : {L"l", L"q", L"closed", L"_", L""})
        EXPECT_FALSE(edMatchKeyword(words, junk)) << acToUtf8(junk);
}
TEST(EdParse, a_local_keyword_answers_with_its_global_word) {
    for (const wchar_t* list : {L"Igen neM _Yes No", L"Igen neM _Yes _No"}) {
        const auto words = edParseKeywords(list);
        ASSERT_EQ(words.size(), 2u);
        EXPECT_EQ(*edMatchKeyword(words, L"i"), L"Yes");
        EXPECT_EQ(*edMatchKeyword(words, L"m"), L"No");
        EXPECT_EQ(*edMatchKeyword(words, L"_n"), L"No");
    }
}
TEST(EdParse, blanks_part_answers_but_forms_and_quotes_hold_together) {
    EXPECT_EQ(edSplitLine(L"  LINE 0,0  1,1 ").first, L"LINE");
    EXPECT_EQ(edSplitLine(L"LINE 0,0  1,1 ").rest, L"0,0  1,1");
    EXPECT_EQ(edSplitLine(L"(handent \"2F\") x").first, L"(handent \"2F\")");
    EXPECT_EQ(edSplitLine(L"\"two words\" x").first, L"\"two words\"");
    EXPECT_EQ(edSplitLine(L"(never closed 1").first, L"(never closed 1");
    EXPECT_EQ(edSplitLine(L"(\"a\\").first, L"(\"a\\");
}
TEST(EdParse, a_form_gives_its_words) {
    const auto form = edParseForm(L"(command \"_NETLOAD\" \"a \\\"b\\\".dll\" 5 \"\")");
    ASSERT_TRUE(form);
    EXPECT_EQ(form->head, L"COMMAND");
    EXPECT_EQ(form->items, (std::vector<std::wstring>{L"_NETLOAD", L"a \"b\".dll", L"5", L""}));
    for (const wchar_t* junk : {L"", L"()", L"(", L"(a (b))", L"(\"a\")", L"(a \"b)", L"a b"})
        EXPECT_FALSE(edParseForm(junk)) << acToUtf8(junk);
}
TEST(EdParse, patterns_know_stars_and_question_marks) {
    EXPECT_TRUE(edMatchesPattern(L"LWPOLYLINE", L"line,*poly*"));
    EXPECT_TRUE(edMatchesPattern(L"Kerb", L"k?rb"));
    EXPECT_FALSE(edMatchesPattern(L"Kerb", L"k?r"));
    EXPECT_TRUE(edMatchesPattern(L"", L"*"));
    EXPECT_FALSE(edMatchesPattern(std::wstring(2000, L'a'), L"*a*a*a*a*a*a*a*b"));
}
TEST(EdParse, numbers_are_shown_as_short_as_they_come) {
    EXPECT_EQ(edNumber(2.50), L"2.5");
    EXPECT_EQ(edNumber(-0.00001), L"0");
    EXPECT_EQ(edPointText({1, 2.25, 0}), L"1,2.25");
    EXPECT_EQ(edPointText({1, 2, 3}), L"1,2,3");
}
} // namespace
