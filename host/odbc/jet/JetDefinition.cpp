#include "JetDefinition.h"

#include "JetDecoder.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr std::size_t kMaxDefinitionPages = 64; // 255 columns with the longest names take ten

// Where the fields stand in each version.
struct Layout {
    std::size_t rowCount, tableType, maxColumns, indexes, usedMap, body;
    std::size_t indexCountSize, columnSize, nameLengthSize;
};
constexpr Layout kJet4{definition::kRowCount,       definition::kTableType,  definition::kMaxColumns,
                       definition::kIndexes,        definition::kUsedMap,    definition::kBody,
                       definition::kIndexCountSize, definition::kColumnSize, 2};
constexpr Layout kJet3{12, 20, 21, 27, 35, 43, 8, 18, 1};

std::vector<std::uint8_t> joinPages(const JetFile& file, std::uint32_t first, std::vector<std::uint32_t>& pages) {
    std::vector<std::uint8_t> bytes;
    JetPage page;
    for (std::uint32_t number = first; number != 0; number = get32(page.at(definition::kNext))) {
        file.read(number, page);
        if (page.type() != PageType::Definition)
            file.damaged("page " + std::to_string(number) + " should define a table and does not");
        if (pages.size() == kMaxDefinitionPages || std::find(pages.begin(), pages.end(), number) != pages.end())
            file.damaged("the definition of a table on page " + std::to_string(first) + " has no end");
        const std::size_t skip = pages.empty() ? 0 : definition::kPageHeader;
        bytes.insert(bytes.end(), page.at(skip), page.at(file.pageSize()));
        pages.push_back(number);
    }
    return bytes;
}

JetColumn readColumn(const std::uint8_t* at, bool jet3) {
    JetColumn column;
    column.type = at[0];
    if (jet3) {
        column.number = get16(at + 1);
        column.variableIndex = get16(at + 3);
        column.ordinal = get16(at + 5);
        column.detail = get16(at + 9);
        column.codePage = get16(at + 11); // in files of Access 97: e4 04 behind the sort order 09 04
        column.flags = at[13];
        column.fixedOffset = get16(at + 14);
        column.length = get16(at + 16);
        return column;
    }
    column.number = get16(at + 5);
    column.variableIndex = get16(at + 7);
    column.ordinal = get16(at + 9);
    column.detail = get16(at + 11);
    column.sortVersion = at[14];
    column.flags = at[15];
    column.extraFlags = at[16];
    column.fixedOffset = get16(at + 21);
    column.length = get16(at + 23);
    return column;
}
} // namespace

JetDefinition readDefinition(const JetFile& file, std::uint32_t page, JetDecoder& decoder) {
    JetDefinition result;
    result.bytes = joinPages(file, page, result.pages);
    const Layout& layout = file.jet3() ? kJet3 : kJet4;
    const std::uint8_t* at = result.bytes.data();
    const auto need = [&](std::size_t end) {
        if (end > result.bytes.size())
            file.damaged("the definition of a table on page " + std::to_string(page) + " is broken off");
    };
    need(layout.body);
    result.rowCount = get32(at + layout.rowCount);
    result.tableType = at[layout.tableType];
    result.maxColumns = get16(at + layout.maxColumns);
    result.variableColumns = get16(at + layout.maxColumns + 2);
    const std::size_t columns = get16(at + layout.maxColumns + 4);
    result.indexes = get32(at + layout.indexes);
    result.realIndexes = get32(at + layout.indexes + 4);
    result.usedMap = get32(at + layout.usedMap);
    result.freeMap = get32(at + layout.usedMap + 4);
    if (columns > kMaxColumns || result.realIndexes > 1000 || result.indexes > 1000)
        file.damaged("the table on page " + std::to_string(page) +
                     " has more columns or indexes than a table can have");

    std::size_t offset = layout.body + layout.indexCountSize * result.realIndexes;
    result.columnsAt = offset;
    need(offset + layout.columnSize * columns);
    for (std::size_t i = 0; i < columns; ++i, offset += layout.columnSize)
        result.columns.push_back(readColumn(at + offset, file.jet3()));
    for (JetColumn& column : result.columns) {
        need(offset + layout.nameLengthSize);
        const std::size_t length = file.jet3() ? at[offset] : get16(at + offset);
        offset += layout.nameLengthSize;
        need(offset + length);
        decoder.appendText({at + offset, length}, 0, column.name);
        offset += length;
    }
    result.columnsEnd = offset;
    return result;
}

} // namespace odbc::jet
