#include "BiffTables.h"

#include "TestSupport.h"
#include "biff/BiffWriter.h"
#include "biff/CompoundFile.h"

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

using odbc::ColumnKind;
using odbc::StoreCell;

odbc::StoreColumn column(std::string name, ColumnKind kind) { return {std::move(name), kind, 0, 0, 0}; }
odbc::StoreColumn number(std::string name) { return column(std::move(name), ColumnKind::Double); }
odbc::StoreColumn text(std::string name) { return {std::move(name), ColumnKind::Text, 255, 0, 0}; }

void KeepingSink::beginTable(const odbc::StoreTable& table) {
    tables.push_back({table, {}});
    ++open;
}
void KeepingSink::row(std::span<const StoreCell> cells) {
    std::vector<Value> row;
    for (const StoreCell& cell : cells) {
        Value value;
        value.type = cell.type;
        value.integer = cell.integer;
        value.real = cell.real;
        value.text = std::string(cell.bytes);
        row.push_back(std::move(value));
    }
    tables.back().rows.push_back(std::move(row));
}
void KeepingSink::endTable() { --open; }

void writeWorkbook(const std::string& path, const std::vector<Table>& tables) {
    odbc::BiffWriter writer(path);
    std::vector<StoreCell> cells;
    for (const Table& table : tables) {
        writer.beginTable(table.shape);
        for (const auto& row : table.rows) {
            cells.clear();
            for (const Value& value : row)
                cells.push_back(value.cell());
            writer.row(cells);
        }
        writer.endTable();
    }
    writer.finish();
}

std::string fileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::string workbookStream(const std::vector<Table>& tables) {
    const std::string path = testTempPath() + "/stream.xls";
    writeWorkbook(path, tables);
    const std::string bytes = fileBytes(path);
    return odbc::biff::CompoundFile(bytes).stream("Workbook").value_or(std::string());
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '\\')
            out += "\\\\";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else
            out += c;
    }
    return out;
}

std::string bits(double value) {
    char buffer[20];
    std::snprintf(buffer, sizeof buffer, "%016llx", static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
    return buffer;
}

std::vector<std::string> expectedLines(const std::vector<Table>& tables) {
    std::vector<std::string> lines;
    for (const Table& table : tables) {
        const auto line = [&](std::size_t row, std::size_t at, const std::string& value) {
            lines.push_back(table.shape.name + "|" + std::to_string(row) + "|" + std::to_string(at) + "|" + value);
        };
        for (std::size_t i = 0; i < table.shape.columns.size(); ++i)
            line(0, i, "t|" + escaped(table.shape.columns[i].name));
        for (std::size_t r = 0; r < table.rows.size(); ++r) {
            for (std::size_t i = 0; i < table.rows[r].size(); ++i) {
                const Value& value = table.rows[r][i];
                const ColumnKind kind = table.shape.columns[i].kind;
                const bool decimal = kind == ColumnKind::Currency || kind == ColumnKind::Numeric;
                if (value.type == StoreCell::Type::Real)
                    line(r + 1, i, "n|" + bits(value.real));
                else if (value.type == StoreCell::Type::Integer && kind == ColumnKind::Bool)
                    line(r + 1, i, value.integer != 0 ? "b|1" : "b|0");
                else if (value.type == StoreCell::Type::Integer)
                    line(r + 1, i, "n|" + bits(static_cast<double>(value.integer)));
                else if (value.type == StoreCell::Type::Text && !value.text.empty())
                    line(r + 1, i, decimal ? "n|" + bits(std::strtod(value.text.c_str(), nullptr)) : "t|" + escaped(value.text));
            }
        }
    }
    return lines;
}

std::string difference(const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
    std::string out;
    int shown = 0;
    for (std::size_t i = 0; i < std::max(expected.size(), seen.size()) && shown < 5; ++i) {
        const std::string a = i < expected.size() ? expected[i] : "(nothing)", b = i < seen.size() ? seen[i] : "(nothing)";
        if (a != b) {
            out += "expected " + a.substr(0, 200) + "\n     saw " + b.substr(0, 200) + "\n";
            ++shown;
        }
    }
    return out;
}

std::string refusal(const std::vector<Table>& tables) {
    try {
        writeWorkbook(testTempPath() + "/refused.xls", tables);
    } catch (const odbc::StoreError& error) {
        return error.what();
    }
    return {};
}
