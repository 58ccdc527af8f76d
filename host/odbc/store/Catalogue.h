// The tables of an open database: what they are called and how SQLite knows them.
#pragma once

#include "store/StoreTable.h"

#include <memory>

namespace odbc {

// Inside SQLite a table is called t and a number, its columns c0, c1 and so on: whatever a foreign
// database calls its tables and columns, it meets no keyword, no hidden column and no rule of letter case.
struct CatalogueTable {
    StoreTable table;
    std::vector<std::string> columnKeys; // folded names
    std::string key;                     // folded name
    std::string sqlName;
    std::int64_t rows = 0;
    std::string fault;         // why the table cannot be used; empty where it can
    std::string unchangeable;  // why it cannot be changed; empty where it can
    std::vector<bool> sorted;  // columns whose texts need a place in the order of the file's indexes; empty: none
    std::int64_t loaded = -1;  // rows that came from the file; -1: the table was made here
    std::vector<bool> touched; // by loaded row: given other values
    std::vector<bool> indexed; // columns that have an index of SQLite's

    int column(std::string_view foldedName) const; // -1 where there is none
};

class Catalogue {
public:
    // Null where there is none.
    CatalogueTable* find(std::string_view foldedName);
    const CatalogueTable* find(std::string_view foldedName) const;
    // StoreError where the name is taken or two columns have the same one.
    CatalogueTable& add(const StoreTable& table);
    void remove(std::string_view foldedName);
    // In the order of their making.
    const std::vector<std::unique_ptr<CatalogueTable>>& tables() const { return mTables; }

private:
    std::vector<std::unique_ptr<CatalogueTable>> mTables;
    int mMade = 0;
};

} // namespace odbc
