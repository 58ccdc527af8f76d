// Opening, locking and replacing the files of the built-in databases.
#include "OdbcTestSupport.h"

#include "AcFileUse.h"
#include "AcPath.h"

#include <filesystem>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
std::string file(const std::wstring& path) {
    return acFileSystemPath(path);
}

std::wstring refusedOpen(const std::wstring& path) {
    CDatabase database;
    const std::wstring text = refusal([&] { database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str()); });
    EXPECT_FALSE(database.IsOpen());
    return text;
}

void fill(const std::wstring& path, int rows) {
    OpenDatabase database(path);
    database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, NEV TEXT)");
    for (int i = 0; i < rows; ++i)
        database.ExecuteSQL(acFormat(L"INSERT INTO T VALUES (%d,'name %d')", i, i).c_str());
    database.Close();
}

// Runs the action in a process of its own; its exit status.
int inChild(const std::function<int()>& action) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(action());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// 0 where it opens, 1 with an exception that holds the word, 2 with another.
int openStatus(const std::wstring& path, const wchar_t* word) {
    try {
        CDatabase database;
        return database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str()) ? 0 : 3;
    } catch (CDBException* error) {
        const bool told = error->m_strError.text().find(word) != std::wstring::npos;
        error->Delete();
        return told ? 1 : 2;
    }
}

TEST(FileOpen, an_absent_file_and_a_folder_are_told) {
    const std::wstring folder = testTempDir();
    EXPECT_NE(refusedOpen(folder + L"\\none.mdb").find(L"nem létezik"), std::wstring::npos);
    EXPECT_NE(refusedOpen(folder + L"\\none\\a.mdb").find(L"nem létezik"), std::wstring::npos);
    EXPECT_NE(refusedOpen(folder).find(L"mappa"), std::wstring::npos);
    EXPECT_NE(refusedOpen(L"/dev/null").find(L"nem fájl"), std::wstring::npos);
}

TEST(FileOpen, junk_is_no_database_and_stays_as_it_is) {
    const std::wstring path = testTempDir() + L"\\a.mdb";
    for (const std::string& bytes : {std::string(), std::string("x"), std::string(8192, '\0'), std::string(100000, 'j'), std::string("SQLite format 3\0", 16)}) {
        writeFile(path, bytes);
        EXPECT_FALSE(refusedOpen(path).empty());
        EXPECT_EQ(fileBytes(path), bytes);
    }
}

TEST(FileOpen, a_cut_file_is_refused) {
    const std::wstring path = newDatabase();
    fill(path, 500);
    const std::string whole = fileBytes(path);
    for (const std::size_t length : {whole.size() - 1, whole.size() - 4096, whole.size() / 2, std::size_t{4096}}) {
        writeFile(path, whole.substr(0, length));
        EXPECT_FALSE(refusedOpen(path).empty()) << length;
    }
}

TEST(FileOpen, a_file_with_a_password_or_encrypted_is_told_and_stays_as_it_is) {
    const std::wstring path = newDatabase();
    fill(path, 3);
    const std::string whole = fileBytes(path);
    for (const auto& [offset, word] : {std::pair(std::size_t{0x42}, L"jelszó"), std::pair(std::size_t{0x3E}, L"titkosított")}) {
        std::string changed = whole;
        changed[offset] ^= '\x5A';
        writeFile(path, changed);
        EXPECT_NE(refusedOpen(path).find(word), std::wstring::npos);
        EXPECT_EQ(fileBytes(path), changed);
    }
}

TEST(FileOpen, a_file_without_rights_is_told_and_one_to_be_read_only_can_be_read) {
    const std::wstring path = newDatabase();
    fill(path, 3);
    const std::string folder = std::filesystem::path(file(path)).parent_path().string();
    ::chmod(folder.c_str(), 0755);
    ::chmod(file(path).c_str(), 0600);
    const auto asNobody = [](const std::function<int()>& action) {
        return inChild([&] { return ::geteuid() == 0 && ::setuid(65534) != 0 ? 9 : action(); });
    };
    if (::geteuid() == 0) { // an owner has his rights
        EXPECT_EQ(asNobody([&] { return openStatus(path, L"incs jog"); }), 1);
    }
    ::chmod(file(path).c_str(), 0444);
    ::chmod(folder.c_str(), 0555);
    EXPECT_EQ(asNobody([&] {
        try {
            CDatabase database;
            database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
            if (rowsOf(database, L"SELECT * FROM T").size() != 3)
                return 4;
            database.ExecuteSQL(L"DELETE * FROM T");
            return 5;
        } catch (CDBException* error) {
            const bool told = error->m_strError.text().find(L"nincs jog") != std::wstring::npos;
            error->Delete();
            return told ? 1 : 2;
        }
    }), 1);
    ::chmod(folder.c_str(), 0755);
    const std::wstring workbook = acFromUtf8(folder) + L"/a.xls";
    EXPECT_EQ(asNobody([&] { // nor can a workbook be made there
        try {
            CDatabase database;
            database.Open(nullptr, FALSE, FALSE, excelConnect(workbook).c_str());
            return 5;
        } catch (CDBException* error) {
            error->Delete();
            return 1;
        }
    }), 1);
}

TEST(FileOpen, a_read_only_connection_changes_nothing) {
    const std::wstring path = newDatabase();
    fill(path, 3);
    CDatabase database;
    database.Open(nullptr, FALSE, TRUE, accessConnect(path).c_str());
    for (const wchar_t* sql : {L"DELETE * FROM T", L"INSERT INTO T VALUES (9,'a')", L"UPDATE T SET ID=1", L"DROP TABLE T", L"CREATE TABLE X (A NUMBER)"})
        refusal(database, sql);
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T").size(), 3u);
    database.Close();
    database.Open(nullptr, FALSE, FALSE, (L"ODBC;DRIVER={Access Driver (*.mdb)};READONLY=TRUE;DBQ=" + path).c_str());
    refusal(database, L"DELETE * FROM T");
}

TEST(FileLock, a_second_connection_of_this_program_or_another_is_refused) {
    const std::wstring path = newDatabase();
    OpenDatabase database(path);
    EXPECT_NE(refusedOpen(path).find(L"használatban"), std::wstring::npos);
    EXPECT_EQ(inChild([&] { return openStatus(path, L"használatban"); }), 1);
    database.ExecuteSQL(L"CREATE TABLE T (A NUMBER)");
    database.Close();
    EXPECT_EQ(inChild([&] { return openStatus(path, L""); }), 0);
    OpenDatabase again(path);
}

TEST(FileLock, ends_with_the_process_that_held_it) {
    const std::wstring path = newDatabase();
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t holder = ::fork();
    if (holder == 0) {
        CDatabase database;
        database.Open(nullptr, FALSE, FALSE, accessConnect(path).c_str());
        ::write(ready[1], "x", 1) == 1 ? ::pause() : 0;
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_NE(refusedOpen(path).find(L"használatban"), std::wstring::npos);
    ::kill(holder, SIGKILL);
    ::waitpid(holder, nullptr, 0);
    OpenDatabase database(path);
    EXPECT_TRUE(database.IsOpen());
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(FileClose, an_unchanged_database_is_not_written) {
    const std::wstring path = newDatabase();
    fill(path, 3);
    struct stat before {}, after {};
    ::stat(file(path).c_str(), &before);
    OpenDatabase database(path);
    rowsOf(database, L"SELECT * FROM T");
    database.ExecuteSQL(L"DELETE * FROM T WHERE ID=99");
    database.ExecuteSQL(L"UPDATE T SET ID=1 WHERE ID=99");
    database.Close();
    ::stat(file(path).c_str(), &after);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(FileClose, keeps_rights_and_links_and_leaves_no_other_file) {
    const std::wstring path = newDatabase();
    const std::string folder = std::filesystem::path(file(path)).parent_path().string();
    ::chmod(file(path).c_str(), 0640);
    std::filesystem::create_symlink("a.mdb", folder + "/link.mdb");
    fill(acFromUtf8(folder) + L"/link.mdb", 3);
    EXPECT_TRUE(std::filesystem::is_symlink(folder + "/link.mdb"));
    struct stat after {};
    ::stat(file(path).c_str(), &after);
    EXPECT_EQ(after.st_mode & 07777, 0640u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);
    OpenDatabase database(path);
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM T").size(), 3u);
}

TEST(FileClose, a_destroyed_database_is_written_too) {
    const std::wstring path = newDatabase();
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"CREATE TABLE T (A NUMBER)");
        CRecordset set(&database);
        set.Open(CRecordset::snapshot, L"SELECT * FROM T");
    }
    OpenDatabase again(path);
    EXPECT_EQ(rowsOf(again, L"SELECT * FROM T").size(), 0u);
}

TEST(FileClose, a_file_that_cannot_be_written_throws_once_and_stays) {
    const std::wstring path = newDatabase();
    fill(path, 3);
    const std::string before = fileBytes(path);
    const std::string folder = std::filesystem::path(file(path)).parent_path().string();
    const std::wstring moved = acFromUtf8(folder + "-moved");
    OpenDatabase database(path);
    database.ExecuteSQL(L"DELETE * FROM T");
    std::filesystem::rename(folder, acToUtf8(moved));
    EXPECT_NE(refusal([&] { database.Close(); }).find(L"nem írható"), std::wstring::npos);
    EXPECT_FALSE(database.IsOpen());
    database.Close();
    std::filesystem::rename(acToUtf8(moved), folder);
    EXPECT_EQ(fileBytes(path), before);
    { // and a destroyed one keeps silent but on standard error
        testing::internal::CaptureStderr();
        {
            OpenDatabase lost(path);
            lost.ExecuteSQL(L"DELETE * FROM T");
            std::filesystem::rename(folder, acToUtf8(moved));
        }
        EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
        std::filesystem::rename(acToUtf8(moved), folder);
    }
    EXPECT_EQ(fileBytes(path), before);
}

TEST(FileClose, a_record_too_long_for_the_format_is_told_under_the_file_s_own_name_and_the_old_file_stays) {
    const std::wstring path = newDatabase();
    std::wstring columns, values;
    for (int i = 0; i < 20; ++i) {
        columns += acFormat(L"%sC%d TEXT", i == 0 ? L"" : L", ", i);
        values += (i == 0 ? L"'" : L",'") + std::wstring(255, L'ű') + L"'";
    }
    const std::string before = fileBytes(path);
    OpenDatabase database(path);
    database.ExecuteSQL((L"CREATE TABLE T (" + columns + L")").c_str());
    database.ExecuteSQL((L"INSERT INTO T VALUES (" + values + L")").c_str());
    const std::wstring text = refusal([&] { database.Close(); });
    EXPECT_NE(text.find(L"4060 bájt"), std::wstring::npos);
    EXPECT_EQ(text.find(L".tmp"), std::wstring::npos);
    EXPECT_EQ(fileBytes(path), before);
}

TEST(FileClose, what_a_killed_process_left_is_cleared_at_the_next_opening_and_nothing_of_others) {
    const std::wstring path = newDatabase();
    const std::string left = file(path) + ".korvant-12345.tmp", busy = file(path) + ".korvant-54321.tmp";
    const std::vector<std::string> foreign{file(path) + ".mine.tmp", file(path) + ".2024.tmp", file(path) + ".korvant-x.tmp"};
    writeFile(acFromUtf8(left), "half");
    writeFile(acFromUtf8(busy), "half");
    for (const std::string& one : foreign)
        writeFile(acFromUtf8(one), "mine");
    const int writing = ::open(busy.c_str(), O_RDWR); // a program that is at work on it holds its lock
    ASSERT_TRUE(acLockFile(writing, AcFileLock::Exclusive));
    OpenDatabase database(path);
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_TRUE(std::filesystem::exists(busy));
    for (const std::string& one : foreign)
        EXPECT_TRUE(std::filesystem::exists(one)) << one;
    ::close(writing);
}

TEST(Workbook, takes_tables_rows_and_updates_and_nothing_else) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    OpenDatabase database(path, excelConnect(path));
    database.ExecuteSQL(L"CREATE TABLE SETTINGS (NEV TEXT, ERTEK NUMBER)");
    database.ExecuteSQL(L"INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('ő', 1.5)");
    for (const wchar_t* sql : {L"SELECT * FROM SETTINGS", L"DELETE * FROM SETTINGS", L"DROP TABLE SETTINGS",
                               L"INSERT INTO NINCS (A) VALUES (1)", L"CREATE TABLE SETTINGS (A NUMBER)", L"CREATE TABLE [a/b] (A NUMBER)",
                               L"CREATE TABLE [12345678901234567890123456789012] (A NUMBER)", L"CREATE TABLE B (A LONGBINARY)"})
        refusal(database, sql);
    CRecordset set(&database);
    refusal([&] { set.Open(CRecordset::snapshot, L"SELECT * FROM SETTINGS"); });
    EXPECT_FALSE(std::filesystem::exists(file(path)));
    database.Close();
    EXPECT_EQ(fileBytes(path).substr(0, 4), "\xD0\xCF\x11\xE0");
}

TEST(Workbook, keeps_the_sheets_that_stood_in_it) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    for (const int pass : {1, 2}) {
        OpenDatabase database(path, excelConnect(path));
        database.ExecuteSQL(acFormat(L"CREATE TABLE T%d (NEV TEXT, ERTEK NUMBER)", pass).c_str());
        database.ExecuteSQL(acFormat(L"INSERT INTO T%d VALUES ('ő', %d)", pass, pass).c_str());
        if (pass == 2) {
            refusal(database, L"CREATE TABLE T1 (NEV TEXT)");
            database.ExecuteSQL(L"INSERT INTO T1 VALUES ('ű', 7)");
        }
        database.Close();
    }
    const std::string cells = printed("LC_ALL=C.UTF-8 /usr/bin/python3 -c \"import xlrd,sys; b=xlrd.open_workbook(sys.argv[1]); "
                                      "print([(s.name,[s.row_values(i) for i in range(s.nrows)]) for s in b.sheets()])\" '" + file(path) + "'");
    EXPECT_EQ(cells, "[('T1', [['NEV', 'ERTEK'], ['ő', 1.0], ['ű', 7.0]]), ('T2', [['NEV', 'ERTEK'], ['ő', 2.0]])]\n");
}

TEST(Workbook, an_update_changes_the_rows_that_it_finds_also_when_it_is_opened_again) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    {
        OpenDatabase database(path, excelConnect(path));
        database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, OBJ_ID NUMBER, NEV TEXT, URES NUMBER, SZOVEG TEXT)");
        database.ExecuteSQL(L"INSERT INTO T (ID,OBJ_ID,NEV) VALUES (1,2,'a')");
        database.ExecuteSQL(L"INSERT INTO T (ID,OBJ_ID,NEV) VALUES (3,4,'b')");
        database.ExecuteSQL(L"UPDATE T SET ID=10 WHERE ID=1 AND OBJ_ID=2");
        database.ExecuteSQL(L"CREATE TABLE URES (A NUMBER, B TEXT, C DATETIME, D YESNO, E MEMO)");
        database.Close();
    }
    {
        OpenDatabase database(path, excelConnect(path));
        database.ExecuteSQL(L"UPDATE T SET ID=30, URES=1.5, SZOVEG='7' WHERE ID=3 AND NEV='b'"); // the empty columns know what they take
        refusal(database, L"UPDATE T SET URES='szöveg' WHERE ID=30");
        database.ExecuteSQL((L"INSERT INTO URES VALUES (1,'b','2001-02-03',TRUE,'" + std::wstring(400, L'e') + L"')").c_str());
        refusal(database, (L"INSERT INTO URES (B) VALUES ('" + std::wstring(400, L'e') + L"')").c_str());
        database.Close();
    }
    const std::string cells = printed("LC_ALL=C.UTF-8 /usr/bin/python3 -c \"import xlrd,sys; b=xlrd.open_workbook(sys.argv[1]); "
                                      "print([(s.name,[s.row_values(i) for i in range(1,s.nrows)]) for s in b.sheets()])\" '" + file(path) + "'");
    EXPECT_EQ(cells, "[('T', [[10.0, 2.0, 'a', '', ''], [30.0, 4.0, 'b', 1.5, '7']]), ('URES', [[1.0, 'b', 36925.0, 1, '" + std::string(400, 'e') + "']])]\n");
}

TEST(Workbook, a_table_that_fills_its_sheet_goes_on_in_a_further_one_and_one_line_says_so) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    std::wstring said;
    {
        OpenDatabase database(path, excelConnect(path));
        database.ExecuteSQL(L"CREATE TABLE TABLA (ID NUMBER, NEV TEXT)");
        database.ExecuteSQL(L"CREATE TABLE [TABLA 2] (A NUMBER)"); // the name is taken
        for (int i = 1; i <= 140000; ++i)
            database.ExecuteSQL(acFormat(L"INSERT INTO TABLA VALUES (%d,'x')", i).c_str());
        const AcPrintSink before = acSetPrintSink([&](std::wstring_view text) { said += text; });
        database.Close();
        acSetPrintSink(before);
    }
    EXPECT_NE(said.find(L"\"TABLA 3\""), std::wstring::npos) << acToUtf8(said);
    EXPECT_NE(said.find(L"\"TABLA 4\""), std::wstring::npos);
    const std::string script = "LC_ALL=C.UTF-8 /usr/bin/python3 -c \"import xlrd,sys; b=xlrd.open_workbook(sys.argv[1]); "
                               "print([(s.name,s.nrows,s.cell_value(0,0),s.cell_value(s.nrows-1,0)) for s in b.sheets()])\" '" + file(path) + "'";
    const std::string sheets = "[('TABLA', 65536, 'ID', 65535.0), ('TABLA 3', 65536, 'ID', 131070.0), ('TABLA 4', 8931, 'ID', 140000.0), ('TABLA 2', 1, 'A', 'A')]\n";
    EXPECT_EQ(printed(script), sheets);
    { // opened again it is one table
        OpenDatabase database(path, excelConnect(path));
        database.ExecuteSQL(L"UPDATE TABLA SET ID=-1 WHERE ID=139999");
        refusal(database, L"INSERT INTO [TABLA 3] VALUES (1,'x')");
        database.Close();
    }
    EXPECT_EQ(printed(script), sheets);
}

TEST(Workbook, an_existing_file_is_locked_and_junk_is_refused) {
    const std::wstring path = testTempDir() + L"\\a.xls";
    writeFile(path, "no workbook");
    CDatabase database;
    refusal([&] { database.Open(nullptr, FALSE, FALSE, excelConnect(path).c_str()); });
    EXPECT_EQ(fileBytes(path), "no workbook");
    refusal([&] { database.Open(nullptr, FALSE, FALSE, excelConnect(testTempDir() + L"\\none\\a.xls").c_str()); });
}

TEST(AccessFile, isql_over_the_machine_s_driver_agrees_value_for_value) {
    const std::wstring path = newDatabase();
    {
        OpenDatabase database(path);
        database.ExecuteSQL(L"CREATE TABLE T (ID NUMBER, NEV TEXT, [BY] NUMBER)");
        database.ExecuteSQL(L"INSERT INTO T VALUES (1,'Árvíztűrő tükörfúrógép',-650123.456789)");
        database.ExecuteSQL(L"INSERT INTO T (ID,NEV) VALUES (2,'')");
        database.ExecuteSQL(L"INSERT INTO T ([BY]) VALUES (0.100000)");
        database.Close();
    }
    const std::string text = printed("echo 'SELECT * FROM T' | isql -b -x0x1F -k 'DRIVER=MDBTools;DBQ=" + file(path) + "'");
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    ASSERT_EQ(lines.size(), 3u) << text;
    EXPECT_EQ(lines[0], acToUtf8(L"1\x1F" L"Árvíztűrő tükörfúrógép" L"\x1F" L"-650123.456789"));
    EXPECT_EQ(lines[1], "2\x1F\x1F");
    EXPECT_EQ(lines[2], "\x1F\x1F" "0.1");
}
} // namespace
