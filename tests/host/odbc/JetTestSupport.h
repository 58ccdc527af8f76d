// What the tests of the Access file share: tables in memory, files taken apart byte by byte, and
// the programs of others that read what we write.
#pragma once

#include "jet/JetDefinition.h"
#include "store/StoreTable.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace jettest {

// A cell that owns its bytes. Reals compare by their bits.
struct Cell {
    odbc::StoreCell::Type type = odbc::StoreCell::Type::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string bytes;

    Cell() = default;
    Cell(int value) : type(odbc::StoreCell::Type::Integer), integer(value) {}
    Cell(std::int64_t value) : type(odbc::StoreCell::Type::Integer), integer(value) {}
    Cell(double value) : type(odbc::StoreCell::Type::Real), real(value) {}
    Cell(const char* utf8) : type(odbc::StoreCell::Type::Text), bytes(utf8) {}
    Cell(std::string utf8) : type(odbc::StoreCell::Type::Text), bytes(std::move(utf8)) {}
    static Cell blob(std::string bytes);
    explicit Cell(const odbc::StoreCell& cell);
    odbc::StoreCell view() const;
    friend bool operator==(const Cell& a, const Cell& b);
};
std::ostream& operator<<(std::ostream& out, const Cell& cell);
using Row = std::vector<Cell>;

struct Table {
    odbc::StoreTable shape;
    std::vector<Row> rows;
};
std::ostream& operator<<(std::ostream& out, const Table& table);

odbc::StoreColumn column(std::string name, odbc::ColumnKind kind, int size = 0);
odbc::StoreColumn text(std::string name, int size = 255);
odbc::StoreColumn number(std::string name);
odbc::StoreColumn decimal(std::string name, int precision, int scale);

// A table with the columns of the signs and lamps of the exchange database, `count` rows long.
Table signTable(std::size_t count);

// A new file in a folder of this test's own.
std::string newFile(const std::string& name = "test.mdb");
void write(const std::string& path, const std::vector<Table>& tables);
// Writes, checks that no rule is broken, and reads again: the very same rows must come back.
void expectComesBack(const std::vector<Table>& tables, const std::string& path = newFile());
std::vector<Table> read(const std::string& path);
void expectSame(const std::vector<Table>& found, const std::vector<Table>& expected);
// The sentence of the StoreError that the call throws; empty (and a failure) if it throws none.
std::string errorOf(const std::function<void()>& call);
std::string readError(const std::string& path);

void expectClean(const std::string& path);
// Expects that the checker finds, among others, this: a part of the sentence.
void expectViolation(const std::string& path, const std::string& part);

// The bytes of a file, to be looked at and to be spoiled.
class FileBytes {
public:
    explicit FileBytes(const std::string& path);
    explicit FileBytes(std::vector<std::uint8_t> all) : bytes(std::move(all)) {}
    void save(const std::string& path) const;

    std::uint8_t* page(std::uint32_t number) { return bytes.data() + number * std::size_t{4096}; }
    std::uint32_t pageCount() const { return static_cast<std::uint32_t>(bytes.size() / 4096); }
    // Unmasks or masks page 0.
    void mask();
    odbc::jet::JetDefinition definition(std::uint32_t page) const;
    // By the name in the catalogue.
    std::uint32_t tablePage(const std::string& name) const;
    std::vector<std::uint32_t> pagesOf(std::uint32_t mapPointer) const;
    // The pages of the table's rows.
    std::vector<std::uint32_t> rowPages(const std::string& table) const {
        return pagesOf(definition(tablePage(table)).usedMap);
    }
    // Where a row lies.
    std::uint8_t* row(std::uint32_t pointer);
    std::size_t rowSize(std::uint32_t pointer);
    // Where the column's 25 bytes lie, on the first page of the definition.
    std::uint8_t* columnBytes(const std::string& table, const std::string& column);
    // The pointer to the catalogue's row of an object.
    std::uint32_t catalogueRow(const std::string& object) const;

    std::vector<std::uint8_t> bytes;
};

// The table as jet-peer.mjs prints it: a line a value, doubles as their 64 bits, texts and bytes in hexadecimal.
std::string peerLines(const Table& table);

// Runs a program; what it wrote to standard output, nothing if it is not there. `status` gets its exit status.
std::string runProgram(const std::string& command, int* status = nullptr);
bool hasProgram(const std::string& name);

} // namespace jettest
