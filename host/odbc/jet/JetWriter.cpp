#include "JetWriter.h"

#include "JetCatalogue.h"

#include <optional>

namespace odbc {

using namespace jet;

namespace {
// The creation stamp, the engine's build, the code page and the mask of the empty password go
// together, and with them the mask of the security identifiers in JetCatalogue.cpp; they are one
// observed set and not to be changed one by one. The objects' own dates are the present ones.
constexpr std::array<std::uint8_t, 8> kCreationStamp{0x40, 0x9A, 0xFF, 0x14, 0x54, 0xF6, 0xE2, 0x40};
constexpr std::uint32_t kPasswordMask = 0x97B2; // the stamp's whole days
constexpr std::uint32_t kEngineBuild = 9025;
constexpr std::uint16_t kCodePage = 1252;

} // namespace

PageBytes jet::headerPage() {
    PageBytes page{};
    std::uint8_t* at = page.data();
    at[1] = 1;
    std::memcpy(at + 4, "Standard Jet DB", 16);
    at[header::kVersion] = 1;
    put32(at + header::kMapPointer, 0x100);     // page 1, row 0: the free pages
    put32(at + header::kMapPointer + 4, 0x101); // page 1, row 1
    for (std::uint32_t page2to5 = kObjectsPage; page2to5 <= kRelationshipsPage; ++page2to5)
        put32(at + header::kMapPointer + 4 * page2to5, page2to5);
    put16(at + header::kCodePage, kCodePage);
    for (std::size_t i = 0; i < header::kPasswordSize; i += 4)
        put32(at + header::kPassword + i, kPasswordMask);
    put32(at + header::kEngineBuild, kEngineBuild);
    put32(at + header::kSortOrder, kGeneralSortOrder);
    std::memcpy(at + header::kCreated, kCreationStamp.data(), kCreationStamp.size());
    maskHeader(page, header::kMaskedSize);
    put16(at + 0x98, 1620);
    std::memcpy(at + 0x9C, "4.0", 3);
    for (std::size_t user = 0; user < header::kCommitCount; ++user)
        put16(at + header::kCommitBytes + 2 * user, header::kCommitAtRest);
    return page;
}

struct JetWriter::State {
    template <class... Where>
    explicit State(const Where&... where)
        : store(where...), headerNumber(store.allocate()), maps(2, store), catalogue(store) {}

    JetPageStore store;
    std::uint32_t headerNumber; // 0
    JetUsagePages maps;         // page 1
    JetCatalogue catalogue;     // pages 2 and on
    std::optional<JetTableWriter> table;
};

JetWriter::JetWriter(const std::string& path) : m_state(std::make_unique<State>(path)) {}

JetWriter::JetWriter(int descriptor, const std::string& name) : m_state(std::make_unique<State>(descriptor, name)) {}

JetWriter::~JetWriter() = default;

void JetWriter::beginTable(const StoreTable& table) {
    JetTablePlan plan = planTable(table);
    m_state->catalogue.checkName(table.name);
    const std::uint32_t page = m_state->store.allocate();
    m_state->table.emplace(std::move(plan), page, m_state->store);
}

void JetWriter::row(std::span<const StoreCell> cells) {
    m_state->table->row(cells);
}

void JetWriter::endTable() {
    m_state->table->finish();
    m_state->catalogue.addTable(m_state->table->name(), m_state->table->definitionPage());
    m_state->table.reset();
}

void JetWriter::finish() {
    m_state->catalogue.finish();
    m_state->maps.write({freePagesRow(m_state->store), UsageRow{}}, 1, m_state->store);
    m_state->store.put(m_state->headerNumber, headerPage());
    m_state->store.close();
}

} // namespace odbc
