#include "WinFiles.h"
#include "WinTestSupport.h"

#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
struct Files : testing::Test {
    std::string folder = testTempPath();
    std::wstring host = acFromUtf8(folder);
    std::vector<std::wstring> find(const std::wstring& mask) {
        std::vector<std::wstring> names;
        WIN32_FIND_DATAW data;
        const HANDLE search = FindFirstFileW((host + L"\\" + mask).c_str(), &data);
        if (search == INVALID_HANDLE_VALUE)
            return names;
        do
            names.push_back(data.cFileName);
        while (FindNextFileW(search, &data));
        FindClose(search);
        return names;
    }
};
} // namespace

TEST_F(Files, an_absent_file_and_an_absent_folder_give_different_errors) {
    EXPECT_EQ(GetFileAttributesW((host + L"\\none.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetFileAttributesW((host + L"\\none\\none.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(Files, attributes_tell_folders_from_files) {
    writeBytes(folder + "/a.txt", "x");
    EXPECT_EQ(GetFileAttributesW((host + L"\\a.txt").c_str()), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(GetFileAttributesW(host.c_str()) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(GetFileAttributesW((host + L"\\").c_str()) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(Files, a_name_in_another_case_is_found) {
    mkdir((folder + "/Oszlopok").c_str(), 0777);
    writeBytes(folder + "/Oszlopok/Jelzőoszlop.dwg", "x");
    EXPECT_EQ(GetFileAttributesW((host + L"\\OSZLOPOK\\jelzőoszlop.DWG").c_str()), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Files, a_folder_is_made_but_not_its_parent) {
    EXPECT_TRUE(CreateDirectoryW((host + L"\\one").c_str(), nullptr));
    EXPECT_FALSE(CreateDirectoryW((host + L"\\one").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateDirectoryW((host + L"\\two\\three").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(Files, copying_overwrites_unless_told_not_to) {
    writeBytes(folder + "/a", std::string(200000, 'a'));
    writeBytes(folder + "/b", "b");
    EXPECT_FALSE(CopyFileW((host + L"\\a").c_str(), (host + L"\\b").c_str(), TRUE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
    EXPECT_EQ(readBytes(folder + "/b"), "b");
    EXPECT_TRUE(CopyFileW((host + L"\\a").c_str(), (host + L"\\b").c_str(), FALSE));
    EXPECT_EQ(readBytes(folder + "/b"), std::string(200000, 'a'));
    EXPECT_FALSE(CopyFileW((host + L"\\none").c_str(), (host + L"\\b").c_str(), FALSE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Files, copying_a_file_onto_itself_leaves_it_whole) {
    writeBytes(folder + "/a", "content");
    EXPECT_FALSE(CopyFileW((host + L"\\a").c_str(), (host + L"\\A").c_str(), FALSE));
    EXPECT_EQ(readBytes(folder + "/a"), "content");
}

TEST_F(Files, moving_does_not_overwrite_and_deleting_reports_absence) {
    writeBytes(folder + "/a", "a");
    writeBytes(folder + "/b", "b");
    EXPECT_FALSE(MoveFileW((host + L"\\a").c_str(), (host + L"\\b").c_str()));
    EXPECT_TRUE(DeleteFileW((host + L"\\b").c_str()));
    EXPECT_TRUE(MoveFileW((host + L"\\a").c_str(), (host + L"\\b").c_str()));
    EXPECT_FALSE(DeleteFileW((host + L"\\a").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Files, a_full_path_has_no_dots_and_backslashes_only) {
    wchar_t buffer[MAX_PATH];
    wchar_t* name = nullptr;
    EXPECT_GT(GetFullPathNameW(L"/a/./b/../c.txt", MAX_PATH, buffer, &name), 0u);
    EXPECT_STREQ(buffer, L"\\a\\c.txt");
    EXPECT_STREQ(name, L"c.txt");
    GetFullPathNameW(L"\\a\\b\\", MAX_PATH, buffer, &name);
    EXPECT_STREQ(buffer, L"\\a\\b\\");
    EXPECT_EQ(name, nullptr);
    GetFullPathNameW(L"C:\\x\\..\\y", MAX_PATH, buffer, nullptr);
    EXPECT_STREQ(buffer, L"C:\\y");
    GetFullPathNameW(L"korvant.arx", MAX_PATH, buffer, nullptr);
    EXPECT_EQ(buffer[0], L'\\');
}

TEST_F(Files, too_small_a_buffer_for_a_full_path_is_told_the_size) {
    wchar_t buffer[3] = L"xx";
    EXPECT_EQ(GetFullPathNameW(L"\\abc", 3, buffer, nullptr), 5u);
    EXPECT_STREQ(buffer, L"xx");
}

TEST_F(Files, a_search_gives_dots_first_and_then_names_without_regard_to_case) {
    for (const char* name : {"b.dwg", "A.dwg", "c.DWG", "$a.dwg", "noext"})
        writeBytes(folder + "/" + name, "");
    EXPECT_EQ(find(L"*.*"), (std::vector<std::wstring>{L".", L"..", L"$a.dwg", L"A.dwg", L"b.dwg", L"c.DWG", L"noext"}));
    EXPECT_EQ(find(L"*.dwg"), (std::vector<std::wstring>{L"$a.dwg", L"A.dwg", L"b.dwg", L"c.DWG"}));
    EXPECT_EQ(find(L"?.d*"), (std::vector<std::wstring>{L"A.dwg", L"b.dwg", L"c.DWG"}));
}

TEST_F(Files, a_search_without_a_match_tells_why) {
    WIN32_FIND_DATAW data;
    EXPECT_EQ(FindFirstFileW((host + L"\\*.xyz").c_str(), &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(FindFirstFileW((host + L"\\none\\*.*").c_str(), &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
}

TEST_F(Files, a_status_tells_length_and_local_time) {
    EnvironmentValue zone("TZ", "UTC-2");
    tzset();
    writeBytes(folder + "/a", "12345");
    const timespec times[2] = {{1000000000, 0}, {1000000000, 0}};
    utimensat(0, (folder + "/a").c_str(), times, 0);
    WinFileStatus status;
    ASSERT_TRUE(winFileStatus((host + L"\\a").c_str(), status));
    EXPECT_EQ(status.length, 5u);
    EXPECT_EQ(winFormatTime(L"%y/%m/%d %H:%M:%S", status.modifiedLocal), L"01/09/09 03:46:40");
    EXPECT_EQ(winFormatTime(L"", status.modifiedLocal), L"");
    EXPECT_FALSE(winFileStatus((host + L"\\b").c_str(), status));
}

TEST_F(Files, a_search_tells_links_to_folders_from_folders) {
    mkdir((folder + "/real").c_str(), 0777);
    ASSERT_EQ(symlink("real", (folder + "/to_folder").c_str()), 0);
    writeBytes(folder + "/a", "");
    ASSERT_EQ(symlink("a", (folder + "/to_file").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (folder + "/to_nothing").c_str()), 0);
    std::map<std::wstring, DWORD> found;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW((host + L"\\*.*").c_str(), &data);
    do
        found[data.cFileName] = data.dwFileAttributes;
    while (FindNextFileW(search, &data));
    FindClose(search);
    EXPECT_EQ(found[L"real"], FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(found[L"to_folder"], FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(found[L"to_file"], FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(found.count(L"to_nothing"), 0u);
}

TEST_F(Files, a_real_path_has_no_links_on_its_way) {
    mkdir((folder + "/real").c_str(), 0777);
    ASSERT_EQ(symlink("real", (folder + "/link").c_str()), 0);
    EXPECT_EQ(winRealPath((host + L"\\LINK").c_str()), winRealPath((host + L"\\real").c_str()));
    EXPECT_NE(winRealPath((host + L"\\real").c_str()), L"");
    EXPECT_EQ(winRealPath((host + L"\\none").c_str()), L"");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}
