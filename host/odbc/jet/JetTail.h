// What stands behind the columns in a table's definition (Jet 4): its indexes and the maps of its long values.
#pragma once

#include "JetDefinition.h"

namespace odbc::jet {

// An index with entries of its own; several that a user sees may share one.
struct JetIndex {
    std::string name;
    struct Part {
        std::uint16_t column = 0; // its number
        bool ascending = true;
    };
    std::vector<Part> parts;
    std::uint32_t map = 0, root = 0;
    std::uint8_t flags = 0;
};

struct JetLongMap {
    std::uint16_t column = 0; // its number
    std::uint32_t used = 0, free = 0;
};

struct JetTail {
    std::vector<JetIndex> indexes;
    std::size_t userIndexes = 0; // as the user sees them
    std::vector<JetLongMap> longMaps;
};

// StoreError where it is damaged.
JetTail readTail(const JetFile& file, const JetDefinition& definition);

// Every entry of the index, key and row pointer behind each other, in order. StoreError where the tree is damaged.
std::vector<std::string> entriesOfIndex(const JetFile& file, const JetDefinition& definition, const JetIndex& index);

} // namespace odbc::jet
