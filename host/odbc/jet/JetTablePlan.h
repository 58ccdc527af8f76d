// How a table will lie in the file: where each column stands in a row, and the bytes of the
// table's definition.
#pragma once

#include "JetFormat.h"
#include "store/StoreTable.h"

#include <string>
#include <vector>

namespace odbc::jet {

struct JetColumnPlan {
    StoreColumn column;
    std::u16string name;
    ColumnType type = ColumnType::Long;
    std::uint8_t flags = 0, extraFlags = 0;
    std::uint16_t variableIndex = 0; // of the column, or of the next variable one behind a fixed column
    std::uint16_t fixedOffset = 0;   // behind the row's first two bytes; fixed columns only
    std::uint16_t length = 0;        // as the definition says it
    bool fixed() const { return (flags & columnbit::kFixed) != 0; }
    bool isLong() const { return type == ColumnType::Ole || type == ColumnType::Memo; }
};

struct JetIndexPlan {
    std::u16string name;
    std::vector<std::uint16_t> columns; // numbers, ascending order each
    std::uint8_t flags = index::kAlways;
    bool primary = false;
};

struct JetTablePlan {
    std::string name;
    bool system = false;
    std::vector<JetColumnPlan> columns; // by number
    std::vector<JetIndexPlan> indexes;
    std::uint16_t fixedSize = 0, variableCount = 0;
    std::size_t longColumns() const;
};

// A user's table. Throws StoreError where the format has no room for it: names, sizes, numbers.
JetTablePlan planTable(const StoreTable& table);
// A table of the engine's own. `masked` names the column that holds security identifiers.
JetTablePlan planSystemTable(const StoreTable& table, std::string_view masked, std::vector<JetIndexPlan> indexes);

// What the definition points to: page << 8 | row for the maps.
struct JetTablePlaces {
    std::uint32_t rowCount = 0;
    std::uint32_t usedMap = 0, freeMap = 0;
    std::vector<std::uint32_t> longMaps; // two a long column, by column number: used, with room
    struct Index {
        std::uint32_t map = 0, root = 0, distinct = 0;
    };
    std::vector<Index> indexes;
};
std::size_t definitionSize(const JetTablePlan& plan);
// The definition as it reads when the headers of its pages behind the first are left out; it
// begins with the first page's header, whose free space and next page are not filled in.
std::vector<std::uint8_t> encodeDefinition(const JetTablePlan& plan, const JetTablePlaces& places);

} // namespace odbc::jet
