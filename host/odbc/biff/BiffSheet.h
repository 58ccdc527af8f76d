// One sheet while its rows arrive: its cell records as they will stand in the file.
#pragma once

#include "BiffFormat.h"
#include "BiffGlobals.h"
#include "store/StoreTable.h"

#include <span>
#include <string>
#include <vector>

namespace odbc::biff {

class Sheet {
public:
    // Row one is made of the table's column names. Throws StoreError, as all below, for what a
    // sheet cannot hold.
    Sheet(const StoreTable& table, Strings& strings);
    void row(std::span<const StoreCell> cells);
    void end();
    bool full() const { return mRows == kMaxRows; }
    std::size_t columns() const { return mTable.columns.size(); }
    // The sheet's substream before and behind the cells; `place` is where the sheet begins in the stream,
    // `front` whether it is the one shown first.
    std::string head(std::size_t place) const;
    const std::string& cells() const { return mCells; }
    std::string tail(bool front) const;

private:
    void beginRow();
    void endRow();
    void endBlock();
    void addNumber(std::uint16_t column, CellFormat format, double value);
    void addText(std::uint16_t column, CellFormat format, std::string_view utf8);
    void addDecimal(std::uint16_t column, CellFormat format, std::string_view text);
    void addCell(std::uint16_t column, const StoreCell& cell);
    void flushRks();
    void widen(std::uint16_t column, std::uint32_t digits);
    [[noreturn]] void refuse(std::uint16_t column, const char* why) const;

    StoreTable mTable;
    Strings& mStrings;
    std::vector<std::uint16_t> mWidths; // digits
    std::vector<CellFormat> mFormats;
    std::string mCells;                   // finished blocks: rows, their cells, DBCELL
    std::string mBlock;                   // the cells of the unfinished block
    std::string mBlockRows;               // its ROW records
    std::vector<std::size_t> mRowStarts;  // where in mBlock each of its rows begins
    std::vector<std::uint32_t> mDbCells;  // where in mCells each DBCELL stands
    std::uint32_t mRows = 0;
    std::size_t mRowStart = 0;
    // Numbers in neighbouring cells that are short enough for one common record.
    std::vector<std::pair<std::uint16_t, std::uint32_t>> mRks; // format, value
    std::uint16_t mRkColumn = 0;                               // of the first
    std::uint16_t mFirst = 0, mLast = 0;                       // used columns of the row, the last one excluded
};

} // namespace odbc::biff
