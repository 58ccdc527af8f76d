// An index built at once from all its entries.
#pragma once

#include "JetUsageMap.h"

#include <string>

namespace odbc::jet {

// The bytes that a column adds to a key: a flag, then the value in an order that bytes sort by.
void appendLongKey(std::int32_t value, std::string& key);
// False where the text cannot be indexed.
bool appendTextKey(std::u16string_view text, std::string& key);

class JetIndexBuilder {
public:
    void add(std::string key, std::uint32_t rowPointer);
    std::uint32_t distinctKeys() const { return m_distinct; } // known after write()
    // Sorts the entries and writes the tree, whose top is `root`; all its pages, the root first.
    JetPageSet write(std::uint32_t root, std::uint32_t owner, JetPages& store);

private:
    std::vector<std::string> m_entries;
    std::uint32_t m_distinct = 0;
};

} // namespace odbc::jet
