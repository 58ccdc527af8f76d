// The keys of an index, made of the values as they lie in a row.
#pragma once

#include "JetRows.h"
#include "JetTail.h"

namespace odbc::jet {

// Whether keys of the column can be made: whole numbers, floating ones, dates and amounts either way, text upward
// and in the collation "General (legacy)" only.
bool knowsKeysOf(const JetDefinition& definition, const JetIndex::Part& part);

using JetValues = std::vector<std::optional<std::string>>; // bytes by column number; of a yes/no column its bit: empty or none

JetValues valuesOf(const JetDefinition& definition, const JetRow& row);

struct JetKey {
    std::string bytes; // without the row's pointer
    bool allNull = true, anyNull = false;
};
// Nothing where a text holds a character whose weight is not known.
std::optional<JetKey> keyOf(const JetDefinition& definition, const JetIndex& index, const JetValues& values);

} // namespace odbc::jet
