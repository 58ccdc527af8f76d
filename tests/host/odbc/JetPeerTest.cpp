// Independent readers agree with what was written, value for value: mdbtools and npm's mdb-reader.
#include "JetTestSupport.h"
#include "TestShell.h"
#include "TestSupport.h"

#include <bit>
#include <gtest/gtest.h>

using namespace odbc;
using namespace jettest;

namespace {
// Every kind of column, with the values at their edges.
Table everyKind() {
    using enum ColumnKind;
    Table table{{"Minden_fajta",
                 {column("egesz", Long), column("bool", Bool), column("bajt", Byte), column("rovid", Short),
                  column("penz", Currency), column("egyszeres", Single), column("kettos", Double),
                  column("datum", Date), column("binaris", Binary, 50), text("szoveg", 80), column("ole", Ole),
                  column("memo", Memo), column("guid", Guid), decimal("tizedes", 20, 4)}},
                {}};
    std::string memo;
    for (int i = 0; i < 900; ++i)
        memo += "Árvíztűrő tükörfúrógép " + std::to_string(i) + "; ";
    const std::string guid = "{00112233-4455-6677-8899-AABBCCDDEEFF}";
    table.rows.push_back({1, 1, 255, -32768, "-12345.6789", 0.5, 0.1, 43101.75, Cell::blob("\x01\x02\xFF"),
                          "őűŐŰ áéíóöúü", Cell::blob(std::string(5000, '\x7F')), memo, guid, "-1234567890123.4567"});
    table.rows.push_back({-2147483647, 0, 0, 32767, "0.0001", -1.25, 650000.123456, 2.5, Cell::blob("x"), "meglévő",
                          Cell::blob("abc"), "rövid", guid, "0.0001"});
    table.rows.push_back({3, 1, 7, 7, "99.0000", 3.0, 1.0 / 3, 36526.0, Cell::blob("\xAA"), "ab", Cell::blob("\xBB"),
                          std::string(1500, 'm'), guid, "7.0000"});
    table.rows.push_back({4, 0, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
    return table;
}

// The peers' file: this table, the signs, and names with Hungarian letters.
std::string peerFile() {
    const std::string path = newFile();
    write(path, {everyKind(),
                 signTable(1500),
                 {{"Ősz_űr tábla", {text("Név", 40), number("Érték")}}, {{"tükör", 1.5}, {"", {}}, {{}, -2.0}}}});
    expectClean(path);
    return path;
}

// Long texts: shows where they part.
void expectSameText(const std::string& found, const std::string& expected) {
    std::size_t at = 0;
    while (at < found.size() && at < expected.size() && found[at] == expected[at])
        ++at;
    const std::size_t from = at < 60 ? 0 : at - 60;
    EXPECT_TRUE(found == expected) << "at " << at << ": found \"" << found.substr(from, 160) << "\", expected \""
                                   << expected.substr(from, 160) << "\"";
}

#define REQUIRE_MDBTOOLS                                                                                               \
    if (!hasProgram("mdb-export"))                                                                                     \
    GTEST_SKIP() << "mdbtools is not installed"
} // namespace

TEST(JetPeer, mdb_ver_and_mdb_tables_know_the_file) {
    REQUIRE_MDBTOOLS;
    const std::string path = peerFile();
    EXPECT_EQ(runProgram("mdb-ver " + path), "JET4\n");
    EXPECT_EQ(runProgram("mdb-tables -1 " + path), "Minden_fajta\nTABLA\nŐsz_űr tábla\n");
    EXPECT_EQ(runProgram("mdb-tables -S -1 " + path),
              "MSysObjects\nMSysACEs\nMSysQueries\nMSysRelationships\nMinden_fajta\nTABLA\nŐsz_űr tábla\n");
}

TEST(JetPeer, mdb_schema_shows_types_and_sizes) {
    REQUIRE_MDBTOOLS;
    const std::string schema = runProgram("mdb-schema " + peerFile());
    for (const char* line :
         {"[egesz]\t\t\tLong Integer", "[bool]\t\t\tBoolean NOT NULL", "[bajt]\t\t\tByte", "[rovid]\t\t\tInteger",
          "[penz]\t\t\tCurrency", "[egyszeres]\t\t\tSingle", "[kettos]\t\t\tDouble", "[datum]\t\t\tDateTime",
          "[binaris]\t\t\tBinary", "[szoveg]\t\t\tText (80)", "[ole]\t\t\tOLE (255)",
          "[memo]\t\t\tMemo/Hyperlink (255)", "[guid]\t\t\tReplication ID", "[tizedes]\t\t\tNumeric (20, 4)",
          "[KIHELY_TIP]\t\t\tText (255)", "[Név]\t\t\tText (40)"})
        EXPECT_NE(schema.find(line), std::string::npos) << line << "\n" << schema;
}

TEST(JetPeer, mdb_export_reads_every_kind) {
    REQUIRE_MDBTOOLS;
    const std::string exported =
        runProgram("mdb-export -B -H -b hex -T '%Y-%m-%d %H:%M:%S' " + peerFile() + " Minden_fajta");
    const Table table = everyKind();
    std::string expected;
    expected += "1,TRUE,255,-32768,-12345.6789,0.5,0.1,\"2018-01-01 18:00:00\",\"0102FF\",\"őűŐŰ áéíóöúü\",\"";
    for (int i = 0; i < 5000; ++i)
        expected += "7F";
    // In this mode it prints even the text of a GUID in hexadecimal (and leaves out its last dash).
    const std::string guid = "7B30303131323233332D343435352D363637372D383839394141424243434444454546467D";
    expected += "\",\"" + table.rows[0][11].bytes + "\",\"" + guid + "\",-1234567890123.4567\n";
    expected += "-2147483647,FALSE,0,32767,0.0001,-1.25,650000.123456,\"1900-01-01 "
                "12:00:00\",\"78\",\"meglévő\",\"616263\",\"rövid\","
                "\"" +
                guid + "\",0.0001\n";
    expected += "3,TRUE,7,7,99.0000,3,0.3333333333333333,\"2000-01-01 00:00:00\",\"AA\",\"ab\",\"BB\",\"" +
                std::string(1500, 'm') + "\",\"" + guid + "\",7.0000\n";
    expected += "4,FALSE,,,,,,,,,,,,\n";
    expectSameText(exported, expected);
}

TEST(JetPeer, mdb_export_reads_every_row_of_the_signs) {
    REQUIRE_MDBTOOLS;
    const std::string exported = runProgram("mdb-export -H " + peerFile() + " TABLA");
    std::string expected;
    for (const Row& row : signTable(1500).rows)
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i].type == StoreCell::Type::Real) {
                char digits[40];
                std::snprintf(digits, sizeof digits, "%.16g", row[i].real);
                expected += digits;
            } else if (row[i].type == StoreCell::Type::Text) {
                expected += "\"" + row[i].bytes + "\"";
            }
            expected += i + 1 == row.size() ? "\n" : ",";
        }
    expectSameText(exported, expected);
}

TEST(JetPeer, mdb_reader_agrees_value_for_value) {
    const std::string script = testSourceDir() + "/tests/host/odbc/jet-peer.mjs";
    if (!hasProgram("node"))
        GTEST_SKIP() << "node is not installed";
    const std::string path = peerFile();
    int status = -1;
    const std::string lines = runProgram("node " + testShellWord(script) + " " + path + " 2>&1", &status);
    ASSERT_EQ(status, 0) << lines;
    std::string expected;
    for (const Table& table : std::vector<Table>{
             everyKind(),
             signTable(1500),
             {{"Ősz_űr tábla", {text("Név", 40), number("Érték")}}, {{"tükör", 1.5}, {"", {}}, {{}, -2.0}}}})
        expected += peerLines(table);
    expectSameText(lines, expected);
}

TEST(JetPeer, isql_reads_through_the_driver_of_mdbtools) {
    if (!hasProgram("isql") || runProgram("odbcinst -q -d 2>/dev/null").find("[MDBTools]") == std::string::npos)
        GTEST_SKIP() << "unixODBC or its driver of mdbtools is not installed";
    const std::string rows = runProgram(
        "echo 'select ID, TIPUS, KIHELY_TIP, PX from TABLA where ID = 1499' | isql -k 'DRIVER=MDBTools;DBQ=" +
        peerFile() + "' -b -d, 2>&1");
    EXPECT_EQ(rows, "1499,tábla,megszüntetendő,651498.123456\n");
}

TEST(JetPeer, mdbcheck_tells_clean_broken_and_foreign_files_apart) {
    const std::string program = testShellWord(testBuildDir() + "/bin/mdbcheck") + " ", path = peerFile();
    int status = -1;
    EXPECT_EQ(runProgram(program + path, &status), "");
    EXPECT_EQ(status, 0);
    FileBytes file(path);
    const std::uint32_t page = file.tablePage("TABLA");
    jet::put32(file.page(page) + jet::definition::kRowCount, 7);
    file.save(path);
    EXPECT_EQ(runProgram(program + path, &status),
              "page " + std::to_string(page) + ": The table \"TABLA\" says that it has 7 rows, but there are 1500.\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(runProgram(program + "/tmp 2>&1", &status), "mdbcheck: Ez mappa, nem adatbázis: \"/tmp\".\n");
    EXPECT_EQ(status, 3);
    runProgram(program + "2>/dev/null", &status);
    EXPECT_EQ(status, 2);
}
