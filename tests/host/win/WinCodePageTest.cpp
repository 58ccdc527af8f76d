#include "WinCodePage.h"
#include "WinFiles.h"

#include <gtest/gtest.h>

TEST(CodePage, the_ansi_code_page_carries_hungarian_letters) {
    wchar_t text[10] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\xF5\xFB\xD5", 3, nullptr, 0), 3);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\xF5\xFB\xD5", -1, text, 10), 4);
    EXPECT_STREQ(text, L"őűŐ");
    char bytes[10] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, bytes, 10, nullptr, nullptr), 4);
    EXPECT_STREQ(bytes, "\xF5\xFB\xD5");
}

TEST(CodePage, a_character_without_a_code_takes_the_default) {
    char bytes[10] = {};
    BOOL used = FALSE;
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"a漢?", 3, bytes, 10, "_", &used), 3);
    EXPECT_STREQ(bytes, "a_?");
    EXPECT_TRUE(used);
}

TEST(CodePage, too_small_a_buffer_and_an_unknown_page_fail) {
    wchar_t text[2];
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", 3, text, 2), 0);
    EXPECT_EQ(GetLastError(), 122u);
    EXPECT_EQ(MultiByteToWideChar(437, 0, "abc", 3, text, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "", 0, text, 2), 0);
}

TEST(CodePage, malformed_utf_8_is_replaced_or_refused) {
    wchar_t text[10] = {};
    EXPECT_GT(MultiByteToWideChar(CP_UTF8, 0, "a\xFF", 2, text, 10), 1);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "a\xFF", 2, text, 10), 0);
}

TEST(IsTextUnicodeTest, tells_16_bit_text_from_8_bit_text) {
    EXPECT_TRUE(IsTextUnicode("\xFF\xFE<\0a\0", 6, nullptr));
    EXPECT_TRUE(IsTextUnicode("<\0?\0x\0m\0l\0", 10, nullptr));
    EXPECT_FALSE(IsTextUnicode("<?xml version='1.0'?>\n", 22, nullptr));
    EXPECT_FALSE(IsTextUnicode("\xEF\xBB\xBF<a/>", 7, nullptr));
    EXPECT_FALSE(IsTextUnicode("a", 1, nullptr));
    EXPECT_FALSE(IsTextUnicode(nullptr, 10, nullptr));
    EXPECT_FALSE(IsTextUnicode("\0\0\0\0\0\0", 6, nullptr));
}

TEST(Utf16, joins_surrogates_and_replaces_lone_ones) {
    EXPECT_EQ(winFromUtf16(std::string_view("a\0\x3D\xD8\x00\xDE", 6)), L"a\U0001F600");
    EXPECT_EQ(winFromUtf16(std::string_view("\x3D\xD8z\0", 4)), L"\xFFFDz");
    EXPECT_EQ(winFromUtf16(std::string_view("a\0b", 3)), L"a");
}
