// What the parts of the exchange store hand to each other: tables, columns and cells, without any
// of Jet's, SQLite's or the workbook's own forms. Text is UTF-8.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace odbc {

// The column types of an Access table. Text, Memo, Guid and Numeric cells are text; Binary and Ole
// cells are bytes; Bool cells are the integers 0 and 1; Date cells are reals, days since 1899-12-30;
// Currency cells are text with four decimals, so that no unit is lost in a double.
enum class ColumnKind : std::uint8_t {
    Bool, Byte, Short, Long, Currency, Single, Double, Date, Binary, Text, Ole, Memo, Guid, Numeric
};

struct StoreColumn {
    std::string name;
    ColumnKind kind = ColumnKind::Double;
    std::uint16_t size = 0;      // Text: characters, 1 to 255; Binary: bytes; otherwise unused
    std::uint8_t precision = 0;  // Numeric only
    std::uint8_t scale = 0;      // Numeric only
    friend bool operator==(const StoreColumn&, const StoreColumn&) = default;
};

struct StoreTable {
    std::string name;
    std::vector<StoreColumn> columns;
    friend bool operator==(const StoreTable&, const StoreTable&) = default;
};

// One value. `bytes` is a view that lives only as long as the call that hands it over.
struct StoreCell {
    enum class Type : std::uint8_t { Null, Integer, Real, Text, Bytes };
    Type type = Type::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view bytes; // Text (UTF-8) and Bytes

    static StoreCell null() { return {}; }
    static StoreCell of(std::int64_t value) { return {Type::Integer, value, 0, {}}; }
    static StoreCell of(double value) { return {Type::Real, 0, value, {}}; }
    static StoreCell text(std::string_view utf8) { return {Type::Text, 0, 0, utf8}; }
    static StoreCell blob(std::string_view bytes) { return {Type::Bytes, 0, 0, bytes}; }
};

// Takes whole tables, one after the other: a file writer, or the database that a file is read into.
class TableSink {
public:
    virtual ~TableSink() = default;
    virtual void beginTable(const StoreTable& table) = 0;
    // One cell a column, in the table's order.
    virtual void row(std::span<const StoreCell> cells) = 0;
    virtual void endTable() = 0;
    // Between beginTable and endTable, behind the rows: some of them are missing. One that can leave this table out and
    // work on with the others does so; by itself it is thrown.
    virtual void incomplete(const std::string& why);
};

// A fault of a store, with one clear sentence for the user (UTF-8). CDBException carries it on.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace odbc
