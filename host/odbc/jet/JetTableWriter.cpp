#include "JetTableWriter.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr std::size_t kBodyPerPage = kPageSize - definition::kPageHeader;

std::vector<std::uint32_t> takeDefinitionPages(const JetTablePlan& plan, std::uint32_t first, JetPageStore& store) {
    std::vector<std::uint32_t> pages{first};
    for (std::size_t size = kPageSize; size < definitionSize(plan); size += kBodyPerPage)
        pages.push_back(store.allocate());
    return pages;
}
} // namespace

JetTableWriter::JetTableWriter(JetTablePlan plan, std::uint32_t definitionPage, JetPageStore& store)
    : m_plan(std::make_unique<JetTablePlan>(std::move(plan))), m_store(&store),
      m_definitionPages(takeDefinitionPages(*m_plan, definitionPage, store)),
      m_maps(2 + 2 * m_plan->longColumns() + m_plan->indexes.size(), store), m_encoder(*m_plan, store),
      m_rows(definitionPage, store), m_indexes(m_plan->indexes.size()) {
    for (std::size_t i = 0; i < m_plan->indexes.size(); ++i)
        m_roots.push_back(store.allocate());
}

std::uint32_t JetTableWriter::row(std::span<const StoreCell> cells) {
    const std::uint32_t pointer = m_rows.append(m_encoder.encode(cells));
    ++m_rowCount;
    return pointer;
}

void JetTableWriter::finish() {
    m_rows.finish();
    m_encoder.finish();
    std::vector<UsageRow> maps{usageRow(m_rows.used(), *m_store), usageRow(m_rows.withRoom(), *m_store)};
    for (const JetRowPages& pages : m_encoder.longValues()) {
        maps.push_back(usageRow(pages.used(), *m_store));
        maps.push_back(usageRow(pages.withRoom(), *m_store));
    }
    std::vector<JetTablePlaces::Index> indexes;
    for (std::size_t i = 0; i < m_indexes.size(); ++i) {
        const JetPageSet pages = m_indexes[i].write(m_roots[i], definitionPage(), *m_store);
        indexes.push_back({m_maps.pointer(maps.size()), m_roots[i], m_indexes[i].distinctKeys()});
        maps.push_back(usageRow(pages, *m_store));
    }
    m_maps.write(maps, 0, *m_store);
    writeDefinition(indexes);
}

void JetTableWriter::writeDefinition(const std::vector<JetTablePlaces::Index>& indexes) {
    JetTablePlaces places{m_rowCount, m_maps.pointer(0), m_maps.pointer(1), {}, indexes};
    for (std::size_t i = 0; i < 2 * m_plan->longColumns(); ++i)
        places.longMaps.push_back(m_maps.pointer(2 + i));
    const std::vector<std::uint8_t> whole = encodeDefinition(*m_plan, places);
    std::size_t done = 0;
    for (std::size_t i = 0; i < m_definitionPages.size(); ++i) {
        PageBytes page{};
        const std::size_t begin = i == 0 ? 0 : definition::kPageHeader;
        const std::size_t size = std::min(kPageSize - begin, whole.size() - done);
        std::memcpy(page.data() + begin, whole.data() + done, size);
        done += size;
        page[0] = static_cast<std::uint8_t>(PageType::Definition);
        page[1] = 1;
        const std::size_t left = kPageSize - begin - size;
        put16(page.data() + definition::kFree, left > definition::kPageHeader ? left - definition::kPageHeader : 0);
        put32(page.data() + definition::kNext, i + 1 < m_definitionPages.size() ? m_definitionPages[i + 1] : 0);
        m_store->put(m_definitionPages[i], page);
    }
}

} // namespace odbc::jet
