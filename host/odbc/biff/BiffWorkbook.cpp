#include "BiffWorkbook.h"

#include "store/StoreTable.h"
#include "store/StoreText.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace odbc::biff {

namespace {
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr double k1904 = 1462; // days from 1899-12-30 to 1904-01-01

[[noreturn]] void damaged(const std::string& name, const char* what) { throw StoreError("A munkafüzet sérült: \"" + name + "\" (" + what + ")."); }

bool isBuiltInDate(U16 format) {
    return (format >= 14 && format <= 22) || (format >= 27 && format <= 36) || (format >= 45 && format <= 47) || (format >= 50 && format <= 58);
}
// A custom format shows a date or a time where a letter of them stands outside of quotes and brackets.
bool showsDate(std::u16string_view format) {
    char16_t closing = 0;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char16_t c = format[i];
        if (closing) {
            if (c == closing)
                closing = 0;
        } else if (c == u'"') {
            closing = u'"';
        } else if (c == u'[') {
            closing = u']';
        } else if (c == u'\\' || c == u'_' || c == u'*') {
            ++i;
        } else if (std::u16string_view(u"dDmMyYhHsS").find(c) != std::u16string_view::npos) {
            return true;
        }
    }
    return false;
}
// A whole number or the upper half of a double, the last two bits aside; bit 0: in hundredths.
double fromRk(U32 rk) {
    const double value = rk & 2 ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2) : std::bit_cast<double>(std::uint64_t{rk & ~3u} << 32);
    return rk & 1 ? value / 100 : value;
}
} // namespace

Workbook::Workbook(std::string_view stream, std::string name) : mStream(stream), mName(std::move(name)) {
    readGlobals(stream);
    limitPlaces();
    mShared = mStarts.size() - 1;
}

U32 Workbook::keepText(std::u16string_view text) {
    appendUtf8(text, mTexts);
    mStarts.push_back(mTexts.size());
    return static_cast<U32>(mStarts.size() - 2);
}

void Workbook::readGlobals(std::string_view stream) {
    RecordCursor records(stream);
    if (!records.next() || records.id() != Record::Bof)
        damaged(mName, "it does not begin as a workbook");
    if (fieldAt<U16>(records.body(), 0) != kVersion8 || fieldAt<U16>(records.body(), 2) != static_cast<U16>(Substream::Globals))
        throw StoreError("A munkafüzet az Excel 97 előtti formátumú, nem olvasható: \"" + mName + "\".");
    while (records.next()) {
        const std::string_view body = records.body();
        switch (records.id()) {
        case Record::Eof: return;
        case Record::FilePass: throw StoreError("A munkafüzetet jelszó védi: \"" + mName + "\".");
        case Record::Date1904: mFrom1904 = fieldAt<U16>(body, 0) == 1; break;
        case Record::Xf: mFormats.push_back(fieldAt<U16>(body, 2)); break;
        case Record::BoundSheet: readBoundSheet(body); break;
        case Record::Sst: readStrings(records, body); break;
        case Record::Format: {
            FieldReader fields({body});
            const U16 number = fields.number<U16>();
            const std::u16string text = fields.richString();
            if (showsDate(text))
                mDateFormats.push_back(number);
            mOwnFormats.emplace_back(number, text);
            break;
        }
        default: break; // what says nothing about the cells
        }
    }
    damaged(mName, "it ends too early");
}

void Workbook::readBoundSheet(std::string_view body) {
    constexpr U8 kWorksheet = 0;
    if (fieldAt<U8>(body, 5) != kWorksheet)
        return;
    FieldReader fields({body});
    const U32 begin = fields.number<U32>();
    fields.number<U16>();
    const std::size_t count = fields.number<U8>();
    const U8 options = fields.number<U8>();
    const std::u16string name = fields.characters(count, options);
    if (fields.failed() || name.empty())
        damaged(mName, "a sheet has no name");
    Place place{begin, 0, {}};
    appendUtf8(name, place.name);
    mPlaces.push_back(std::move(place));
}

void Workbook::readStrings(RecordCursor& records, std::string_view body) {
    const U32 count = fieldAt<U32>(body, 4);
    FieldReader fields(records.bodies());
    fields.skip(8);
    for (U32 i = 0; i < count && !fields.failed(); ++i) {
        const std::u16string text = fields.richString();
        if (fields.failed())
            damaged(mName, "its table of texts ends too early");
        keepText(text);
    }
}

// A sheet ends where the next one begins, so that no byte is read for two of them.
void Workbook::limitPlaces() {
    std::vector<U32> begins;
    for (const Place& place : mPlaces)
        begins.push_back(place.begin);
    std::sort(begins.begin(), begins.end());
    if (std::adjacent_find(begins.begin(), begins.end()) != begins.end())
        damaged(mName, "two sheets lie at one place");
    for (Place& place : mPlaces) {
        const auto next = std::upper_bound(begins.begin(), begins.end(), place.begin);
        place.end = next == begins.end() ? static_cast<U32>(mStream.size()) : *next;
        if (place.begin >= mStream.size())
            damaged(mName, "a sheet lies behind its end");
        place.end = std::min(place.end, static_cast<U32>(mStream.size()));
    }
}

bool Workbook::isDate(U16 format) const {
    if (format >= mFormats.size())
        return false;
    const U16 number = mFormats[format];
    return isBuiltInDate(number) || std::find(mDateFormats.begin(), mDateFormats.end(), number) != mDateFormats.end();
}

ReadSheet::ColumnFormat Workbook::columnFormat(U16 format) const {
    using enum ReadSheet::ColumnFormat;
    if (isDate(format))
        return Date;
    const U16 number = format < mFormats.size() ? mFormats[format] : U16{0};
    if (const auto own = std::find_if(mOwnFormats.begin(), mOwnFormats.end(), [number](const auto& pair) { return pair.first == number; });
        own != mOwnFormats.end() && number >= kNumberFormat)
        return own->second == kNumberFormatText    ? Number
               : own->second == kLogicalFormatText ? Bool
               : own->second == kMemoFormatText    ? Memo
                                                   : Unknown;
    return number == kTextFormat ? Text : number >= 1 && number <= 11 ? Number : Unknown;
}

// The records of one sheet.
class SheetReader {
public:
    SheetReader(Workbook& book, ReadSheet& sheet) : mBook(book), mSheet(sheet) {}
    void read(std::string_view bytes);

private:
    void record(RecordCursor& records);
    void use(U16 row, U32 column);
    void number(U16 row, U32 column, U16 format, double value);
    void text(U16 row, U32 column, U32 text);
    void textOf(FieldReader& fields, U16 row, U16 column);
    void formula(std::string_view body);
    void multipleRks(std::string_view body);
    void sortCells();

    Workbook& mBook;
    ReadSheet& mSheet;
    bool mAwaitsString = false; // the result of the formula read last stands in a record of its own
    U16 mStringRow = 0, mStringColumn = 0;
};

void SheetReader::read(std::string_view bytes) {
    RecordCursor records(bytes);
    if (!records.next() || records.id() != Record::Bof)
        damaged(mBook.mName, "a sheet does not lie where it should");
    if (fieldAt<U16>(records.body(), 2) != static_cast<U16>(Substream::Worksheet))
        return; // a chart or a dialog that is listed as a sheet
    int depth = 1; // charts in the sheet are substreams of their own
    while (depth > 0) {
        if (!records.next())
            damaged(mBook.mName, "a sheet ends too early");
        if (records.id() == Record::Bof)
            ++depth;
        else if (records.id() == Record::Eof)
            --depth;
        else if (depth == 1)
            record(records);
    }
    sortCells();
}

void SheetReader::record(RecordCursor& records) {
    const std::string_view body = records.body();
    const U16 row = fieldAt<U16>(body, 0), column = fieldAt<U16>(body, 2), format = fieldAt<U16>(body, 4);
    switch (records.id()) {
    case Record::Number: number(row, column, format, fieldAt<double>(body, 6)); break;
    case Record::Rk: number(row, column, format, fromRk(fieldAt<U32>(body, 6))); break;
    case Record::MulRk: multipleRks(body); break;
    case Record::LabelSst: {
        const U32 shared = fieldAt<U32>(body, 6);
        if (shared >= mBook.mShared)
            damaged(mBook.mName, "a cell names a text that is not in its table");
        text(row, column, shared);
        break;
    }
    case Record::Label:
    case Record::RString: {
        FieldReader fields(records.bodies());
        fields.skip(6);
        textOf(fields, row, column);
        break;
    }
    case Record::BoolErr:
        use(row, column);
        if (fieldAt<U8>(body, 7) == 0) // otherwise an error value
            mSheet.cells.push_back({row, column, ReadCell::Kind::Bool, 0, fieldAt<U8>(body, 6) != 0 ? 1.0 : 0.0});
        break;
    case Record::Blank: use(row, column); break;
    case Record::ColInfo: // first and last column, width, format
        for (U32 i = row; i <= column && i < kMaxColumns; ++i)
            mSheet.formats[i] = mBook.columnFormat(fieldAt<U16>(body, 6));
        break;
    case Record::MulBlank:
        use(row, column);
        use(row, body.size() < 2 ? column : fieldAt<U16>(body, body.size() - 2));
        break;
    case Record::Formula: formula(body); break;
    case Record::String:
        if (mAwaitsString) {
            FieldReader fields(records.bodies());
            textOf(fields, mStringRow, mStringColumn);
            mAwaitsString = false;
        }
        break;
    default: break; // what says nothing about the cells' values
    }
}

void SheetReader::use(U16 row, U32 column) {
    if (column >= kMaxColumns)
        damaged(mBook.mName, "a cell lies outside of its sheet");
    mSheet.firstRow = std::min<U32>(mSheet.firstRow, row);
    mSheet.endRow = std::max<U32>(mSheet.endRow, row + 1u);
    mSheet.firstColumn = std::min(mSheet.firstColumn, column);
    mSheet.endColumn = std::max(mSheet.endColumn, column + 1);
}

void SheetReader::number(U16 row, U32 column, U16 format, double value) {
    use(row, column);
    if (!std::isfinite(value))
        return;
    const bool date = mBook.isDate(format);
    if (date && mBook.mFrom1904)
        value += k1904;
    mSheet.cells.push_back({row, static_cast<U16>(column), date ? ReadCell::Kind::Date : ReadCell::Kind::Number, 0, value});
}

void SheetReader::text(U16 row, U32 column, U32 text) {
    use(row, column);
    mSheet.cells.push_back({row, static_cast<U16>(column), ReadCell::Kind::Text, text, 0});
}

void SheetReader::textOf(FieldReader& fields, U16 row, U16 column) {
    const std::u16string characters = fields.richString();
    if (fields.failed())
        damaged(mBook.mName, "the text of a cell ends too early");
    text(row, column, mBook.keepText(characters));
}

void SheetReader::formula(std::string_view body) {
    const U16 row = fieldAt<U16>(body, 0), column = fieldAt<U16>(body, 2);
    mAwaitsString = false;
    if (fieldAt<U16>(body, 12) != 0xFFFF) {
        number(row, column, fieldAt<U16>(body, 4), fieldAt<double>(body, 6));
        return;
    }
    use(row, column);
    enum Result : U8 { kString = 0, kBool = 1, kError = 2, kEmptyString = 3 };
    switch (fieldAt<U8>(body, 6)) {
    case kString:
        mAwaitsString = true;
        mStringRow = row;
        mStringColumn = column;
        break;
    case kBool: mSheet.cells.push_back({row, column, ReadCell::Kind::Bool, 0, fieldAt<U8>(body, 8) != 0 ? 1.0 : 0.0}); break;
    case kEmptyString: text(row, column, mBook.keepText({})); break;
    default: break; // an error value
    }
}

void SheetReader::multipleRks(std::string_view body) {
    const U16 row = fieldAt<U16>(body, 0);
    const U32 first = fieldAt<U16>(body, 2);
    for (std::size_t at = 4; at + 6 + 2 <= body.size(); at += 6)
        number(row, first + static_cast<U32>((at - 4) / 6), fieldAt<U16>(body, at), fromRk(fieldAt<U32>(body, at + 2)));
}

// Of two records for one cell the later one counts.
void SheetReader::sortCells() {
    auto& cells = mSheet.cells;
    const auto place = [](const ReadCell& cell) { return cell.row * kMaxColumns + cell.column; };
    const auto before = [&](const ReadCell& a, const ReadCell& b) { return place(a) < place(b); };
    if (!std::is_sorted(cells.begin(), cells.end(), before))
        std::stable_sort(cells.begin(), cells.end(), before);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (i + 1 == cells.size() || place(cells[i]) != place(cells[i + 1]))
            cells[kept++] = cells[i];
    cells.resize(kept);
}

ReadSheet Workbook::sheet(std::size_t index) {
    mStarts.resize(mShared + 1); // the texts of the sheet before
    mTexts.resize(mStarts.back());
    const Place& place = mPlaces[index];
    ReadSheet sheet;
    sheet.name = place.name;
    SheetReader(*this, sheet).read(mStream.substr(place.begin, place.end - place.begin));
    return sheet;
}

} // namespace odbc::biff
