// Rows put onto data pages one after the other: those of a table, or the long values of a column.
#pragma once

#include "JetUsageMap.h"

namespace odbc::jet {

class JetRowPages {
public:
    // `owner` is the table's definition page, or data::kLongValueOwner.
    JetRowPages(std::uint32_t owner, JetPages& store) : m_owner(owner), m_store(&store) {}

    // Appends a row; the pointer to it, page << 8 | row. The row must fit an empty page.
    std::uint32_t append(std::span<const std::uint8_t> row);
    // The same on a page of its own, while the open page stays open.
    std::uint32_t appendAlone(std::span<const std::uint8_t> row);
    // Puts the open page; nothing is appended any more.
    void finish();

    const JetPageSet& used() const { return m_used; }
    const JetPageSet& withRoom() const { return m_withRoom; } // known after finish()

private:
    void place(PageBytes& page, std::span<const std::uint8_t> row, std::size_t count, std::size_t end) const;
    void closePage();

    std::uint32_t m_owner;
    JetPages* m_store;
    JetPageSet m_used, m_withRoom;
    PageBytes m_page{};
    std::uint32_t m_number = 0;
    std::size_t m_count = 0, m_end = kPageSize; // of the open page: rows, and where the last one begins
    bool m_open = false;
};

} // namespace odbc::jet
