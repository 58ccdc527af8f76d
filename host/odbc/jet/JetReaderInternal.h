// The reader on a file that is open already: for the checks of the reader itself.
#pragma once

#include "JetFile.h"
#include "store/StoreTable.h"

namespace odbc::jet {

void readTables(const JetFile& file, TableSink& sink);

} // namespace odbc::jet
