// How far a keyword may be cut: to its capitals, or to a beginning that reaches the last of them.
#include "input/EdParse.h"

#include "AcUtText.h"

#include <gtest/gtest.h>

namespace {
std::wstring matched(const wchar_t* list, const wchar_t* typed) {
    return edMatchKeyword(edParseKeywords(list), typed).value_or(L"-");
}
} // namespace

TEST(EdKeyword, every_beginning_that_reaches_the_last_capital_answers) {
    for (const wchar_t* const typed : {L"x", L"ex", L"exi", L"exit", L"EX", L"eXIT"})
        EXPECT_EQ(matched(L"Close eXit", typed), L"eXit") << acToUtf8(typed);
    for (const wchar_t* const typed : {L"lt", L"ltype", L"LTY"})
        EXPECT_EQ(matched(L"LType LWeight", typed), L"LType") << acToUtf8(typed);
}

TEST(EdKeyword, a_beginning_before_the_last_capital_does_not) {
    for (const wchar_t* const typed : {L"e", L"exits", L"xit", L"ec"})
        EXPECT_EQ(matched(L"Close eXit", typed), L"-") << acToUtf8(typed);
    EXPECT_EQ(matched(L"LType LWeight", L"l"), L"-");
}

TEST(EdKeyword, accented_capitals_and_digits_are_keys_too) {
    EXPECT_EQ(matched(L"vÉge", L"é"), L"vÉge");
    EXPECT_EQ(matched(L"vÉge", L"vé"), L"vÉge");
    EXPECT_EQ(matched(L"2P 3P", L"3p"), L"3P");
}

TEST(EdKeyword, a_word_without_capitals_is_typed_whole) {
    EXPECT_EQ(matched(L"igen", L"IGEN"), L"igen");
    EXPECT_EQ(matched(L"igen", L"ige"), L"-");
}
