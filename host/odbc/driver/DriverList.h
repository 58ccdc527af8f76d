// The drivers that a connection string can name.
#pragma once

#include "driver/ConnectString.h"
#include "store/Session.h"

#include <memory>

namespace odbc {

// The built-in ones. Programs look for "*.mdb" and "Excel" in the names.
constexpr const wchar_t* kAccessDriver = L"Access Driver (*.mdb)";
constexpr const wchar_t* kExcelDriver = L"Excel Driver (*.xls)";

// The built-in ones, then the machine's own, without those of the same names.
std::vector<std::wstring> installedDrivers();
bool isAccessDriver(std::wstring_view name);

// Null where the string names neither a driver nor a data source. StoreError where it cannot be
// opened.
std::unique_ptr<Session> openSession(const ConnectString& connect, bool readOnly);

} // namespace odbc
