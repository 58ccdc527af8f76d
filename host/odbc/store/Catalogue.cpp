#include "store/Catalogue.h"

#include "store/StoreText.h"

#include <algorithm>
#include <utility>

namespace odbc {

int CatalogueTable::column(std::string_view foldedName) const {
    const auto found = std::find(columnKeys.begin(), columnKeys.end(), foldedName);
    return found == columnKeys.end() ? -1 : static_cast<int>(found - columnKeys.begin());
}

const CatalogueTable* Catalogue::find(std::string_view foldedName) const {
    const auto found = std::find_if(mTables.begin(), mTables.end(), [&](const auto& entry) { return entry->key == foldedName; });
    return found == mTables.end() ? nullptr : found->get();
}

CatalogueTable* Catalogue::find(std::string_view foldedName) {
    return const_cast<CatalogueTable*>(std::as_const(*this).find(foldedName));
}

CatalogueTable& Catalogue::add(const StoreTable& table) {
    auto entry = std::make_unique<CatalogueTable>();
    entry->table = table;
    entry->key = foldedName(table.name);
    if (find(entry->key) != nullptr)
        throw StoreError("A tábla már létezik: " + table.name + ".");
    for (const StoreColumn& column : table.columns) {
        std::string key = foldedName(column.name);
        if (entry->column(key) >= 0)
            throw StoreError("A táblának (" + table.name + ") két ilyen nevű oszlopa lenne: " + column.name + ".");
        entry->columnKeys.push_back(std::move(key));
    }
    entry->sqlName = "t" + std::to_string(++mMade);
    entry->indexed.resize(table.columns.size());
    return *mTables.emplace_back(std::move(entry));
}

void Catalogue::remove(std::string_view foldedName) {
    std::erase_if(mTables, [&](const auto& entry) { return entry->key == foldedName; });
}

} // namespace odbc
