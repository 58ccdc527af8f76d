// Files that cannot be read, files that are damaged, and what Access leaves in files it saved again.
#include "JetTestSupport.h"
#include "jet/JetInternal.h"
#include "jet/JetRows.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace odbc;
using namespace odbc::jet;
using namespace jettest;

namespace {
std::string fileOf(const std::string& bytes) {
    const std::string path = newFile();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}
// Spoils a file of one table and gives back what the reader says.
std::string errorAfter(const std::function<void(FileBytes&)>& spoil, const Table& table = signTable(300)) {
    const std::string path = newFile();
    write(path, {table});
    FileBytes file(path);
    spoil(file);
    file.save(path);
    return readError(path);
}
bool contains(const std::string& whole, const std::string& part) {
    return whole.find(part) != std::string::npos;
}
} // namespace

TEST(JetReader, no_such_file) {
    EXPECT_EQ(readError("/no/such.mdb"), "A fájl nem létezik: \"/no/such.mdb\".");
}
TEST(JetReader, a_folder) {
    EXPECT_EQ(readError("/tmp"), "Ez mappa, nem adatbázis: \"/tmp\".");
}
TEST(JetReader, no_right_to_read) {
    const std::string path = newFile();
    write(path, {});
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    const bool root = ::geteuid() == 0; // who may read everything: be nobody for a moment
    ASSERT_EQ(root ? ::seteuid(65534) : 0, 0);
    const std::string error = readError(path);
    ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
    EXPECT_EQ(error, "Nincs jog a fájl olvasásához: \"" + path + "\".");
}
TEST(JetReader, a_pipe_does_not_hold_us_up) {
    const std::string path = newFile("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(readError(path), "Ez nem fájl: \"" + path + "\".");
}
TEST(JetReader, files_of_another_kind) {
    for (const std::string& bytes :
         {std::string(), std::string("x"), std::string(10000, '\0'), std::string(10000, 'x')}) {
        const std::string path = fileOf(bytes);
        EXPECT_EQ(readError(path), "Ez nem Access adatbázis: \"" + path + "\".") << bytes.size();
    }
}
TEST(JetReader, a_database_of_access_2007) {
    std::string bytes(8192, '\0');
    bytes.replace(0, 19, std::string("\0\1\0\0Standard ACE DB", 19));
    bytes[0x14] = 2;
    EXPECT_TRUE(contains(readError(fileOf(bytes)),
                         "Access 2007 vagy újabb formátumú (.accdb)"));
}
TEST(JetReader, a_file_with_a_password) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             file.mask();
                             file.page(0)[header::kPassword] ^= 'p';
                             file.mask();
                         }),
                         "jelszó védi"));
}
TEST(JetReader, an_encrypted_file) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             file.mask();
                             put32(file.page(0) + header::kKey, 0x12345678);
                             file.mask();
                         }),
                         "titkosított"));
}

TEST(JetReader, a_last_page_that_is_cut_off) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) { file.bytes.resize(file.bytes.size() - 100); }),
                         "csonka, az utolsó lapja nem egész"));
}
TEST(JetReader, a_file_that_lacks_whole_pages) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) { file.bytes.resize(file.bytes.size() - 3 * 4096); }),
                         "(a usage map lists page"));
}
TEST(JetReader, an_empty_list_of_pages_against_a_count_of_rows) {
    EXPECT_TRUE(
        contains(errorAfter([](FileBytes& file) {
                     std::uint8_t* map = file.row(file.definition(file.tablePage("TABLA")).usedMap);
                     std::fill(map, map + usage::kRowSize, std::uint8_t{0});
                 }),
                 "A tábla (TABLA) szerint 300 sora van, de csak 0 található."));
}
TEST(JetReader, a_count_of_rows_that_disagrees) {
    EXPECT_TRUE(contains(
        errorAfter([](FileBytes& file) { put32(file.page(file.tablePage("TABLA")) + definition::kRowCount, 301); }),
        "A tábla (TABLA) szerint 301 sora van, de csak 300 található."));
}
TEST(JetReader, a_page_that_is_missing_from_the_list) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             const std::uint32_t page = file.rowPages("TABLA").front();
                             std::uint8_t* map = file.row(file.definition(file.tablePage("TABLA")).usedMap);
                             map[5 + page / 8] = static_cast<std::uint8_t>(map[5 + page / 8] & ~(1u << page % 8));
                         }),
                         "szerint 300 sora van, de csak "));
}
TEST(JetReader, a_column_of_an_unknown_type) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) { file.columnBytes("TABLA", "ID")[0] = 18; }),
                         "A tábla (TABLA) egyik oszlopának típusa ismeretlen: ID."));
}
TEST(JetReader, a_definition_without_end) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             put32(file.page(file.tablePage("TABLA")) + definition::kNext, file.tablePage("TABLA"));
                         }),
                         "has no end)."));
}
TEST(JetReader, a_row_that_makes_no_sense) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             const std::uint32_t row = file.rowPages("TABLA").front() << 8;
                             put16(file.row(row) + file.rowSize(row) - 4, 2000);
                         }),
                         "makes no sense)."));
}
TEST(JetReader, a_long_value_that_is_broken_off) {
    const Table table{{"T", {column("M", ColumnKind::Memo)}}, {{std::string(9000, 'm')}}};
    const auto head = [](FileBytes& file) { return file.row(file.rowPages("T").front() << 8) + 2; };
    EXPECT_TRUE(contains(errorAfter([&](FileBytes& file) { put32(head(file), 20000); }, table), "("));
    EXPECT_TRUE(contains(errorAfter([&](FileBytes& file) { put32(head(file) + 4, file.tablePage("T") << 8); }, table),
                         "should hold rows and does not"));
    EXPECT_TRUE(
        contains(errorAfter([&](FileBytes& file) { put32(head(file) + 4, file.rowPages("T").front() << 8); }, table),
                 "should hold a long value and does not"));
    EXPECT_TRUE(contains(errorAfter([&](FileBytes& file) { put32(head(file), 0x3FFFFFFF); }, table),
                         "longer than the whole file"));
}
TEST(JetReader, a_long_value_that_bites_its_own_tail) {
    const Table table{{"T", {column("M", ColumnKind::Memo)}}, {{std::string(9000, 'm')}}};
    const std::string path = newFile();
    write(path, {table});
    FileBytes file(path);
    const std::uint8_t* head = file.row(file.rowPages("T").front() << 8) + 2;
    const std::uint32_t first = get32(head + 4);
    put32(file.row(first), first);
    file.save(path);
    EXPECT_EQ(read(path).front().rows.front().front().bytes.size(), 9000u); // as long as it says, and no longer
}

TEST(JetReader, deleted_rows_are_left_out) {
    const std::string path = newFile();
    Table table = signTable(300);
    write(path, {table});
    FileBytes file(path);
    const std::uint32_t page = file.rowPages("TABLA").front();
    for (const std::uint32_t row : {0u, 5u}) // as Access leaves them: flagged, the second without its bytes
        file.page(page)[data::kRows + 2 * row + 1] |= row == 0 ? 0x80 : 0xC0;
    put32(file.page(file.tablePage("TABLA")) + definition::kRowCount, 298);
    file.save(path);
    table.rows.erase(table.rows.begin() + 5);
    table.rows.erase(table.rows.begin());
    expectSame(read(path), {table});
    expectClean(path);
}

namespace {
// Moves a row to the table's last page, as Access does when it has grown out of its own.
void moveRow(FileBytes& file, const std::string& table, std::uint32_t pointer) {
    const std::uint32_t target = file.rowPages(table).back();
    ASSERT_NE(target, pointer >> 8);
    std::uint8_t* page = file.page(target);
    const std::size_t count = get16(page + data::kRowCount), size = file.rowSize(pointer);
    const std::size_t end = get16(page + data::kRows + 2 * (count - 1)) & data::kOffset;
    ASSERT_GE(end - size, data::kRows + 2 * (count + 1));
    std::memcpy(page + end - size, file.row(pointer), size);
    put16(page + data::kRows + 2 * count, (end - size) | data::kDeleted);
    put16(page + data::kRowCount, count + 1);
    put16(page + data::kFree, end - size - data::kRows - 2 * (count + 1));
    put32(file.row(pointer), target << 8 | static_cast<std::uint32_t>(count));
    file.page(pointer >> 8)[data::kRows + 2 * (pointer & 0xFF) + 1] |= 0x40;
}
} // namespace
TEST(JetReader, rows_that_moved_to_another_page_are_read_in_their_place) {
    const std::string path = newFile();
    const Table table = signTable(310); // room is left on the last page
    write(path, {table});
    FileBytes file(path);
    moveRow(file, "TABLA", file.rowPages("TABLA").front() << 8 | 2);
    moveRow(file, "TABLA", file.rowPages("TABLA").front() << 8 | 7);
    file.save(path);
    expectSame(read(path), {table});
    expectClean(path);
}
TEST(JetReader, a_moved_row_that_cannot_be_found) {
    EXPECT_TRUE(contains(errorAfter([](FileBytes& file) {
                             const std::uint32_t row = file.rowPages("TABLA").front() << 8;
                             put32(file.row(row), row); // leads to itself
                             file.page(row >> 8)[data::kRows + 1] |= 0x40;
                         }),
                         "a row that moved to another page cannot be found"));
}

TEST(JetReader, a_row_that_is_older_than_a_column_is_null_there) {
    const std::string path = newFile();
    write(path, {{{"T", {number("a"), text("b")}}, {{1.0, "x"}}}});
    FileBytes file(path);
    // The row as it was when there was no text column yet: one column, eight bytes, one mask.
    const std::uint32_t page = file.rowPages("T").front();
    std::uint8_t* at = file.page(page);
    put16(at + data::kRows, 4096 - 11);
    std::uint8_t row[11] = {1, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F, 1};
    std::memcpy(at + 4096 - 11, row, sizeof row);
    put16(at + data::kFree, 4096 - 11 - data::kRows - 2);
    file.save(path);
    expectSame(read(path), {{{"T", {number("a"), text("b")}}, {{1.0, {}}}}});
}

TEST(JetReader, tables_of_the_engine_of_access_and_leftovers_are_left_out) {
    const std::string path = newFile();
    write(path,
          {{{"RENDES", {number("ID")}}, {}}, {{"MSysValami", {number("ID")}}, {}}, {{"~TMPCLP1", {number("ID")}}, {}}});
    FileBytes file(path);
    put32(file.row(file.catalogueRow("MSysValami")) + 2 + 26, 2); // Flags: a table that Access keeps for itself
    file.save(path);
    const std::vector<Table> found = read(path);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found.front().shape.name, "RENDES");
}

TEST(JetReader, a_fixed_type_may_lie_among_the_variable_columns) {
    // Access does so in tables of its own: the flag tells, not the type.
    const std::string path = newFile();
    write(path, {{{"T", {text("a"), text("b")}}, {{"\x01\x02", "x"}}}});
    FileBytes file(path);
    file.columnBytes("T", "a")[0] = static_cast<std::uint8_t>(ColumnType::Long); // "\1\2" lies there as 01 00 02 00
    put16(file.columnBytes("T", "a") + 23, 4);
    file.save(path);
    EXPECT_EQ(read(path).front().rows.front().front(), Cell(0x00020001));
}

TEST(JetReader, a_spoiled_byte_anywhere_never_brings_the_reader_down) {
    const std::string path = newFile();
    write(path, {signTable(200),
                 {{"M", {column("m", ColumnKind::Memo), column("o", ColumnKind::Ole)}},
                  {{std::string(9000, 'm'), Cell::blob("x")}}}});
    const FileBytes clean(path);
    std::uint32_t random = 99;
    const auto next = [&] { return random = random * 1664525 + 1013904223, random >> 8; };
    struct Nothing : TableSink {
        void beginTable(const StoreTable&) override {}
        void row(std::span<const StoreCell>) override {}
        void endTable() override {}
    } sink;
    int refused = 0;
    for (int round = 0; round < 2000; ++round) {
        FileBytes file = clean;
        for (int i = 0; i < 4; ++i)
            file.page(next() % file.pageCount())[next() % (i % 2 != 0 ? 64 : 4096)] = static_cast<std::uint8_t>(next());
        try {
            readTables(JetFile("bytes", file.bytes), sink);
        } catch (const StoreError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 100); // many of them were damaged enough to be noticed
}
