// Tables in memory for the workbook's tests: made here, written, read back or compared with what an
// independent reader sees.
#pragma once

#include "store/StoreTable.h"

#include <string>
#include <vector>

struct Value { // a cell that owns its text
    odbc::StoreCell::Type type = odbc::StoreCell::Type::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string text;

    Value() = default;
    Value(double v) : type(odbc::StoreCell::Type::Real), real(v) {}
    Value(const char* v) : type(odbc::StoreCell::Type::Text), text(v) {}
    Value(std::string v) : type(odbc::StoreCell::Type::Text), text(std::move(v)) {}
    static Value whole(std::int64_t v) {
        Value value;
        value.type = odbc::StoreCell::Type::Integer;
        value.integer = v;
        return value;
    }
    odbc::StoreCell cell() const { return {type, integer, real, text}; }
};

struct Table {
    odbc::StoreTable shape;
    std::vector<std::vector<Value>> rows;
};

odbc::StoreColumn number(std::string name);
odbc::StoreColumn text(std::string name);
odbc::StoreColumn column(std::string name, odbc::ColumnKind kind);

// Keeps what it is handed.
class KeepingSink : public odbc::TableSink {
public:
    void beginTable(const odbc::StoreTable& table) override;
    void row(std::span<const odbc::StoreCell> cells) override;
    void endTable() override;
    std::vector<Table> tables;
    int open = 0; // tables begun and not ended
};

// Writes the tables into a workbook at `path`, or throws what the writer throws.
void writeWorkbook(const std::string& path, const std::vector<Table>& tables);
std::string fileBytes(const std::string& path);
// Writes the tables and gives the bytes of the stream "Workbook".
std::string workbookStream(const std::vector<Table>& tables);

// One line a cell that is not empty (an empty text is), "sheet|row|column|kind|value": kind n with the 16 hexadecimal digits of the
// double's bits, t with the text (\ and line ends escaped), b with 0 or 1. The peers print the same.
std::vector<std::string> expectedLines(const std::vector<Table>& tables);
std::string escaped(std::string_view text);
std::string bits(double value);
// The first differing lines, for a readable failure; empty where both are the same.
std::string difference(const std::vector<std::string>& expected, const std::vector<std::string>& seen);
// What one sentence the writing of the tables fails with; empty where it does not fail.
std::string refusal(const std::vector<Table>& tables);
