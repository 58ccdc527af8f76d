// The rows of a SELECT, copied out of where they come from.
#pragma once

#include "store/StoreTable.h"

#include <cstddef>

namespace odbc {

struct ResultColumn {
    std::string name;             // UTF-8
    std::int16_t sqlType = 0;     // ODBC 2 code
    std::uint32_t precision = 0;
    std::int16_t scale = 0;
    std::int16_t nullable = 1;    // as ODBC has it: 0 no, 1 yes, 2 unknown
};

// How a column of a table shows itself in a result.
ResultColumn resultColumn(const StoreColumn& column);

class ResultSet {
public:
    std::vector<ResultColumn> columns; // set before the first cell

    // The cells of a row one after the other, a row behind the other. Date and time cells are reals,
    // days since 1899-12-30, whatever the column.
    void add(const StoreCell& cell);
    std::size_t rows() const { return columns.empty() ? 0 : mCells.size() / columns.size(); }
    // Its text lives as long as the result.
    StoreCell cell(std::size_t row, std::size_t column) const;

private:
    struct Cell { // 16 bytes: the text is an offset, so that growing moves nothing
        StoreCell::Type type;
        std::uint32_t length;
        union {
            std::int64_t integer;
            double real;
            std::uint64_t offset;
        };
    };
    std::vector<Cell> mCells;
    std::string mBytes;
};

} // namespace odbc
