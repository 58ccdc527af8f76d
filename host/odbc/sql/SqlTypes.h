// The column types of CREATE TABLE.
#pragma once

#include "sql/SqlTokens.h"

namespace odbc {

struct SqlTypeRow {
    const wchar_t* word;
    ColumnKind kind;
    enum class Sizes : std::uint8_t { None, Size, Decimal } sizes; // what may stand in brackets behind it
    std::uint16_t defaultSize;
    std::uint16_t mostSize;
};

// Null where the word is no type.
const SqlTypeRow* sqlType(const SqlToken& word);

} // namespace odbc
