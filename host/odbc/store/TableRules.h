// What a database of somebody else's demands of its tables while it is open here.
#pragma once

#include "store/StoreTable.h"

namespace odbc {

// Columns by their place in the StoreTable.
struct TableRules {
    // Why no statement may change the table, a whole sentence; empty where they may.
    std::string unchangeable;
    struct Key {
        std::string name;
        std::vector<int> columns;
        bool unique = false;   // values that are there stand once; rows with an empty one do not count
        bool required = false; // no value may be empty
    };
    std::vector<Key> keys;
    std::vector<int> sorted; // text columns of an index: each text must have a place in its order
    int counter = -1;        // the column that numbers itself
    std::int64_t lastNumber = 0;
};

// Each row of the child has its row in the parent.
struct TableRelation {
    std::string name, parent, child; // of the relation and of the tables
    std::vector<std::string> parentColumns, childColumns; // in pairs
    bool cascadeUpdates = false, cascadeDeletes = false;
};

// Takes what became of a table's rows since it was loaded; `row` counts them in the order of loading, from 0.
class ChangeSink {
public:
    virtual ~ChangeSink() = default;
    virtual void removed(std::size_t row) = 0;
    virtual void replaced(std::size_t row, std::span<const StoreCell> cells) = 0;
    virtual void added(std::span<const StoreCell> cells) = 0;
};

} // namespace odbc
