// The checks of one index: its tree of pages, the order of its entries, and that there is one
// entry with the right key for each row.
#pragma once

#include "JetCheckTable.h"

namespace odbc::jet {

class JetCheckIndexTree {
public:
    JetCheckIndexTree(JetCheckContext& context, const JetCheckTable& table, const JetCheckIndex& index);
    void check();

private:
    using Key = std::vector<std::uint8_t>;
    struct Bounds { // of the entries below a page
        Key least, greatest;
    };
    // The entries of a page as they are once the shared prefix is put back.
    std::vector<Key> entriesOf(const JetPage& page);
    std::optional<Bounds> walk(std::uint32_t number, int depth);
    std::optional<Bounds> walkNode(const JetPage& page, int depth);
    void checkLinks();
    void checkEntries();
    void checkKey(const Key& entry, std::uint32_t row);
    // Whether the key agrees with the row; nothing where a part of it is not understood here.
    std::optional<bool> agrees(std::span<const std::uint8_t> key, std::span<const std::uint8_t> row) const;
    bool allNull(std::span<const std::uint8_t> row) const;

    JetCheckContext* m_context;
    const JetCheckTable* m_table;
    const JetCheckIndex* m_index;
    std::string m_what; // "the index X of the table Y"
    struct Leaf {
        std::uint32_t number, previous, next;
    };
    std::vector<Leaf> m_leaves;
    std::set<std::uint32_t> m_pages;
    struct Entry {
        std::uint32_t page;
        Key bytes; // key and row pointer
    };
    std::vector<Entry> m_entries;
};

} // namespace odbc::jet
