// What is written to an Access file comes back as it was, and the file breaks no rule.
#include "JetTestSupport.h"
#include "jet/JetWriter.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace odbc;
using namespace jettest;

TEST(JetRoundTrip, a_new_database_has_no_tables_and_breaks_no_rule) {
    expectComesBack({});
}

TEST(JetRoundTrip, a_table_without_rows_comes_back_with_its_columns) {
    expectComesBack({{{"SETTINGS", {text("NEV"), text("ERTEK")}}, {}}});
}

TEST(JetRoundTrip, every_kind_of_column_comes_back) {
    using enum ColumnKind;
    Table table{{"MIND",
                 {column("bool", Bool), column("byte", Byte), column("short", Short), column("long", Long),
                  column("currency", Currency), column("single", Single), column("double", Double),
                  column("date", Date), column("binary", Binary, 100), text("text", 50), column("ole", Ole),
                  column("memo", Memo), column("guid", Guid), decimal("numeric", 28, 6)}},
                {}};
    table.rows.push_back({1, 255, -32768, std::int64_t{-2147483648}, "-922337203685477.5808", 1.5, -0.0, 43101.5,
                          Cell::blob(std::string("\0\x01\xFF", 3)), "szöveg", Cell::blob(std::string(100, '\x80')),
                          "Memó", "{00112233-4455-6677-8899-AABBCCDDEEFF}", "-1234567890123456789012.345678"});
    table.rows.push_back({0, 0, 32767, 2147483647, "922337203685477.5807", -3.4028234663852886e38,
                          1.7976931348623157e308, -1.25, Cell::blob(""), "", Cell::blob(""), "",
                          "{FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF}", "9999999999999999999999.999999"});
    table.rows.push_back({0, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
    expectComesBack({table});
}

TEST(JetRoundTrip, a_null_is_not_an_empty_text) {
    expectComesBack(
        {{{"T", {text("a"), text("b"), column("m", ColumnKind::Memo)}}, {{"", {}, ""}, {{}, "", {}}, {{}, {}, {}}}}});
}

TEST(JetRoundTrip, a_bool_that_is_null_is_false) {
    const std::string path = newFile();
    write(path, {{{"T", {column("b", ColumnKind::Bool)}}, {{Cell{}}}}});
    EXPECT_EQ(read(path).front().rows.front().front(), Cell(0));
}

TEST(JetRoundTrip, doubles_come_back_to_the_last_bit) {
    Table table{{"T", {number("d")}}, {}};
    for (double value : {0.1, 1.0 / 3, 650000.123456, 4e-324, 2.2250738585072014e-308, std::nextafter(1.0, 2.0), 1e300,
                         -1e-300, std::numeric_limits<double>::infinity(), 9007199254740993.0})
        table.rows.push_back({value});
    expectComesBack({table});
}

TEST(JetRoundTrip, hungarian_letters_come_back) {
    expectComesBack(
        {{{"T", {text("ŐŰőű"), text("Árvíztűrő tükörfúrógép", 30)}},
          {{"őűŐŰ", "árvíztűrő tükörfúrógép"}, {"áéíóöúü", "ÁÉÍÓÖÚÜ"}, {"öü", "ő"}, {"5 €", "😀 emoji 日本"}}}});
}

TEST(JetRoundTrip, texts_of_every_length_up_to_255_characters_come_back) {
    Table table{{"T", {text("narrow"), text("wide"), text("latin")}}, {}};
    for (int length = 0; length <= 255; ++length) {
        std::string narrow(static_cast<std::size_t>(length), 'x'), wide, latin;
        for (int i = 0; i < length; ++i)
            wide += "ő", latin += "é";
        table.rows.push_back({narrow, wide, latin});
    }
    expectComesBack({table});
}

TEST(JetRoundTrip, characters_that_could_be_taken_for_compression_marks_come_back) {
    expectComesBack({{{"T", {text("t"), column("m", ColumnKind::Memo)}},
                      {{std::string("a\0b", 3), std::string(1, '\0')},
                       {"\xEF\xBB\xBF"
                        "BOM",
                        "\xEF\xBB\xBF"},
                       {"ÿþ", "ÿþÿþ"},
                       {"\xC4\x80\xC4\x80\xC4\x80", "\xC4\x80"}}}}); // U+0100, whose low byte is zero
}

TEST(JetRoundTrip, a_table_of_255_columns_comes_back) {
    Table table{{"SOK", {}}, {{}, {}}};
    for (int i = 0; i < 255; ++i) {
        const bool isText = i % 3 == 0;
        table.shape.columns.push_back(isText ? text("Oszlop_" + std::to_string(i) + std::string(50, 'x'))
                                             : number("Szám " + std::to_string(i)));
        table.rows[0].push_back(isText ? Cell("ab") : Cell(i + 0.5));
        table.rows[1].push_back(i % 2 != 0 ? Cell{} : table.rows[0].back());
    }
    expectComesBack({table});
}

TEST(JetRoundTrip, long_values_of_every_storage_come_back) {
    Table table{{"T", {column("m", ColumnKind::Memo), column("o", ColumnKind::Ole), number("n")}}, {}};
    // Around the limits: in the row, on one page, in chains.
    for (std::size_t size : {1,    31,   32,   33,   62,   63,   64,   65,   100,  1023, 1024, 1025,
                             2037, 2038, 2039, 4071, 4072, 4073, 4076, 4077, 8144, 8145, 20000})
        table.rows.push_back(
            {std::string(size, 'm'), Cell::blob(std::string(size, '\xEE')), static_cast<double>(size)});
    table.rows.push_back({{}, {}, {}});
    expectComesBack({table});
}

TEST(JetRoundTrip, a_memo_of_one_megabyte_comes_back) {
    std::string memo;
    while (memo.size() < 1 << 20)
        memo += "árvíztűrő tükörfúrógép " + std::to_string(memo.size()) + "\r\n";
    expectComesBack({{{"T", {column("m", ColumnKind::Memo)}}, {{memo}, {"rövid"}}}});
}

TEST(JetRoundTrip, many_columns_of_long_values_come_back) {
    Table table{{"T", {}}, {{}}};
    for (int i = 0; i < 60; ++i) {
        table.shape.columns.push_back(column("M" + std::to_string(i), ColumnKind::Memo));
        table.rows[0].push_back(std::string(100, static_cast<char>('A' + i % 26)));
    }
    expectComesBack({table}); // more usage maps than one page holds
}

TEST(JetRoundTrip, tables_keep_their_order_and_their_rows_apart) {
    std::vector<Table> tables;
    for (int i = 0; i < 40; ++i)
        tables.push_back(
            {{"TABLA_" + std::to_string(i), {number("ID"), text("NEV")}}, {{i + 0.0, "sor"}, {i + 0.5, {}}}});
    expectComesBack(tables);
}

TEST(JetRoundTrip, a_catalogue_whose_indexes_take_many_pages_breaks_no_rule) {
    std::vector<Table> tables;
    for (int i = 0; i < 400; ++i)
        tables.push_back({{"Hosszú nevű tábla, hogy az index több lapot töltsön meg " + std::to_string(i * 7919 % 1000),
                           {number("ID")}},
                          {}});
    expectComesBack(tables);
}

TEST(JetRoundTrip, tiny_rows_never_number_past_a_byte) {
    Table table{{"T", {column("b", ColumnKind::Bool)}}, {}};
    for (int i = 0; i < 2000; ++i)
        table.rows.push_back({i % 3 == 0 ? 1 : 0});
    expectComesBack({table});
}

TEST(JetRoundTrip, a_row_may_be_as_long_as_access_allows) {
    Table table{{"T", {}}, {{}}};
    for (int i = 0; i < 8; ++i) {
        table.shape.columns.push_back(column("B" + std::to_string(i), ColumnKind::Binary, 510));
        table.rows[0].push_back(Cell::blob(std::string(i < 7 ? 510 : 467, 'b')));
    }
    expectComesBack({table}); // 4,060 bytes
    table.rows[0].back().bytes += 'b';
    EXPECT_NE(errorOf([&] { write(newFile(), {table}); }).find("4060"), std::string::npos);
}

TEST(JetRoundTrip, a_table_of_more_than_two_megabytes_comes_back) {
    expectComesBack({signTable(12000), {{"UTANA", {number("ID")}}, {{1.0}}}});
}

TEST(JetRoundTrip, a_table_of_more_than_128_megabytes_takes_a_second_page_of_its_map) {
    const std::string path = newFile();
    const std::string block(510, 'b');
    StoreTable shape{"NAGY", {number("ID")}};
    for (int i = 0; i < 7; ++i)
        shape.columns.push_back(column("B" + std::to_string(i), ColumnKind::Binary, 510));
    constexpr int rows = 33500; // one a page
    {
        JetWriter writer(path);
        writer.beginTable(shape);
        std::vector<StoreCell> cells(8, StoreCell::blob(block));
        for (int i = 0; i < rows; ++i) {
            cells[0] = StoreCell::of(static_cast<double>(i));
            writer.row(cells);
        }
        writer.endTable();
        writer.finish();
    }
    expectClean(path);
    FileBytes file(path);
    EXPECT_EQ(file.rowPages("NAGY").size(), static_cast<std::size_t>(rows));
    const std::vector<Table> found = read(path);
    ASSERT_EQ(found.front().rows.size(), static_cast<std::size_t>(rows));
    EXPECT_EQ(found.front().rows.back().front(), Cell(rows - 1.0));
}
