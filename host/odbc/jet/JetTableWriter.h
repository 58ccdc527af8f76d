// One table on its way into the file: its rows at once, its definition and maps at the end.
#pragma once

#include "JetIndexBuilder.h"
#include "JetRowEncoder.h"

#include <memory>

namespace odbc::jet {

class JetTableWriter {
public:
    // `definitionPage` is taken from the store already; the table's other fixed pages are taken now.
    JetTableWriter(JetTablePlan plan, std::uint32_t definitionPage, JetPageStore& store);

    // The pointer to the new row, page << 8 | row.
    std::uint32_t row(std::span<const StoreCell> cells);
    // A row's key in one of the table's indexes; every row has one in each.
    void addKey(std::size_t index, std::string key, std::uint32_t row) { m_indexes[index].add(std::move(key), row); }
    void finish();

    const std::string& name() const { return m_plan->name; }
    std::uint32_t definitionPage() const { return m_definitionPages.front(); }

private:
    void writeDefinition(const std::vector<JetTablePlaces::Index>& indexes);

    std::unique_ptr<JetTablePlan> m_plan; // the encoder refers to it
    JetPageStore* m_store;
    std::vector<std::uint32_t> m_definitionPages;
    JetUsagePages m_maps;
    std::vector<std::uint32_t> m_roots;
    JetRowEncoder m_encoder;
    JetRowPages m_rows;
    std::vector<JetIndexBuilder> m_indexes;
    std::uint32_t m_rowCount = 0;
};

} // namespace odbc::jet
