#include "JetCheckTable.h"

#include "jet/JetDecoder.h"
#include "store/StoreTable.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr std::size_t kMaxCompressedMemo = 1024;

// The sizes of the types; 0 where the column says its own or has none.
std::size_t sizeOf(ColumnType type) {
    switch (type) {
    case ColumnType::Bool:
    case ColumnType::Byte:
        return 1;
    case ColumnType::Short:
        return 2;
    case ColumnType::Long:
    case ColumnType::Single:
        return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
        return 8;
    case ColumnType::Guid:
        return 16;
    case ColumnType::Numeric:
        return 17;
    case ColumnType::Binary:
    case ColumnType::Text:
    case ColumnType::Ole:
    case ColumnType::Memo:
        return 0;
    }
    return 0;
}
// 17 is a block of fixed size in a table that Access 2000 keeps for itself.
bool isKnown(std::uint8_t type) {
    return (type >= 1 && type <= 12) || (type >= 15 && type <= 17);
}
bool isLong(const JetColumn& column) {
    return column.is(ColumnType::Memo) || column.is(ColumnType::Ole);
}

std::string pointerText(std::uint32_t pointer) {
    return "row " + std::to_string(pointer & 0xFF) + " of page " + std::to_string(pointer >> 8);
}
} // namespace

JetCheckTable::JetCheckTable(JetCheckContext& context, std::string name, std::uint32_t page)
    : m_context(&context), m_name(std::move(name)), m_page(page) {}

const JetColumn* JetCheckTable::column(std::uint16_t number) const {
    const auto found = m_byNumber.find(number);
    return found == m_byNumber.end() ? nullptr : found->second;
}

const JetColumn* JetCheckTable::column(std::string_view name) const {
    for (const JetColumn& column : m_definition.columns)
        if (column.name == name)
            return &column;
    return nullptr;
}

bool JetCheckTable::checkDefinitionAndRows() {
    try {
        JetDecoder decoder(m_context->file());
        m_definition = readDefinition(m_context->file(), m_page, decoder);
    } catch (const StoreError& error) {
        report(m_page, "The definition of the table " + quoted() + " cannot be read: " + error.what());
        return false;
    }
    for (const std::uint32_t page : m_definition.pages)
        m_context->claim(page, PageType::Definition, "the definition of the table " + quoted());
    for (const JetColumn& column : m_definition.columns)
        m_byNumber[column.number] = &column;
    checkHead();
    checkColumns();
    readTail();
    checkLongMaps();
    checkRows();
    checkLongRowsUsed();
    return true;
}

void JetCheckTable::checkHead() {
    const std::uint8_t* at = m_definition.bytes.data();
    if (get32(at + definition::kMark) != definition::kMarkValue)
        report(m_page, "The definition of the table " + quoted() + " lacks the mark 1625.");
    if (m_definition.tableType != definition::kUserTable && m_definition.tableType != definition::kSystemTable)
        report(m_page, "The table " + quoted() + " is neither a user's nor a system table.");
    if (m_definition.maxColumns < m_definition.columns.size())
        report(m_page, "The table " + quoted() + " has more columns than it says that a row can have.");
    if (m_byNumber.size() != m_definition.columns.size())
        report(m_page, "Two columns of the table " + quoted() + " have the same number.");
}

// The first variable column is 0, each counts one on; fixed columns carry the number that the next
// variable one takes. Where columns were deleted the numbers have gaps.
void JetCheckTable::checkColumns() {
    std::size_t variables = 0;
    const JetColumn* before = nullptr;
    std::size_t fixedEnd = 0;
    for (const auto& [number, column] : m_byNumber) {
        checkColumn(*column);
        const std::size_t least =
            before == nullptr ? 0 : before->variableIndex + (before->fixed() ? std::size_t{0} : 1);
        const bool next = before == nullptr ? number == 0 : number == before->number + 1;
        if (column->variableIndex < least || (next && column->variableIndex != least))
            report(m_page, "The column \"" + column->name + "\" of the table " + quoted() + " has the variable index " +
                               std::to_string(column->variableIndex) + " instead of " + std::to_string(least) + ".");
        if (column->fixed() && !column->is(ColumnType::Bool)) {
            if (column->fixedOffset < fixedEnd)
                report(m_page,
                       "The column \"" + column->name + "\" of the table " + quoted() + " overlaps the one before it.");
            fixedEnd = column->fixedOffset + std::size_t{column->length};
        }
        variables += column->fixed() ? 0 : 1;
        before = column;
    }
    if (m_definition.variableColumns < variables)
        report(m_page, "The table " + quoted() + " has more variable columns than it counts.");
    for (std::size_t i = 0; i < m_definition.columns.size(); ++i)
        checkColumnBytes(i);
}

void JetCheckTable::checkColumn(const JetColumn& column) {
    const std::string what = "The column \"" + column.name + "\" of the table " + quoted();
    if (!isKnown(column.type)) {
        report(m_page, what + " is of an unknown type.");
        return;
    }
    if (column.name.empty())
        report(m_page, "A column of the table " + quoted() + " has no name.");
    if (column.number >= m_definition.maxColumns)
        report(m_page, what + " has a number behind the last one.");
    const auto type = static_cast<ColumnType>(column.type);
    if (const std::size_t size = sizeOf(type); size != 0 && column.length != size)
        report(m_page,
               what + " has the length " + std::to_string(column.length) + " instead of " + std::to_string(size) + ".");
    if (type == ColumnType::Text &&
        (column.length % 2 != 0 || column.length > 2 * kMaxTextLength || column.length == 0))
        report(m_page, what + " has a length that no text can have.");
    if (isLong(column) && column.length != 0)
        report(m_page, what + " has a length, though long values have none.");
    if (sizeOf(type) == 0 && column.fixed() && column.type <= static_cast<std::uint8_t>(ColumnType::Numeric))
        report(m_page, what + " should be a variable one.");
    if ((column.extraFlags & columnbit::kCompressed) != 0 && type != ColumnType::Text && type != ColumnType::Memo)
        report(m_page, what + " allows compressed text but holds no text.");
    if (type == ColumnType::Numeric) {
        if ((column.detail & 0xFF) < 1 || (column.detail & 0xFF) > 28 || column.detail >> 8 > (column.detail & 0xFF))
            report(m_page, what + " has an impossible precision or scale.");
    } else if ((type == ColumnType::Text || type == ColumnType::Memo) && column.detail != get16(m_context->file().headerPage().at(header::kSortOrder))) {
        report(m_page, what + " has the sort order " + std::to_string(column.detail) + ", not that of the database.");
    }
}

void JetCheckTable::checkColumnBytes(std::size_t listed) {
    const std::uint8_t* at = m_definition.bytes.data() + m_definition.columnsAt + listed * definition::kColumnSize;
    if (get32(at + 1) != definition::kMarkValue)
        report(m_page, "The column \"" + m_definition.columns[listed].name + "\" of the table " + quoted() +
                           " lacks the mark 1625.");
}

// What follows the columns: real indexes, indexes, their names, the maps of the long columns.
void JetCheckTable::readTail() {
    const std::vector<std::uint8_t>& bytes = m_definition.bytes;
    std::size_t at = m_definition.columnsEnd;
    const auto have = [&](std::size_t size) {
        if (at + size <= bytes.size())
            return true;
        report(m_page, "The definition of the table " + quoted() + " is broken off.");
        return false;
    };
    for (std::uint32_t i = 0; i < m_definition.realIndexes; ++i, at += definition::kRealIndexSize) {
        if (!have(definition::kRealIndexSize))
            return;
        JetCheckIndex& index = m_indexes.emplace_back();
        const std::uint8_t* entry = bytes.data() + at;
        if (get32(entry) != definition::kIndexMarkValue)
            report(m_page, "An index of the table " + quoted() + " lacks the mark 1923.");
        for (std::size_t part = 0; part < definition::kIndexColumns; ++part)
            if (const std::uint16_t number = get16(entry + 4 + 3 * part); number != definition::kNoColumn)
                index.parts.push_back({number, entry[6 + 3 * part] == 1});
        index.map = get32(entry + 34);
        index.root = get32(entry + 38);
        index.flags = entry[46];
        index.said = get32(bytes.data() + definition::kBody + definition::kIndexCountSize * i + 4);
        for (const JetCheckIndex::Part& part : index.parts)
            if (column(part.column) == nullptr)
                report(m_page, "An index of the table " + quoted() + " is over a column that does not exist.");
    }
    std::vector<std::uint32_t> real;
    for (std::uint32_t i = 0; i < m_definition.indexes; ++i, at += definition::kIndexSize) {
        if (!have(definition::kIndexSize))
            return;
        real.push_back(get32(bytes.data() + at + 8));
        if (real.back() >= m_indexes.size())
            report(m_page, "An index of the table " + quoted() + " has no entries of its own.");
    }
    for (std::uint32_t i = 0; i < m_definition.indexes; ++i) {
        if (!have(2) || !have(2 + std::size_t{get16(bytes.data() + at)}))
            return;
        const std::size_t length = get16(bytes.data() + at);
        if (real[i] < m_indexes.size()) {
            m_indexes[real[i]].name.clear(); // indexes may share their entries
            appendJet4Text({bytes.data() + at + 2, length}, m_indexes[real[i]].name);
        }
        at += 2 + length;
    }
    while (have(2) && get16(bytes.data() + at) != definition::kNoColumn) {
        if (!have(10))
            return;
        m_longMaps.push_back({get16(bytes.data() + at), get32(bytes.data() + at + 2), get32(bytes.data() + at + 6)});
        at += 10;
    }
    at += 2;
    if (get32(bytes.data() + definition::kLength) != at)
        report(m_page, "The definition of the table " + quoted() + " says that it is " +
                           std::to_string(get32(bytes.data() + definition::kLength)) + " bytes long, but it has " +
                           std::to_string(at) + ".");
}

void JetCheckTable::checkLongMaps() {
    std::size_t columns = 0;
    for (const JetColumn& column : m_definition.columns)
        columns += isLong(column) ? 1 : 0;
    for (const LongMap& map : m_longMaps) {
        const JetColumn* owner = column(map.column);
        if (owner == nullptr || !isLong(*owner)) {
            report(m_page, "The table " + quoted() + " has a map of long values for a column that has none.");
            continue;
        }
        const std::string what = "the long values of the column \"" + owner->name + "\" of the table " + quoted();
        if (!m_longPages.emplace(map.column, m_context->mapPages(map.used, m_page, "the map of " + what)).second)
            report(m_page, "The table " + quoted() + " has two maps for " + what + ".");
        for (const std::uint32_t page : m_longPages[map.column]) {
            JetPage bytes;
            if (!m_context->claim(page, PageType::Data, what))
                continue;
            m_context->rowsOf(page, bytes);
            if (bytes.owner() != data::kLongValueOwner)
                report(page, "The page holds " + what + ", but is not marked as one of long values.");
        }
        if (map.free == 0)
            continue;
        for (const std::uint32_t page : m_context->mapPages(map.free, m_page, "the map of room for " + what))
            if (!m_longPages[map.column].contains(page))
                report(page, "The page is said to have room for " + what + ", but does not hold any.");
    }
    if (m_longPages.size() != columns)
        report(m_page, "A column of long values of the table " + quoted() + " has no map.");
}

void JetCheckTable::checkRows() {
    const std::set<std::uint32_t> used =
        m_context->mapPages(m_definition.usedMap, m_page, "the map of the table " + quoted());
    std::uint32_t count = 0;
    for (const std::uint32_t page : used)
        checkDataPage(page, count);
    for (const std::uint32_t page :
         m_context->mapPages(m_definition.freeMap, m_page, "the map of room in the table " + quoted()))
        if (!used.contains(page))
            report(page, "The page is said to have room for the table " + quoted() + ", but does not belong to it.");
    // Access lets the count of its own tables lag; what it counts must be there.
    if (m_definition.tableType == definition::kSystemTable ? count < m_definition.rowCount : count != m_definition.rowCount)
        report(m_page, "The table " + quoted() + " says that it has " + std::to_string(m_definition.rowCount) +
                           " rows, but there are " + std::to_string(count) + ".");
}

void JetCheckTable::checkDataPage(std::uint32_t number, std::uint32_t& count) {
    if (!m_context->claim(number, PageType::Data, "the rows of the table " + quoted()))
        return;
    JetPage page, other;
    const std::vector<JetSlot> slots = m_context->rowsOf(number, page);
    if (page.owner() != m_page) {
        report(number, "The page is listed by the table " + quoted() + ", but belongs to the table " +
                           std::to_string(page.owner()) + ".");
        return;
    }
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if ((slots[i].flags & data::kDeleted) != 0)
            continue;
        ++count;
        JetSlot slot = slots[i];
        std::uint32_t at = number;
        if ((slot.flags & data::kOverflow) != 0) {
            const std::uint32_t pointer = slot.bytes.size() < 4 ? 0 : get32(slot.bytes.data());
            const bool there = pointer != 0 && pointer >> 8 < m_context->file().pageCount();
            const std::vector<JetSlot> targets =
                there ? m_context->rowsOf(at = pointer >> 8, other) : std::vector<JetSlot>{};
            if (!there || other.type() != PageType::Data || other.owner() != m_page ||
                (pointer & 0xFF) >= targets.size() || targets[pointer & 0xFF].flags != data::kDeleted) {
                report(number, "Row " + std::to_string(i) + " of the page moved to " + pointerText(pointer) +
                                   ", where it is not.");
                continue;
            }
            slot = targets[pointer & 0xFF];
        }
        if (checkRow(at, i, slot.bytes) && m_definition.realIndexes != 0)
            m_rows[number << 8 | static_cast<std::uint32_t>(i)].assign(slot.bytes.begin(), slot.bytes.end());
    }
}

bool JetCheckTable::checkRow(std::uint32_t page, std::size_t number, std::span<const std::uint8_t> row) {
    const std::string what = "Row " + std::to_string(number) + " of the page ";
    const std::size_t columns = row.size() < 2 ? 0 : get16(row.data()), mask = (columns + 7) / 8;
    if (row.size() < 2 + mask || columns == 0 || columns > m_definition.maxColumns) {
        report(page, what + "has a number of columns that the table does not have.");
        return false;
    }
    std::size_t fixedEnd = 2;
    bool variable = false;
    for (const JetColumn& column : m_definition.columns) {
        if (column.number >= columns)
            continue;
        variable = variable || !column.fixed();
        if (column.fixed() && !column.is(ColumnType::Bool))
            fixedEnd = std::max(fixedEnd, std::size_t{2} + column.fixedOffset + column.length);
    }
    const std::size_t end = row.size() - mask;
    if (!variable) {
        if (fixedEnd > end)
            report(page, what + "is too short for its fixed columns.");
        return fixedEnd <= end;
    }
    const std::size_t count = end < 4 ? SIZE_MAX : get16(row.data() + end - 2);
    if (count > m_definition.variableColumns || end < fixedEnd + 4 + 2 * count) {
        report(page, what + "has a table of offsets that does not fit.");
        return false;
    }
    std::size_t before = fixedEnd;
    for (std::size_t i = 0; i <= count; ++i) {
        const std::size_t offset = get16(row.data() + end - 4 - 2 * i);
        if (offset < before || offset > end - 4 - 2 * count) {
            report(page, what + "has offsets of variable columns that do not rise.");
            return false;
        }
        before = offset;
    }
    for (const JetColumn& column : m_definition.columns) {
        const auto bytes = value(row, column);
        if (bytes && column.is(ColumnType::Text))
            checkText(page, column, *bytes);
        else if (bytes && isLong(column))
            checkLongValue(page, column, *bytes);
        else if (bytes && column.is(ColumnType::Binary) && bytes->size() > column.length)
            report(page, "A value of the column \"" + column.name + "\" is longer than the column.");
    }
    return true;
}

std::optional<std::span<const std::uint8_t>> JetCheckTable::value(std::span<const std::uint8_t> row,
                                                                  const JetColumn& column) const {
    const std::size_t columns = get16(row.data()), end = row.size() - (columns + 7) / 8;
    if (column.number >= columns || (row[end + column.number / 8] >> (column.number % 8) & 1) == 0)
        return std::nullopt;
    if (column.fixed())
        return row.subspan(std::size_t{2} + column.fixedOffset, column.length);
    const std::size_t count = get16(row.data() + end - 2);
    if (column.variableIndex >= count)
        return std::nullopt;
    const std::size_t begin = get16(row.data() + end - 4 - 2 * std::size_t{column.variableIndex});
    return row.subspan(begin, get16(row.data() + end - 6 - 2 * std::size_t{column.variableIndex}) - begin);
}

// Text of a row, or of a memo once it is put together.
void JetCheckTable::checkText(std::uint32_t page, const JetColumn& column, std::span<const std::uint8_t> text) {
    const std::string what = "A text of the column \"" + column.name + "\" of the table " + quoted();
    std::size_t characters = text.size() / 2;
    if (text.size() >= 2 && text[0] == 0xFF && text[1] == 0xFE) {
        const auto body = text.subspan(2);
        const bool wideAtOnce =
            body.size() >= 3 && body[0] == 0 && body[1] == 0xFF && body[2] == 0xFE; // text that begins with U+FEFF
        characters = wideAtOnce ? (body.size() - 1) / 2 : body.size();
        // The engine compresses memos of its own tables whatever their columns say.
        if ((column.extraFlags & columnbit::kCompressed) == 0 && m_definition.tableType == definition::kUserTable)
            report(page, what + " is compressed, though the column does not allow it.");
        else if (!wideAtOnce && std::find(body.begin(), body.end(), 0) != body.end())
            report(page, what + " is compressed, though it holds characters that are not below 0x100.");
        else if (!wideAtOnce && characters <= 2)
            report(page, what + " is compressed, though it has no more than two characters.");
        else if (column.is(ColumnType::Memo) && !wideAtOnce && characters > kMaxCompressedMemo)
            report(page, what + " is compressed, though it has more than 1,024 characters.");
    } else if (text.size() % 2 != 0) {
        report(page, what + " ends in the middle of a character.");
    }
    if (column.is(ColumnType::Text) && 2 * characters > column.length)
        report(page, what + " is longer than the column.");
}

void JetCheckTable::checkLongValue(std::uint32_t page, const JetColumn& column, std::span<const std::uint8_t> inRow) {
    const std::string what = "A long value of the column \"" + column.name + "\" of the table " + quoted();
    if (inRow.empty())
        return;
    if (inRow.size() < longvalue::kHeader) {
        report(page, what + " has no whole head.");
        return;
    }
    const std::uint32_t head = get32(inRow.data());
    const std::size_t length = head & longvalue::kLengthMask;
    std::vector<std::uint8_t> whole;
    if (head & longvalue::kInline) {
        whole.assign(inRow.begin() + longvalue::kHeader, inRow.end());
    } else {
        const bool single = (head & longvalue::kSinglePage) != 0;
        std::uint32_t pointer = get32(inRow.data() + 4);
        do {
            JetPage bytes;
            const bool there = m_longPages[column.number].contains(pointer >> 8);
            const std::vector<JetSlot> slots = there ? m_context->rowsOf(pointer >> 8, bytes) : std::vector<JetSlot>{};
            if ((pointer & 0xFF) >= slots.size() || slots[pointer & 0xFF].flags != 0 ||
                (!single && slots[pointer & 0xFF].bytes.size() < 4)) {
                report(page, what + " leads to " + pointerText(pointer) + ", where there is none.");
                return;
            }
            if (!m_longRows.insert(pointer).second) {
                report(page, what + " leads to " + pointerText(pointer) + ", which belongs to another value.");
                return;
            }
            const auto slot = slots[pointer & 0xFF].bytes;
            whole.insert(whole.end(), slot.begin() + (single ? 0 : 4), slot.end());
            pointer = single ? 0 : get32(slot.data());
        } while (pointer != 0);
    }
    if (whole.size() != length)
        report(page, what + " says that it has " + std::to_string(length) + " bytes, but there are " +
                         std::to_string(whole.size()) + ".");
    else if (column.is(ColumnType::Memo))
        checkText(page, column, whole);
}

void JetCheckTable::checkLongRowsUsed() {
    for (const auto& [number, pages] : m_longPages)
        for (const std::uint32_t page : pages) {
            JetPage bytes;
            const std::vector<JetSlot> slots = m_context->rowsOf(page, bytes);
            for (std::size_t i = 0; i < slots.size(); ++i)
                if (slots[i].flags == 0 && !m_longRows.contains(page << 8 | static_cast<std::uint32_t>(i)))
                    report(page, "Row " + std::to_string(i) +
                                     " of the page is a long value that belongs to no row of the table " + quoted() +
                                     ".");
        }
}

} // namespace odbc::jet
