#include "OdbcTestSupport.h"
#include "WinLibrary.h"

#include "AcPath.h"

#include <cstdlib>
#include <filesystem>

namespace {
std::vector<std::wstring> listed(const wchar_t* list) {
    std::vector<std::wstring> names;
    for (; *list != 0; list += names.back().size() + 1)
        names.emplace_back(list);
    return names;
}

TEST(DriverList, the_built_in_drivers_come_first_then_the_machine_s) {
    wchar_t buffer[2000];
    WORD used = 0;
    ASSERT_TRUE(SQLGetInstalledDrivers(buffer, 2000, &used));
    const std::vector<std::wstring> names = listed(buffer);
    ASSERT_GE(names.size(), 2u);
    EXPECT_NE(names[0].find(L"*.mdb"), std::wstring::npos);
    EXPECT_NE(names[1].find(L"Excel"), std::wstring::npos);
    EXPECT_NE(std::find(names.begin() + 2, names.end(), L"SQLite3"), names.end());
    EXPECT_NE(std::find(names.begin() + 2, names.end(), L"MDBTools"), names.end());
    EXPECT_EQ(buffer[used], 0);
    EXPECT_EQ(buffer[used - 1], 0);
}

TEST(DriverList, a_small_buffer_takes_whole_names) {
    wchar_t buffer[30];
    WORD used = 0;
    ASSERT_TRUE(SQLGetInstalledDrivers(buffer, 30, &used));
    EXPECT_EQ(listed(buffer).size(), 1u);
    ASSERT_TRUE(SQLGetInstalledDrivers(buffer, 2, &used));
    EXPECT_EQ(used, 0);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(buffer[1], 0);
    EXPECT_FALSE(SQLGetInstalledDrivers(buffer, 1, &used));
    EXPECT_FALSE(SQLGetInstalledDrivers(nullptr, 100, &used));
}

TEST(DataSource, is_looked_up_at_run_time_and_makes_a_database) {
    const HMODULE library = LoadLibraryW(L"ODBCCP32.DLL");
    ASSERT_NE(library, nullptr);
    using Config = BOOL (*)(HWND, WORD, LPCWSTR, LPCWSTR);
    const auto config = reinterpret_cast<Config>(GetProcAddress(library, "SQLConfigDataSourceW"));
    ASSERT_NE(config, nullptr);
    const std::wstring path = testTempDir() + L"\\új adat bázis.mdb";
    EXPECT_TRUE(config(nullptr, 1, L"Access Driver (*.mdb)", (L"CREATE_DB=\"" + path + L"\" General").c_str()));
    EXPECT_EQ(violations(path), "");
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (A NUMBER)");
    EXPECT_TRUE(FreeLibrary(library));
}

TEST(DataSource, the_narrow_form_takes_paths_in_the_single_byte_code_page) {
    using Config = BOOL (*)(HWND, WORD, const char*, const char*);
    const auto config = reinterpret_cast<Config>(GetProcAddress(LoadLibraryW(L"odbccp32"), "SQLConfigDataSource"));
    ASSERT_NE(config, nullptr);
    const std::wstring path = testTempDir() + L"\\őű.mdb";
    EXPECT_TRUE(config(nullptr, 1, "Access Driver (*.mdb)", acToAnsi(L"CREATE_DB=\"" + path + L"\" General").c_str()));
    EXPECT_TRUE(std::filesystem::exists(acFileSystemPath(path)));
    using Drivers = BOOL (*)(char*, WORD, WORD*);
    const auto drivers = reinterpret_cast<Drivers>(GetProcAddress(LoadLibraryW(L"odbccp32"), "SQLGetInstalledDrivers"));
    char names[200];
    ASSERT_TRUE(drivers(names, 200, nullptr));
    EXPECT_STREQ(names, "Access Driver (*.mdb)");
}

TEST(DataSource, unknown_libraries_and_functions_are_not_found) {
    EXPECT_EQ(LoadLibraryW(L"nincs.dll"), nullptr);
    EXPECT_EQ(GetProcAddress(LoadLibraryW(L"odbccp32.dll"), "NoSuchFunction"), nullptr);
    EXPECT_EQ(GetProcAddress(nullptr, "SQLConfigDataSource"), nullptr);
}

TEST(DataSource, general_alone_makes_nothing) {
    EXPECT_TRUE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Access Driver (*.mdb)", L"General"));
}

TEST(DataSource, a_file_that_stands_is_not_made_anew) {
    const std::wstring path = newDatabase();
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"CREATE TABLE T (A NUMBER)");
        database.Close();
    }
    const std::string before = fileBytes(path);
    EXPECT_FALSE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Access Driver (*.mdb)", (L"CREATE_DB=\"" + path + L"\" General").c_str()));
    EXPECT_EQ(fileBytes(path), before);
}

TEST(DataSource, other_requests_drivers_and_folders_fail) {
    const std::wstring attributes = L"CREATE_DB=\"" + testTempDir() + L"\\none\\a.mdb\" General";
    EXPECT_FALSE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Access Driver (*.mdb)", attributes.c_str()));
    EXPECT_FALSE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"", L"General"));
    EXPECT_FALSE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, L"Excel Driver (*.xls)", L"General"));
    EXPECT_FALSE(SQLConfigDataSource(nullptr, 2, L"Access Driver (*.mdb)", L"General"));
    EXPECT_FALSE(SQLConfigDataSource(nullptr, ODBC_ADD_DSN, nullptr, nullptr));
}

TEST(Connect, a_string_without_driver_and_source_would_ask_and_is_not_opened) {
    CDatabase database;
    EXPECT_FALSE(database.Open(nullptr, FALSE, FALSE, L"ODBC;", TRUE));
    EXPECT_FALSE(database.Open(nullptr, FALSE, FALSE, L"ODBC;DSN='';DBQ=x", TRUE));
    EXPECT_FALSE(database.IsOpen());
    refusal([&] { database.OpenEx(L"", CDatabase::noOdbcDialog); });
}

TEST(Connect, open_and_openex_take_the_same_file_by_host_path) {
    const std::wstring path = newDatabase(testTempDir(), L"Minta.mdb");
    std::wstring shouted = path;
    shouted.replace(shouted.rfind(L"Minta"), 9, L"MINTA.MDB");
    CDatabase database;
    EXPECT_TRUE(database.OpenEx((L"Driver={access driver (*.MDB)};dbq=" + shouted).c_str(), CDatabase::noOdbcDialog));
    EXPECT_TRUE(database.IsOpen());
    refusal([&] { database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str()); });
    EXPECT_TRUE(database.IsOpen());
    database.Close();
    EXPECT_FALSE(database.IsOpen());
    database.Close();
    refusal([&] { database.ExecuteSQL(L"SELECT * FROM T"); });
}

TEST(Connect, a_driver_that_is_not_installed_is_named_by_the_driver_manager) {
    CDatabase database;
    try {
        database.Open(nullptr, FALSE, FALSE, L"ODBC;DRIVER={No Such Driver};DBQ=x");
        FAIL();
    } catch (CDBException* error) {
        EXPECT_FALSE(error->m_strError.IsEmpty());
        EXPECT_NE(error->m_strStateNativeOrigin.text().find(L"State:"), std::wstring::npos);
        error->Delete();
    }
    refusal([&] { database.Open(nullptr, FALSE, FALSE, L"ODBC;DRIVER={Access Driver (*.mdb)}"); });
    refusal([&] { database.Open(L"no such source"); });
}

TEST(MachineDriver, the_sqlite_driver_writes_and_reads) {
    CDatabase database;
    ASSERT_TRUE(database.Open(nullptr, FALSE, FALSE, (L"ODBC;DRIVER={SQLite3};DSN='';Database=" + testTempDir() + L"/a.db").c_str()));
    database.ExecuteSQL(L"CREATE TABLE T (ID double, NEV varchar(255), N integer, B blob, M text)");
    database.ExecuteSQL(L"INSERT INTO T VALUES (0.1, 'árvíztűrő tükörfúrógép', -5, x'00FF', NULL)");
    const std::wstring large(10000, L'ő');
    database.ExecuteSQL((L"INSERT INTO T VALUES (NULL, '', 7, NULL, '" + large + L"')").c_str());
    database.ExecuteSQL(L"DELETE FROM T WHERE ID=99");
    CRecordset set(&database);
    set.Open(CRecordset::snapshot, L"SELECT * FROM T ORDER BY N", CRecordset::readOnly);
    CDBVariant value;
    set.GetFieldValue(L"ID", value);
    ASSERT_EQ(value.m_dwType, DBVT_DOUBLE);
    EXPECT_EQ(value.m_dblVal, 0.1);
    set.GetFieldValue(L"NEV", value);
    ASSERT_EQ(value.m_dwType, DBVT_WSTRING);
    EXPECT_EQ(*value.m_pstringW, L"árvíztűrő tükörfúrógép");
    set.GetFieldValue(L"N", value);
    ASSERT_EQ(value.m_dwType, DBVT_LONG);
    EXPECT_EQ(value.m_lVal, -5);
    set.GetFieldValue(L"B", value);
    ASSERT_EQ(value.m_dwType, DBVT_BINARY);
    EXPECT_EQ(value.m_pbinary->m_data, (std::vector<BYTE>{0, 255}));
    set.GetFieldValue(L"M", value);
    EXPECT_EQ(value.m_dwType, DBVT_NULL);
    set.MoveNext();
    set.GetFieldValue(L"ID", value);
    EXPECT_EQ(value.m_dwType, DBVT_NULL);
    set.GetFieldValue(L"M", value);
    ASSERT_EQ(value.m_dwType, DBVT_WSTRING);
    EXPECT_EQ(value.m_pstringW->text(), large);
    const std::wstring text = refusal(database, L"SELECT * FROM NINCS");
    EXPECT_NE(text.find(L"NINCS"), std::wstring::npos);
    database.Close();
}

TEST(MachineDriver, the_mdb_driver_reads_what_the_built_in_one_wrote) {
    const std::wstring path = newDatabase();
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, NEV TEXT, N LONG, D DATETIME, B YESNO, C CURRENCY, M MEMO)");
        database.ExecuteSQL((L"INSERT INTO T VALUES (0.100000,'Őrült írás',5,'2001-02-03 04:05:06',TRUE,12.5,'" + std::wstring(3000, L'é') + L"')").c_str());
        database.ExecuteSQL(L"INSERT INTO T (ID) VALUES (-650123.456789)");
        database.Close();
    }
    CDatabase database;
    ASSERT_TRUE(database.Open(nullptr, FALSE, TRUE, (L"ODBC;DRIVER={MDBTools};DSN='';DBQ=" + acFromUtf8(acFileSystemPath(path))).c_str()));
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T"), 
              (Rows{{L"0.1", L"Őrült írás", L"5", L"2001-02-03 04:05:06", L"1", L"12.5000", std::wstring(3000, L'é')},
                    {L"-650123.456789", L"-", L"-", L"-", L"0", L"-", L"-"}}));
    refusal(database, L"SELECT * FROM NINCS");
    database.Close();
}
} // namespace
