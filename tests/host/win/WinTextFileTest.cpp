#include "WinTextFile.h"
#include "WinBinaryFile.h"
#include "WinFiles.h"
#include "WinTestSupport.h"

#include <gtest/gtest.h>

namespace {
struct TextFile : testing::Test {
    std::string folder = testTempPath();
    std::string path = folder + "/a.txt";
    std::wstring host = acFromUtf8(folder) + L"\\a.txt";
};
} // namespace

TEST_F(TextFile, writes_the_ansi_code_page_with_windows_line_ends) {
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"w"));
    EXPECT_GT(file.printf(L"%s=%s\n", L"KEY", L"Jelzőoszlop űrlap"), 0);
    EXPECT_TRUE(file.close());
    EXPECT_EQ(readBytes(path), "KEY=Jelz\xF5oszlop \xFBrlap\r\n");
}

TEST_F(TextFile, reads_back_what_it_wrote) {
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"w"));
    file.puts(L"árvíztűrő\ntükörfúrógép\n");
    ASSERT_TRUE(file.open(host.c_str(), L"r"));
    wchar_t buffer[100];
    ASSERT_NE(file.gets(buffer, 100), nullptr);
    EXPECT_STREQ(buffer, L"árvíztűrő\n");
    ASSERT_NE(file.gets(buffer, 100), nullptr);
    EXPECT_STREQ(buffer, L"tükörfúrógép\n");
    EXPECT_EQ(file.gets(buffer, 100), nullptr);
}

TEST_F(TextFile, gives_a_long_line_in_pieces_of_the_buffer_less_one) {
    writeBytes(path, std::string(2500, 'x') + "\r\nend");
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"r"));
    wchar_t buffer[1000];
    std::vector<std::size_t> lengths;
    while (file.gets(buffer, 1000) != nullptr)
        lengths.push_back(wcslen(buffer));
    EXPECT_EQ(lengths, (std::vector<std::size_t>{999, 999, 503, 3}));
}

TEST_F(TextFile, gives_the_last_line_without_a_line_end_when_there_is_none) {
    writeBytes(path, "a\nb");
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"r"));
    wchar_t buffer[10];
    file.gets(buffer, 10);
    EXPECT_STREQ(buffer, L"a\n");
    file.gets(buffer, 10);
    EXPECT_STREQ(buffer, L"b");
}

TEST_F(TextFile, keeps_a_lone_carriage_return_and_ends_at_the_end_of_text_mark) {
    writeBytes(path, "a\rb\x1A" "c\n");
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"r"));
    wchar_t buffer[10];
    ASSERT_NE(file.gets(buffer, 10), nullptr);
    EXPECT_STREQ(buffer, L"a\rb");
    EXPECT_EQ(file.gets(buffer, 10), nullptr);
}

TEST_F(TextFile, leaves_the_buffer_alone_at_the_end_of_the_file) {
    writeBytes(path, "");
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"r"));
    wchar_t buffer[4] = L"old";
    EXPECT_EQ(file.gets(buffer, 4), nullptr);
    EXPECT_STREQ(buffer, L"old");
}

TEST_F(TextFile, writes_a_mark_before_utf_8_text) {
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"w,ccs=UTF-8"));
    file.puts(L"Sorszám,ID\n");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(readBytes(path), "\xEF\xBB\xBFSorsz\xC3\xA1m,ID\r\n");
    ASSERT_TRUE(file.open(host.c_str(), L"r, ccs=utf-8"));
    std::wstring line;
    EXPECT_TRUE(file.getLine(line));
    EXPECT_EQ(line, L"Sorszám,ID");
}

TEST_F(TextFile, appends_to_what_stands) {
    writeBytes(path, "a\r\n");
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"a"));
    file.puts(L"b\n");
    file.close();
    EXPECT_EQ(readBytes(path), "a\r\nb\r\n");
}

TEST_F(TextFile, writes_a_question_mark_for_a_character_outside_the_code_page) {
    WinTextFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"w"));
    file.puts(L"a漢b");
    file.close();
    EXPECT_EQ(readBytes(path), "a?b");
}

TEST_F(TextFile, refuses_absent_files_unknown_modes_and_folders) {
    WinTextFile file;
    EXPECT_FALSE(file.open(host.c_str(), L"r"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(file.open(host.c_str(), L"r+"));
    EXPECT_FALSE(file.open(host.c_str(), L"w,ccs=UTF-7"));
    EXPECT_FALSE(file.open(acFromUtf8(folder).c_str(), L"r"));
    EXPECT_FALSE(file.open((acFromUtf8(folder) + L"\\none\\a.txt").c_str(), L"w"));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(file.puts(L"x"));
}

TEST_F(TextFile, reports_a_write_that_does_not_reach_the_file) {
    WinTextFile file;
    if (!file.open(L"\\dev\\full", L"w"))
        GTEST_SKIP() << "no device that is always full";
    file.puts(L"x");
    EXPECT_FALSE(file.close());
}

TEST_F(TextFile, a_binary_file_seeks_tells_and_reads) {
    writeBytes(path, "0123456789");
    WinBinaryFile file;
    ASSERT_TRUE(file.open(host.c_str(), L"rb"));
    ASSERT_TRUE(file.seek(0, WinBinaryFile::kEnd));
    EXPECT_EQ(file.tell(), 10);
    ASSERT_TRUE(file.seek(4, WinBinaryFile::kSet));
    char bytes[4] = {};
    EXPECT_EQ(file.read(bytes, 3), 3u);
    EXPECT_STREQ(bytes, "456");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(file.tell(), -1);
}
