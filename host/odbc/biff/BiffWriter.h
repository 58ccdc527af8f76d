// Writes tables as a workbook (BIFF8): one sheet a table, the column names in row one, frozen. Text
// goes through the shared string table, numbers are numbers to their last bit, yes/no cells are
// logical values, dates are numbers in a date format (days since 1899-12-30, so a spreadsheet shows
// dates before 1 March 1900 a day late), currency and decimals are numbers. Null is an empty cell, and so is an
// empty text, since a spreadsheet does not tell them apart.
//
// What a sheet cannot hold is a StoreError, thrown by the call that brings it: a name that is
// empty, longer than 31 characters, taken (cases are not told apart), with one of \ / ? * [ ] : or an
// apostrophe at an end; more than 256 columns; bytes; text that
// is not UTF-8 or longer than 32,767 characters; a number that is not finite. Nothing is renamed or
// cut: a table must be found again by the name that made it. The format has neither a negative zero
// nor denormal numbers, they become 0.
#pragma once

#include "store/StoreTable.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace odbc {

class BiffWriter : public TableSink {
public:
    // A file-system path, UTF-8. Nothing is written before finish.
    explicit BiffWriter(const std::string& path);
    // Into an empty file that somebody else opened and closes.
    BiffWriter(int descriptor, const std::string& name);
    ~BiffWriter() override; // without finish: no file

    void beginTable(const StoreTable& table) override;
    void row(std::span<const StoreCell> cells) override;
    void endTable() override;
    // Writes the file, replacing one that stands there, and ends the work; it is not synced. After
    // a StoreError a part of a file may be left behind. A workbook of no table has one empty sheet.
    void finish();
    // Behind finish: one sentence for the user for each table that went on in further sheets, since a sheet has
    // 65,536 rows. They have the table's name and a number: "TABLA 2".
    const std::vector<std::string>& notes() const { return mNotes; }

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
    std::vector<std::string> mNotes;
};

} // namespace odbc
