// Usage maps as they are written: which pages belong to a table, a long-value column or an index,
// which of them have room, and which pages of the file are free.
#pragma once

#include "JetPageStore.h"

namespace odbc::jet {

using UsageRow = std::array<std::uint8_t, usage::kRowSize>;

// Page numbers, added in rising order.
class JetPageSet {
public:
    void add(std::uint32_t page);
    struct Run {
        std::uint32_t first, end;
    };
    const std::vector<Run>& runs() const { return m_runs; }

private:
    std::vector<Run> m_runs;
};

// The map's row. Bits lie in the row itself while 512 neighbouring pages hold the set, else on
// bitmap pages that are taken from the store.
UsageRow usageRow(const JetPageSet& pages, JetPages& store);
// The row of the map of free pages: none of those in use, every one behind the end of the file.
UsageRow freePagesRow(JetPageStore& store);

// Rows of maps, on data pages of their own; the pages are taken at once, their rows come later.
class JetUsagePages {
public:
    JetUsagePages(std::size_t rows, JetPageStore& store);
    // Where the next row will stand: page << 8 | row.
    std::uint32_t pointer(std::size_t row) const;
    // All rows, in order; `owner` is what stands as the owner in the page (0, or 1 on page 1).
    void write(const std::vector<UsageRow>& rows, std::uint32_t owner, JetPageStore& store) const;

private:
    static constexpr std::size_t kRowsPerPage = (kPageSize - data::kRows) / (usage::kRowSize + 2);
    std::vector<std::uint32_t> m_pages;
};

} // namespace odbc::jet
