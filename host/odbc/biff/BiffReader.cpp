#include "BiffReader.h"

#include "AcUtText.h"
#include "BiffWorkbook.h"
#include "CompoundFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace odbc {

using namespace biff;

namespace {
// Sheets of a few cells can span millions of empty ones; more than these are no one's table.
constexpr std::uint64_t kMaxEmptyCells = 64'000'000;
constexpr std::size_t kMaxName = 64; // characters of a column's name in a database
constexpr std::uint16_t kTextSize = 255;

std::wstring folded(const std::string& utf8) {
    std::wstring text = acFromUtf8(utf8);
    for (wchar_t& c : text)
        c = acFoldCase(c);
    return text;
}

std::string shown(double number) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    return {buffer, end};
}

// One sheet as a table.
class SheetTable {
public:
    SheetTable(const Workbook& book, const ReadSheet& sheet) : mBook(book), mSheet(sheet), mWidth(sheet.endColumn - sheet.firstColumn) {
        mTable.name = sheet.name;
        mTable.columns.resize(mWidth);
        nameColumns();
        findKinds();
    }
    const StoreTable& table() const { return mTable; }
    // The rest of a table that was too long for its first sheet: what both hold decides the kinds.
    void join(const SheetTable& rest) {
        for (std::size_t i = 0; i < mWidth; ++i)
            mFound[i].add(rest.mFound[i]);
        decideKinds();
    }
    // The rows, in the kinds of that table.
    void handRows(const StoreTable& as, TableSink& sink) const {
        std::vector<StoreCell> row(mWidth);
        std::vector<std::string> texts(mWidth); // what numbers in columns of text are written as
        std::size_t next = mHeadings;
        for (std::uint32_t number = mSheet.firstRow + 1; number < mSheet.endRow; ++number) {
            std::fill(row.begin(), row.end(), StoreCell::null());
            for (; next < mSheet.cells.size() && mSheet.cells[next].row == number; ++next) {
                const std::size_t column = mSheet.cells[next].column - mSheet.firstColumn;
                row[column] = value(mSheet.cells[next], as.columns[column].kind, texts[column]);
            }
            sink.row(row);
        }
    }

private:
    std::string textOf(const ReadCell& cell) const {
        switch (cell.kind) {
        case ReadCell::Kind::Text: return std::string(mBook.text(cell.text));
        case ReadCell::Kind::Bool: return cell.number != 0 ? "TRUE" : "FALSE";
        case ReadCell::Kind::Number:
        case ReadCell::Kind::Date: break;
        }
        return shown(cell.number);
    }
    // Row one; a blank name becomes F and the column's number, a name taken already gets a number.
    void nameColumns() {
        std::vector<std::string> names(mWidth);
        for (; mHeadings < mSheet.cells.size() && mSheet.cells[mHeadings].row == mSheet.firstRow; ++mHeadings) {
            const ReadCell& cell = mSheet.cells[mHeadings];
            names[cell.column - mSheet.firstColumn] = acToUtf8(acFromUtf8(textOf(cell)).substr(0, kMaxName));
        }
        std::set<std::wstring> taken;
        for (std::size_t i = 0; i < mWidth; ++i) {
            const std::string wanted = names[i].empty() ? "F" + std::to_string(i + 1) : names[i];
            std::string name = wanted;
            for (int number = 1; !taken.insert(folded(name)).second; ++number) {
                const std::string suffix = std::to_string(number);
                name = acToUtf8(acFromUtf8(wanted).substr(0, kMaxName - suffix.size())) + suffix;
            }
            mTable.columns[i].name = name;
        }
    }
    // What the cells of a column are.
    struct Found {
        bool kinds[4] = {}; // by ReadCell::Kind
        bool longText = false;
        bool has(ReadCell::Kind kind) const { return kinds[static_cast<std::size_t>(kind)]; }
        void add(const Found& other) {
            for (std::size_t i = 0; i < std::size(kinds); ++i)
                kinds[i] = kinds[i] || other.kinds[i];
            longText = longText || other.longText;
        }
    };
    void findKinds();
    void decideKinds();
    static ColumnKind kindOf(const Found& found, ReadSheet::ColumnFormat format);
    StoreCell value(const ReadCell& cell, ColumnKind kind, std::string& text) const {
        if (kind == ColumnKind::Bool)
            return StoreCell::of(static_cast<std::int64_t>(cell.number));
        if (kind == ColumnKind::Double || kind == ColumnKind::Date)
            return StoreCell::of(cell.number);
        if (cell.kind == ReadCell::Kind::Text)
            return StoreCell::text(mBook.text(cell.text));
        text = textOf(cell);
        return StoreCell::text(text);
    }

    const Workbook& mBook;
    const ReadSheet& mSheet;
    std::size_t mWidth;
    std::size_t mHeadings = 0; // cells of row one
    StoreTable mTable;
    std::vector<Found> mFound;
};

void SheetTable::findKinds() {
    mFound.resize(mWidth);
    for (std::size_t i = mHeadings; i < mSheet.cells.size(); ++i) {
        const ReadCell& cell = mSheet.cells[i];
        Found& column = mFound[cell.column - mSheet.firstColumn];
        column.kinds[static_cast<std::size_t>(cell.kind)] = true;
        if (cell.kind == ReadCell::Kind::Text && !column.longText && mBook.text(cell.text).size() > kTextSize)
            column.longText = acFromUtf8(mBook.text(cell.text)).size() > kTextSize;
    }
    decideKinds();
}

// The column's format decides where the cells do not speak against it: an empty column has nothing else.
ColumnKind SheetTable::kindOf(const Found& found, ReadSheet::ColumnFormat format) {
    using enum ReadSheet::ColumnFormat;
    const bool number = found.has(ReadCell::Kind::Number), date = found.has(ReadCell::Kind::Date), logical = found.has(ReadCell::Kind::Bool),
               text = found.has(ReadCell::Kind::Text);
    if (format == Memo || found.longText)
        return ColumnKind::Memo;
    if (text || format == Text)
        return ColumnKind::Text;
    if (format == Number && !date && !logical)
        return ColumnKind::Double;
    if (format == Date && !number && !logical)
        return ColumnKind::Date;
    if (format == Bool && !number && !date)
        return ColumnKind::Bool;
    if (!(number || date || logical))
        return ColumnKind::Text;
    return number || (date && logical) ? ColumnKind::Double : date ? ColumnKind::Date : ColumnKind::Bool;
}

void SheetTable::decideKinds() {
    for (std::size_t i = 0; i < mWidth; ++i) {
        StoreColumn& column = mTable.columns[i];
        column.kind = kindOf(mFound[i], mSheet.formats[mSheet.firstColumn + i]);
        column.size = column.kind == ColumnKind::Text ? kTextSize : std::uint16_t{0};
    }
}

std::string wholeFile(int file, const std::string& name) {
    const auto fail = [&](const char* why) { throw StoreError(std::string(why) + ": \"" + name + "\"."); };
    struct stat status {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
        fail(S_ISDIR(status.st_mode) ? "Ez mappa, nem munkafüzet" : "Ez nem fájl");
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t got = ::pread(file, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            fail("A munkafüzet nem olvasható végig");
        done += static_cast<std::size_t>(got);
    }
    return bytes;
}

// Whether the sheet's name is that of a further one of the table: "TABLA 2", the table's name shortened where it
// would be too long.
bool continuesName(const std::string& table, const std::string& sheet) {
    const std::size_t blank = sheet.rfind(' ');
    return blank != std::string::npos && blank > 0 && blank + 1 < sheet.size() &&
           sheet.find_first_not_of("0123456789", blank + 1) == std::string::npos &&
           (blank == table.size() || acFromUtf8(sheet).size() + 1 >= kMaxSheetName) && table.starts_with(sheet.substr(0, blank));
}

bool sameColumnNames(const StoreTable& a, const StoreTable& b) {
    return std::equal(a.columns.begin(), a.columns.end(), b.columns.begin(), b.columns.end(),
                      [](const StoreColumn& x, const StoreColumn& y) { return x.name == y.name; });
}

class BookReader {
public:
    BookReader(std::string_view stream, const std::string& name, TableSink& sink) : mBook(stream, name), mName(name), mSink(sink) {}

    void read() {
        std::set<std::wstring> names;
        for (std::size_t i = 0, end = 0; i < mBook.sheetCount(); i = end) {
            end = i + 1;
            const ReadSheet sheet = mBook.sheet(i);
            if (sheet.empty())
                continue;
            countEmpty(sheet);
            if (!names.insert(folded(sheet.name)).second)
                fail("A munkafüzet sérült (two sheets have one name)");
            SheetTable table(mBook, sheet);
            end = joinRest(sheet, table, i);
            mSink.beginTable(table.table());
            if (end == i + 1)
                table.handRows(table.table(), mSink);
            else
                handAll(i, end, table.table());
            mSink.endTable();
        }
    }

private:
    [[noreturn]] void fail(const char* why) const { throw StoreError(std::string(why) + ": \"" + mName + "\"."); }
    void countEmpty(const ReadSheet& sheet) {
        mEmptyCells += std::uint64_t{sheet.endRow - sheet.firstRow} * (sheet.endColumn - sheet.firstColumn) - sheet.cells.size();
        if (mEmptyCells > kMaxEmptyCells)
            fail("A munkafüzetben túl sok az üres cella");
    }
    // A full sheet goes on in the next one; the number behind the last sheet of the table. The texts of the
    // first one's cells are gone where there is a next one that was looked at.
    std::size_t joinRest(const ReadSheet& first, SheetTable& table, std::size_t i) {
        bool full = first.endRow == kMaxRows;
        std::size_t end = i + 1;
        for (; full && end < mBook.sheetCount() && continuesName(first.name, mBook.sheetName(end)); ++end) {
            const ReadSheet sheet = mBook.sheet(end);
            if (sheet.empty() || sheet.firstColumn != first.firstColumn || sheet.endColumn != first.endColumn)
                break;
            const SheetTable rest(mBook, sheet);
            if (!sameColumnNames(table.table(), rest.table()))
                break;
            countEmpty(sheet);
            table.join(rest);
            full = sheet.endRow == kMaxRows;
        }
        if (end == i + 1 && full)
            mBook.sheet(i); // its texts again
        return end;
    }
    void handAll(std::size_t begin, std::size_t end, const StoreTable& as) {
        for (std::size_t i = begin; i < end; ++i) {
            const ReadSheet sheet = mBook.sheet(i);
            SheetTable(mBook, sheet).handRows(as, mSink);
        }
    }

    Workbook mBook;
    const std::string& mName;
    TableSink& mSink;
    std::uint64_t mEmptyCells = 0;
};
} // namespace

void readBiffBytes(std::string_view bytes, const std::string& name, TableSink& sink) {
    const auto fail = [&](const char* why) { throw StoreError(std::string(why) + ": \"" + name + "\"."); };
    if (bytes.starts_with("PK\x03\x04"))
        fail("A munkafüzet újabb formátumú (.xlsx), nem olvasható");
    if (!isCompound(bytes))
        fail("Ez nem munkafüzet");
    const CompoundFile compound(bytes);
    if (!compound.valid())
        fail("A munkafüzet sérült (the tables of its sectors cannot be read)");
    if (!compound.has("Workbook"))
        fail(compound.has("Book") ? "A munkafüzet az Excel 97 előtti formátumú, nem olvasható"
             : compound.has("EncryptedPackage") ? "A munkafüzetet jelszó védi" : "Ez nem munkafüzet");
    const auto stream = compound.stream("Workbook");
    if (!stream)
        fail("A munkafüzet sérült (it ends before its workbook does)");
    readBiffStream(*stream, name, sink);
}

void readBiffStream(std::string_view stream, const std::string& name, TableSink& sink) { BookReader(stream, name, sink).read(); }

void readBiff(int descriptor, const std::string& name, TableSink& sink) { readBiffBytes(wholeFile(descriptor, name), name, sink); }

void readBiff(const std::string& path, TableSink& sink) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        throw StoreError(std::string(errno == ENOENT || errno == ENOTDIR ? "A munkafüzet nem létezik" : "A munkafüzet nem olvasható") + ": \"" + path + "\".");
    std::string bytes;
    try {
        bytes = wholeFile(file, path);
    } catch (...) {
        ::close(file);
        throw;
    }
    ::close(file);
    readBiffBytes(bytes, path, sink);
}

} // namespace odbc
