// A database that somebody else made keeps what is not ours when its rows are changed here.
#include "GenuineFiles.h"

#include "AcPath.h"
#include "JetTestSupport.h"
#include "OdbcTestSupport.h"
#include "jet/JetInternal.h"
#include "jet/JetTail.h"

#include <algorithm>
#include <map>
#include <set>

using namespace jettest;
using namespace odbc::jet;

namespace {
std::wstring wide(const std::string& path) {
    return acFromUtf8(path);
}

void run(const std::string& path, const std::vector<std::wstring>& statements) {
    OpenDatabase database(wide(path));
    for (const std::wstring& sql : statements)
        database.ExecuteSQL(sql.c_str());
    database.Close();
}

// All that other programs say of the file, the rows of the user's tables aside.
std::string surroundings(const std::string& path) {
    std::string text = runProgram("mdb-schema " + path) + runProgram("mdb-tables -S -1 " + path);
    for (const char* table : {"MSysQueries", "MSysRelationships", "MSysACEs", "MSysObjects"})
        text += runProgram("mdb-export -b hex " + path + " " + table);
    std::string queries = runProgram("mdb-queries -L " + path);
    std::replace(queries.begin(), queries.end(), '\n', ' ');
    for (std::size_t at = 0; at < queries.size();) {
        const std::size_t end = std::min(queries.find(' ', at), queries.size());
        if (end > at)
            text += runProgram("mdb-queries " + path + " " + queries.substr(at, end - at));
        at = end + 1;
    }
    return text;
}

std::string rowsOfOthers(const std::string& path, const std::string& except) {
    std::string text;
    for (const Table& table : read(path))
        if (table.shape.name != except)
            text += runProgram("mdb-export -b hex " + path + " '" + table.shape.name + "'");
    return text;
}

// Pages of the table that may change: its definition, rows, indexes, maps.
std::set<std::uint32_t> pagesOfTable(const std::string& path, const std::string& name) {
    const FileBytes bytes(path);
    const std::uint32_t page = bytes.tablePage(name);
    const JetFile file(path);
    const JetDefinition definition = bytes.definition(page);
    std::set<std::uint32_t> pages(definition.pages.begin(), definition.pages.end());
    const auto add = [&](std::uint32_t map) {
        if (map == 0)
            return;
        pages.insert(map >> 8);
        for (const std::uint32_t one : pagesOfMap(file, map))
            pages.insert(one);
    };
    add(definition.usedMap);
    add(definition.freeMap);
    const JetTail tail = readTail(file, definition);
    for (const JetIndex& index : tail.indexes)
        add(index.map);
    for (const JetLongMap& map : tail.longMaps) {
        add(map.used);
        add(map.free);
    }
    return pages;
}

// Those that the file called free, among its own.
void addFreePages(FileBytes& bytes, std::set<std::uint32_t>& pages) {
    const std::uint8_t* map = bytes.row(0x100);
    ASSERT_EQ(map[0], usage::kInline);
    for (std::uint32_t i = 0; i < usage::kInlinePages; ++i)
        if ((map[5 + i / 8] >> (i % 8) & 1) != 0)
            pages.insert(get32(map + 1) + i);
}

// What a statement of each kind does to a table, in SQL that fits it; the key's column first.
struct Trial {
    const char* file;
    const char* table;
    std::vector<std::wstring> statements;
    std::vector<std::wstring> rows; // of SELECT behind it
    const wchar_t* select;
};

const std::vector<Trial>& trials() {
    static const std::vector<Trial> all{
        {"V2003_indexTestV2003.mdb", "Table1",
         {L"UPDATE Table1 SET data='ő-ű' WHERE id=1", L"DELETE * FROM Table1 WHERE id=3", L"INSERT INTO Table1 (id,otherfk1,otherfk2,data,otherfk3) VALUES (9,2,12,'új',0)"},
         {L"0 baz0", L"1 ő-ű", L"2 baz11-2", L"9 új"},
         L"SELECT id, data FROM Table1 ORDER BY id"},
        {"V2000_indexTestV2000.mdb", "Table1",
         {L"DELETE * FROM Table1 WHERE id=0", L"INSERT INTO Table1 (id,otherfk1,otherfk2,data,otherfk3) VALUES (-5,2,12,'x',0)"},
         {L"-5 x", L"1 baz11", L"2 baz11-2", L"3 baz13"},
         L"SELECT id, data FROM Table1 ORDER BY id"},
        {"V2003_queryTestV2003.mdb", "Table1",
         {L"INSERT INTO Table1 (col1,col2,col3) VALUES ('a','b','c')", L"INSERT INTO Table1 (col1) VALUES ('d')", L"UPDATE Table1 SET col2='é' WHERE col1='d'"},
         {L"a b", L"d é"},
         L"SELECT col1, col2 FROM Table1 ORDER BY col1"},
        {"V2003_delColTestV2003.mdb", "Table1",
         {L"INSERT INTO Table1 (id,id2,data,data2) VALUES (77,-78,'data','data2')", L"UPDATE Table1 SET data='long enough to be compressed' WHERE id=77"},
         {L"77 long enough to be compressed"},
         L"SELECT id, data FROM Table1 WHERE id=77"},
        {"V2000_overflowTestV2000.mdb", "Table1", {L"UPDATE Table1 SET data1='moved'", L"DELETE * FROM Table1 WHERE data1='none'"}, {L"7"}, L"SELECT COUNT(*) FROM Table1 WHERE data1='moved'"},
        {"V2003_testIndexPropertiesV2003.mdb", "TableIgnoreNulls1",
         {L"INSERT INTO TableIgnoreNulls1 ([row],data) VALUES ('newrow',NULL)", L"UPDATE TableIgnoreNulls1 SET data=NULL WHERE [row]='row1'", L"UPDATE TableIgnoreNulls1 SET data='Árvíz 12' WHERE [row]='newrow'"},
         {L"newrow Árvíz 12"},
         L"SELECT [row], data FROM TableIgnoreNulls1 WHERE [row]='newrow'"},
        {"V2000_testIndexPropertiesV2000.mdb", "TableUnique2_temp",
         {L"DELETE * FROM TableUnique2_temp", L"INSERT INTO TableUnique2_temp ([row],data1,data2) VALUES ('a','b',-3)"},
         {L"a b -3"},
         L"SELECT * FROM TableUnique2_temp"},
        {"V2003_compIndexTestV2003.mdb", "Table1",
         {L"DELETE * FROM Table1 WHERE CD_AGENTE<100", L"INSERT INTO Table1 (CD_AGENTE,RS_AGENTE) VALUES (-1,'minus')", L"UPDATE Table1 SET CD_AGENTE=100000 WHERE CD_AGENTE=300"},
         {L"-1 minus"},
         L"SELECT CD_AGENTE, RS_AGENTE FROM Table1 WHERE CD_AGENTE<100"},
        {"V2003_testUnicodeCompV2003.mdb", "Table",
         {L"INSERT INTO [Table] ([Unicode]) VALUES ('ötlet')", L"DELETE * FROM [Table] WHERE ID=2"},
         {L"ötlet"},
         L"SELECT [Unicode] FROM [Table] WHERE ID>8"},
    };
    return all;
}
} // namespace

TEST(ForeignFile, keeps_queries_relations_forms_and_every_page_that_is_not_the_changed_table_s) {
    SKIP_WITHOUT_GENUINE_FILES();
    for (const Trial& trial : trials()) {
        SCOPED_TRACE(trial.file);
        const std::string path = copyOfGenuine(trial.file);
        const std::string before = surroundings(path), others = rowsOfOthers(path, trial.table);
        FileBytes old(path);
        std::set<std::uint32_t> own = pagesOfTable(path, trial.table);
        own.insert(1); // which pages are free
        addFreePages(old, own);
        try {
            run(path, trial.statements);
        } catch (CDBException* error) {
            ADD_FAILURE() << acToUtf8(error->m_strError.text());
            error->Delete();
            continue;
        }
        EXPECT_EQ(violations(wide(path)), "");
        EXPECT_EQ(surroundings(path), before);
        EXPECT_EQ(rowsOfOthers(path, trial.table), others);
        FileBytes fresh(path);
        ASSERT_GE(fresh.pageCount(), old.pageCount());
        for (std::uint32_t page = 0; page < old.pageCount(); ++page)
            if (!own.contains(page)) {
                EXPECT_TRUE(std::equal(old.page(page), old.page(page) + 4096, fresh.page(page))) << "page " << page;
            }
        OpenDatabase again(wide(path));
        std::vector<std::wstring> rows;
        for (const std::vector<std::wstring>& row : rowsOf(again, trial.select)) {
            std::wstring text;
            for (const std::wstring& cell : row)
                text += (text.empty() ? L"" : L" ") + cell;
            rows.push_back(text);
        }
        EXPECT_EQ(rows, trial.rows);
    }
}

TEST(ForeignFile, other_readers_see_the_changed_rows) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_indexTestV2003.mdb");
    run(path, {L"UPDATE Table1 SET data='ő-ű' WHERE id=1", L"DELETE * FROM Table1 WHERE id=3", L"INSERT INTO Table1 (id,otherfk1,otherfk2,data,otherfk3) VALUES (9,2,12,'új',0)"});
    std::string mdbtools = runProgram("mdb-export -H " + path + " Table1");
    for (const char* row : {"0,0,10,\"baz0\",0\n", "1,1,11,\"ő-ű\",0\n", "2,1,11,\"baz11-2\",0\n", "9,2,12,\"új\",0\n"})
        EXPECT_NE(mdbtools.find(row), std::string::npos) << row << mdbtools;
    EXPECT_EQ(std::count(mdbtools.begin(), mdbtools.end(), '\n'), 4);
    int status = -1;
    std::string lines;
    for (const Table& table : read(path))
        lines += peerLines(table);
    EXPECT_EQ(runProgram("node " + testSourceDir() + "/tests/host/odbc/jet-peer.mjs " + path, &status), lines);
}

TEST(ForeignFile, stands_hundreds_of_changes_one_after_the_other) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_compIndexTestV2003.mdb");
    const std::string before = surroundings(path);
    std::size_t size = 0;
    for (int pass = 0; pass < 6; ++pass) {
        std::vector<std::wstring> statements;
        for (int i = 0; i < 700; ++i)
            statements.push_back(acFormat(L"INSERT INTO Table1 (CD_AGENTE,RS_AGENTE,DC_AGENTE) VALUES (%d,'név %d','%s')", 1000000 + i, i, std::wstring(static_cast<std::size_t>(i % 50), L'x').c_str()));
        for (int i = 0; i < 700; i += 3)
            statements.push_back(acFormat(L"UPDATE Table1 SET RS_AGENTE='másik %d' WHERE CD_AGENTE=%d", i, 1000000 + i));
        run(path, statements);
        EXPECT_EQ(violations(wide(path)), "");
        run(path, {L"DELETE * FROM Table1 WHERE CD_AGENTE>=1000000"});
        EXPECT_EQ(violations(wide(path)), "");
        const std::size_t now = fileBytes(wide(path)).size();
        if (pass > 1) {
            EXPECT_EQ(now, size) << pass; // its room is used again
        }
        size = now;
    }
    EXPECT_EQ(surroundings(path), before);
    OpenDatabase again(wide(path));
    EXPECT_EQ(rowsOf(again, L"SELECT COUNT(*) FROM Table1"), (Rows{{L"512"}}));
}

TEST(ForeignFile, grows_past_the_pages_that_its_first_maps_can_list) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_queryTestV2003.mdb");
    const std::string before = surroundings(path);
    std::vector<std::wstring> statements;
    const std::wstring filler(50, L'ű');
    for (int i = 0; i < 9000; ++i)
        statements.push_back(acFormat(L"INSERT INTO Table1 VALUES ('%s','%s','%d')", filler.c_str(), filler.c_str(), i));
    run(path, statements);
    EXPECT_EQ(violations(wide(path)), "");
    EXPECT_EQ(surroundings(path), before);
    EXPECT_GT(FileBytes(path).pageCount(), 512u);
    const std::string exported = runProgram("mdb-export -H " + path + " Table1");
    EXPECT_EQ(std::count(exported.begin(), exported.end(), '\n'), 9000);
    run(path, {L"DELETE * FROM Table1"});
    EXPECT_EQ(violations(wide(path)), "");
}

TEST(ForeignFile, keys_and_relations_are_kept_as_access_keeps_them) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_indexTestV2003.mdb");
    OpenDatabase database(wide(path));
    refusal(database, L"INSERT INTO Table1 (id,otherfk1,otherfk2) VALUES (1,1,11)");                                                  // the key stands
    refusal(database, L"INSERT INTO Table1 (otherfk1,otherfk2) VALUES (1,11)");                                                       // no key
    EXPECT_NE(refusal(database, L"INSERT INTO Table1 (id,otherfk1,otherfk2) VALUES (50,99,11)").find(L"Table2Table1"), std::wstring::npos); // no parent
    EXPECT_EQ(rowsOf(database, L"SELECT COUNT(*) FROM Table1"), (Rows{{L"4"}}));
    database.ExecuteSQL(L"DELETE * FROM Table2 WHERE id=1"); // takes its children along
    EXPECT_EQ(rowsOf(database, L"SELECT id FROM Table1 ORDER BY id"), (Rows{{L"0"}, {L"3"}}));
    database.ExecuteSQL(L"UPDATE Table3 SET id=30 WHERE id=13"); // and so does another number
    EXPECT_EQ(rowsOf(database, L"SELECT otherfk2 FROM Table1 WHERE id=3"), (Rows{{L"30"}}));
    EXPECT_NE(refusal(database, L"DELETE * FROM Table3 WHERE id=30").find(L"Table3Table1"), std::wstring::npos);
    database.Close();
    EXPECT_EQ(violations(wide(path)), "");
    OpenDatabase again(wide(path));
    EXPECT_EQ(rowsOf(again, L"SELECT id, otherfk2 FROM Table1 ORDER BY id"), (Rows{{L"0", L"10"}, {L"3", L"30"}}));
}

TEST(ForeignFile, a_counter_goes_on_where_access_left_it) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_testUnicodeCompV2003.mdb");
    run(path, {L"INSERT INTO [Table] ([Unicode]) VALUES ('a')", L"DELETE * FROM [Table] WHERE [Unicode]='a'"});
    Rows rows;
    {
        OpenDatabase database(wide(path));
        database.ExecuteSQL(L"INSERT INTO [Table] ([Unicode]) VALUES ('b')");
        database.ExecuteSQL(L"INSERT INTO [Table] (ID,[Unicode]) VALUES (500,'c')");
        database.ExecuteSQL(L"INSERT INTO [Table] ([Unicode]) VALUES ('d')");
        database.Close();
    }
    EXPECT_EQ(violations(wide(path)), "");
    OpenDatabase again(wide(path));
    rows = rowsOf(again, L"SELECT ID, [Unicode] FROM [Table] WHERE ID>8 ORDER BY ID");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_NE(rows[0][0], L"9"); // a number that was given is not given again
    EXPECT_EQ(rows[1], (std::vector<std::wstring>{L"500", L"c"}));
    EXPECT_EQ(rows[2], (std::vector<std::wstring>{L"501", L"d"}));
}

TEST(ForeignFile, what_cannot_be_kept_in_order_is_refused_before_anything_is_written) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_testIndexPropertiesV2003.mdb");
    const std::string before = fileBytes(wide(path));
    {
        OpenDatabase database(wide(path));
        // A character without a known place in an index, told by the statement that brings it.
        EXPECT_NE(refusal(database, L"INSERT INTO TableIgnoreNulls1 ([row],data) VALUES ('x','щ')").find(L"data"), std::wstring::npos);
        // Tables are neither made nor dropped.
        refusal(database, L"CREATE TABLE UJ (A NUMBER)");
        refusal(database, L"DROP TABLE TableIgnoreNulls1");
        database.Close();
    }
    EXPECT_EQ(fileBytes(wide(path)), before);
    // An index of a kind that is not known: its flags say what no file of ours has said.
    FileBytes bytes(path);
    const JetFile file(path);
    const std::uint32_t page = bytes.tablePage("TableIgnoreNulls1");
    const JetDefinition definition = bytes.definition(page);
    std::uint8_t* at = bytes.page(page) + definition.columnsEnd;
    ASSERT_EQ(get32(at), definition::kIndexMarkValue);
    at[46] = static_cast<std::uint8_t>(at[46] | 0x20);
    bytes.save(path);
    OpenDatabase database(wide(path));
    EXPECT_NE(refusal(database, L"DELETE * FROM TableIgnoreNulls1").find(L"TableIgnoreNulls1"), std::wstring::npos);
    EXPECT_EQ(rowsOf(database, L"SELECT COUNT(*) FROM TableIgnoreNulls1"), (Rows{{L"10"}})); // it can be read
    database.ExecuteSQL(L"DELETE * FROM TableIgnoreNulls2");                                // and the others be changed
    database.Close();
}

TEST(ForeignFile, damage_that_would_reach_other_tables_stops_the_change) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V2003_indexTestV2003.mdb");
    FileBytes bytes(path);
    const std::uint32_t other = bytes.rowPages("Table2").front();
    const JetTail tail = readTail(JetFile(path), bytes.definition(bytes.tablePage("Table1")));
    std::uint8_t* map = bytes.row(tail.indexes.front().map);
    ASSERT_EQ(map[0], usage::kInline);
    const std::uint32_t bit = other - get32(map + 1);
    map[5 + bit / 8] = static_cast<std::uint8_t>(map[5 + bit / 8] | 1u << (bit % 8)); // a page of another table
    bytes.save(path);
    const std::string before = fileBytes(wide(path));
    OpenDatabase database(wide(path));
    database.ExecuteSQL(L"DELETE * FROM Table1 WHERE id=3");
    EXPECT_NE(refusal([&] { database.Close(); }).find(L"lists a page that is not its own"), std::wstring::npos);
    EXPECT_EQ(fileBytes(wide(path)), before);
}

TEST(ForeignFile, long_values_are_put_into_chains_and_taken_out_again) {
    // One of our own that somebody gave a description: no longer what would be written again.
    const std::string path = newFile();
    write(path, {{{"T", {number("ID"), column("M", odbc::ColumnKind::Memo), column("B", odbc::ColumnKind::Bool)}},
                  {{1.0, std::string(9000, 'a'), 1}, {2.0, "rövid", 0}, {3.0, std::string(300, 'c'), 1}}}});
    FileBytes bytes(path);
    put32(bytes.page(bytes.tablePage("T")) + definition::kRowCount, 2); // a count that Access let lag
    bytes.mask();
    bytes.page(0)[header::kCreated] ^= 1;
    bytes.mask();
    bytes.save(path);
    run(path, {L"UPDATE T SET B=FALSE WHERE ID=1", (L"UPDATE T SET M='" + std::wstring(20000, L'ű') + L"' WHERE ID=2").c_str(), L"DELETE * FROM T WHERE ID=3",
               (L"INSERT INTO T VALUES (4,'" + std::wstring(500, L'd') + L"',TRUE)").c_str()});
    EXPECT_EQ(violations(wide(path)), "");
    OpenDatabase again(wide(path));
    const Rows rows = rowsOf(again, L"SELECT ID, M, B FROM T ORDER BY ID");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], (std::vector<std::wstring>{L"1", std::wstring(9000, L'a'), L"0"}));
    EXPECT_EQ(rows[1], (std::vector<std::wstring>{L"2", std::wstring(20000, L'ű'), L"0"}));
    EXPECT_EQ(rows[2], (std::vector<std::wstring>{L"4", std::wstring(500, L'd'), L"1"}));
}

TEST(ForeignFile, a_database_of_access_97_is_read_and_left_as_it_is) {
    SKIP_WITHOUT_GENUINE_FILES();
    const std::string path = copyOfGenuine("V1997_indexTestV1997.mdb");
    const std::string before = fileBytes(wide(path));
    OpenDatabase database(wide(path));
    EXPECT_EQ(rowsOf(database, L"SELECT id, data FROM Table2 ORDER BY id"), (Rows{{L"0", L"foo0"}, {L"1", L"foo1"}, {L"2", L"foo2"}}));
    EXPECT_NE(refusal(database, L"DELETE * FROM Table2").find(L"97"), std::wstring::npos);
    database.Close();
    EXPECT_EQ(fileBytes(wide(path)), before);
}

TEST(ForeignFile, a_table_whose_count_is_wrong_does_not_close_the_others) {
    const std::string path = newFile();
    write(path, {signTable(20), {{"JO", {number("A")}}, {{1.0}, {2.0}}}, {{"KEVES", {number("A")}}, {{1.0}, {2.0}}}});
    FileBytes bytes(path);
    put32(bytes.page(bytes.tablePage("TABLA")) + definition::kRowCount, 25);
    put32(bytes.page(bytes.tablePage("KEVES")) + definition::kRowCount, 1); // fewer than there are: nothing is lost
    bytes.save(path);
    OpenDatabase database(wide(path));
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM JO").size(), 2u);
    EXPECT_EQ(rowsOf(database, L"SELECT * FROM KEVES").size(), 2u);
    EXPECT_NE(refusal([&] { rowsOf(database, L"SELECT * FROM TABLA"); }).find(L"25"), std::wstring::npos);
    refusal(database, L"DELETE * FROM TABLA");
    database.ExecuteSQL(L"INSERT INTO JO VALUES (3)");
    database.Close();
    EXPECT_EQ(FileBytes(path).definition(bytes.tablePage("TABLA")).rowCount, 25u); // it stands as it was
    OpenDatabase again(wide(path));
    EXPECT_EQ(rowsOf(again, L"SELECT * FROM JO").size(), 3u);
}
