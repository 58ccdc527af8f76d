// The XML reader: files as the library has them, and files that are broken.
#include "xmlParser.h"

#include "AcUtText.h"
#include "TestSupport.h"
#include "WinBinaryFile.h"

#include <gtest/gtest.h>

namespace {

std::wstring writeBytes(const std::string& bytes) {
    const std::wstring path = testTempDir() + L"/file.xml";
    WinBinaryFile file;
    EXPECT_TRUE(file.open(path.c_str(), L"wb"));
    EXPECT_EQ(file.write(bytes.data(), bytes.size()), bytes.size());
    file.close();
    return path;
}

std::string utf16(const std::wstring& text, bool mark) {
    std::string bytes = mark ? "\xFF\xFE" : "";
    for (const wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>((c >> 8) & 0xFF);
    }
    return bytes;
}

int codeOf(const std::wstring& text, const ACHAR* tag = L"a") {
    XmlParseResult result;
    parseDocument(text, tag, &result);
    return result.code;
}

const ACHAR* const kList = L"<?xml version=\"1.0\"?>\n<AttributeList><Attribute><Name>Anyag</Name><ValueList>fém;műanyag</ValueList></Attribute>"
                           L"<attribute><Name>Felirat</Name></attribute></AttributeList>";

} // namespace

TEST(XmlParser, an_empty_file_gives_code_2_and_an_empty_handle) {
    XmlParseResult result;
    EXPECT_TRUE(openDocument(writeBytes(""), L"AttributeList", &result).isEmpty());
    EXPECT_EQ(result.code, 2);
}

TEST(XmlParser, a_file_of_one_character_is_read_as_text) {
    XmlParseResult result;
    EXPECT_TRUE(openDocument(writeBytes("x"), L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 3);
}

TEST(XmlParser, a_missing_file_gives_code_12) {
    XmlParseResult result;
    EXPECT_TRUE(openDocument(testTempDir() + L"/none.xml", L"a", &result).isEmpty());
    EXPECT_EQ(result.code, 12);
}

TEST(XmlParser, a_root_is_found_under_the_declaration) {
    const XmlDocNode root = parseDocument(kList, L"AttributeList");
    ASSERT_FALSE(root.isEmpty());
    EXPECT_STREQ(root.name(), L"AttributeList");
}

TEST(XmlParser, child_count_pays_no_regard_to_case) {
    EXPECT_EQ(parseDocument(kList, L"attributelist").childCount(L"ATTRIBUTE"), 2);
}

TEST(XmlParser, children_of_a_name_are_walked_by_cursor_and_by_index) {
    const XmlDocNode root = parseDocument(kList, L"AttributeList");
    int cursor = 0;
    EXPECT_STREQ(root.childByName(L"Attribute", &cursor).childByName(L"Name").textAt(), L"Anyag");
    EXPECT_STREQ(root.childByName(L"Attribute", &cursor).childByName(L"Name").textAt(), L"Felirat");
    EXPECT_TRUE(root.childByName(L"Attribute", &cursor).isEmpty());
    EXPECT_STREQ(root.childByNameAt(L"Attribute", 1).childByName(L"Name").textAt(), L"Felirat");
    EXPECT_TRUE(root.childByNameAt(L"Attribute", 2).isEmpty());
}

TEST(XmlParser, text_of_an_element_without_text_is_null) {
    const XmlDocNode root = parseDocument(L"<a><b/></a>", L"a");
    EXPECT_EQ(root.textAt(0), nullptr);
    EXPECT_EQ(root.childByName(L"b").textAt(0), nullptr);
}

TEST(XmlParser, an_empty_handle_answers_everything_with_nothing) {
    const XmlDocNode none;
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.childCount(L"a"), 0);
    EXPECT_TRUE(none.childByName(L"a").isEmpty());
    EXPECT_EQ(none.textAt(0), nullptr);
    EXPECT_EQ(none.attributeValueAt(0), nullptr);
}

TEST(XmlParser, attributes_and_entities_are_decoded) {
    const XmlDocNode root = parseDocument(L"<a mask='x&amp;y' other=\"&lt;&gt;\">1 &lt; 2 &#337; &quot;&apos;</a>", L"a");
    EXPECT_STREQ(root.attributeValueAt(0), L"x&y");
    EXPECT_STREQ(root.attributeValueAt(1), L"<>");
    EXPECT_EQ(root.attributeValueAt(2), nullptr);
    EXPECT_STREQ(root.textAt(0), L"1 < 2 ő \"'");
}

TEST(XmlParser, comments_doctype_and_cdata_are_kept_out_of_parsing) {
    const XmlDocNode root = parseDocument(L"<!DOCTYPE a [<!ELEMENT a ANY>]><!-- <x> --><a><![CDATA[<b>&]]></a>", L"a");
    ASSERT_FALSE(root.isEmpty());
    EXPECT_EQ(root.childCount(L"b"), 0);
    EXPECT_STREQ(root.textAt(0), L"<b>&");
}

TEST(XmlParser, removing_a_text_piece_closes_the_gap) {
    XmlDocNode root = parseDocument(L"<a>one<b/>two</a>", L"a");
    root.removeTextAt(5);
    EXPECT_STREQ(root.textAt(1), L"two");
    root.removeTextAt(0);
    EXPECT_STREQ(root.textAt(0), L"two");
    root.removeTextAt(0);
    EXPECT_EQ(root.textAt(0), nullptr);
}

TEST(XmlParser, utf16_with_and_without_a_mark_keeps_hungarian_letters) {
    for (const bool mark : {true, false}) {
        const XmlDocNode root = openDocument(writeBytes(utf16(kList, mark)), L"AttributeList");
        ASSERT_FALSE(root.isEmpty()) << mark;
        EXPECT_STREQ(root.childByName(L"Attribute").childByName(L"ValueList").textAt(), L"fém;műanyag");
    }
}

TEST(XmlParser, an_ansi_file_is_read_with_the_system_code_page) {
    const XmlDocNode root = openDocument(writeBytes(acToAnsi(kList)), L"AttributeList");
    EXPECT_STREQ(root.childByName(L"Attribute").childByName(L"ValueList").textAt(), L"fém;műanyag");
}

TEST(XmlParser, utf8_content_is_read_with_the_ansi_page_even_behind_its_mark) {
    const XmlDocNode root = openDocument(writeBytes("\xEF\xBB\xBF<a>" + acToUtf8(L"ő") + "</a>"), L"a");
    ASSERT_FALSE(root.isEmpty());
    EXPECT_EQ(std::wstring(root.textAt()), acFromAnsi("\xC5\x91"));
}

TEST(XmlParser, a_stray_end_tag_is_a_warning_and_the_tree_stands) {
    XmlParseResult result;
    const XmlDocNode root = parseDocument(L"<a><b></x></b></a>", L"a", &result);
    EXPECT_FALSE(root.isEmpty());
    EXPECT_EQ(result.code, 1);
}

TEST(XmlParser, every_fault_has_its_code) {
    EXPECT_EQ(codeOf(L"text<a/>"), 3);
    EXPECT_EQ(codeOf(L"<a>< b></a>"), 4);
    EXPECT_EQ(codeOf(L"<a></ ></a>"), 5);
    EXPECT_EQ(codeOf(L"<a b=\"x></a>"), 6);
    EXPECT_EQ(codeOf(L"<a><b></b>"), 7);
    EXPECT_EQ(codeOf(L"<a><!-- </a>"), 8);
    EXPECT_EQ(codeOf(L"<a"), 9);
    EXPECT_EQ(codeOf(L"<a><!b></a>"), 10);
    EXPECT_EQ(codeOf(L"  "), 11);
    EXPECT_EQ(codeOf(L"<b/>"), 13);
    EXPECT_EQ(codeOf(L"<a>&unknown;</a>"), 14);
}

TEST(XmlParser, a_fault_is_found_by_line_and_column) {
    XmlParseResult result;
    parseDocument(L"<a>\n  <b c=\"x></b></a>", L"a", &result);
    EXPECT_EQ(result.line, 2);
    EXPECT_EQ(result.column, 8);
}

TEST(XmlParser, error_texts_are_fixed_and_others_are_unknown) {
    const ACHAR* const texts[] = {
        L"No error",
        L"Warning: Unmatched end tag",
        L"Error: No XML data",
        L"Error: First token not start tag",
        L"Error: Missing start tag name",
        L"Error: Missing end tag name",
        L"Error: Unmatched quote",
        L"Error: Unmatched end tag",
        L"Error: Unmatched clear tag end",
        L"Error: Unexpected token found",
        L"Error: Invalid tag found",
        L"Error: No elements found",
        L"Error: File not found",
        L"Error: First Tag not found",
        L"Error: Unknown character entity",
        L"Error: unable to convert between UNICODE and MultiByte chars",
        L"Error: unable to open file for writing",
        L"Error: cannot write into file",
        L"Warning: Base64-string length is not a multiple of 4",
        L"Warning: Base64-string is truncated",
        L"Error: Base64-string contains an illegal character",
        L"Error: Base64 decode output buffer is too small",
    };
    for (int code = 0; code < 22; ++code)
        EXPECT_STREQ(xmlErrorText(code), texts[code]) << code;
    EXPECT_STREQ(xmlErrorText(22), L"Unknown");
    EXPECT_STREQ(xmlErrorText(-1), L"Unknown");
}

TEST(XmlParser, a_tag_is_looked_for_among_the_children_of_the_root_and_no_deeper) {
    EXPECT_STREQ(parseDocument(L"<r><a>1</a><b><c>2</c></b></r>", L"A").textAt(), L"1");
    XmlParseResult result;
    EXPECT_TRUE(parseDocument(L"<r><a>1</a><b><c>2</c></b></r>", L"c", &result).isEmpty());
    EXPECT_EQ(result.code, 13);
}

TEST(XmlParser, without_a_tag_the_single_root_or_the_whole_file_is_the_result) {
    EXPECT_STREQ(parseDocument(L"<r><a/></r>", L"").name(), L"r");
    const XmlDocNode both = parseDocument(L"<r/><s/>", L"");
    EXPECT_EQ(both.name(), nullptr);
    EXPECT_EQ(both.childCount(L"s"), 1);
    EXPECT_TRUE(parseDocument(L"<?xml version=\"1.0\"?><r/>", L"").isDeclaration());
}

TEST(XmlParser, a_copied_handle_shares_its_element) {
    XmlDocNode root = parseDocument(L"<a>one</a>", L"a");
    const XmlDocNode copy = root;
    root.removeTextAt(0);
    EXPECT_EQ(copy.textAt(0), nullptr);
    root = XmlDocNode();
    EXPECT_FALSE(copy.isEmpty());
}

TEST(XmlParser, a_hundred_thousand_nested_elements_do_no_harm) {
    std::wstring text;
    for (int i = 0; i < 100000; ++i)
        text += L"<a>";
    EXPECT_EQ(codeOf(text), 7);
}
