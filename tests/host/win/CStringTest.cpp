#include "CString.h"

#include <gtest/gtest.h>

TEST(CStringTest, formats_wide_texts_and_other_strings) {
    CString s, inner(L"ő");
    const std::wstring wide = L"w";
    s.Format(L"%s-%s-%s-%d-%.2f", L"a", inner, wide, 5, 1.5);
    EXPECT_STREQ(s, L"a-ő-w-5-1.50");
    s.AppendFormat(L"%c", L'!');
    EXPECT_STREQ(s, L"a-ő-w-5-1.50!");
    s.Format(L"%s", s);
    EXPECT_STREQ(s, L"a-ő-w-5-1.50!");
}

TEST(CStringTest, parts_are_cut_to_the_text) {
    const CString s(L"abcdef");
    EXPECT_STREQ(s.Left(2), L"ab");
    EXPECT_STREQ(s.Left(-1), L"");
    EXPECT_STREQ(s.Left(99), L"abcdef");
    EXPECT_STREQ(s.Right(2), L"ef");
    EXPECT_STREQ(s.Right(99), L"abcdef");
    EXPECT_STREQ(s.Mid(2, 2), L"cd");
    EXPECT_STREQ(s.Mid(4), L"ef");
    EXPECT_STREQ(s.Mid(99), L"");
    EXPECT_EQ(s[9], L'\0');
}

TEST(CStringTest, finds_replaces_and_trims) {
    CString s(L"a\\b\\c");
    EXPECT_EQ(s.Find(L'\\'), 1);
    EXPECT_EQ(s.Find(L"\\", 2), 3);
    EXPECT_EQ(s.ReverseFind(L'\\'), 3);
    EXPECT_EQ(s.Find(L"x"), -1);
    EXPECT_EQ(s.Replace(L"\\", L"__"), 2);
    EXPECT_STREQ(s, L"a__b__c");
    EXPECT_EQ(s.Replace(L"", L"x"), 0);
    CString t(L" \t x y \r\n");
    EXPECT_STREQ(t.Trim(), L"x y");
    CString u(L"path\\\\");
    EXPECT_STREQ(u.TrimRight(L'\\'), L"path");
    CString blank(L"   ");
    EXPECT_STREQ(blank.TrimLeft(), L"");
}

TEST(CStringTest, tokens_are_never_empty) {
    const CString s(L";a;;b;");
    int start = 0;
    EXPECT_STREQ(s.Tokenize(L";", start), L"a");
    EXPECT_STREQ(s.Tokenize(L";", start), L"b");
    EXPECT_STREQ(s.Tokenize(L";", start), L"");
    EXPECT_EQ(start, -1);
    EXPECT_STREQ(s.Tokenize(L";", start), L"");
}

TEST(CStringTest, a_buffer_is_taken_up_to_its_end) {
    CString s;
    wcscpy(s.GetBuffer(20), L"abc");
    s.ReleaseBuffer();
    EXPECT_EQ(s.GetLength(), 3);
    s.GetBuffer(20);
    s.ReleaseBuffer(2);
    EXPECT_STREQ(s, L"ab");
}

TEST(CStringTest, null_counts_as_empty_and_strings_compare) {
    CString s(static_cast<LPCTSTR>(nullptr));
    EXPECT_TRUE(s.IsEmpty());
    s = static_cast<LPCTSTR>(nullptr);
    EXPECT_EQ(s.CompareNoCase(L""), 0);
    CString a(L"Őr");
    EXPECT_EQ(a.CompareNoCase(L"ŐR"), 0);
    EXPECT_NE(a.Compare(L"ŐR"), 0);
    EXPECT_TRUE(a == L"Őr");
    EXPECT_FALSE(L"x" == a);
}
