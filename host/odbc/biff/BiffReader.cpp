#include "BiffReader.h"

#include "AcUtText.h"
#include "BiffWorkbook.h"
#include "CompoundFile.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>
#include <set>
#include <sys/stat.h>

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
    void hand(TableSink& sink) {
        sink.beginTable(mTable);
        std::vector<StoreCell> row(mWidth);
        std::vector<std::string> texts(mWidth); // what numbers in columns of text are written as
        std::size_t next = mHeadings;
        for (std::uint32_t number = mSheet.firstRow + 1; number < mSheet.endRow; ++number) {
            std::fill(row.begin(), row.end(), StoreCell::null());
            for (; next < mSheet.cells.size() && mSheet.cells[next].row == number; ++next) {
                const std::size_t column = mSheet.cells[next].column - mSheet.firstColumn;
                row[column] = value(mSheet.cells[next], mTable.columns[column].kind, texts[column]);
            }
            sink.row(row);
        }
        sink.endTable();
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
    void findKinds();
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
};

void SheetTable::findKinds() {
    struct Found {
        bool kinds[4] = {}; // by ReadCell::Kind
        bool longText = false;
    };
    std::vector<Found> found(mWidth);
    for (std::size_t i = mHeadings; i < mSheet.cells.size(); ++i) {
        const ReadCell& cell = mSheet.cells[i];
        Found& column = found[cell.column - mSheet.firstColumn];
        column.kinds[static_cast<std::size_t>(cell.kind)] = true;
        if (cell.kind == ReadCell::Kind::Text && !column.longText && mBook.text(cell.text).size() > kTextSize)
            column.longText = acFromUtf8(mBook.text(cell.text)).size() > kTextSize;
    }
    for (std::size_t i = 0; i < mWidth; ++i) {
        const auto has = [&](ReadCell::Kind kind) { return found[i].kinds[static_cast<std::size_t>(kind)]; };
        const bool number = has(ReadCell::Kind::Number), date = has(ReadCell::Kind::Date), logical = has(ReadCell::Kind::Bool);
        StoreColumn& column = mTable.columns[i];
        if (has(ReadCell::Kind::Text) || !(number || date || logical)) {
            column.kind = found[i].longText ? ColumnKind::Memo : ColumnKind::Text;
            column.size = found[i].longText ? std::uint16_t{0} : kTextSize;
        } else {
            column.kind = number || (date && logical) ? ColumnKind::Double : date ? ColumnKind::Date : ColumnKind::Bool;
        }
    }
}

std::string wholeFile(const std::string& path) {
    const auto fail = [&](const char* why) { throw StoreError("The workbook '" + path + "' " + why); };
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), std::fclose);
    if (!file)
        fail(errno == ENOENT || errno == ENOTDIR ? "does not exist." : "may not be read.");
    struct stat status {};
    if (::fstat(::fileno(file.get()), &status) != 0 || !S_ISREG(status.st_mode))
        fail(S_ISDIR(status.st_mode) ? "is a folder." : "is not a file.");
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        fail("cannot be read to its end.");
    return bytes;
}
} // namespace

void readBiffBytes(std::string_view bytes, const std::string& name, TableSink& sink) {
    const auto fail = [&](const char* why) { throw StoreError("The file '" + name + "' " + why); };
    if (bytes.starts_with("PK\x03\x04"))
        fail("is a workbook of the newer format (.xlsx), which cannot be read.");
    if (!isCompound(bytes))
        fail("is not a workbook.");
    const CompoundFile compound(bytes);
    if (!compound.valid())
        fail("is damaged: the tables of its sectors cannot be read.");
    if (!compound.has("Workbook"))
        fail(compound.has("Book") ? "is a workbook of a version before Excel 97, which cannot be read."
             : compound.has("EncryptedPackage") ? "is a password-protected workbook." : "is not a workbook.");
    const auto stream = compound.stream("Workbook");
    if (!stream)
        fail("is damaged: it ends before its workbook does.");
    readBiffStream(*stream, name, sink);
}

void readBiffStream(std::string_view stream, const std::string& name, TableSink& sink) {
    const auto fail = [&](const char* why) { throw StoreError("The workbook '" + name + "' " + why); };
    Workbook book(stream, name);
    std::uint64_t emptyCells = 0;
    std::set<std::wstring> names;
    for (std::size_t i = 0; i < book.sheetCount(); ++i) {
        const ReadSheet sheet = book.sheet(i);
        if (sheet.empty())
            continue;
        emptyCells += std::uint64_t{sheet.endRow - sheet.firstRow} * (sheet.endColumn - sheet.firstColumn) - sheet.cells.size();
        if (emptyCells > kMaxEmptyCells)
            fail("spans more empty cells than can be read.");
        if (!names.insert(folded(sheet.name)).second)
            fail("is damaged: two of its sheets have one name.");
        SheetTable(book, sheet).hand(sink);
    }
}

void readBiff(const std::string& path, TableSink& sink) { readBiffBytes(wholeFile(path), path, sink); }

} // namespace odbc
