// The installed drivers and the making of new databases. The library "odbccp32.dll" offers both at run
// time (WinLibrary.h) as SQLGetInstalledDriversW and SQLConfigDataSourceW, and under the names without W
// their forms with text in the single-byte code page.
#pragma once

#include "WinTypes.h"

// The names of the drivers, each ended by a null, behind the last one a second null: the built-in
// Access driver (its name contains "*.mdb"), the built-in Excel driver (its name contains "Excel"),
// then the machine's own. `size` is the buffer's in characters; names that do not fit are left out.
// `used`, where given, is the number of characters without the second null. FALSE for no buffer or
// one without room for two characters.
BOOL SQLGetInstalledDrivers(LPWSTR buffer, WORD size, WORD* used);

constexpr WORD ODBC_ADD_DSN = 1;
// Adds a data source (request ODBC_ADD_DSN). The built-in Access driver knows one attribute,
// CREATE_DB="path": it makes a new, empty database, and gives FALSE where a file stands there already
// or none can be written. Without it nothing is done and TRUE given: data sources are not kept, as
// connections name their file. FALSE for every other driver or request.
BOOL SQLConfigDataSource(HWND parent, WORD request, LPCWSTR driver, LPCWSTR attributes);
