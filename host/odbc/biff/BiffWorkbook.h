// The sheets of a workbook's stream as cells, before anything is made of them. The bytes may be
// anybody's; every fault is a StoreError that names the file.
#pragma once

#include "BiffFormat.h"
#include "BiffRecords.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace odbc::biff {

struct ReadCell {
    enum class Kind : std::uint8_t { Number, Date, Bool, Text };
    std::uint16_t row = 0;
    std::uint16_t column = 0;
    Kind kind = Kind::Number;
    std::uint32_t text = 0; // Text: for Workbook::text
    double number = 0;      // Date: days since 1899-12-30; Bool: 0 or 1
};

struct ReadSheet {
    // What a column's own format says of the cells below; Unknown where it says nothing.
    enum class ColumnFormat : std::uint8_t { Unknown, Number, Date, Bool, Text, Memo };
    std::string name; // UTF-8
    std::array<ColumnFormat, kMaxColumns> formats{};
    std::vector<ReadCell> cells; // by row and column, one a place
    // What is in use, formatted cells without a value included; the ends are excluded.
    std::uint32_t firstRow = kMaxRows, endRow = 0, firstColumn = kMaxColumns, endColumn = 0;
    bool empty() const { return endRow == 0; }
};

class Workbook {
public:
    Workbook(std::string_view stream, std::string name);
    std::size_t sheetCount() const { return mPlaces.size(); }
    const std::string& sheetName(std::size_t index) const { return mPlaces[index].name; }
    // The texts of its cells are valid up to the next call.
    ReadSheet sheet(std::size_t index);
    std::string_view text(std::uint32_t number) const { return std::string_view(mTexts).substr(mStarts[number], mStarts[number + 1] - mStarts[number]); }

private:
    struct Place {
        std::uint32_t begin;
        std::uint32_t end;
        std::string name;
    };
    void readGlobals(std::string_view stream);
    void readBoundSheet(std::string_view body);
    void readStrings(RecordCursor& records, std::string_view body);
    void limitPlaces();
    std::uint32_t keepText(std::u16string_view text);
    bool isDate(std::uint16_t format) const;
    ReadSheet::ColumnFormat columnFormat(std::uint16_t format) const;

    friend class SheetReader;
    std::string_view mStream;
    std::string mName;
    std::vector<Place> mPlaces;
    std::string mTexts;                 // UTF-8, one behind the other
    std::vector<std::size_t> mStarts{0}; // where each begins, and the end
    std::size_t mShared = 0;            // how many of them are the shared ones
    std::vector<std::uint16_t> mFormats; // number format of each XF record
    std::vector<std::uint16_t> mDateFormats;
    std::vector<std::pair<std::uint16_t, std::u16string>> mOwnFormats; // that the workbook defines
    bool mFrom1904 = false;
};

} // namespace odbc::biff
