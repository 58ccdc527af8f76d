// The reader and the checker on a file that is open already: for the checks of both.
#pragma once

#include "JetCheck.h"
#include "JetFile.h"
#include "store/StoreTable.h"

namespace odbc::jet {

void readTables(const JetFile& file, TableSink& sink);
// The file is of Jet 4.
std::vector<JetViolation> checkRules(const JetFile& file);

} // namespace odbc::jet
