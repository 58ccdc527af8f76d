#include "BiffSheet.h"

#include "BiffBytes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace odbc::biff {

namespace {
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr U16 kDefaultRow = 0x00FF; // height of a row in twips
constexpr U32 kShownDigits = 12;   // a number in the general format shows no more characters
constexpr U32 kBoldPercent = 110;   // how much wider the headings' font is

// A spreadsheet knows no empty text beside the empty cell; of its readers some drop one, and libfreexl
// refuses the whole workbook for it.
bool isEmpty(const StoreCell& cell) {
    return cell.type == StoreCell::Type::Null || (cell.type == StoreCell::Type::Text && cell.bytes.empty());
}

CellFormat formatOf(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Date: return CellFormat::Date;
    case ColumnKind::Currency: return CellFormat::Money;
    // A text format keeps a text of digits a text when it is edited. Cells of this format show more
    // than 255 characters as ####, so long texts go without it.
    case ColumnKind::Text:
    case ColumnKind::Guid: return CellFormat::Text;
    case ColumnKind::Bool:
    case ColumnKind::Byte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::Numeric:
    case ColumnKind::Memo:
    case ColumnKind::Binary:
    case ColumnKind::Ole: break;
    }
    return CellFormat::General;
}

// The format of a whole column tells its kind, also where it has no cells.
CellFormat columnFormatOf(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Byte:
    case ColumnKind::Short:
    case ColumnKind::Long:
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::Numeric: return CellFormat::NumberColumn;
    case ColumnKind::Bool: return CellFormat::LogicalColumn;
    case ColumnKind::Memo: return CellFormat::MemoColumn;
    case ColumnKind::Date:
    case ColumnKind::Currency:
    case ColumnKind::Text:
    case ColumnKind::Guid:
    case ColumnKind::Binary:
    case ColumnKind::Ole: break;
    }
    return formatOf(kind);
}

// The four-byte form of a number where it gives the same bits back: a whole number of 30 bits, the
// upper 30 bits of a double, or either of them in hundredths.
std::optional<U32> rkOf(double value) {
    const auto whole = [](double v) -> std::optional<U32> {
        if (!(v >= -536870912.0 && v <= 536870911.0) || v != std::trunc(v))
            return std::nullopt;
        return (static_cast<U32>(static_cast<std::int32_t>(v)) << 2) | 2u;
    };
    if (const auto rk = whole(value))
        return rk;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    if ((bits & 0x3FFFFFFFFull) == 0)
        return static_cast<U32>(bits >> 32);
    const double hundred = value * 100;
    if (const auto rk = whole(hundred); rk && hundred / 100 == value)
        return *rk | 1u;
    return std::nullopt;
}

// Digits that a number shows in the general format, which rounds to eleven characters.
U32 shownDigits(double value, CellFormat format) {
    if (format == CellFormat::Date)
        return 16;
    if (format != CellFormat::Money && value != std::trunc(value))
        return kShownDigits;
    U32 digits = value < 0 ? 2 : 1;
    for (double v = std::fabs(value); v >= 10 && digits < kShownDigits; v /= 10)
        ++digits;
    return format == CellFormat::Money ? digits + 4 + digits / 3 : digits;
}
} // namespace

Sheet::Sheet(const StoreTable& table, Strings& strings) : mTable(table), mStrings(strings), mWidths(table.columns.size(), 0) {
    for (const StoreColumn& column : table.columns)
        mFormats.push_back(formatOf(column.kind));
    if (table.columns.empty())
        return; // the empty sheet of an empty workbook
    beginRow();
    for (U16 i = 0; i < columns(); ++i) {
        if (table.columns[i].kind == ColumnKind::Binary || table.columns[i].kind == ColumnKind::Ole)
            refuse(i, "bájtokat tartalmaz, amit munkafüzet nem tárolhat.");
        addText(i, CellFormat::Heading, table.columns[i].name);
        mWidths[i] = static_cast<U16>(std::min<U32>(255, (mWidths[i] * kBoldPercent + 99) / 100));
    }
    endRow();
}

void Sheet::refuse(U16 column, const char* why) const {
    throw StoreError("A tábla (" + mTable.name + ") oszlopa (" + mTable.columns[column].name + ") " + why);
}

void Sheet::widen(U16 column, U32 digits) { mWidths[column] = static_cast<U16>(std::max<U32>(mWidths[column], digits)); }

void Sheet::beginRow() {
    if (mRows == kMaxRows)
        throw StoreError("A táblának (" + mTable.name + ") több sora van, mint amennyi egy munkalapon elfér (65535).");
    mRowStart = mBlock.size();
    mFirst = static_cast<U16>(columns());
    mLast = 0;
}

void Sheet::row(std::span<const StoreCell> cells) {
    beginRow();
    for (U16 i = 0; i < cells.size(); ++i)
        if (!isEmpty(cells[i]))
            addCell(i, cells[i]);
    flushRks();
    if (mLast == 0) {
        // A row of nothing still is a row: an empty cell keeps its place.
        appendRecord(mBlock, Record::Blank, static_cast<U16>(mRows), U16{0}, static_cast<U16>(CellFormat::General));
        mFirst = 0;
        mLast = 1;
    }
    endRow();
}

void Sheet::endRow() {
    mRowStarts.push_back(mRowStart);
    appendRecord(mBlockRows, Record::Row, static_cast<U16>(mRows), mFirst, mLast, kDefaultRow, U16{0}, U16{0}, U16{0x0100},
                 static_cast<U16>(CellFormat::General));
    if (++mRows % kRowsOfBlock == 0)
        endBlock();
}

void Sheet::addCell(U16 column, const StoreCell& cell) {
    const ColumnKind kind = mTable.columns[column].kind;
    const CellFormat format = mFormats[column];
    mFirst = std::min(mFirst, column);
    mLast = static_cast<U16>(column + 1);
    switch (cell.type) {
    case StoreCell::Type::Null: break;
    case StoreCell::Type::Integer:
        if (kind == ColumnKind::Bool) {
            flushRks();
            appendRecord(mBlock, Record::BoolErr, static_cast<U16>(mRows), column, static_cast<U16>(format), static_cast<U8>(cell.integer != 0),
                         U8{0});
            widen(column, 6);
        } else {
            addNumber(column, format, static_cast<double>(cell.integer));
        }
        break;
    case StoreCell::Type::Real: addNumber(column, format, cell.real); break;
    case StoreCell::Type::Text:
        if (kind == ColumnKind::Currency || kind == ColumnKind::Numeric)
            addDecimal(column, format, cell.bytes);
        else
            addText(column, format, cell.bytes);
        break;
    case StoreCell::Type::Bytes: refuse(column, "bájtokat tartalmaz, amit munkafüzet nem tárolhat.");
    }
}

void Sheet::addNumber(U16 column, CellFormat format, double value) {
    if (!std::isfinite(value))
        refuse(column, "nem véges számot tartalmaz, amit munkafüzet nem tárolhat.");
    if (std::fpclassify(value) != FP_NORMAL)
        value = 0; // the format has neither denormal numbers nor a negative zero
    if (mWidths[column] < kShownDigits || format != CellFormat::General)
        widen(column, shownDigits(value, format));
    if (const auto rk = rkOf(value)) {
        if (!mRks.empty() && mRkColumn + mRks.size() != column)
            flushRks();
        if (mRks.empty())
            mRkColumn = column;
        mRks.emplace_back(static_cast<U16>(format), *rk);
        return;
    }
    flushRks();
    appendRecord(mBlock, Record::Number, static_cast<U16>(mRows), column, static_cast<U16>(format), value);
}

void Sheet::flushRks() {
    if (mRks.size() == 1) {
        appendRecord(mBlock, Record::Rk, static_cast<U16>(mRows), mRkColumn, mRks[0].first, mRks[0].second);
    } else if (mRks.size() > 1) {
        appendHead(mBlock, Record::MulRk, 6 + 6 * mRks.size());
        append(mBlock, static_cast<U16>(mRows));
        append(mBlock, mRkColumn);
        for (const auto& [format, value] : mRks) {
            append(mBlock, format);
            append(mBlock, value);
        }
        append(mBlock, static_cast<U16>(mRkColumn + mRks.size() - 1));
    }
    mRks.clear();
}

void Sheet::addText(U16 column, CellFormat format, std::string_view utf8) {
    flushRks();
    const U32 text = mStrings.add(utf8);
    if (text == Strings::kNotUnicode)
        refuse(column, "nem Unicode szöveget tartalmaz.");
    if (text == Strings::kTooLong)
        refuse(column, "32767 karakternél hosszabb szöveget tartalmaz, amit munkafüzet nem tárolhat.");
    mFirst = std::min(mFirst, column);
    mLast = static_cast<U16>(column + 1);
    widen(column, mStrings.width(text));
    appendRecord(mBlock, Record::LabelSst, static_cast<U16>(mRows), column, static_cast<U16>(format), text);
}

void Sheet::addDecimal(U16 column, CellFormat format, std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        refuse(column, "olvashatatlan számot tartalmaz.");
    addNumber(column, format, value);
}

void Sheet::endBlock() {
    if (mRowStarts.empty())
        return;
    const std::size_t blockStart = mCells.size();
    mCells += mBlockRows;
    mCells += mBlock;
    mDbCells.push_back(static_cast<U32>(mCells.size()));
    appendHead(mCells, Record::DbCell, 4 + 2 * mRowStarts.size());
    append(mCells, static_cast<U32>(mDbCells.back() - blockStart));
    // The first row's cells from the second ROW record on, each other's from those of the row before.
    const std::size_t rowRecord = mBlockRows.size() / mRowStarts.size();
    append(mCells, static_cast<U16>(mBlockRows.size() - rowRecord));
    for (std::size_t i = 1; i < mRowStarts.size(); ++i)
        append(mCells, static_cast<U16>(mRowStarts[i] - mRowStarts[i - 1]));
    mBlock.clear();
    mBlockRows.clear();
    mRowStarts.clear();
}

void Sheet::end() { endBlock(); }

std::string Sheet::head(std::size_t place) const {
    std::string out;
    appendBof(out, static_cast<U16>(Substream::Worksheet));
    const std::size_t index = out.size();
    appendHead(out, Record::Index, 16 + 4 * mDbCells.size());
    out.append(16 + 4 * mDbCells.size(), '\0');
    appendRecord(out, Record::CalcMode, {1});
    appendRecord(out, Record::CalcCount, {100});
    appendRecord(out, Record::CalcRefMode, {1});
    appendRecord(out, Record::CalcIter, {0});
    appendRecord(out, Record::CalcDelta, 0.001);
    appendRecord(out, Record::CalcSaveRecalc, {1});
    appendRecord(out, Record::PrintRowCol, {0});
    appendRecord(out, Record::PrintGrid, {0});
    appendRecord(out, Record::GridSet, {1});
    appendRecord(out, Record::Guts, {0, 0, 0, 0});
    appendRecord(out, Record::DefaultRowHeight, {0, kDefaultRow});
    appendRecord(out, Record::WsBool, {0x04C1});
    appendRecord(out, Record::Header);
    appendRecord(out, Record::Footer);
    appendRecord(out, Record::HCenter, {0});
    appendRecord(out, Record::VCenter, {0});
    // A4, upright, full size, margins of half an inch at head and foot, one copy.
    appendRecord(out, Record::Setup, U16{9}, U16{100}, U16{1}, U16{1}, U16{1}, U16{2}, U16{600}, U16{600}, 0.5, 0.5, U16{1});
    const std::size_t widths = out.size();
    appendRecord(out, Record::DefColWidth, {8});
    for (U16 i = 0; i < columns(); ++i) {
        const U32 width = std::min<U32>(255 * 256, mWidths[i] * 256u + 0xB6); // 256ths of a digit, and the cell's margins
        appendRecord(out, Record::ColInfo, {i, i, static_cast<U16>(width), static_cast<U16>(columnFormatOf(mTable.columns[i].kind)), 2, 0});
    }
    appendRecord(out, Record::Dimensions, U32{0}, mRows, U16{0}, static_cast<U16>(columns()), U16{0});
    patch(out, index + 4 + 8, mRows);
    patch(out, index + 4 + 12, static_cast<U32>(place + widths));
    for (std::size_t i = 0; i < mDbCells.size(); ++i)
        patch(out, index + 20 + 4 * i, static_cast<U32>(place + out.size() + mDbCells[i]));
    return out;
}

std::string Sheet::tail(bool front) const {
    std::string out;
    // Grid, headings, zeros and default colours shown; panes frozen, without having been split.
    const U16 window = static_cast<U16>(0x01BE | (front ? 0x0600 : 0));
    appendRecord(out, Record::Window2, {window, 0, 0, 0x40, 0, 0, 0, 0, 0});
    constexpr U8 kUpper = 3, kLower = 2;
    appendRecord(out, Record::Pane, U16{0}, U16{1}, U16{1}, U16{0}, kLower, U8{0});
    for (const U8 pane : {kUpper, kLower}) {
        const U16 row = pane == kLower ? 1 : 0;
        appendRecord(out, Record::Selection, pane, row, U16{0}, U16{0}, U16{1}, row, row, U8{0}, U8{0});
    }
    appendRecord(out, Record::Eof);
    return out;
}

} // namespace odbc::biff
