// A table's definition as it stands in a file, Jet 3 and Jet 4.
#pragma once

#include "JetFile.h"

namespace odbc::jet {

class JetDecoder;

struct JetColumn {
    std::string name; // UTF-8
    std::uint8_t type = 0;
    std::uint16_t number = 0; // counts deleted columns
    std::uint16_t variableIndex = 0;
    std::uint16_t ordinal = 0;
    std::uint16_t detail = 0;   // the sort order; precision and scale of Numeric, a byte each
    std::uint16_t codePage = 0; // Jet 3 text
    std::uint8_t sortVersion = 0; // Jet 4 text: 0 is the sort order that Access had up to 2007
    std::uint8_t flags = 0, extraFlags = 0;
    std::uint16_t fixedOffset = 0;
    std::uint16_t length = 0;
    bool fixed() const { return (flags & columnbit::kFixed) != 0; }
    bool is(ColumnType wanted) const { return type == static_cast<std::uint8_t>(wanted); }
};

struct JetDefinition {
    std::vector<std::uint32_t> pages;          // that it stands on
    std::vector<std::uint8_t> bytes;           // joined: the first page whole, the others without their headers
    std::size_t columnsAt = 0, columnsEnd = 0; // in `bytes`: the first column, and what follows the names
    std::uint32_t rowCount = 0;
    std::uint8_t tableType = 0;
    std::uint16_t maxColumns = 0, variableColumns = 0;
    std::uint32_t indexes = 0, realIndexes = 0;
    std::uint32_t usedMap = 0, freeMap = 0; // page << 8 | row
    std::vector<JetColumn> columns;         // as listed

    std::uint32_t page() const { return pages.front(); }
};

// Throws StoreError where there is no definition on the page, or a damaged one.
JetDefinition readDefinition(const JetFile& file, std::uint32_t page, JetDecoder& decoder);

} // namespace odbc::jet
