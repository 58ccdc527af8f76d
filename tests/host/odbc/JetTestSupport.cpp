#include "JetTestSupport.h"

#include "TestSupport.h"
#include "rules/JetCheck.h"
#include "jet/JetDecoder.h"
#include "jet/JetReader.h"
#include "jet/JetRows.h"
#include "jet/JetWriter.h"

#include <bit>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iomanip>
#include <sys/wait.h>

using namespace odbc;
using namespace odbc::jet;

namespace jettest {

Cell Cell::blob(std::string bytes) {
    Cell cell;
    cell.type = StoreCell::Type::Bytes;
    cell.bytes = std::move(bytes);
    return cell;
}

Cell::Cell(const StoreCell& cell) : type(cell.type), integer(cell.integer), real(cell.real), bytes(cell.bytes) {}

StoreCell Cell::view() const {
    return {type, integer, real, bytes};
}

bool operator==(const Cell& a, const Cell& b) {
    return a.type == b.type && a.integer == b.integer &&
           std::bit_cast<std::uint64_t>(a.real) == std::bit_cast<std::uint64_t>(b.real) && a.bytes == b.bytes;
}

std::ostream& operator<<(std::ostream& out, const Cell& cell) {
    switch (cell.type) {
    case StoreCell::Type::Null:
        return out << "null";
    case StoreCell::Type::Integer:
        return out << cell.integer;
    case StoreCell::Type::Real:
        return out << std::setprecision(17) << cell.real;
    case StoreCell::Type::Text:
        return out << '"' << cell.bytes.substr(0, 80) << "\" (" << cell.bytes.size() << ")";
    case StoreCell::Type::Bytes:
        return out << "bytes (" << cell.bytes.size() << ")";
    }
    return out;
}

std::ostream& operator<<(std::ostream& out, const Table& table) {
    out << table.shape.name << " with " << table.rows.size() << " rows:";
    for (const StoreColumn& column : table.shape.columns)
        out << " " << column.name << "/" << static_cast<int>(column.kind) << "/" << column.size << "/"
            << int{column.precision} << "/" << int{column.scale};
    for (const Row& row : table.rows) {
        out << "\n ";
        for (const Cell& cell : row)
            out << " " << cell;
    }
    return out;
}

StoreColumn column(std::string name, ColumnKind kind, int size) {
    return {std::move(name), kind, static_cast<std::uint16_t>(size), 0, 0};
}
StoreColumn text(std::string name, int size) {
    return column(std::move(name), ColumnKind::Text, size);
}
StoreColumn number(std::string name) {
    return column(std::move(name), ColumnKind::Double);
}
StoreColumn decimal(std::string name, int precision, int scale) {
    return {std::move(name), ColumnKind::Numeric, 0, static_cast<std::uint8_t>(precision),
            static_cast<std::uint8_t>(scale)};
}

Table signTable(std::size_t count) {
    Table table{
        {"TABLA",
         {number("ID"), number("OBJ_ID"), text("TIPUS"), number("CSOPORT"), number("SORSZAM"), number("KIEG_SORSZAM"),
          text("KONYVTAR_TIP1"), text("KONYVTAR_TIP2"), number("PX"), number("PY"), number("ELTOLAS"),
          number("SZELESSEG"), number("MAGASSAG"), number("ELFORG"), number("LEPTEK"), text("KIHELY_TIP")}},
        {}};
    for (std::size_t i = 0; i < count; ++i) {
        const auto at = static_cast<double>(i);
        table.rows.push_back({at + 1, at / 4 + 1, i % 3 != 0 ? "tábla" : "lámpa", 1.0, at + 0.1,
                              i % 5 == 0 ? Cell{} : Cell{2.0}, "Veszélyt jelző táblák\\I. csoport", "a_12.dwg",
                              650000.123456 + at, 240000.654321 + at / 3, 0.0, 0.6, 0.75, 90.0, 1.0,
                              i % 2 != 0 ? "meglévő" : "megszüntetendő"});
    }
    return table;
}

std::string newFile(const std::string& name) {
    return testTempPath() + "/" + name;
}

void write(const std::string& path, const std::vector<Table>& tables) {
    JetWriter writer(path);
    for (const Table& table : tables) {
        writer.beginTable(table.shape);
        std::vector<StoreCell> cells;
        for (const Row& row : table.rows) {
            cells.clear();
            for (const Cell& cell : row)
                cells.push_back(cell.view());
            writer.row(cells);
        }
        writer.endTable();
    }
    writer.finish();
}

namespace {
struct Collector : TableSink {
    std::vector<Table> tables;
    int open = 0;
    void beginTable(const StoreTable& table) override {
        EXPECT_EQ(open++, 0);
        tables.push_back({table, {}});
    }
    void row(std::span<const StoreCell> cells) override {
        Row& row = tables.back().rows.emplace_back();
        for (const StoreCell& cell : cells)
            row.emplace_back(cell);
    }
    void endTable() override { EXPECT_EQ(--open, 0); }
};
} // namespace

std::vector<Table> read(const std::string& path) {
    Collector collector;
    readJet(path, collector);
    return collector.tables;
}

void expectSame(const std::vector<Table>& found, const std::vector<Table>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_TRUE(found[i].shape == expected[i].shape) << found[i].shape.name;
        ASSERT_EQ(found[i].rows.size(), expected[i].rows.size()) << expected[i].shape.name;
        for (std::size_t row = 0; row < expected[i].rows.size(); ++row)
            for (std::size_t at = 0; at < expected[i].rows[row].size(); ++at)
                ASSERT_EQ(found[i].rows[row][at], expected[i].rows[row][at])
                    << "row " << row << ", column " << expected[i].shape.columns[at].name;
    }
}

void expectComesBack(const std::vector<Table>& tables, const std::string& path) {
    write(path, tables);
    expectClean(path);
    expectSame(read(path), tables);
}

std::string errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const StoreError& error) {
        return error.what();
    }
    ADD_FAILURE() << "No StoreError was thrown";
    return {};
}

std::string readError(const std::string& path) {
    return errorOf([&] { read(path); });
}

void expectClean(const std::string& path) {
    for (const JetViolation& violation : checkJet(path))
        ADD_FAILURE() << "page " << violation.page << ": " << violation.text;
}

void expectViolation(const std::string& path, const std::string& part) {
    std::string all;
    for (const JetViolation& violation : checkJet(path)) {
        if (violation.text.find(part) != std::string::npos)
            return;
        all += "\n  page " + std::to_string(violation.page) + ": " + violation.text;
    }
    ADD_FAILURE() << "The checker did not say \"" << part << "\", but:" << all;
}

FileBytes::FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(in), {});
}

void FileBytes::save(const std::string& path) const {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void FileBytes::mask() {
    maskHeader(std::span(bytes).first(4096), header::kMaskedSize);
}

JetDefinition FileBytes::definition(std::uint32_t page) const {
    const JetFile file("bytes", bytes);
    JetDecoder decoder(file);
    return readDefinition(file, page, decoder);
}

std::vector<std::uint32_t> FileBytes::pagesOf(std::uint32_t mapPointer) const {
    return pagesOfMap(JetFile("bytes", bytes), mapPointer);
}

std::uint32_t FileBytes::catalogueRow(const std::string& object) const {
    const JetFile file("bytes", bytes);
    const JetDefinition objects = definition(kObjectsPage);
    JetRow row(file, objects);
    std::uint32_t found = 0;
    forEachRow(file, objects, [&](std::uint32_t pointer, std::span<const std::uint8_t> data) {
        row.parse(data);
        for (const JetColumn& one : objects.columns)
            if (one.name == "Name") {
                std::string name;
                appendJet4Text(*row.value(one), name);
                found = name == object ? pointer : found;
            }
    });
    EXPECT_NE(found, 0u) << object;
    return found;
}

std::uint32_t FileBytes::tablePage(const std::string& name) const {
    return get32(const_cast<FileBytes*>(this)->row(catalogueRow(name)) + 2); // the column Id comes first
}

std::uint8_t* FileBytes::row(std::uint32_t pointer) {
    std::uint8_t* at = page(pointer >> 8);
    return at + (get16(at + data::kRows + 2 * (pointer & 0xFF)) & data::kOffset);
}

std::size_t FileBytes::rowSize(std::uint32_t pointer) {
    const std::uint8_t* at = page(pointer >> 8);
    const std::size_t end =
        (pointer & 0xFF) == 0 ? 4096 : get16(at + data::kRows + 2 * ((pointer & 0xFF) - 1)) & data::kOffset;
    return end - static_cast<std::size_t>(row(pointer) - at);
}

std::uint8_t* FileBytes::columnBytes(const std::string& table, const std::string& column) {
    const JetDefinition found = definition(tablePage(table));
    for (std::size_t i = 0; i < found.columns.size(); ++i)
        if (found.columns[i].name == column)
            return page(found.page()) + found.columnsAt + i * definition::kColumnSize;
    ADD_FAILURE() << "no column " << column;
    return page(0);
}

namespace {
std::string hexOf(const std::string& bytes) {
    std::string out;
    for (const char byte : bytes) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        out += two;
    }
    return out;
}

std::string peerLine(odbc::ColumnKind kind, const Cell& cell) {
    using odbc::ColumnKind;
    using odbc::StoreCell;
    char line[48];
    if (kind == ColumnKind::Bool)
        return cell.integer != 0 ? "true" : "false";
    if (cell.type == StoreCell::Type::Null)
        return "null";
    if (kind == ColumnKind::Guid) { // in small letters, without braces
        std::string text = cell.bytes.substr(1, cell.bytes.size() - 2);
        std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c >= 'A' && c <= 'F' ? static_cast<char>(c + 0x20) : c; });
        return "text " + hexOf(text);
    }
    if (kind == ColumnKind::Date) {
        std::snprintf(line, sizeof line, "date %.0f", (cell.real - 25569) * 86400000);
        return line;
    }
    if (cell.type == StoreCell::Type::Integer || cell.type == StoreCell::Type::Real) {
        const double value = cell.type == StoreCell::Type::Real ? cell.real : static_cast<double>(cell.integer);
        std::snprintf(line, sizeof line, "number %016llx", static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
        return line;
    }
    return (cell.type == StoreCell::Type::Bytes ? "bytes " : "text ") + hexOf(cell.bytes);
}
} // namespace

std::string peerLines(const Table& table) {
    std::string lines = "table " + hexOf(table.shape.name) + " " + std::to_string(table.rows.size()) + "\n";
    for (const Row& row : table.rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            lines += peerLine(table.shape.columns[i].kind, row[i]) + "\n";
    return lines;
}

std::string runProgram(const std::string& command, int* status) {
    std::string output;
    // The tools take and print names in the letters of the locale, and isql dies without a home folder: a bare
    // machine has set neither.
    FILE* pipe = ::popen(("export LC_ALL=C.UTF-8 HOME=\"${HOME:-/}\"; " + command).c_str(), "r");
    if (pipe == nullptr)
        return output;
    char buffer[65536];
    for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, got);
    const int result = ::pclose(pipe);
    if (status != nullptr)
        *status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    return output;
}

bool hasProgram(const std::string& name) {
    int status = 1;
    runProgram("command -v " + name, &status);
    return status == 0;
}

} // namespace jettest
