#include "BiffWriter.h"

#include "AcUtText.h"
#include "BiffBytes.h"
#include "BiffSheet.h"
#include "store/StoreText.h"

#include <cstdio>
#include <fcntl.h>
#include <gsf/gsf.h>
#include <set>

namespace odbc {

using namespace biff;

struct BiffWriter::Impl {
    std::string path;
    int descriptor = -1; // where it is not the path that tells the file
    Strings strings;
    std::vector<std::u16string> names;
    std::set<std::wstring> folded;
    std::vector<std::unique_ptr<Sheet>> sheets;
    std::vector<std::size_t> parts; // by sheet: which sheet of its table it is, from 1
    StoreTable table;               // that was begun last
    bool open = false;              // between beginTable and endTable

    std::u16string checkedName(const StoreTable& table);
    void addSheet(std::u16string name, std::size_t part);
    std::vector<std::string> nameParts();
    void writeFile() const;
};

namespace {
constexpr std::size_t kMaxStream = 0x7FFFFE00; // a file of two gigabytes, less its tables

[[noreturn]] void refuse(const StoreTable& table, const char* why) {
    throw StoreError("A tábla (" + table.name + ") nem lehet munkalap: " + why);
}

const char* faultOf(std::u16string_view name) {
    if (name.empty())
        return "nincs neve.";
    if (name.size() > kMaxSheetName)
        return "a neve hosszabb, mint 31 karakter.";
    if (name.front() == u'\'' || name.back() == u'\'')
        return "a neve aposztróffal kezdődik vagy végződik.";
    for (const char16_t c : name)
        if (c < 0x20 || std::u16string_view(u"\\/?*[]:").find(c) != std::u16string_view::npos)
            return "a nevében ezek egyike áll: \\ / ? * [ ] :";
    return nullptr;
}

bool writeAll(GsfOutput* stream, const std::string& bytes) {
    return gsf_output_write(stream, bytes.size(), reinterpret_cast<const guint8*>(bytes.data())) != 0;
}
// Ends what was written into an output and lets it go. The container ends its sink along with itself.
bool closeAll(GsfOutput* output) {
    const bool closed = gsf_output_is_closed(output) || gsf_output_close(output);
    g_object_unref(output);
    return closed;
}
} // namespace

// A sheet that carried another name than its table could not be found again by the statements.
std::u16string BiffWriter::Impl::checkedName(const StoreTable& table) {
    std::u16string name;
    if (!appendUtf16(table.name, name))
        throw StoreError("Egy tábla neve nem Unicode szöveg.");
    if (const char* fault = faultOf(name))
        refuse(table, fault);
    std::wstring small = acFromUtf8(table.name);
    for (wchar_t& c : small)
        c = acFoldCase(c);
    if (small == L"history")
        refuse(table, "a History név foglalt a táblázatkezelőkben.");
    if (!folded.insert(small).second)
        refuse(table, "már van ilyen nevű munkalap.");
    return name;
}

void BiffWriter::Impl::addSheet(std::u16string name, std::size_t part) {
    if (sheets.size() == kMaxSheets)
        refuse(table, "egy munkafüzetben legfeljebb 4112 munkalap lehet.");
    sheets.push_back(std::make_unique<Sheet>(table, strings));
    names.push_back(std::move(name));
    parts.push_back(part);
}

// Names the further sheets of long tables, when the names of all tables are known.
std::vector<std::string> BiffWriter::Impl::nameParts() {
    std::vector<std::string> notes;
    std::size_t number = 1;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i] == 1) {
            number = 1;
            continue;
        }
        const std::u16string whole = names[i];
        std::string shown;
        std::wstring small;
        do {
            std::u16string ending;
            appendUtf16(" " + std::to_string(++number), ending);
            std::u16string base = whole.substr(0, kMaxSheetName - ending.size());
            if ((base.back() & 0xFC00) == 0xD800) // half of a character
                base.pop_back();
            names[i] = base + ending;
            shown.clear();
            appendUtf8(names[i], shown);
            small = acFromUtf8(foldedName(shown));
        } while (!folded.insert(small).second);
        std::string table;
        appendUtf8(whole, table);
        notes.push_back("A \"" + table + "\" tábla nem fér el egy munkalapon (65536 sor), a \"" + shown + "\" lapon folytatódik.");
    }
    return notes;
}

BiffWriter::BiffWriter(const std::string& path) : mImpl(std::make_unique<Impl>()) { mImpl->path = path; }
BiffWriter::BiffWriter(int descriptor, const std::string& name) : BiffWriter(name) { mImpl->descriptor = descriptor; }
BiffWriter::~BiffWriter() = default;

void BiffWriter::beginTable(const StoreTable& table) {
    if (mImpl->open)
        throw std::logic_error("a table of the workbook was begun inside another");
    if (table.columns.empty() || table.columns.size() > kMaxColumns)
        refuse(table, "egy munkalapnak 1–256 oszlopa lehet.");
    mImpl->table = table;
    mImpl->addSheet(mImpl->checkedName(table), 1);
    mImpl->open = true;
}

void BiffWriter::row(std::span<const StoreCell> cells) {
    if (!mImpl->open || cells.size() != mImpl->sheets.back()->columns())
        throw std::logic_error("a row of the workbook does not fit its table");
    if (mImpl->sheets.back()->full()) {
        mImpl->sheets.back()->end();
        mImpl->addSheet(mImpl->names.back(), mImpl->parts.back() + 1);
    }
    mImpl->sheets.back()->row(cells);
}

void BiffWriter::endTable() {
    if (!mImpl->open)
        throw std::logic_error("no table of the workbook was begun");
    mImpl->sheets.back()->end();
    mImpl->open = false;
}

void BiffWriter::finish() {
    if (mImpl->open)
        throw std::logic_error("a table of the workbook was not ended");
    if (mImpl->sheets.empty()) { // a workbook without a sheet is none
        mImpl->names.emplace_back(u"Sheet1");
        mImpl->sheets.push_back(std::make_unique<Sheet>(StoreTable{}, mImpl->strings));
    }
    mNotes = mImpl->nameParts();
    mImpl->writeFile();
    *mImpl = Impl{};
}

// The stream's bytes, part by part: the globals with the places of the sheets, then the sheets.
void BiffWriter::Impl::writeFile() const {
    std::vector<std::size_t> places;
    std::string start = globals(names, strings, places);
    std::size_t place = start.size();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        patch(start, places[i], static_cast<std::uint32_t>(place));
        place += sheets[i]->head(0).size() + sheets[i]->cells().size() + sheets[i]->tail(i == 0).size();
        if (place > kMaxStream)
            throw StoreError("A munkafüzet 2 GB-nál nagyobb lenne: \"" + path + "\".");
    }
    std::FILE* file = descriptor < 0 ? std::fopen(path.c_str(), "wbe") : ::fdopen(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0), "wb");
    if (!file)
        throw StoreError("A munkafüzet nem hozható létre, mert a mappája hiányzik vagy nem írható: \"" + path + "\".");
    gsf_init();
    GsfOutput* sink = gsf_output_stdio_new_FILE(path.c_str(), file, TRUE);
    GsfOutfile* compound = gsf_outfile_msole_new(sink);
    // {00020820-0000-0000-C000-000000000046}: the workbooks of Excel 97 to 2003
    constexpr guint8 kClass[16] = {0x20, 0x08, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(compound), kClass);
    GsfOutput* stream = gsf_outfile_new_child(compound, "Workbook", FALSE);
    bool written = writeAll(stream, start);
    place = start.size();
    for (std::size_t i = 0; i < sheets.size() && written; ++i) {
        const std::string head = sheets[i]->head(place), tail = sheets[i]->tail(i == 0);
        written = writeAll(stream, head) && writeAll(stream, sheets[i]->cells()) && writeAll(stream, tail);
        place += head.size() + sheets[i]->cells().size() + tail.size();
    }
    written = closeAll(stream) && written;
    written = closeAll(GSF_OUTPUT(compound)) && written;
    written = closeAll(sink) && written;
    written = std::ferror(file) == 0 && std::fflush(file) == 0 && written;
    if (std::fclose(file) != 0 || !written)
        throw StoreError("A munkafüzet nem írható, mert a lemez megtelt vagy hibás: \"" + path + "\".");
}

} // namespace odbc
