// What an Access file cannot hold is refused with one sentence that says so.
#include "JetTestSupport.h"
#include "jet/JetPageStore.h"
#include "jet/JetWriter.h"

#include <gtest/gtest.h>
#include <unistd.h>

using namespace odbc;
using namespace jettest;

namespace {
std::string writeError(const Table& table) {
    return errorOf([&] { write(newFile(), {table}); });
}
std::string cellError(const StoreColumn& column, const Cell& cell) {
    return writeError({{"T", {column}}, {{cell}}});
}
} // namespace

TEST(JetLimits, text_longer_than_its_column) {
    EXPECT_EQ(cellError(text("NEV"), std::string(256, 'x')),
              "A tábla (T) oszlopa (NEV) legfeljebb 255 karaktert tárolhat.");
    EXPECT_EQ(cellError(text("NEV", 3), "őűőű"),
              "A tábla (T) oszlopa (NEV) legfeljebb 3 karaktert tárolhat.");
}
TEST(JetLimits, text_that_is_no_unicode) {
    EXPECT_EQ(cellError(text("NEV"), "\xFF\xFE"),
              "A tábla (T) oszlopa (NEV) csak Unicode szöveget tárolhat.");
    EXPECT_EQ(cellError(column("M", ColumnKind::Memo), "a\xC3"),
              "A tábla (T) oszlopa (M) csak Unicode szöveget tárolhat.");
}
TEST(JetLimits, names_longer_than_64_characters) {
    const std::string longName(65, 'N');
    EXPECT_NE(writeError({{longName, {number("ID")}}, {}}).find("64 karakternél"), std::string::npos);
    EXPECT_NE(writeError({{"T", {number(longName)}}, {}}).find("64 karakternél"), std::string::npos);
    std::string wide;
    for (int i = 0; i < 64; ++i)
        wide += "Ő";
    expectComesBack({{{wide, {number(wide)}}, {{1.0}}}});
}
TEST(JetLimits, more_than_255_columns) {
    Table table{{"T", {}}, {}};
    for (int i = 0; i < 256; ++i)
        table.shape.columns.push_back(number("C" + std::to_string(i)));
    EXPECT_EQ(writeError(table), "Az oszlopok száma több az Accessben megengedett 255-nél (tábla: T).");
}
TEST(JetLimits, a_row_longer_than_a_page) {
    Table table{{"T", {}}, {{}}};
    for (int i = 0; i < 20; ++i) {
        table.shape.columns.push_back(text("C" + std::to_string(i)));
        table.rows[0].push_back(std::string(255, 'x'));
    }
    EXPECT_EQ(writeError(table),
              "A tábla (T) egyik sora hosszabb, mint az Accessben megengedett 4060 bájt.");
}
TEST(JetLimits, names_that_stand_twice) {
    EXPECT_EQ(writeError({{"T", {number("nev"), text("NEV")}}, {}}),
              "Az oszlop kétszer szerepel (tábla: T): NEV.");
    EXPECT_EQ(errorOf([] {
                  write(newFile(), {{{"Ős", {number("ID")}}, {}}, {{"ŐS", {number("ID")}}, {}}});
              }),
              "Két tábla neve azonos: ŐS.");
    EXPECT_EQ(writeError({{"msysobjects", {number("ID")}}, {}}), "Két tábla neve azonos: msysobjects.");
}
TEST(JetLimits, names_that_are_empty_or_cannot_be_sorted) {
    EXPECT_EQ(writeError({{"", {number("ID")}}, {}}), "A név üres (tábla).");
    EXPECT_EQ(writeError({{"T", {number("")}}, {}}), "A név üres (tábla: T oszlopa).");
    EXPECT_EQ(writeError({{"T", {}}, {}}), "Nincs oszlop (tábla: T).");
    EXPECT_EQ(writeError({{"Таблица", {number("ID")}}, {}}),
              "Ez a név nem adható táblának, mert olyan karakter van benne, amelynek nincs helye az Access rendezésében: Таблица.");
}
TEST(JetLimits, values_outside_their_columns) {
    using enum ColumnKind;
    const std::string head = "A tábla (T) oszlopa (C) ";
    EXPECT_EQ(cellError(column("C", Byte), 256), head + "nem tárolhatja ezt az értéket: 256.");
    EXPECT_EQ(cellError(column("C", Short), -32769), head + "nem tárolhatja ezt az értéket: -32769.");
    EXPECT_EQ(cellError(column("C", Long), std::int64_t{2147483648}), head + "nem tárolhatja ezt az értéket: 2147483648.");
    EXPECT_EQ(cellError(column("C", Long), 1.5), head + "csak egész számot tárolhat.");
    EXPECT_EQ(cellError(column("C", Double), "1"), head + "csak számot tárolhat.");
    EXPECT_EQ(cellError(column("C", Single), 1e39), head + "nem tárolhat ekkora számot.");
    EXPECT_EQ(cellError(column("C", Currency), "922337203685477.5808"),
              head + "nem tárolhatja pénzösszegként ezt: 922337203685477.5808.");
    EXPECT_EQ(cellError(decimal("C", 4, 2), "100.00"), head + "nem tárolhat ilyen pontosságú számot: 100.00.");
    EXPECT_EQ(cellError(column("C", Guid), "{nem}"), head + "csak GUID értéket tárolhat.");
    EXPECT_EQ(cellError(column("C", Binary, 2), Cell::blob("abc")), head + "legfeljebb 2 bájtot tárolhat.");
    EXPECT_EQ(cellError(text("C"), 1.0), head + "csak szöveget tárolhat.");
}
TEST(JetLimits, sizes_that_no_column_has) {
    EXPECT_EQ(writeError({{"T", {text("C", 256)}}, {}}),
              "A méret 1–255 karakter lehet (tábla: T, oszlop: C).");
    EXPECT_EQ(writeError({{"T", {text("C", 0)}}, {}}),
              "A méret 1–255 karakter lehet (tábla: T, oszlop: C).");
    EXPECT_NE(writeError({{"T", {decimal("C", 29, 0)}}, {}}).find("1–28 számjegy"), std::string::npos);
}
TEST(JetLimits, numbers_of_another_type_are_taken_where_nothing_is_lost) {
    using enum ColumnKind;
    const std::string path = newFile();
    write(path, {{{"T",
                   {number("d"), column("l", Long), column("c", Currency), decimal("n", 10, 2), column("date", Date),
                    column("b", Bool)}},
                  {{7, 7.0, 12.5, "3.005", 40000, -1}}}});
    expectSame(read(path), {{{"T",
                              {number("d"), column("l", Long), column("c", Currency), decimal("n", 10, 2),
                               column("date", Date), column("b", Bool)}},
                             {{7.0, 7, "12.5000", "3.01", 40000.0, 1}}}});
}
TEST(JetLimits, a_file_that_cannot_be_made) {
    EXPECT_NE(errorOf([] { JetWriter writer(newFile() + "/none/test.mdb"); }).find("nem hozható létre"),
              std::string::npos);
}
TEST(JetLimits, a_full_disk) {
    if (::access("/dev/full", W_OK) != 0)
        GTEST_SKIP() << "there is no /dev/full here";
    const std::string error = errorOf([] {
        JetWriter writer("/dev/full");
        writer.finish();
    });
    EXPECT_EQ(error, "A fájl nem írható, mert a lemez megtelt: \"/dev/full\".");
}
TEST(JetLimits, a_file_that_would_grow_past_two_gigabytes) {
    jet::JetPageStore store(newFile(), 300);
    for (std::uint32_t page = 0; page < 300; ++page)
        EXPECT_EQ(store.allocate(), page);
    EXPECT_EQ(errorOf([&] { store.allocate(); }),
              "Az adatbázis 2 GB-nál nagyobb lenne, ennyit egy Access fájl nem tárolhat.");
    EXPECT_LT(std::uint64_t{jet::kMaxPages} * jet::kPageSize, std::uint64_t{1} << 31);
    EXPECT_GT((jet::kMaxPages + 2) * std::uint64_t{jet::kPageSize}, std::uint64_t{1} << 31);
}
TEST(JetLimits, text_that_begins_with_a_byte_order_mark_and_cannot_be_told_from_compressed_text) {
    // U+FEFF first makes the text look compressed, and characters whose low byte is zero cannot stand in such text.
    EXPECT_EQ(cellError(text("NEV"), "\xEF\xBB\xBF\xC4\x80"),
              "A tábla (T) oszlopa (NEV) csak Unicode szöveget tárolhat.");
}
