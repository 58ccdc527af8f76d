// End tags that do not close the element that is open: a warning, and the tree stands.
#include "xmlParser.h"

#include <gtest/gtest.h>

namespace {
std::wstring textOf(const XmlDocNode& node, int i = 0) {
    const ACHAR* const text = node.textAt(i);
    return text != nullptr ? text : L"(none)";
}
} // namespace

TEST(XmlStrayTag, an_end_tag_further_out_closes_what_stands_open_inside_it) {
    XmlParseResult result;
    const XmlDocNode a = parseDocument(L"<a><b><c></b>2</a>", L"a", &result);
    ASSERT_FALSE(a.isEmpty());
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.line, 1);
    EXPECT_EQ(result.column, 10) << "where the end tag begins";
    EXPECT_EQ(textOf(a), L"2") << "what follows belongs to the element around the closed one";
    EXPECT_EQ(a.childCount(L"b"), 1);
    const XmlDocNode b = a.childByName(L"b");
    EXPECT_EQ(textOf(b), L"(none)");
    EXPECT_EQ(b.childCount(L"c"), 1);
    EXPECT_EQ(textOf(b.childByName(L"c")), L"(none)");
}

TEST(XmlStrayTag, an_end_tag_of_no_open_element_closes_nothing) {
    XmlParseResult result;
    const XmlDocNode a = parseDocument(L"<a><b>1</x>2</b>3</a>", L"a", &result);
    ASSERT_FALSE(a.isEmpty());
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(textOf(a.childByName(L"b")), L"1");
    EXPECT_EQ(textOf(a.childByName(L"b"), 1), L"2");
    EXPECT_EQ(textOf(a), L"3");
}

TEST(XmlStrayTag, the_nearest_of_several_open_elements_of_that_name_is_closed) {
    const XmlDocNode a = parseDocument(L"<a><b><b><c></b>2</b>3</a>", L"a");
    ASSERT_FALSE(a.isEmpty());
    EXPECT_EQ(textOf(a), L"3");
    EXPECT_EQ(textOf(a.childByName(L"b")), L"2");
    EXPECT_EQ(textOf(a.childByName(L"b").childByName(L"b")), L"(none)");
}

TEST(XmlStrayTag, of_two_the_first_is_told) {
    XmlParseResult result;
    EXPECT_FALSE(parseDocument(L"<a>\n</x></y></a>", L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.line, 2);
    EXPECT_EQ(result.column, 1);
}

TEST(XmlStrayTag, an_error_behind_it_is_told_instead) {
    XmlParseResult result;
    EXPECT_TRUE(parseDocument(L"<a></x><b c=\"></a>", L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 6);
    EXPECT_TRUE(parseDocument(L"<a><b><c></b>", L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 7);
}

TEST(XmlStrayTag, an_end_tag_closes_its_element_in_any_case) {
    XmlParseResult result;
    const XmlDocNode a = parseDocument(L"<a><Név>1</NÉV><b/></A>", L"a", &result);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(a.childCount(L"b"), 1);
}

TEST(XmlStrayTag, an_end_tag_holds_a_name_and_blanks_and_nothing_more) {
    XmlParseResult result;
    EXPECT_FALSE(parseDocument(L"<a>1</a \n>", L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 0);
    for (const wchar_t* const text : {L"<a>1</a b>", L"<a>1</a/>", L"<a>1</a", L"<a>1</a "}) {
        EXPECT_TRUE(parseDocument(text, L"a", &result).isEmpty());
        EXPECT_EQ(result.code, 9);
    }
}
