// From the stores' faults to the exceptions of the API.
#pragma once

#include "CDBException.h"

namespace odbc {

[[noreturn]] void throwDb(RETCODE code, const char* text);
// Inside a catch: what was caught, as a CDBException*.
[[noreturn]] void throwCaught(RETCODE code);

} // namespace odbc
