// The reader on a file that is open already.
#pragma once

#include "JetDecoder.h"
#include "JetRows.h"
#include "store/StoreTable.h"

namespace odbc::jet {

// Where a table that was read stands.
struct JetOrigin {
    std::string name;
    std::uint32_t page = 0;          // of the definition
    std::vector<std::uint32_t> rows; // pointers, in the order of reading
};

void readTables(const JetFile& file, TableSink& sink, std::vector<JetOrigin>* origins = nullptr);
// The columns in the order in which the reader hands their cells on, and how it shows them.
std::vector<JetColumn> orderedColumns(const JetDefinition& definition);
// One value of a row; the cell's bytes may lie in `text` or in the row.
StoreCell cellOf(const JetFile& file, JetDecoder& decoder, const JetColumn& column, ColumnKind kind, const JetRow& row, std::string& text);
StoreTable describeTable(const JetFile& file, const std::string& name, const std::vector<JetColumn>& columns);

} // namespace odbc::jet
