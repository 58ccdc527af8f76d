// Workbooks of other programs come in as tables; what cannot be read is told in one sentence.
#include "BiffTables.h"
#include "StreamMaker.h"
#include "TestSupport.h"
#include "biff/BiffReader.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using odbc::ColumnKind;
using odbc::StoreCell;

namespace {
std::vector<Table> read(const std::string& stream) {
    KeepingSink sink;
    odbc::readBiffStream(stream, "book.xls", sink);
    EXPECT_EQ(sink.open, 0);
    return sink.tables;
}
// "NAME(column:kind,…) value,value;…" of each table.
std::string shown(const std::vector<Table>& tables) {
    static const char* const kKinds[] = {"bool", "byte", "short", "long", "currency", "single", "double", "date", "binary", "text", "ole", "memo", "guid", "numeric"};
    std::string out;
    for (const Table& table : tables) {
        out += table.shape.name + "(";
        for (const auto& column : table.shape.columns)
            out += column.name + ":" + kKinds[static_cast<int>(column.kind)] + ",";
        out += ")";
        for (const auto& row : table.rows) {
            for (const Value& value : row) {
                char number[40];
                std::snprintf(number, sizeof number, "%.15g", value.real);
                out += value.type == StoreCell::Type::Null   ? "-"
                       : value.type == StoreCell::Type::Text ? "'" + value.text + "'"
                       : value.type == StoreCell::Type::Real ? std::string(number)
                                                             : std::to_string(value.integer) + "i";
                out += ",";
            }
            out += ";";
        }
    }
    return out;
}
class CountingSink : public odbc::TableSink {
public:
    void beginTable(const odbc::StoreTable&) override {}
    void row(std::span<const StoreCell>) override { ++rows; }
    void endTable() override {}
    std::size_t rows = 0;
};
std::string fault(const std::string& stream) {
    try {
        read(stream);
    } catch (const odbc::StoreError& error) {
        return error.what();
    }
    return {};
}
std::string faultOfFile(const std::string& path) {
    KeepingSink sink;
    try {
        odbc::readBiff(path, sink);
    } catch (const odbc::StoreError& error) {
        return error.what();
    }
    return {};
}
std::string fileWith(const std::string& bytes) {
    const std::string path = testTempPath() + "/foreign.xls";
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}
// A directory entry and a container by hand: enough for a stream of 4,096 bytes and more.
std::string entry(std::u16string name, unsigned type, std::uint32_t child, std::uint32_t start, std::uint32_t size) {
    Bytes bytes;
    bytes.raw(std::string_view(reinterpret_cast<const char*>(name.data()), name.size() * 2)).raw(std::string(64 - name.size() * 2, '\0'));
    bytes.u16(static_cast<unsigned>(name.size() * 2 + 2)).u8(type).u8(1).u32(0xFFFFFFFF).u32(0xFFFFFFFF).u32(child).raw(std::string(36, '\0'));
    return bytes.u32(start).u32(size).u32(0).get();
}
std::string container(const std::u16string& name, std::string stream) {
    const std::size_t size = std::max<std::size_t>(stream.size(), 4096), sectors = (size + 511) / 512;
    stream.resize(sectors * 512);
    Bytes header;
    header.raw("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").raw(std::string(16, '\0')).u16(0x3E).u16(3).u16(0xFFFE).u16(9).u16(6).raw(std::string(6, '\0'));
    header.u32(0).u32(1).u32(1).u32(0).u32(4096).u32(0xFFFFFFFE).u32(0).u32(0xFFFFFFFE).u32(0).u32(0);
    for (int i = 0; i < 108; ++i)
        header.u32(0xFFFFFFFF);
    Bytes fat;
    fat.u32(0xFFFFFFFD).u32(0xFFFFFFFE);
    for (std::size_t i = 0; i < sectors; ++i)
        fat.u32(i + 1 == sectors ? 0xFFFFFFFE : static_cast<std::uint32_t>(i + 3));
    std::string table = fat.get();
    table.resize(512, '\xFF');
    std::string directory = entry(u"Root Entry", 5, 1, 0xFFFFFFFE, 0) + entry(name, 2, 0xFFFFFFFF, 2, static_cast<std::uint32_t>(size));
    directory.resize(512, '\0');
    return header.get() + table + directory + stream;
}
} // namespace

TEST(BiffReader, gives_back_what_the_writer_wrote) {
    Table table{{"KORVANT", {number("ID"), text("NÉV"), column("BE", ColumnKind::Bool), column("NAP", ColumnKind::Date), column("L", ColumnKind::Memo)}}, {}};
    table.rows.push_back({1.0, "meglévő", Value::whole(1), 45000.5, std::string(300, 'x')});
    table.rows.push_back({Value(), Value(), Value(), Value(), Value()});
    table.rows.push_back({0.1, "", Value::whole(0), 1.25, "őr"});
    const std::string path = testTempPath() + "/own.xls";
    writeWorkbook(path, {table, {{"ÜRES", {text("A"), text("B")}}, {}}});
    KeepingSink sink;
    odbc::readBiff(path, sink);
    ASSERT_EQ(sink.tables.size(), 2u);
    EXPECT_EQ(shown({sink.tables[0]}), "KORVANT(ID:double,NÉV:text,BE:bool,NAP:date,L:memo,)1,'meglévő',1i,45000.5,'" + std::string(300, 'x') +
                                           "',;-,-,-,-,-,;0.1,-,0i,1.25,'őr',;");
    EXPECT_EQ(shown({sink.tables[1]}), "ÜRES(A:text,B:text,)");
}

TEST(BiffReader, numbers_come_in_every_form) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    book.label(0, 1, "B");
    book.cell(0x027E, Bytes().u16(1).u16(0).u16(0).u32((static_cast<std::uint32_t>(-7) << 2) | 2)); // whole
    book.cell(0x027E, Bytes().u16(1).u16(1).u16(0).u32((12345u << 2) | 3));                         // whole, in hundredths
    book.cell(0x00BD, Bytes().u16(2).u16(0).u16(0).u32(0x3FF80000).u16(0).u32(0x40590001).u16(1));  // 1.5 and 100 in hundredths
    book.number(3, 1, 0.1);
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,B:double,)-7,123.45,;1.5,1,;-,0.1,;");
}

TEST(BiffReader, texts_come_in_every_form) {
    StreamMaker book;
    Bytes texts;
    texts.u32(4).u32(4);
    texts.u16(4).u8(0x08).u16(2).raw("rich").raw(std::string(8, 'r'));                   // with two formatting runs
    texts.u16(4).u8(0x0C).u16(1).u32(6).raw("both").raw(std::string(4, 'r')).raw("phonet"); // and with phonetics
    texts.u16(2).u8(1).u16(0x151).u16(0x171);
    texts.u16(6).u8(0).raw("nar");
    book.global(0x00FC, texts);
    book.global(0x003C, Bytes().u8(1).u16('r').u16(0x151).u16('w')); // goes on in wide characters
    book.sheet("S");
    book.label(0, 0, "A");
    for (unsigned i = 0; i < 4; ++i)
        book.cell(0x00FD, Bytes().u16(i + 1).u16(0).u16(0).u32(i));
    book.cell(0x00D6, Bytes().u16(5).u16(0).u16(0).u16(3).u8(0).raw("old").u16(0));
    EXPECT_EQ(shown(read(book.stream())), "S(A:text,)'rich',;'both',;'őű',;'narrőw',;'old',;");
}

TEST(BiffReader, formulas_give_their_last_result) {
    StreamMaker book;
    book.sheet("S");
    for (unsigned i = 0; i < 5; ++i)
        book.label(0, i, std::string(1, static_cast<char>('A' + i)));
    const auto formula = [](unsigned column) { return Bytes().u16(1).u16(column).u16(0); };
    const auto special = [](unsigned kind, unsigned value) { return Bytes().u8(kind).u8(0).u8(value).raw(std::string(3, '\0')).u16(0xFFFF).get(); };
    const std::string rest(8, '\0');
    book.cell(0x0006, formula(0).f64(2.5).raw(rest));
    book.cell(0x0006, formula(1).raw(special(0, 0)).raw(rest));
    book.cell(0x04BC, Bytes().raw("shared formula")); // may stand between a formula and its text
    book.cell(0x0207, Bytes().u16(5).u8(0).raw("res"));
    book.cell(0x003C, Bytes().u8(1).u16(0x171).u16('t'));
    book.cell(0x0006, formula(2).raw(special(1, 1)).raw(rest));
    book.cell(0x0006, formula(3).raw(special(2, 7)).raw(rest)); // an error value
    book.cell(0x0006, formula(4).raw(special(3, 0)).raw(rest)); // an empty text
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,B:text,C:bool,D:text,E:text,)2.5,'resűt',1i,-,'',;");
}

TEST(BiffReader, dates_are_known_by_their_format) {
    const auto stream = [](bool from1904) {
        StreamMaker book;
        if (from1904)
            book.global(0x0022, Bytes().u16(1));
        book.global(0x041E, Bytes().u16(164).u16(10).u8(0).raw("yyyy\\-mm\\-d"));
        book.global(0x041E, Bytes().u16(165).u16(13).u8(0).raw("#,##0 \"d\"[Red]"));
        for (const unsigned format : {0u, 14u, 164u, 165u})
            book.global(0x00E0, Bytes().u16(0).u16(format).raw(std::string(16, '\0')));
        book.sheet("S");
        for (unsigned i = 0; i < 4; ++i) {
            book.label(0, i, std::string(1, static_cast<char>('A' + i)));
            book.number(1, i, 45000.5, i);
        }
        return book.stream();
    };
    EXPECT_EQ(shown(read(stream(false))), "S(A:double,B:date,C:date,D:double,)45000.5,45000.5,45000.5,45000.5,;");
    EXPECT_EQ(shown(read(stream(true))), "S(A:double,B:date,C:date,D:double,)45000.5,46462.5,46462.5,45000.5,;");
}

TEST(BiffReader, a_column_of_texts_and_numbers_is_text) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    book.number(1, 0, 12.5);
    book.label(2, 0, "x");
    book.number(3, 0, 1e21);
    book.cell(0x0205, Bytes().u16(4).u16(0).u16(0).u8(1).u8(0));
    EXPECT_EQ(shown(read(book.stream())), "S(A:text,)'12.5',;'x',;'1e+21',;'TRUE',;");
}

TEST(BiffReader, logical_values_among_numbers_are_numbers) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    book.number(1, 0, 3);
    book.cell(0x0205, Bytes().u16(2).u16(0).u16(0).u8(1).u8(0));
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,)3,;1,;");
}

TEST(BiffReader, an_error_value_is_null) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    book.cell(0x0205, Bytes().u16(1).u16(0).u16(0).u8(0x2A).u8(1));
    book.number(2, 0, std::numeric_limits<double>::quiet_NaN());
    book.number(3, 0, 1);
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,)-,;-,;1,;");
}

TEST(BiffReader, blank_and_repeated_column_names_are_made_unique) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    book.label(0, 2, "a");
    book.number(0, 3, 2024);
    book.label(0, 4, "a1");
    book.number(1, 5, 1);
    EXPECT_EQ(shown(read(book.stream())), "S(A:text,F2:text,a1:text,2024:text,a11:text,F6:double,)-,-,-,-,-,1,;");
}

TEST(BiffReader, the_table_is_what_is_in_use) {
    StreamMaker book;
    book.sheet("S");
    book.label(2, 3, "A");
    book.label(2, 4, "B");
    book.number(5, 4, 7);
    book.cell(0x0201, Bytes().u16(6).u16(3).u16(0)); // formatted, without a value
    EXPECT_EQ(shown(read(book.stream())), "S(A:text,B:double,)-,-,;-,-,;-,7,;-,-,;");
}

TEST(BiffReader, of_two_records_for_a_cell_the_later_counts_in_any_order_of_cells) {
    StreamMaker book;
    book.sheet("S");
    book.number(2, 0, 5);
    book.number(1, 0, 4);
    book.number(2, 0, 6);
    book.label(0, 0, "A");
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,)4,;6,;");
}

TEST(BiffReader, charts_are_no_tables_and_empty_sheets_none) {
    StreamMaker book;
    book.sheet("Chart", 0x0020);
    book.sheet("Empty");
    book.sheet("S");
    book.label(0, 0, "A");
    book.cell(0x0809, Bytes().raw(StreamMaker::bof(0x0020))); // a chart inside the sheet
    book.number(1, 0, 99);                                    // its data are no cells
    book.cell(0x000A, Bytes());
    book.number(1, 0, 1);
    EXPECT_EQ(shown(read(book.stream())), "S(A:double,)1,;");
}

TEST(BiffReader, a_sheet_of_nearly_nothing_but_room_is_refused) {
    StreamMaker book;
    for (int i = 0; i < 5; ++i) {
        book.sheet("S" + std::to_string(i));
        book.label(0, 0, "A");
        book.number(65535, 255, 1);
    }
    CountingSink sink;
    EXPECT_THROW(
        {
            try {
                odbc::readBiffStream(book.stream(), "book.xls", sink);
            } catch (const odbc::StoreError& error) {
                EXPECT_STREQ(error.what(), "A munkafüzetben túl sok az üres cella: \"book.xls\".");
                throw;
            }
        },
        odbc::StoreError);
    EXPECT_EQ(sink.rows, 3u * 65535u); // what came before was handed over
}

// ---- faults ------------------------------------------------------------------------------------

TEST(BiffReaderFault, a_file_that_is_no_workbook_is_told) {
    const std::string folder = testTempPath();
    EXPECT_EQ(faultOfFile(folder + "/none.xls"), "A munkafüzet nem létezik: \"" + folder + "/none.xls\".");
    EXPECT_EQ(faultOfFile(folder), "Ez mappa, nem munkafüzet: \"" + folder + "\".");
    EXPECT_NE(faultOfFile(fileWith("")).find("Ez nem munkafüzet"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith("<html>table</html>")).find("Ez nem munkafüzet"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith("PK\x03\x04 and so on")).find(".xlsx"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith(container(u"WordDocument", "text"))).find("Ez nem munkafüzet"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith(container(u"Book", "old"))).find("Excel 97 előtti"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith(container(u"EncryptedPackage", "x"))).find("jelszó védi"), std::string::npos);
}

TEST(BiffReaderFault, a_locked_workbook_is_told) {
    StreamMaker book;
    book.global(0x002F, Bytes().u16(1).raw(std::string(52, 'k')));
    book.sheet("S");
    EXPECT_EQ(fault(book.stream()), "A munkafüzetet jelszó védi: \"book.xls\".");
    EXPECT_NE(faultOfFile(fileWith(container(u"WORKBOOK", book.stream()))).find("jelszó védi"), std::string::npos);
}

TEST(BiffReaderFault, an_older_version_is_told) {
    std::string stream = StreamMaker().stream();
    stream[5] = 5;
    EXPECT_NE(fault(stream).find("Excel 97 előtti"), std::string::npos);
}

TEST(BiffReaderFault, records_that_lie_are_told) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    const std::string sound = book.stream();
    EXPECT_EQ(fault(sound), "");
    for (std::size_t size = 0; size < sound.size(); ++size)
        EXPECT_NE(fault(sound.substr(0, size)), "") << size;

    StreamMaker unknownText;
    unknownText.sheet("S");
    unknownText.cell(0x00FD, Bytes().u16(0).u16(0).u16(0).u32(0));
    EXPECT_NE(fault(unknownText.stream()).find("names a text that is not in its table"), std::string::npos);

    StreamMaker shortTexts;
    shortTexts.global(0x00FC, Bytes().u32(1).u32(0xFFFFFFFF).u16(3).u8(0).raw("abc"));
    EXPECT_NE(fault(shortTexts.stream()).find("table of texts ends too early"), std::string::npos);

    StreamMaker farAway;
    farAway.sheet("S");
    farAway.number(0, 256, 1);
    EXPECT_NE(fault(farAway.stream()).find("outside of its sheet"), std::string::npos);

    StreamMaker twice;
    twice.sheet("S");
    twice.label(0, 0, "A");
    twice.sheet("s");
    twice.label(0, 0, "A");
    EXPECT_NE(fault(twice.stream()).find("have one name"), std::string::npos);
}

TEST(BiffReaderFault, a_container_that_lies_is_told) {
    StreamMaker book;
    book.sheet("S");
    book.label(0, 0, "A");
    const std::string sound = container(u"Workbook", book.stream());
    EXPECT_EQ(faultOfFile(fileWith(sound)), "");
    std::string circle = sound;
    circle[512 + 4 * 4] = 2; // sector 4 leads back to sector 2: longer than said, yet long enough
    EXPECT_EQ(faultOfFile(fileWith(circle)), "");
    std::string cut = sound;
    cut[512 + 2 * 4] = '\xFE', cut[512 + 2 * 4 + 1] = cut[512 + 2 * 4 + 2] = cut[512 + 2 * 4 + 3] = '\xFF';
    EXPECT_NE(faultOfFile(fileWith(cut)).find("sérült (it ends before its workbook does)"), std::string::npos);
    EXPECT_NE(faultOfFile(fileWith(sound.substr(0, sound.size() - 1024))).find("sérült"), std::string::npos);
    std::string directoryCircle = sound;
    directoryCircle[512 + 4] = 1, directoryCircle[513 + 4] = directoryCircle[514 + 4] = directoryCircle[515 + 4] = 0;
    EXPECT_NE(faultOfFile(fileWith(directoryCircle)).find("the tables of its sectors cannot be read"), std::string::npos);
    std::string noTable = sound;
    noTable[76] = 100;
    EXPECT_NE(faultOfFile(fileWith(noTable)).find("the tables of its sectors cannot be read"), std::string::npos);
}
