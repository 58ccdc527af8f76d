// What the writer makes is sound record for record, and the walker that says so tells a broken one.
#include "BiffTables.h"
#include "RecordWalker.h"
#include "TestSupport.h"
#include "biff/BiffWriter.h"

#include <cstring>
#include <limits>
#include <gtest/gtest.h>

using odbc::ColumnKind;

namespace {
std::vector<Table> someTables() {
    Table first{{"KORVANT", {number("ID"), text("HANDLE"), number("AX"), column("BE", ColumnKind::Bool), column("NAP", ColumnKind::Date)}}, {}};
    for (int i = 0; i < 70; ++i)
        first.rows.push_back({static_cast<double>(i), i % 5 ? Value("szöveg ő " + std::to_string(i)) : Value(), i * 0.1, Value::whole(i % 2), i % 3 ? Value(45000.5) : Value()});
    first.rows.push_back({Value(), Value(), Value(), Value(), Value()});
    Table second{{"ÜRES", {text("NÉV")}}, {}};
    return {first, second};
}
Table longTexts(bool wide) {
    Table table{{"T", {text("A")}}, {}};
    for (int i = 0; i < 300; ++i) {
        std::string value = std::to_string(i) + ":";
        for (int c = 0; c < 60 + i % 90; ++c)
            value += wide || (i + c) % 97 == 0 ? "ű" : "u";
        table.rows.push_back({value});
    }
    return table;
}
std::string faults(const std::vector<std::string>& all) {
    std::string out;
    for (const auto& fault : all)
        out += fault + "\n";
    return out;
}
std::string walked(const std::vector<Table>& tables) { return faults(walkWorkbook(workbookStream(tables))); }

struct Mutation {
    std::uint16_t id;
    int which; // the how-manieth record of the id
    std::size_t at;
    std::uint8_t value;
    const char* fault;
};
} // namespace

TEST(BiffStructure, the_records_of_a_workbook_are_sound) { EXPECT_EQ(walked(someTables()), ""); }

TEST(BiffStructure, a_workbook_without_a_table_has_one_empty_sheet) {
    EXPECT_EQ(walked({}), "");
    const std::string path = testTempPath() + "/none.xls";
    writeWorkbook(path, {});
    EXPECT_EQ(faults(walkContainer(fileBytes(path))), "");
}

TEST(BiffStructure, texts_that_go_on_in_CONTINUE_records_are_sound) {
    EXPECT_EQ(walked({longTexts(false)}), "");
    EXPECT_EQ(walked({longTexts(true)}), "");
    Table longest{{"T", {column("A", ColumnKind::Memo)}}, {}};
    for (std::size_t size : {8210u, 8211u, 8212u, 8213u, 8214u, 16430u, 32767u})
        longest.rows.push_back({std::string(size, static_cast<char>('a' + size % 26))});
    EXPECT_EQ(walked({longest}), "");
}

// One text of every length around the end of a record, then a short one: no head is ever torn.
TEST(BiffStructure, no_head_of_a_text_is_torn_wherever_the_record_ends) {
    for (std::size_t size = 8190; size < 8216; ++size)
        for (const char* next : {"b", "ő"}) {
            Table table{{"T", {column("A", ColumnKind::Memo)}}, {{std::string(size, 'a')}, {next}, {"z"}}};
            ASSERT_EQ(walked({table}), "") << size << " " << next;
        }
}

TEST(BiffStructure, equal_texts_are_stored_once) {
    Table table{{"T", {text("A"), text("B")}}, {}};
    for (int i = 0; i < 1000; ++i)
        table.rows.push_back({"meglévő", "tervezett"});
    const std::string stream = workbookStream({table});
    EXPECT_EQ(faults(walkWorkbook(stream)), ""); // a text that stands twice is a fault there
    for (const auto& record : recordsOf(stream))
        if (record.id == 0x00FC) {
            std::uint32_t uses = 0, unique = 0;
            std::memcpy(&uses, record.body.data(), 4);
            std::memcpy(&unique, record.body.data() + 4, 4);
            EXPECT_EQ(uses, 2002u);
            EXPECT_EQ(unique, 4u);
        }
}

TEST(BiffStructure, a_full_sheet_of_256_columns_is_sound) {
    Table table{{"T", {}}, {}};
    for (int i = 0; i < 256; ++i)
        table.shape.columns.push_back(number("C" + std::to_string(i)));
    std::vector<Value> row;
    for (int i = 0; i < 256; ++i)
        row.push_back(i % 3 ? Value(static_cast<double>(i)) : Value(i * 0.123456789));
    for (int i = 0; i < 2000; ++i)
        table.rows.push_back(row);
    EXPECT_EQ(walked({table}), "");
}

TEST(BiffStructure, the_container_is_sound_small_and_large) {
    const std::string path = testTempPath() + "/container.xls";
    for (const int rows : {1, 50, 3000, 60000}) {
        Table table{{"T", {number("A"), text("B")}}, {}};
        for (int i = 0; i < rows; ++i)
            table.rows.push_back({i * 0.7, "sor " + std::to_string(i)});
        writeWorkbook(path, {table});
        EXPECT_EQ(faults(walkContainer(fileBytes(path))), "") << rows;
    }
}

TEST(BiffStructure, columns_are_as_wide_as_what_they_show) {
    Table table{{"T", {number("ID"), text("NEV"), column("HOSSZU", ColumnKind::Memo), text("MEGSZUNTETENDO_OSZLOP")}}, {}};
    table.rows.push_back({1.0, "árvíztűrő tükörfúrógép", std::string(3000, 'x'), Value()});
    std::vector<unsigned> widths;
    const std::string stream = workbookStream({table});
    for (const auto& record : recordsOf(stream))
        if (record.id == 0x007D)
            widths.push_back(static_cast<unsigned char>(record.body[4]) + 256u * static_cast<unsigned char>(record.body[5]));
    ASSERT_EQ(widths.size(), 4u);
    EXPECT_LT(widths[0], 6 * 256u);
    EXPECT_GE(widths[1], 22 * 256u);
    EXPECT_LT(widths[1], 30 * 256u);
    EXPECT_EQ(widths[2], 255 * 256u); // the widest there is
    EXPECT_GE(widths[3], 25 * 256u);
}

TEST(BiffStructure, the_walker_tells_each_broken_rule) {
    const std::string sound = workbookStream(someTables());
    ASSERT_EQ(faults(walkWorkbook(sound)), "");
    const std::vector<Mutation> mutations{
        {0x0809, 0, 1, 5, "a BOF is not of version 8"},
        {0x0809, 1, 2, 5, "a BOF names another kind of substream"},
        {0x0042, 0, 0, 0xE2, "the code page is not that of 16-bit text"},
        {0x00E0, 16, 0, 4, "an XF names no font"},
        {0x00E0, 16, 2, 200, "an XF names no number format"},
        {0x00E0, 16, 4, 0xF1, "an XF's parent is no style"},
        {0x00E0, 3, 4, 0x01, "an XF's parent is no style"},
        {0x00E0, 15, 4, 0xF5, "format 15 is no cell format"},
        {0x0085, 0, 0, 1, "a BOUNDSHEET does not name the place of a sheet"},
        {0x0085, 0, 6, 40, "a sheet's name is not of 1 to 31 characters"},
        {0x0085, 0, 8, '/', "a sheet's name has a forbidden character"},
        {0x00FC, 0, 0, 1, "the SST's number of uses is not that of the cells"},
        {0x00FC, 0, 4, 1, "the SST has more texts than it says"},
        {0x00FC, 0, 5, 9, "the SST has fewer texts than it says"},
        {0x00FC, 0, 10, 8, "a text has an unknown option"},
        {0x00FF, 0, 0, 7, "a portion of EXTSST has fewer than 8 texts"},
        {0x00FF, 0, 2, 1, "EXTSST names a place where no text begins"},
        {0x00FF, 0, 6, 1, "EXTSST names a wrong place in a record"},
        {0x00FD, 0, 4, 1, "a cell names no cell format"},
        {0x00FD, 0, 4, 99, "a cell names no cell format"},
        {0x00FD, 3, 7, 99, "a cell names a text that is not in the SST"},
        {0x00FD, 3, 2, 200, "a cell lies outside of its ROW"},
        {0x0200, 0, 4, 1, "DIMENSIONS has other rows than the sheet"},
        {0x0200, 0, 10, 9, "DIMENSIONS has other columns than the sheet"},
        {0x0208, 2, 0, 7, "the rows are not in order"},
        {0x020B, 0, 8, 7, "INDEX has other rows than the sheet"},
        {0x020B, 0, 12, 7, "INDEX does not lead to the widths"},
        {0x020B, 0, 20, 7, "INDEX does not lead to a block"},
        {0x00D7, 1, 0, 7, "a DBCELL does not lead to the first row"},
        {0x00D7, 1, 6, 7, "a DBCELL does not lead to a row's first cell"},
        {0x023E, 0, 0, 0xB6, "the window is not frozen"},
        {0x0041, 0, 2, 2, "the pane is not frozen below row one"},
        {0x007D, 1, 0, 3, "the widths of the columns are not in order"},
    };
    for (const Mutation& mutation : mutations) {
        std::string broken = sound;
        int which = mutation.which;
        for (const auto& record : recordsOf(sound))
            if (record.id == mutation.id && which-- == 0)
                broken[record.place + 4 + mutation.at] = static_cast<char>(mutation.value);
        ASSERT_LT(which, 0) << mutation.fault;
        ASSERT_NE(broken, sound) << mutation.fault;
        EXPECT_NE(faults(walkWorkbook(broken)).find(mutation.fault), std::string::npos) << "record " << mutation.id << " wanted: " << mutation.fault << "\nfound: " << faults(walkWorkbook(broken));
    }
    std::string infinite = sound;
    for (const auto& record : recordsOf(sound))
        if (record.id == 0x0203)
            infinite.replace(record.place + 4 + 6, 8, "\0\0\0\0\0\0\xF0\x7F", 8);
    EXPECT_EQ(faults(walkWorkbook(infinite)), "a NUMBER is zero, denormal or not finite\n");
    EXPECT_NE(faults(walkWorkbook(sound.substr(0, sound.size() - 2))), "");
    EXPECT_NE(faults(walkWorkbook(sound.substr(0, sound.size() - 4))), "");
}

TEST(BiffStructure, the_container_walker_tells_a_broken_chain) {
    const std::string path = testTempPath() + "/chain.xls";
    Table table{{"T", {number("A")}}, {}};
    for (int i = 0; i < 3000; ++i)
        table.rows.push_back({i * 0.7});
    writeWorkbook(path, {table});
    const std::string sound = fileBytes(path);
    std::uint32_t fat = 0;
    std::memcpy(&fat, sound.data() + 76, 4);
    std::string broken = sound;
    broken[(fat + 1) * 512 + 8] = 0; // sector 2 leads to sector 0 again
    EXPECT_NE(faults(walkContainer(broken)), "");
    EXPECT_NE(faults(walkContainer(sound.substr(0, sound.size() - 512))), "");
}

// ---- what a sheet cannot hold ------------------------------------------------------------------

TEST(BiffWriter, the_65537th_row_begins_a_further_sheet) {
    Table table{{"TABLA", {number("ID")}}, {}};
    table.rows.assign(65535, {1.0});
    EXPECT_EQ(refusal({table}), "");
    table.rows.push_back({1.0});
    EXPECT_EQ(refusal({table}), "");
}

TEST(BiffWriter, names_that_no_sheet_may_have_are_refused) {
    const auto named = [](const std::string& name) { return refusal({{{name, {number("ID")}}, {}}}); };
    const std::string letters31 = "őőőőőőőőőőőőőőőőőőőőőőőőőőőőőőő";
    EXPECT_EQ(named(letters31), "");
    EXPECT_NE(named(letters31 + "x").find("hosszabb, mint 31 karakter"), std::string::npos);
    for (const char* name : {"a/b", "a\\b", "a?", "*", "[a", "a]", "a:b", "a\nb"})
        EXPECT_NE(named(name).find("ezek egyike áll: \\ / ? * [ ] :"), std::string::npos) << name;
    EXPECT_NE(named("").find("nincs neve"), std::string::npos);
    EXPECT_NE(named("'a").find("aposztróf"), std::string::npos);
    EXPECT_NE(named("a'").find("aposztróf"), std::string::npos);
    EXPECT_EQ(named("a'b"), "");
    EXPECT_NE(named("History").find("History"), std::string::npos);
    const Table upper{{"ŐRZŐ", {number("ID")}}, {}}, lower{{"őrző", {number("ID")}}, {}};
    EXPECT_NE(refusal({upper, lower}).find("már van ilyen nevű munkalap"), std::string::npos);
}

TEST(BiffWriter, columns_that_a_sheet_cannot_hold_are_refused) {
    Table table{{"T", {}}, {}};
    EXPECT_NE(refusal({table}).find("1–256 oszlopa"), std::string::npos);
    for (int i = 0; i < 257; ++i)
        table.shape.columns.push_back(number("C" + std::to_string(i)));
    EXPECT_NE(refusal({table}).find("1–256 oszlopa"), std::string::npos);
    table.shape.columns = {column("KEP", ColumnKind::Ole)};
    EXPECT_EQ(refusal({table}), "A tábla (T) oszlopa (KEP) bájtokat tartalmaz, amit munkafüzet nem tárolhat.");
}

TEST(BiffWriter, values_that_a_cell_cannot_hold_are_refused) {
    const auto with = [](Value value) { return refusal({{{"T", {column("A", ColumnKind::Memo)}}, {{std::move(value)}}}}); };
    EXPECT_NE(with(std::numeric_limits<double>::infinity()).find("nem véges"), std::string::npos);
    EXPECT_NE(with(std::numeric_limits<double>::quiet_NaN()).find("nem véges"), std::string::npos);
    EXPECT_NE(with("\xC3").find("nem Unicode"), std::string::npos);
    EXPECT_NE(with("\xED\xA0\x80").find("nem Unicode"), std::string::npos); // half a pair
    EXPECT_EQ(with(std::string(32767, 'a')), "");
    EXPECT_NE(with(std::string(32768, 'a')).find("32767"), std::string::npos);
    EXPECT_NE(refusal({{{"T", {column("A", ColumnKind::Currency)}}, {{"12x"}}}}).find("olvashatatlan"), std::string::npos);
}

TEST(BiffWriter, numbers_that_the_format_lacks_become_0) {
    Table table{{"T", {number("A"), number("B"), number("C")}}, {{-0.0, 5e-324, -std::numeric_limits<double>::min() / 2}}};
    Table zeros{{"T", {number("A"), number("B"), number("C")}}, {{0.0, 0.0, 0.0}}};
    EXPECT_EQ(workbookStream({table}), workbookStream({zeros}));
}

TEST(BiffWriter, nothing_is_written_before_the_end) {
    const std::string path = testTempPath() + "/unfinished.xls";
    {
        odbc::BiffWriter writer(path);
        writer.beginTable({"T", {number("ID")}});
        writer.endTable();
    }
    EXPECT_EQ(fileBytes(path), "");
}

TEST(BiffWriter, a_full_disk_and_a_missing_folder_are_told) {
    Table table{{"T", {number("A")}}, {}};
    for (int i = 0; i < 5000; ++i)
        table.rows.push_back({i * 0.7});
    const auto at = [&](const std::string& path) {
        try {
            writeWorkbook(path, {table});
        } catch (const odbc::StoreError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(at("/dev/full"), "A munkafüzet nem írható, mert a lemez megtelt vagy hibás: \"/dev/full\".");
    const std::string missing = testTempPath() + "/no/such.xls";
    EXPECT_EQ(at(missing), "A munkafüzet nem hozható létre, mert a mappája hiányzik vagy nem írható: \"" + missing + "\".");
}

TEST(BiffWriter, calls_out_of_order_are_the_callers_fault) {
    odbc::BiffWriter writer(testTempPath() + "/order.xls");
    EXPECT_THROW(writer.endTable(), std::logic_error);
    EXPECT_THROW(writer.row({}), std::logic_error);
    writer.beginTable({"T", {number("ID")}});
    EXPECT_THROW(writer.beginTable({"U", {number("ID")}}), std::logic_error);
    EXPECT_THROW(writer.row({}), std::logic_error);
    EXPECT_THROW(writer.finish(), std::logic_error);
}
