// Values on their way into a column: what Access converts is converted, what it refuses is refused.
#pragma once

#include "sql/SqlTokens.h"
#include "store/StoreTable.h"

#include <array>

struct sqlite3_stmt;

namespace odbc {

// The room that the texts of a statement's literals need at most.
std::size_t roomForTexts(const std::vector<SqlToken>& tokens);
// A literal's value as the column keeps it. Its text is put behind `texts`, which has that room
// reserved, so that the views stay good.
// StoreError: a text too long, a number out of the column's range, a kind that does not convert.
StoreCell valueFor(const StoreColumn& column, const SqlToken& literal, std::string& texts);
// A literal that is only compared: a text or a real.
StoreCell comparedValue(const SqlToken& literal, std::string& texts);

// SQLite's type of such a column.
const char* sqliteType(ColumnKind kind);

// The cells of a table's row to and from SQLite. Amounts (Currency, Numeric) are kept there as
// numbers wherever the number gives the same digits again, so that they compare as numbers.
int bindCell(sqlite3_stmt* statement, int parameter, const StoreColumn& column, const StoreCell& cell);
using DecimalText = std::array<char, 64>;
// The cell lives until the statement is stepped or `decimals` changes.
StoreCell readCell(sqlite3_stmt* statement, int index, const StoreColumn& column, DecimalText& decimals);

} // namespace odbc
