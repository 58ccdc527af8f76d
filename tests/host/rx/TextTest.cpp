#include "AcPath.h"
#include "AcDbObjectId.h"
#include "AcUtText.h"

#include <gtest/gtest.h>

#include <limits>

TEST(CodePage, keeps_the_hungarian_letters) {
    const std::wstring letters = L"áéíóöőúüűÁÉÍÓÖŐÚÜŰ";
    EXPECT_EQ(acFromAnsi(acToAnsi(letters)), letters);
    EXPECT_EQ(acToAnsi(L"őűŐŰ"), "\xF5\xFB\xD5\xDB");
}
TEST(CodePage, every_byte_survives_the_turn_through_wide_text) {
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(acToAnsi(acFromAnsi(all)), all);
}
TEST(CodePage, a_letter_outside_it_becomes_a_question_mark) {
    EXPECT_EQ(acToAnsi(L"aжb"), "a?b");
}
TEST(Utf8, round_trips_every_plane) {
    const std::wstring text = L"aő€\U0001F6A7";
    EXPECT_EQ(acFromUtf8(acToUtf8(text)), text);
}
TEST(Utf8, malformed_bytes_become_replacement_characters) {
    EXPECT_EQ(acFromUtf8("a\xFFz"), L"a\xFFFDz");
    EXPECT_EQ(acFromUtf8("\xC3"), L"\xFFFD");
    EXPECT_EQ(acFromUtf8("\xC0\x80"), L"\xFFFD\xFFFD");
    EXPECT_EQ(acFromUtf8("\xED\xA0\x80z").back(), L'z');
}
TEST(Numbers, are_read_by_the_c_locale) {
    EXPECT_DOUBLE_EQ(acWtof(L" 0.0025"), 0.0025);
    EXPECT_DOUBLE_EQ(acWtof(L"+2.5x"), 2.5);
    EXPECT_DOUBLE_EQ(acWtof(L"1,5"), 1.0);
    EXPECT_EQ(acWtof(L"abc"), 0.0);
    EXPECT_EQ(acWtof(nullptr), 0.0);
    EXPECT_EQ(acWtoi(L"-17px"), -17);
    EXPECT_EQ(acWtoi(L""), 0);
    EXPECT_EQ(acWtoi(L"99999999999"), std::numeric_limits<int>::max());
}
TEST(Comparison, without_case_knows_accented_letters) {
    EXPECT_EQ(acutWcsicmp(L"Jelző TÁBLA ŰR", L"jelzŐ tábla űr"), 0);
    EXPECT_LT(acutWcsicmp(L"abc", L"ABD"), 0);
    EXPECT_GT(acutWcsicmp(L"abc", L"AB"), 0);
    EXPECT_NE(acutWcscmp(L"a", L"A"), 0);
}
TEST(TextCopies, are_released_and_replaced) {
    wchar_t* text = acutNewString(L"régi");
    acutUpdString(text, text); // its own text
    EXPECT_STREQ(text, L"régi");
    acutUpdString(L"új", text);
    EXPECT_STREQ(text, L"új");
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(acutNewString(nullptr), nullptr);
}
TEST(Handle, reads_and_writes_hexadecimal) {
    EXPECT_EQ(static_cast<Adesk::UInt64>(AcDbHandle(L"2F")), 0x2Fu);
    EXPECT_EQ(AcDbHandle(L"xyz").isNull(), true);
    EXPECT_EQ(AcDbHandle(L"11112222333344445").isNull(), true);
    EXPECT_EQ(AcDbHandle(0xFFFFFFFFFFFFFFFFu).text(), L"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(AcDbHandle().text(), L"0");
    wchar_t buffer[17];
    EXPECT_TRUE(AcDbHandle(0x1AB).getIntoAsciiBuffer(buffer));
    EXPECT_STREQ(buffer, L"1AB");
    EXPECT_FALSE(AcDbHandle(0x1AB).getIntoAsciiBuffer(buffer, 3));
}
TEST(HostPath, the_file_name_stands_behind_the_last_slash_of_either_kind) {
    EXPECT_EQ(acFileName(L"C:\\library\\post.dwg"), L"post.dwg");
    EXPECT_EQ(acFileName(L"library\\signs/post.dwg"), L"post.dwg");
    EXPECT_EQ(acFileName(L"post.dwg"), L"post.dwg");
    EXPECT_EQ(acFileName(L"library\\"), L"");
}
