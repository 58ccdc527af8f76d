// Independent readers see in our workbooks what we put in, cell for cell, doubles to the last bit.
#include "BiffTables.h"
#include "TestShell.h"
#include "TestSupport.h"
#include "biff/BiffReader.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <freexl.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>

using odbc::ColumnKind;

namespace {
const std::string kPython = "/usr/bin/python3 "; // Debian's, which has Debian's packages

std::string dumper(const std::string& script) { return testShellWord(testSourceDir() + "/tests/host/odbc_biff/" + script) + " "; }

std::vector<std::string> linesOf(const std::string& command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen((command + " 2>&1").c_str(), "r"), ::pclose);
    std::string answer;
    std::array<char, 65536> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe.get()))
        answer.append(buffer.data(), count);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < answer.size();) {
        const std::size_t end = std::min(answer.find('\n', at), answer.size());
        lines.push_back(answer.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}
bool runs(const std::string& command) { return std::system((command + " > /dev/null 2>&1").c_str()) == 0; }
std::string modules() {
    const char* named = std::getenv("KORVANT_NODE_MODULES");
    return named != nullptr ? named : testSourceDir() + "/node_modules";
}

// Through the library; dates come as text there and logical values as whole numbers, so tables of neither.
std::vector<std::string> freexlLines(const std::string& path) {
    std::vector<std::string> lines;
    const void* book = nullptr;
    if (const int status = freexl_open(path.c_str(), &book); status != FREEXL_OK) {
        freexl_close(book);
        return {"freexl_open: " + std::to_string(status)};
    }
    unsigned sheets = 0;
    freexl_get_info(book, FREEXL_BIFF_SHEET_COUNT, &sheets);
    for (unsigned short sheet = 0; sheet < sheets; ++sheet) {
        const char* name = nullptr;
        unsigned rows = 0;
        unsigned short columns = 0;
        freexl_get_worksheet_name(book, sheet, &name);
        freexl_select_active_worksheet(book, sheet);
        freexl_worksheet_dimensions(book, &rows, &columns);
        for (unsigned row = 0; row < rows; ++row) {
            for (unsigned short column = 0; column < columns; ++column) {
                FreeXL_CellValue cell{};
                const int status = freexl_get_cell_value(book, row, column, &cell);
                std::string value = "?|" + std::to_string(cell.type);
                if (status != FREEXL_OK)
                    value = "status " + std::to_string(status);
                else if (cell.type == FREEXL_CELL_NULL)
                    continue;
                else if (cell.type == FREEXL_CELL_INT)
                    value = "n|" + bits(cell.value.int_value);
                else if (cell.type == FREEXL_CELL_DOUBLE)
                    value = "n|" + bits(cell.value.double_value);
                else if (cell.type == FREEXL_CELL_TEXT || cell.type == FREEXL_CELL_SST_TEXT)
                    value = "t|" + escaped(cell.value.text_value);
                lines.push_back(std::string(name) + "|" + std::to_string(row) + "|" + std::to_string(column) + "|" + value);
            }
        }
    }
    freexl_close(book);
    return lines;
}

// Numbers that the short forms of the format must keep or leave alone.
std::vector<double> hardNumbers(bool neighbours) {
    using limits = std::numeric_limits<double>;
    std::vector<double> all{0, 1, -1, 0.1, -0.1, 1.0 / 3, 2.0 / 3, 3.141592653589793, 123456.789012, 650123.123457, 0.01, 0.07, 1.15, 2.675, -12.34,
                            5368709.11, 5368709.12, -5368709.12, -5368709.13, 53687091.19, 536870911, 536870912, -536870912, -536870913, 9007199254740991.0,
                            9007199254740993.0, 1e15, 1e22, 1e300, -1e300, 1e-300, limits::max(), limits::lowest(), limits::min(), -limits::min(),
                            limits::epsilon(), 0.5, 0.25, 1.5e-5, 45000.75};
    for (double v : {1.0, 0.1, 650000.0, 1e-3})
        if (neighbours)
            all.insert(all.end(), {std::nextafter(v, 0.0), std::nextafter(v, 1e300)});
    std::mt19937_64 random(20240229);
    while (all.size() < 3000) {
        const double v = std::bit_cast<double>(random());
        if (std::isnormal(v))
            all.push_back(v);
        all.push_back(static_cast<double>(static_cast<std::int64_t>(random() % 2000000) - 1000000) / 100);
    }
    return all;
}

std::vector<Table> hardTables(bool neighbours = true) {
    std::vector<Table> tables;
    Table numbers{{"SZAMOK", {number("ID"), number("AX"), number("AY")}}, {}};
    const std::vector<double> all = hardNumbers(neighbours);
    for (std::size_t i = 0; i + 1 < all.size(); i += 2)
        numbers.rows.push_back({static_cast<double>(i), all[i], i % 7 == 0 ? Value() : Value(all[i + 1])});
    tables.push_back(std::move(numbers));

    Table texts{{"SZÖVEGEK árvíztűrő tükörfúrógép", {text("NÉV"), text("ÉRTÉK"), column("HOSSZÚ", ColumnKind::Memo)}}, {}};
    texts.rows.push_back({"meglévő", "megszüntetendő", "árvíztűrő tükörfúrógép"});
    texts.rows.push_back({"ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP", Value(), "két\nsor és \\ meg \"idézőjel\""});
    texts.rows.push_back({Value(), Value(), Value()});
    texts.rows.push_back({"1E5", "007", "=A1+1"});
    texts.rows.push_back({"jelek \U0001F6A6 \U0001D11E", "漢字", "€ – „idézet”"});
    // Texts of one and of two bytes a character that end, begin and are torn at every place of a record.
    for (int i = 0; i < 400; ++i) {
        const std::string narrow(static_cast<std::size_t>(1 + i * 37 % 251), static_cast<char>('a' + i % 26));
        std::string wide;
        for (int c = 0; c < 1 + i * 53 % 120; ++c)
            wide += c % 3 == 0 ? "ő" : "x";
        texts.rows.push_back({narrow, wide + std::to_string(i), Value()});
    }
    texts.rows.push_back({"hosszú", "", std::string(9000, 'z')});
    tables.push_back(std::move(texts));
    tables.push_back({{"URES", {number("ID"), text("NEV")}}, {}});
    return tables;
}

// The longest texts, which go over many records; libfreexl gives an empty workbook for them.
std::vector<Table> longestTexts() {
    Table texts{{"HOSSZU", {column("A", ColumnKind::Memo)}}, {{std::string(32767, 'z')}}};
    std::string wide;
    for (int i = 0; i < 32767; ++i)
        wide += i % 2 ? "ű" : "e";
    texts.rows.push_back({wide});
    texts.rows.push_back({"vége"});
    return {texts};
}

std::vector<Table> otherKinds() {
    Table table{{"FAJTAK",
                 {column("B", ColumnKind::Bool), column("BYTE", ColumnKind::Byte), column("L", ColumnKind::Long), column("D", ColumnKind::Date),
                  column("C", ColumnKind::Currency), column("N", ColumnKind::Numeric), column("S", ColumnKind::Single), column("G", ColumnKind::Guid)}},
                {}};
    table.rows.push_back({Value::whole(1), Value::whole(255), Value::whole(-2147483648LL), 45351.5, "1234567.8912", "12.5", 0.5, "{00020820-0000-0000-C000-000000000046}"});
    table.rows.push_back({Value::whole(0), Value::whole(0), Value::whole(2147483647LL), 61.25, "-922337203685477.5808", "-0.001", -1.25, Value()});
    table.rows.push_back({Value(), Value(), Value(), Value(), Value(), Value(), Value(), Value()});
    return {table};
}

std::string written(const std::vector<Table>& tables) {
    const std::string path = testTempPath() + "/peer.xls";
    writeWorkbook(path, tables);
    return path;
}
} // namespace

TEST(BiffPeer, xlrd_sees_every_cell_as_it_was_written) {
    ASSERT_TRUE(runs(kPython + "-c 'import xlrd'")) << "python3-xlrd is missing: run script/bootstrap";
    for (const auto& tables : {hardTables(), otherKinds(), longestTexts()})
        EXPECT_EQ(difference(expectedLines(tables), linesOf(kPython + dumper("xlrd-dump.py") + written(tables))), "");
}

TEST(BiffPeer, freexl_sees_every_cell_as_it_was_written) {
    const auto tables = hardTables();
    EXPECT_EQ(difference(expectedLines(tables), freexlLines(written(tables))), "");
}

TEST(BiffPeer, the_npm_package_xlsx_sees_every_cell_as_it_was_written) {
    if (!std::filesystem::exists(modules() + "/xlsx") || !runs("node --version"))
        GTEST_SKIP() << "skipped: the package xlsx is not installed";
    for (const auto& tables : {hardTables(), otherKinds(), longestTexts()})
        EXPECT_EQ(difference(expectedLines(tables), linesOf("node " + dumper("xlsx-dump.cjs") + testShellWord(modules()) + " " + written(tables))), "");
}

// It is asked to save what it saw as a workbook of its own, since its other formats round numbers; so this is also
// another program's workbook for our reader. It saves the neighbours of a number in hundredths as that number.
TEST(BiffPeer, LibreOffice_sees_every_cell_as_it_was_written_and_its_workbook_comes_back) {
    if (!runs("command -v soffice"))
        GTEST_SKIP() << "skipped: LibreOffice is not installed";
    for (const auto& tables : {hardTables(false), longestTexts()}) {
        const std::string path = written(tables), folder = testTempPath();
        ASSERT_TRUE(runs("soffice -env:UserInstallation=file://" + folder + "/profile --headless --convert-to xls --outdir " + folder + "/saved " + path));
        EXPECT_EQ(difference(expectedLines(tables), linesOf(kPython + dumper("xlrd-dump.py") + folder + "/saved/peer.xls")), "");
        KeepingSink sink;
        odbc::readBiff(folder + "/saved/peer.xls", sink);
        EXPECT_EQ(difference(expectedLines(tables), expectedLines(sink.tables)), "");
    }
}

TEST(BiffPeer, a_small_workbook_opens_too) { // its stream lies among the small streams of the container
    const std::vector<Table> tables{{{"SETTINGS", {text("NEV"), text("ERTEK")}}, {{"VERSION", "11.0.0"}}}};
    const std::string path = written(tables);
    EXPECT_EQ(difference(expectedLines(tables), freexlLines(path)), "");
    EXPECT_EQ(difference(expectedLines(tables), linesOf(kPython + dumper("xlrd-dump.py") + path)), "");
}

TEST(BiffPeer, a_full_sheet_opens_too) {
    Table table{{"TELI", {number("ID"), text("NEV")}}, {}};
    for (int i = 1; i < 65536; ++i)
        table.rows.push_back({static_cast<double>(i), "sor " + std::to_string(i % 1000)});
    const std::string path = written({table});
    EXPECT_EQ(difference(expectedLines({table}), freexlLines(path)), "");
    EXPECT_EQ(difference(expectedLines({table}), linesOf(kPython + dumper("xlrd-dump.py") + path)), "");
}
