// Reads every user table of an Access database (.mdb, Jet 3 and Jet 4) into a sink.
#pragma once

#include "store/StoreTable.h"

namespace odbc {

// Hands over the user tables in the order of their names in the catalogue, rows in page order.
// Throws StoreError with one sentence when the file cannot be read, is no such database, is
// password-protected or encrypted, is damaged, or holds fewer rows than it says it holds. What
// had been handed over by then is incomplete: the sink's owner throws it away.
void readJet(const std::string& path, TableSink& sink);

} // namespace odbc
