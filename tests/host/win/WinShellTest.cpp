#include "WinShell.h"
#include "WinFiles.h"
#include "WinTestSupport.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {
std::wstring localAppData() {
    wchar_t path[MAX_PATH] = L"?";
    return SHGetFolderPathW(nullptr, 28, nullptr, 0, path) == S_OK ? path : L"failed";
}
std::wstring hostForm(std::string path) {
    for (char& c : path)
        c = c == '/' ? '\\' : c;
    return acFromUtf8(path);
}
} // namespace

TEST(ShellFolders, the_local_application_data_follow_the_environment) {
    const std::string folder = testTempPath();
    EnvironmentValue home("HOME", folder.c_str()), data("XDG_DATA_HOME", nullptr), own("KORVANT_LOCALAPPDATA", nullptr);
    EXPECT_EQ(localAppData(), hostForm(folder) + L"\\.local\\share");
    EnvironmentValue data2("XDG_DATA_HOME", (folder + "/data/").c_str());
    EXPECT_EQ(localAppData(), hostForm(folder) + L"\\data");
    EnvironmentValue own2("KORVANT_LOCALAPPDATA", (folder + "/own").c_str());
    EXPECT_EQ(localAppData(), hostForm(folder) + L"\\own");
    EXPECT_NE(GetFileAttributesW(localAppData().c_str()), INVALID_FILE_ATTRIBUTES);
}

namespace {
// What becomes of a home; the path's text stays empty where there is no folder.
HRESULT folderOfHome(const char* home) {
    EnvironmentValue ofUser("HOME", home), data("XDG_DATA_HOME", nullptr), own("KORVANT_LOCALAPPDATA", nullptr);
    wchar_t path[MAX_PATH] = L"?";
    const HRESULT found = SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, path);
    EXPECT_EQ(FAILED(found), path[0] == 0);
    return found;
}
} // namespace

TEST(ShellFolders, a_user_without_a_home_of_his_own_has_none) {
    const std::string absent = testTempPath() + "/nobody";
    for (const char* home : {static_cast<const char*>(nullptr), "", "/", "//", absent.c_str()})
        EXPECT_EQ(folderOfHome(home), HRESULT_FROM_WIN32(ERROR_ENVVAR_NOT_FOUND)) << (home == nullptr ? "no HOME" : home);
    EXPECT_EQ(GetFileAttributesW(hostForm(absent).c_str()), INVALID_FILE_ATTRIBUTES); // it is not made for him
}

TEST(ShellFolders, a_path_too_long_for_the_buffer_is_told_and_nothing_of_it_is_made) {
    const std::string begin = testTempPath() + "/" + std::string(200, 'a');
    EnvironmentValue own("KORVANT_LOCALAPPDATA", (begin + "/" + std::string(100, 'b')).c_str());
    wchar_t path[MAX_PATH] = L"?";
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, path), HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE));
    EXPECT_EQ(GetFileAttributesW(hostForm(begin).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(ShellFolders, a_folder_that_cannot_be_made_or_named_is_told) {
    const std::string folder = testTempPath();
    writeBytes(folder + "/file", "x");
    for (const std::string& name : {folder + "/file/data", folder + "/back\\slash"}) {
        EnvironmentValue own("KORVANT_LOCALAPPDATA", name.c_str());
        wchar_t path[MAX_PATH] = L"?";
        EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, path), HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND));
    }
}

TEST(ShellFolders, a_relative_folder_is_given_in_full) {
    EnvironmentValue own("KORVANT_LOCALAPPDATA", ".");
    EXPECT_EQ(localAppData().front(), L'\\');
}

TEST(ShellFolders, an_unknown_folder_id_fails) {
    wchar_t path[MAX_PATH] = L"?";
    EXPECT_TRUE(FAILED(SHGetFolderPathW(nullptr, 5, nullptr, 0, path)));
    EXPECT_STREQ(path, L"");
}

TEST(ShellExecute, names_what_it_opens) {
    const std::string folder = testTempPath();
    writeBytes(folder + "/report.xhtml", "x");
    PrintedText printed;
    const std::wstring file = hostForm(folder) + L"\\report.xhtml";
    EXPECT_GT(ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL), 32);
    EXPECT_EQ(printed.text, L"Megnyitás: " + file + L"\n");
    EXPECT_EQ(winOpenedDocuments().back(), file);
}

TEST(ShellExecute, an_absent_file_is_told_and_not_opened) {
    PrintedText printed;
    const std::size_t before = winOpenedDocuments().size();
    EXPECT_LE(ShellExecuteW(nullptr, L"open", L"\\none\\none.txt", nullptr, nullptr, SW_SHOWNORMAL), 32);
    EXPECT_EQ(winOpenedDocuments().size(), before);
    EXPECT_NE(printed.text.find(L"Nem nyitható meg"), std::wstring::npos);
}

TEST(HtmlHelp, a_topic_is_a_page_in_the_folder_of_the_book) {
    const std::string folder = testTempPath();
    mkdir((folder + "/help").c_str(), 0777);
    writeBytes(folder + "/help/Welcome.html", "<html></html>");
    PrintedText printed;
    const std::wstring book = hostForm(folder) + L"\\help\\Korvant.chm::/";
    EXPECT_NE(HtmlHelpW(nullptr, (book + L"Welcome.html").c_str(), HH_DISPLAY_TOPIC, 0), nullptr);
    EXPECT_EQ(printed.text, L"Súgó: Welcome.html\n");
    EXPECT_EQ(winOpenedDocuments().back(), book + L"Welcome.html");
    EXPECT_EQ(winHelpPage((book + L"Welcome.html").c_str()), hostForm(folder) + L"\\help\\Welcome.html");
    EXPECT_EQ(HtmlHelpW(nullptr, (book + L"None.html").c_str(), HH_DISPLAY_TOPIC, 0), nullptr);
    EXPECT_NE(printed.text.find(L"None.html (nincs ilyen oldal)"), std::wstring::npos);
}

TEST(HtmlHelp, a_page_may_lie_in_a_help_folder_beside_the_book) {
    const std::string folder = testTempPath();
    mkdir((folder + "/help").c_str(), 0777);
    writeBytes(folder + "/help/A.html", "");
    EXPECT_EQ(winHelpPage((hostForm(folder) + L"\\Korvant.chm::/A.html").c_str()), hostForm(folder) + L"\\help\\A.html");
}

TEST(HtmlHelp, an_address_that_climbs_out_of_the_help_is_no_page) {
    EXPECT_EQ(winHelpPage(L"\\help\\Korvant.chm::/..\\..\\etc\\passwd"), L"");
    EXPECT_EQ(winHelpPage(L"junk"), L"");
    EXPECT_EQ(winHelpPage(nullptr), L"");
}
