// Character entities by number, and what is none.
#include "xmlParser.h"

#include <gtest/gtest.h>

namespace {
std::wstring textOf(const std::wstring& entity) {
    const XmlDocNode a = parseDocument(L"<a>" + entity + L"</a>", L"a");
    return a.isEmpty() || a.textAt(0) == nullptr ? L"(none)" : a.textAt(0);
}
int codeOf(const std::wstring& entity) {
    XmlParseResult result;
    parseDocument(L"<a>" + entity + L"</a>", L"a", &result);
    return result.code;
}
} // namespace

TEST(XmlEntity, numbers_are_decimal_or_hexadecimal_with_digits_of_either_case) {
    EXPECT_EQ(textOf(L"&#337;"), L"ő");
    EXPECT_EQ(textOf(L"&#x151;"), L"ő");
    EXPECT_EQ(textOf(L"&#xe9;"), L"é");
    EXPECT_EQ(textOf(L"&#XE9;"), L"é");
    EXPECT_EQ(textOf(L"&#xaBcD;"), L"\uABCD");
    EXPECT_EQ(textOf(L"&#xf0;"), L"\u00F0");
    EXPECT_EQ(textOf(L"&#0000065;"), L"A");
    EXPECT_EQ(textOf(L"&#1;"), L"\x01");
    EXPECT_EQ(textOf(L"&#x10FFFF;"), std::wstring(1, static_cast<wchar_t>(0x10FFFF)));
    EXPECT_EQ(textOf(L"&#9;x&#57;"), L"\tx9");
}

TEST(XmlEntity, what_is_no_number_of_a_character_is_an_unknown_entity) {
    for (const wchar_t* const entity : {L"&#;", L"&#x;", L"&#0;", L"&#x0;", L"&#12a;", L"&#xg;", L"&#-5;", L"&#x110000;", L"&#00000065;", L"&#99999999;", L"&;", L"&amp"})
        EXPECT_EQ(codeOf(entity), 14);
}

TEST(XmlEntity, one_that_is_unknown_is_told_by_its_place) {
    XmlParseResult result;
    parseDocument(L"<a>\n one &two;</a>", L"a", &result);
    EXPECT_EQ(result.code, 14);
    EXPECT_EQ(result.line, 2);
    EXPECT_EQ(result.column, 6); // of the &, in the line as it stands
}

TEST(XmlEntity, names_are_known_in_any_case) {
    EXPECT_EQ(textOf(L"&AMP;&Lt;&gt;&QUOT;&apos;"), L"&<>\"'");
    EXPECT_EQ(codeOf(L"&am;"), 14);
    EXPECT_EQ(codeOf(L"&ampx;"), 14);
}
