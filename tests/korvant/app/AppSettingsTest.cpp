// The settings files: what counts as a key line, the rules for earlier versions, the writers.
#include "TrfcAppSettings.h"

#include "AcUtText.h"
#include "TestSupport.h"
#include "WinBinaryFile.h"
#include "WinFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace TrfcAppSettings;

namespace {

std::wstring writeFile(const std::wstring& text, const std::wstring& name = L"settings.ini", const std::wstring& folder = testTempDir()) {
    const std::wstring path = folder + L"/" + name;
    const std::string bytes = acToAnsi(text);
    WinBinaryFile file;
    EXPECT_TRUE(file.open(path.c_str(), L"wb"));
    file.write(bytes.data(), bytes.size());
    file.close();
    return path;
}

std::wstring readBack(const std::wstring& path) {
    std::string bytes;
    EXPECT_TRUE(winReadFile(path.c_str(), bytes));
    std::wstring text = acFromAnsi(bytes);
    std::erase(text, L'\r');
    return text;
}

std::wstring appValue(const std::wstring& file, const ACHAR* key) {
    EXPECT_TRUE(loadAppSettings(writeFile(file)));
    return getAppString(key);
}

} // namespace

TEST(AppSettings, a_file_without_a_line_end_after_its_last_line_loses_that_line) {
    EXPECT_EQ(appValue(L"A_KEY=1\nB_KEY=2", L"A_KEY"), L"1");
    EXPECT_EQ(getAppString(L"B_KEY"), L"");
}

TEST(AppSettings, a_key_with_an_empty_value_is_stored_empty) {
    EXPECT_EQ(appValue(L"KEY=earlier\nKEY=\nOTHER=x\n", L"KEY"), L"");
    EXPECT_EQ(getAppString(L"OTHER"), L"x");
}

TEST(AppSettings, a_line_that_begins_with_the_equals_sign_is_ignored) {
    EXPECT_EQ(appValue(L"=xyz\n", L""), L"");
}

TEST(AppSettings, lines_of_two_characters_are_too_short_to_count) {
    EXPECT_EQ(appValue(L"a=1\na=\n", L"a"), L"1");
    EXPECT_EQ(appValue(L"b=1\n  b= \t\n", L"b"), L"1") << "blanks about them do not count";
    EXPECT_EQ(appValue(L"ab=1\nab=\n", L"ab"), L"") << "a third character does";
}

TEST(AppSettings, a_blank_before_the_semicolon_makes_a_key_line_of_a_comment) {
    EXPECT_EQ(appValue(L" ;KEY=value\n;HIDDEN=1\n", L";KEY"), L"value");
    EXPECT_EQ(getAppString(L";HIDDEN"), L"");
}

TEST(AppSettings, key_and_value_are_cut_at_the_first_equals_sign_and_not_trimmed_further) {
    EXPECT_EQ(appValue(L"  KEY = a = b  \n", L"KEY "), L" a = b");
}

TEST(AppSettings, sections_are_for_human_readers_only) {
    EXPECT_EQ(appValue(L"[one]\nKEY=1\n[two=x]\nKEY=2\n", L"KEY"), L"2");
    EXPECT_EQ(getAppString(L"[two"), L"");
}

TEST(AppSettings, a_line_of_more_than_999_characters_is_taken_in_pieces) {
    // The first piece is 999 characters, of which the last is lost; the rest is a line of its own.
    const std::wstring value(1000, L'v');
    EXPECT_EQ(appValue(L"KEY=" + value + L"\nNEXT=1\n", L"KEY"), std::wstring(994, L'v'));
    EXPECT_EQ(getAppString(L"NEXT"), L"1");
}

TEST(AppSettings, a_version_7_file_keeps_the_posts_path_and_a_version_6_file_loses_it) {
    EXPECT_EQ(appValue(L"VERSION_NUMBER=7\nAPP_POSTS_BASE_PATH=C:\\Oszlopok\n", APP_POSTS_BASE_PATH), L"C:\\Oszlopok");
    EXPECT_EQ(appValue(L"VERSION_NUMBER=6\nAPP_POSTS_BASE_PATH=C:\\Oszlopok\n", APP_POSTS_BASE_PATH), L"");
}

TEST(AppSettings, a_version_2_file_loses_the_supplementary_folder) {
    EXPECT_EQ(appValue(L"VERSION_NUMBER=2\nAPP_TABLES_COMPL_DIR=kieg\n", APP_TABLES_COMPL_DIR), L"");
    EXPECT_EQ(appValue(L"VERSION_NUMBER=3\nAPP_TABLES_COMPL_DIR=kieg\n", APP_TABLES_COMPL_DIR), L"kieg");
}

TEST(AppSettings, a_missing_version_number_applies_every_rule) {
    EXPECT_EQ(appValue(L"APP_POSTS_BASE_PATH=x\nAPP_TABLES_COMPL_DIR=y\n", APP_POSTS_BASE_PATH), L"");
    EXPECT_EQ(getAppString(APP_TABLES_COMPL_DIR), L"");
    ASSERT_TRUE(loadDocDefaults(writeFile(L"DOC_ANNO_COLOR=3\nDOC_POST_OVERLAP_ERR=9\n")));
    EXPECT_EQ(getDocDefault(DOC_ANNO_COLOR), L"256");
    EXPECT_EQ(getDocDefault(DOC_POST_OVERLAP_ERR), L"0.001000");
    EXPECT_EQ(getDocDefault(DOC_POST_DEFAULT_DWG), L"Oszlopok\\Jelzőoszlop.dwg");
}

TEST(AppSettings, defaults_of_version_7_stay_as_they_are) {
    ASSERT_TRUE(loadDocDefaults(writeFile(L"VERSION_NUMBER=7\nDOC_ANNO_COLOR=3\nDOC_POST_DEFAULT_DWG=Más\\Őr.dwg\n")));
    EXPECT_EQ(getDocDefault(DOC_ANNO_COLOR), L"3");
    EXPECT_EQ(getDocDefault(DOC_POST_DEFAULT_DWG), L"Más\\Őr.dwg");
}

TEST(AppSettings, each_migration_default_has_its_version) {
    struct Case {
        int below;
        const ACHAR* key;
        const ACHAR* value;
    };
    const Case cases[] = {
        {2, DOC_POST_OVERLAP_ERR, L"0.001000"},   {2, DOC_USE_GRAYSCALE_TABLES, L"0"},   {3, DOC_AUTO_ORDER_TABLES, L"1"},
        {5, DOC_POST_DEFAULT_TYPE, L"0"},         {5, DOC_CROSSWALK_DEFAULT_TYPE, L"0"}, {7, DOC_POST_DEFAULT_DWG, L"Oszlopok\\Jelzőoszlop.dwg"},
        {7, DOC_POST_ALIEN_DWG, L"Oszlopok\\Idegen oszlop.dwg"}, {5, DOC_BLOCK_DEFAULT_TYPE, L"0"}, {6, DOC_BLOCK_ENT_DEFAULT_TYPE, L"0"},
        {5, DOC_USE_WHITESCALE_TABLES, L"0"},     {5, DOC_USE_OTHER_COLOR_TABLES, L"0"}, {6, DOC_ANNO_MIN_DIST, L"0.020000"},
        {6, DOC_ANNO_HEIGHT, L"0.002500"},        {6, DOC_ANNO_COLOR, L"256"},           {6, DOC_ANNO_TYPE, L"Standard"},
        {6, DOC_ANNO_LINE_COLOR, L"256"},         {6, DOC_ANNO_LINE_TYPE, L"ByLayer"},   {6, DOC_ANNO_LINE_WEIGHT, L"-1"},
    };
    for (const Case& c : cases) {
        const auto load = [&](int version) {
            ASSERT_TRUE(loadDocDefaults(writeFile(acFormat(L"VERSION_NUMBER=%d\n%s=kept\n", version, c.key))));
        };
        load(c.below - 1);
        EXPECT_EQ(getDocDefault(c.key), c.value) << acToUtf8(c.key);
        load(c.below);
        EXPECT_EQ(getDocDefault(c.key), L"kept") << acToUtf8(c.key);
    }
}

TEST(AppSettings, a_scale_list_in_the_defaults_is_dropped_at_load) {
    ASSERT_TRUE(loadDocDefaults(writeFile(L"VERSION_NUMBER=7\nDOC_SCALE_LIST=200/500\n")));
    EXPECT_EQ(getDocDefault(DOC_SCALE_LIST), L"");
}

TEST(AppSettings, a_file_that_cannot_be_opened_leaves_the_table_cleared) {
    ASSERT_EQ(appValue(L"KEY=1\n", L"KEY"), L"1");
    EXPECT_FALSE(loadAppSettings(testTempDir() + L"/none.ini"));
    EXPECT_EQ(getAppString(L"KEY"), L"");
}

TEST(AppSettings, a_value_that_is_no_number_reads_as_0) {
    EXPECT_EQ(appValue(L"BLOCK_VIEW_SIZE=abc\n", BLOCK_VIEW_SIZE), L"abc");
    EXPECT_EQ(getAppInt(BLOCK_VIEW_SIZE), 0);
    EXPECT_EQ(getAppInt(L"ABSENT"), 0);
    setAppInt(BLOCK_VIEW_SIZE, -3);
    EXPECT_EQ(getAppString(BLOCK_VIEW_SIZE), L"-3");
}

TEST(AppSettings, the_interface_type_is_edited_on_a_copy_and_written_under_its_own_key) {
    ASSERT_EQ(appValue(L"VERSION_NUMBER=7\nUSER_INTERFACE_TYPE=RIBBON\n", USER_INTERFACE_TYPE_TEMP), L"RIBBON");
    setAppString(USER_INTERFACE_TYPE_TEMP, L"TOOLBAR");
    EXPECT_EQ(getAppString(USER_INTERFACE_TYPE), L"RIBBON");
    const std::wstring path = testTempDir() + L"/saved.ini";
    ASSERT_TRUE(saveAppSettings(path));
    const std::wstring saved = readBack(path);
    EXPECT_NE(saved.find(L"\nUSER_INTERFACE_TYPE=TOOLBAR\n"), std::wstring::npos);
    EXPECT_EQ(saved.find(L"USER_INTERFACE_TYPE_TEMP"), std::wstring::npos);
}

TEST(AppSettings, the_settings_file_is_written_in_its_fixed_order) {
    ASSERT_TRUE(loadAppSettings(writeFile(L"VERSION_NUMBER=5\nDEFAULTS_INI_PATH=d\nAPP_SYMBOL_BASE_PATH=s\nAPP_TABLES_BASE_PATH=t\nAPP_TABLES_COMPL_DIR=k\n"
                                          L"APP_LAMPS_BASE_PATH=l\nAPP_BLOCK_BASE_PATH=b\nAPP_TABLES_UNIQ_DIR=u\nAPP_TEMP_DIR_PATH=m\nUSER_INTERFACE_TYPE=RIBBON\nBLOCK_VIEW_SIZE=2\n")));
    const std::wstring path = testTempDir() + L"/saved.ini";
    ASSERT_TRUE(saveAppSettings(path));
    EXPECT_EQ(readBack(path), L"[version]\nVERSION_NUMBER=7\n\n[defaults]\nDEFAULTS_INI_PATH=d\n\n[block library]\nAPP_SYMBOL_BASE_PATH=s\nAPP_POSTS_BASE_PATH=\n"
                              L"APP_TABLES_BASE_PATH=t\nAPP_TABLES_COMPL_DIR=k\nAPP_LAMPS_BASE_PATH=l\nAPP_BLOCK_BASE_PATH=b\nAPP_TABLES_UNIQ_DIR=u\nAPP_TEMP_DIR_PATH=m\n"
                              L"\n[ui]\nUSER_INTERFACE_TYPE=RIBBON\n\n[block view size]\nBLOCK_VIEW_SIZE=2\n");
}

TEST(AppSettings, the_defaults_file_is_written_in_its_fixed_order_and_reads_back) {
    clearDocDefaults();
    setDocDefault(DOC_CURRENT_SCALE, L"500");
    setDocDefault(DOC_POST_DEFAULT_DWG, L"Oszlopok\\Jelzőoszlop.dwg");
    setDocDefault(DOC_CROSSWALK_DEFAULT_TYPE, L"1");
    const std::wstring path = testTempDir() + L"/defaults.ini";
    ASSERT_TRUE(saveDocDefaults(path));
    const std::wstring saved = readBack(path);
    EXPECT_EQ(saved.substr(0, 74), L"[version]\nVERSION_NUMBER=7\n\n[scale]\nDOC_SCALE_LIST=\nDOC_CURRENT_SCALE=500\n");
    const std::wstring keys[] = {L"[post measure]", L"DOC_BASEPOINTD", L"DOC_POST_ALPHA0", L"DOC_POST_MIN_AB", L"DOC_POST_MIN_CD", L"DOC_POST_OVERLAP_ERR", L"DOC_POST_DEFAULT_TYPE",
                                 L"DOC_POST_DEFAULT_DWG", L"DOC_POST_ALIEN_DWG", L"[post annotation measure]", L"DOC_ANNO_MIN_DIST", L"DOC_ANNO_HEIGHT", L"DOC_ANNO_COLOR", L"DOC_ANNO_TYPE",
                                 L"DOC_ANNO_LINE_COLOR", L"DOC_ANNO_LINE_TYPE", L"DOC_ANNO_LINE_WEIGHT", L"[block measure]", L"DOC_EXISTING_TABLE_D", L"DOC_PLANNED_TABLE_D", L"DOC_EXISTING_LAMP_D",
                                 L"DOC_PLANNED_LAMP_D", L"DOC_BLOCK_DEFAULT_TYPE", L"DOC_BLOCK_ENT_DEFAULT_TYPE", L"[block color]", L"DOC_USE_OTHER_COLOR_TABLES", L"DOC_USE_GRAYSCALE_TABLES",
                                 L"DOC_USE_WHITESCALE_TABLES", L"[table order]", L"DOC_AUTO_ORDER_TABLES", L"[crosswalk measure]", L"DOC_CROSSWALK_DEFAULT_TYPE=1\n"};
    std::size_t at = 0;
    for (const std::wstring& key : keys) {
        at = saved.find(L"\n" + key, at);
        ASSERT_NE(at, std::wstring::npos) << acToUtf8(key);
    }
    ASSERT_TRUE(loadDocDefaults(path));
    EXPECT_EQ(getDocDefault(DOC_POST_DEFAULT_DWG), L"Oszlopok\\Jelzőoszlop.dwg");
}

TEST(AppSettings, saving_to_a_folder_that_does_not_exist_fails) {
    EXPECT_FALSE(saveAppSettings(testTempDir() + L"/none/settings.ini"));
    EXPECT_FALSE(saveDocDefaults(testTempDir() + L"/none/defaults.ini"));
}

// ---- the per-user folder

class UserFolder : public testing::Test {
protected:
    void SetUp() override {
        mData = testTempPath();
        setenv("KORVANT_LOCALAPPDATA", mData.c_str(), 1);
        const std::wstring installation = testTempDir();
        CreateDirectoryW((installation + L"/bin").c_str(), nullptr);
        for (const wchar_t* name : kNames)
            writeFile(std::wstring(L"installed ") + name, name, installation + L"/bin");
        setModuleDirectory(installation + L"/korvant.arx");
    }
    std::wstring content(const std::wstring& name) { return readBack(perUserFolder() + name); }
    static constexpr const wchar_t* kNames[] = {L"settings.ini", L"defaults.ini", L"Zorvat.dll", L"Zorvat.mnu", L"Zorvat.mnl", L"korvant.sdf"};
    std::string mData;
};

TEST_F(UserFolder, is_made_and_filled_with_the_six_installed_files) {
    const std::wstring path = settingsFilePath();
    EXPECT_EQ(path, perUserFolder() + L"settings.ini");
    EXPECT_NE(path.find(L"\\Korvant 2018\\settings.ini"), std::wstring::npos);
    for (const wchar_t* name : kNames)
        EXPECT_EQ(content(name), std::wstring(L"installed ") + name);
}

TEST_F(UserFolder, a_complete_folder_is_left_alone) {
    settingsFilePath();
    writeFile(L"mine", L"settings.ini", perUserFolder());
    settingsFilePath();
    EXPECT_EQ(content(L"settings.ini"), L"mine");
}

TEST_F(UserFolder, removing_any_one_file_resets_all_of_them) {
    for (const wchar_t* removed : kNames) {
        settingsFilePath();
        for (const wchar_t* name : kNames)
            writeFile(L"mine", name, perUserFolder());
        ASSERT_TRUE(DeleteFileW((perUserFolder() + removed).c_str()));
        settingsFilePath();
        for (const wchar_t* name : kNames)
            EXPECT_EQ(content(name), std::wstring(L"installed ") + name) << acToUtf8(removed);
    }
}

TEST_F(UserFolder, files_that_cannot_be_copied_are_passed_over) {
    setModuleDirectory(testTempDir() + L"/korvant.arx"); // nothing is installed there
    EXPECT_EQ(settingsFilePath(), perUserFolder() + L"settings.ini");
    EXPECT_FALSE(loadAppSettings(settingsFilePath()));
    const std::wstring folder = perUserFolder();
    writeFile(L"mine", L"settings.ini", folder);
    settingsFilePath();
    EXPECT_EQ(content(L"settings.ini"), L"mine");
}

TEST_F(UserFolder, the_module_directory_ends_in_its_last_backslash) {
    setModuleDirectory(L"/opt/korvant/sub/../korvant.arx");
    EXPECT_EQ(moduleDirectory(), L"\\opt\\korvant\\");
}

TEST(AppSettings, keys_differ_by_case) {
    EXPECT_EQ(appValue(L"KEY=1\nkey=2\n", L"KEY"), L"1");
    EXPECT_EQ(getAppString(L"key"), L"2");
}

TEST(AppSettings, a_load_forgets_what_the_table_held) {
    setAppString(L"MINE", L"x");
    setDocDefault(L"MINE", L"x");
    ASSERT_TRUE(loadAppSettings(writeFile(L"KEY=1\n")));
    ASSERT_TRUE(loadDocDefaults(writeFile(L"KEY=1\n", L"defaults.ini")));
    EXPECT_EQ(getAppString(L"MINE"), L"");
    EXPECT_EQ(getDocDefault(L"MINE"), L"");
}

TEST(AppSettings, the_sections_of_the_defaults_file_stand_behind_an_empty_line) {
    clearDocDefaults();
    const std::wstring path = testTempDir() + L"/defaults.ini";
    ASSERT_TRUE(saveDocDefaults(path));
    const std::wstring saved = readBack(path);
    for (const wchar_t* section : {L"[scale]", L"[post measure]", L"[post annotation measure]", L"[block measure]", L"[block color]", L"[table order]", L"[crosswalk measure]"})
        EXPECT_NE(saved.find(std::wstring(L"\n\n") + section + L"\n"), std::wstring::npos) << acToUtf8(section);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), L'\n'), 2 + 7 * 2 + 28); // the version, seven sections, 28 keys
}

// ---- letters beyond the code page, users without a folder, installations that are gone

TEST(AppSettings, a_path_of_any_letters_survives_saving) {
    const std::wstring path = testTempDir() + L"/settings.ini";
    for (const wchar_t* value : {L"C:\\Παράδειγμα\\defaults.ini", L"/home/Иванов 😀/x ", L"<U+0041>", L"Őrült?"}) {
        ASSERT_TRUE(loadAppSettings(writeFile(L"KEY=1\n")));
        setAppString(DEFAULTS_INI_PATH, value);
        ASSERT_TRUE(saveAppSettings(path));
        ASSERT_TRUE(loadAppSettings(path));
        EXPECT_EQ(getAppString(DEFAULTS_INI_PATH), value) << acToUtf8(value);
    }
}

TEST(AppSettings, a_path_whose_line_would_be_read_in_pieces_reads_as_not_set) {
    const std::wstring path = testTempDir() + L"/settings.ini";
    ASSERT_TRUE(loadAppSettings(writeFile(L"KEY=1\n")));
    setAppString(DEFAULTS_INI_PATH, std::wstring(150, L'ж'));
    setAppString(APP_TABLES_COMPL_DIR, L"kept");
    ASSERT_TRUE(saveAppSettings(path));
    ASSERT_TRUE(loadAppSettings(path));
    EXPECT_EQ(getAppString(DEFAULTS_INI_PATH), L"");
    EXPECT_EQ(getAppString(APP_TABLES_COMPL_DIR), L"kept");
}

TEST_F(UserFolder, a_user_without_one_has_no_settings_file_and_nothing_is_written) {
    setenv("KORVANT_LOCALAPPDATA", "/", 1);
    EXPECT_EQ(perUserFolder(), L"");
    EXPECT_EQ(settingsFilePath(), L"");
    EXPECT_FALSE(saveAppSettings(settingsFilePath()));
    EXPECT_EQ(GetFileAttributesW(L"\\Korvant 2018"), INVALID_FILE_ATTRIBUTES);
}

namespace {
class AbsentLibrary : public UserFolder {
protected:
    void SetUp() override {
        UserFolder::SetUp();
        mRunning = moduleDirectory();
        mRunning.pop_back();
        for (const wchar_t* name : {L"\\library", L"\\library\\Táblák", L"\\library\\Lámpák", L"\\mine"})
            CreateDirectoryW((mRunning + name).c_str(), nullptr);
        install(mRunning + L"\\library");
    }
    // The installation's settings, as the place they were installed in had it.
    void install(const std::wstring& library) {
        writeFile(L"VERSION_NUMBER=7\nAPP_TABLES_BASE_PATH=" + library + L"\\Táblák\nAPP_LAMPS_BASE_PATH=" + library + L"\\Lámpák\n", L"settings.ini", mRunning + L"\\bin");
    }
    std::wstring start(const std::wstring& lines) {
        EXPECT_TRUE(loadAppSettings(writeFile(L"VERSION_NUMBER=7\n" + lines)));
        return substituteAbsentLibraries();
    }
    std::wstring mRunning;
};
} // namespace

TEST_F(AbsentLibrary, falls_back_to_the_folder_of_the_running_installation) {
    EXPECT_EQ(start(L"APP_TABLES_BASE_PATH=\\old\\Táblák\nAPP_LAMPS_BASE_PATH=" + mRunning + L"\\mine\n"), L"\\old\\Táblák");
    EXPECT_EQ(libraryFolder(APP_TABLES_BASE_PATH), mRunning + L"\\library\\Táblák");
    EXPECT_EQ(libraryFolder(APP_LAMPS_BASE_PATH), mRunning + L"\\mine"); // it stands
}

TEST_F(AbsentLibrary, the_table_keeps_what_the_user_set) {
    start(L"APP_TABLES_BASE_PATH=\\old\\Táblák\n");
    EXPECT_EQ(getAppString(APP_TABLES_BASE_PATH), L"\\old\\Táblák");
    const std::wstring path = testTempDir() + L"/saved.ini";
    ASSERT_TRUE(saveAppSettings(path));
    EXPECT_NE(readBack(path).find(L"APP_TABLES_BASE_PATH=\\old\\Táblák\n"), std::wstring::npos);
    setAppString(APP_TABLES_BASE_PATH, L"\\new"); // counts at once, as any setting does
    EXPECT_EQ(libraryFolder(APP_TABLES_BASE_PATH), L"\\new");
}

TEST_F(AbsentLibrary, an_installation_that_was_moved_is_found_beside_the_module) {
    install(L"\\where\\it\\was");
    EXPECT_EQ(start(L"APP_TABLES_BASE_PATH=\\where\\it\\was\\Táblák\n"), L"\\where\\it\\was\\Táblák");
    EXPECT_EQ(libraryFolder(APP_TABLES_BASE_PATH), mRunning + L"\\library\\Táblák");
}

TEST_F(AbsentLibrary, a_path_that_is_not_set_or_has_nothing_to_stand_for_it_stays) {
    EXPECT_EQ(start(L"APP_TABLES_BASE_PATH=\nAPP_BLOCK_BASE_PATH=\\old\\Jelek\n"), L"");
    EXPECT_EQ(libraryFolder(APP_TABLES_BASE_PATH), L"");
    EXPECT_EQ(libraryFolder(APP_BLOCK_BASE_PATH), L"\\old\\Jelek");
}

TEST_F(AbsentLibrary, the_next_load_begins_without_substitutes) {
    start(L"APP_TABLES_BASE_PATH=\\old\\Táblák\n");
    ASSERT_TRUE(loadAppSettings(writeFile(L"VERSION_NUMBER=7\nAPP_TABLES_BASE_PATH=\\old\\Táblák\n")));
    EXPECT_EQ(libraryFolder(APP_TABLES_BASE_PATH), L"\\old\\Táblák");
}
