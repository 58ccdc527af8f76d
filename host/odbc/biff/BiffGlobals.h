// The head of the workbook's stream: what holds for every sheet, their names and places, and the texts.
#pragma once

#include "BiffStrings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace odbc::biff {

// The cell formats, by their place in the list of XF records.
enum class CellFormat : std::uint16_t { General = 15, Heading, Text, Date, Money, NumberColumn, LogicalColumn, MemoColumn };

// Everything before the first sheet. places[i] is where the stream's place of sheet i (32 bits) is
// to be patched in, once it is known.
std::string globals(const std::vector<std::u16string>& sheetNames, const Strings& strings, std::vector<std::size_t>& places);

void appendBof(std::string& out, std::uint16_t substream);

} // namespace odbc::biff
