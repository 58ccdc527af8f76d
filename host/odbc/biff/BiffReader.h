// Reads the sheets of an existing workbook (BIFF8) as tables: row one gives the column names. The
// bytes may be anybody's: no length, count or offset in them is trusted.
#pragma once

#include "store/StoreTable.h"

#include <string>
#include <string_view>

namespace odbc {

// Hands each worksheet to the sink in the workbook's order; one without a cell, a chart or a
// macro sheet is left out. A blank name in row one becomes "F" and the column's number, a repeated one gets
// a number behind it, as the Excel driver has it. A column is Date, Bool or Double where all its cells
// are, or where it has none and its own format says so, otherwise Text (Memo where a cell is longer than 255 characters) with its numbers as text. A
// formula gives its last result, an error value is null.
// A table whose first sheet is full goes on in the sheet behind it that has its name, a blank and a number, and the
// same row one (BiffWriter makes them).
// StoreError: not a workbook, one of an older or newer format, password-protected, damaged.
void readBiff(const std::string& path, TableSink& sink);
void readBiff(int descriptor, const std::string& name, TableSink& sink); // of an open file
// The same of a workbook in memory; `name` stands for it in messages.
void readBiffBytes(std::string_view bytes, const std::string& name, TableSink& sink);
// The same of the stream alone, without the container around it.
void readBiffStream(std::string_view stream, const std::string& name, TableSink& sink);

} // namespace odbc
