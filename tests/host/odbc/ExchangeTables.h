// The tables that are exchanged, as a new database gets them, and the statements on them.
#pragma once

#include <string>
#include <vector>

struct ExchangeTable {
    const wchar_t* name;
    const wchar_t* create;
    std::size_t columns;
};
const std::vector<ExchangeTable>& exchangeTables();
