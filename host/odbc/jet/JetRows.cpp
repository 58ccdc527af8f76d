#include "JetRows.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr int kMaxHops = 16; // Access follows one; a ring must end

// A row that moved leaves the pointer to where it went.
JetSlot follow(const JetFile& file, const JetDefinition& definition, JetSlot slot, JetPage& page) {
    for (int hop = 0; (slot.flags & data::kOverflow) != 0; ++hop) {
        if (hop == kMaxHops || slot.bytes.size() < 4)
            file.damaged("a row that moved to another page cannot be found");
        slot = slotAt(file, get32(slot.bytes.data()), page);
        if (page.owner() != definition.page())
            file.damaged("a row that moved to another page has come to another table");
    }
    return slot;
}
} // namespace

void forEachRow(const JetFile& file, const JetDefinition& definition,
                const std::function<void(std::uint32_t, std::span<const std::uint8_t>)>& take) {
    const std::vector<std::uint32_t> pages = pagesOfMap(file, definition.usedMap);
    JetPage page, other;
    for (const std::uint32_t number : pages) {
        file.read(number, page);
        if (page.type() != PageType::Data || page.owner() != definition.page())
            continue; // a page that was given away: the count of rows tells whether one is missing
        const std::size_t rows = rowCountOf(file, page);
        for (std::size_t row = 0; row < rows; ++row) {
            const JetSlot slot = slotOf(file, page, row);
            if ((slot.flags & data::kDeleted) == 0)
                take(number << 8 | static_cast<std::uint32_t>(row), follow(file, definition, slot, other).bytes);
        }
    }
}

std::span<const std::uint8_t> rowAt(const JetFile& file, const JetDefinition& definition, std::uint32_t pointer, JetPage& page) {
    return follow(file, definition, slotAt(file, pointer, page), page).bytes;
}

JetRow::JetRow(const JetFile& file, const JetDefinition& definition) : m_file(&file), m_definition(&definition) {
    for (const JetColumn& column : definition.columns)
        if (!column.fixed())
            m_firstVariable = std::min<std::uint32_t>(m_firstVariable, column.number);
}

void JetRow::damaged() const {
    m_file->damaged("a row of the table on page " + std::to_string(m_definition->page()) + " makes no sense");
}

void JetRow::parse(std::span<const std::uint8_t> row) {
    const std::size_t countSize = m_file->jet3() ? 1 : 2;
    if (row.size() < countSize)
        damaged();
    m_row = row;
    m_columns = m_file->jet3() ? row[0] : get16(row.data());
    const std::size_t maskSize = (m_columns + 7) / 8;
    if (row.size() < countSize + maskSize)
        damaged();
    const std::size_t end = row.size() - maskSize;
    m_mask = row.data() + end;
    m_fixedEnd = end;
    m_offsets.clear();
    // A row that is older than every variable column has no table of offsets.
    if (m_definition->variableColumns == 0 || m_firstVariable >= m_columns)
        return;
    if (m_file->jet3())
        parseOffsetsJet3(end);
    else
        parseOffsets(end);
    m_fixedEnd = m_offsets.front();
    for (std::size_t i = 1; i < m_offsets.size(); ++i)
        if (m_offsets[i] < m_offsets[i - 1])
            damaged();
}

// Before the null mask, from behind: the number of variable columns, their offsets, their end.
void JetRow::parseOffsets(std::size_t end) {
    if (end < 6)
        damaged();
    const std::size_t count = get16(m_row.data() + end - 2);
    if (6 + 2 * count > end)
        damaged();
    const std::size_t last = end - 4 - 2 * count; // where the end of the last column is told
    for (std::size_t i = 0; i <= count; ++i)
        m_offsets.push_back(get16(m_row.data() + end - 4 - 2 * i));
    if (m_offsets.back() > last || m_offsets.front() < 2)
        damaged();
}

// One byte an offset; the jump table tells from which column on 256 more are to be added.
void JetRow::parseOffsetsJet3(std::size_t end) {
    if (end < 3)
        damaged();
    const std::size_t count = m_row[end - 1], jumps = (m_row.size() - 1) / 256;
    if (3 + jumps + count > end)
        damaged();
    const std::size_t first = end - 2 - jumps;
    std::size_t jump = 0;
    const auto skipUnused = [&] {
        while (jump < jumps && m_row[end - 2 - jump] == 0xFF)
            ++jump;
    };
    std::size_t added = 0;
    for (std::size_t i = 0; i <= count; ++i) {
        for (skipUnused(); jump < jumps && m_row[end - 2 - jump] == i; skipUnused()) {
            ++jump;
            added += 256;
        }
        m_offsets.push_back(m_row[first - i] + added);
    }
    if (m_offsets.back() > first - count || m_offsets.front() < 1)
        damaged();
}

std::optional<std::span<const std::uint8_t>> JetRow::value(const JetColumn& column) const {
    if (!present(column))
        return std::nullopt;
    if (column.fixed()) {
        const std::size_t begin = (m_file->jet3() ? 1 : 2) + std::size_t{column.fixedOffset};
        if (begin + column.length > m_fixedEnd)
            damaged();
        return m_row.subspan(begin, column.length);
    }
    if (column.variableIndex + std::size_t{1} >= m_offsets.size())
        return std::nullopt; // a column that is younger than the row
    const std::size_t begin = m_offsets[column.variableIndex];
    return m_row.subspan(begin, m_offsets[column.variableIndex + std::size_t{1}] - begin);
}

} // namespace odbc::jet
