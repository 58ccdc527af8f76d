// Conditions and values of the Access dialect, in SQLite's words.
#pragma once

#include "sql/SqlCursor.h"
#include "store/Catalogue.h"

namespace odbc {

enum class SqlValueType : std::uint8_t { Number, Text, Bytes, Truth, Null };
SqlValueType valueType(ColumnKind kind);

struct SqlOperand {
    std::string sql;
    SqlValueType type = SqlValueType::Null;
    int column = -1; // where it is a column and nothing else
    bool literal = false;
};

[[noreturn]] void refuseMismatch();
// A column's name inside SQLite.
std::string columnSql(int column);
// StoreError where there is none.
int columnNamed(const CatalogueTable& table, const std::string& name);
void requireTable(const CatalogueTable& table, const std::string& name);
// Takes a column, with the table's name before it or not.
int takeColumn(SqlCursor& cursor, const CatalogueTable& table);

class SqlExpression {
public:
    // table: whose columns may be named; null where none may.
    SqlExpression(SqlCursor& cursor, const CatalogueTable* table) : mCursor(cursor), mTable(table) {}

    // Values of one kind only are compared or reckoned with; StoreError otherwise.
    SqlOperand parse();
    // Likewise, and the result must be a condition (or a number: anything but zero is true).
    SqlOperand parseCondition();
    // Behind parseCondition: a column that equals a literal in every row that passes; -1: none.
    int equalColumn() const { return mOnlyAnd ? mEqualColumn : -1; }

private:
    class Depth;
    SqlOperand conjunction();
    SqlOperand negation();
    SqlOperand comparison();
    SqlOperand between(const SqlOperand& value, bool negative);
    SqlOperand in(const SqlOperand& value, bool negative);
    SqlOperand sum();
    SqlOperand product();
    SqlOperand factor();
    SqlOperand value();
    void noteEquality(const SqlOperand& a, const SqlOperand& b);

    SqlCursor& mCursor;
    const CatalogueTable* mTable;
    int mDepth = 0;
    int mEqualColumn = -1;
    bool mOnlyAnd = true;
};

} // namespace odbc
