#include "JetUsageMap.h"

#include <algorithm>
#include <map>

namespace odbc::jet {

namespace {
void setBit(std::uint8_t* bits, std::size_t bit) {
    bits[bit / 8] = static_cast<std::uint8_t>(bits[bit / 8] | 1u << (bit % 8));
}

PageBytes emptyBitmap() {
    PageBytes page{};
    page[0] = static_cast<std::uint8_t>(PageType::Bitmap);
    page[1] = 1;
    return page;
}

UsageRow inlineRow(std::uint32_t start, const JetPageSet& pages) {
    UsageRow row{};
    row[0] = usage::kInline;
    put32(row.data() + 1, start);
    for (const JetPageSet::Run& run : pages.runs())
        for (std::uint32_t page = run.first; page < run.end; ++page)
            setBit(row.data() + 5, page - start);
    return row;
}

UsageRow referenceRow(const JetPageSet& pages, JetPages& store) {
    std::map<std::size_t, PageBytes> bitmaps;
    for (const JetPageSet::Run& run : pages.runs())
        for (std::uint32_t page = run.first; page < run.end; ++page)
            setBit(bitmaps.try_emplace(page / usage::kPagesPerBitmap, emptyBitmap()).first->second.data() +
                       usage::kBitmapHeader,
                   page % usage::kPagesPerBitmap);
    UsageRow row{};
    row[0] = usage::kReference;
    for (const auto& [place, bitmap] : bitmaps) {
        const std::uint32_t page = store.allocate();
        store.put(page, bitmap);
        put32(row.data() + 1 + 4 * place, page);
    }
    return row;
}
} // namespace

void JetPageSet::add(std::uint32_t page) {
    if (!m_runs.empty() && m_runs.back().end == page)
        ++m_runs.back().end;
    else
        m_runs.push_back({page, page + 1});
}

UsageRow usageRow(const JetPageSet& pages, JetPages& store) {
    if (pages.runs().empty())
        return {};
    const std::uint32_t end = pages.runs().back().end;
    const std::uint32_t start = end <= usage::kInlinePages ? 0 : pages.runs().front().first & ~7u;
    return end - start <= usage::kInlinePages ? inlineRow(start, pages) : referenceRow(pages, store);
}

UsageRow freePagesRow(JetPageStore& store) {
    UsageRow row{};
    if (store.count() <= usage::kInlinePages) {
        for (std::size_t page = store.count(); page < usage::kInlinePages; ++page)
            setBit(row.data() + 5, page);
        return row;
    }
    row[0] = usage::kReference;
    std::vector<std::uint32_t> bitmaps; // their own pages may call for one more of them
    while (bitmaps.size() * usage::kPagesPerBitmap < store.count())
        bitmaps.push_back(store.allocate());
    for (std::size_t i = 0; i < bitmaps.size(); ++i) {
        PageBytes bitmap = emptyBitmap();
        const std::size_t first = i * usage::kPagesPerBitmap;
        for (std::size_t page = std::max<std::size_t>(first, store.count()); page < first + usage::kPagesPerBitmap;
             ++page)
            setBit(bitmap.data() + usage::kBitmapHeader, page - first);
        store.put(bitmaps[i], bitmap);
        put32(row.data() + 1 + 4 * i, bitmaps[i]);
    }
    return row;
}

JetUsagePages::JetUsagePages(std::size_t rows, JetPageStore& store) {
    for (std::size_t done = 0; done < rows; done += kRowsPerPage)
        m_pages.push_back(store.allocate());
}

std::uint32_t JetUsagePages::pointer(std::size_t row) const {
    return m_pages[row / kRowsPerPage] << 8 | static_cast<std::uint32_t>(row % kRowsPerPage);
}

void JetUsagePages::write(const std::vector<UsageRow>& rows, std::uint32_t owner, JetPageStore& store) const {
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        PageBytes page{};
        page[0] = static_cast<std::uint8_t>(PageType::Data);
        page[1] = 1;
        const std::size_t first = i * kRowsPerPage, count = std::min(kRowsPerPage, rows.size() - first);
        std::size_t end = kPageSize;
        for (std::size_t row = 0; row < count; ++row) {
            end -= usage::kRowSize;
            std::copy(rows[first + row].begin(), rows[first + row].end(),
                      page.begin() + static_cast<std::ptrdiff_t>(end));
            put16(page.data() + data::kRows + 2 * row, end);
        }
        put32(page.data() + data::kOwner, owner);
        put16(page.data() + data::kRowCount, count);
        put16(page.data() + data::kFree, end - data::kRows - 2 * count);
        store.put(m_pages[i], page);
    }
}

} // namespace odbc::jet
