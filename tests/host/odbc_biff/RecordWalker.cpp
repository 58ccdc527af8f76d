#include "RecordWalker.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <set>

namespace {
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

enum : U16 {
    FORMULA = 0x0006, EOF_ = 0x000A, FONT = 0x0031, CONTINUE = 0x003C, PANE = 0x0041, CODEPAGE = 0x0042, DEFCOLWIDTH = 0x0055, COLINFO = 0x007D,
    BOUNDSHEET = 0x0085, MULRK = 0x00BD, DBCELL = 0x00D7, XF = 0x00E0, SST = 0x00FC, LABELSST = 0x00FD, EXTSST = 0x00FF, RRTABID = 0x013D,
    DIMENSIONS = 0x0200, BLANK = 0x0201, NUMBER = 0x0203, BOOLERR = 0x0205, ROW = 0x0208, INDEX = 0x020B, WINDOW2 = 0x023E, RK = 0x027E,
    STYLE = 0x0293, FORMAT = 0x041E, BOF = 0x0809
};

// The order in which the records of a substream must come; those that may repeat together share a place.
const std::vector<U16> kGlobalsOrder{BOF, 0x00E1, 0x00C1, 0x00E2, 0x005C, CODEPAGE, 0x0161, RRTABID, 0x0019, 0x0012, 0x0013, 0x01AF, 0x01BC,
                                     0x003D, 0x0040, 0x008D, 0x0022, 0x000E, 0x01B7, 0x00DA, FONT, FORMAT, XF, STYLE, 0x0160, BOUNDSHEET, 0x008C, SST, CONTINUE,
                                     EXTSST, EOF_};
const std::vector<U16> kSheetOrder{BOF, INDEX, 0x000D, 0x000C, 0x000F, 0x0011, 0x0010, 0x005F, 0x002A, 0x002B, 0x0082, 0x0080, 0x0225, 0x0081, 0x0014,
                                   0x0015, 0x0083, 0x0084, 0x00A1, DEFCOLWIDTH, COLINFO, DIMENSIONS, ROW, WINDOW2, PANE, 0x001D, EOF_};
const std::set<U16> kCells{BLANK, NUMBER, RK, MULRK, BOOLERR, LABELSST};

template <class T> T at(std::string_view bytes, std::size_t place) {
    T value{};
    if (place + sizeof value <= bytes.size())
        std::memcpy(&value, bytes.data() + place, sizeof value);
    return value;
}

class Walker {
public:
    explicit Walker(std::string_view stream) : mStream(stream), mAll(recordsOf(stream)) {}
    std::vector<std::string> walk() {
        const std::size_t end = mAll.empty() ? 0 : mAll.back().place + 4 + mAll.back().body.size();
        rule(end == mStream.size(), "the stream ends inside a record");
        for (const auto& r : mAll)
            rule(r.body.size() <= 8224, "a record is longer than 8,224 bytes");
        split();
        if (mParts.empty())
            return mFaults;
        globals(mParts.front());
        rule(mParts.size() - 1 == mSheets.size(), "there are not as many sheets as BOUNDSHEET records");
        for (std::size_t i = 0; i < mSheets.size(); ++i) {
            const auto part = std::find_if(mParts.begin() + 1, mParts.end(), [&](const Part& p) { return p.front().place == mSheets[i]; });
            rule(part != mParts.end(), "a BOUNDSHEET does not name the place of a sheet");
            if (part != mParts.end())
                sheet(*part);
        }
        rule(mUses == mTextUses, "the SST's number of uses is not that of the cells");
        return mFaults;
    }

private:
    using Part = std::vector<WalkedRecord>;
    void rule(bool holds, const std::string& fault) {
        if (!holds && std::find(mFaults.begin(), mFaults.end(), fault) == mFaults.end())
            mFaults.push_back(fault);
    }
    void split() {
        Part part;
        for (const auto& r : mAll) {
            rule(part.empty() == (r.id == BOF), "a substream does not begin with BOF");
            part.push_back(r);
            if (r.id == EOF_) {
                mParts.push_back(part);
                part.clear();
            }
        }
        rule(part.empty(), "a substream does not end with EOF");
    }
    void order(const Part& part, const std::vector<U16>& wanted) {
        std::size_t reached = 0;
        for (const auto& r : part) {
            const U16 id = kCells.count(r.id) || r.id == DBCELL ? U16{ROW} : r.id;
            const auto found = std::find(wanted.begin(), wanted.end(), id);
            const bool sound = found != wanted.end() && static_cast<std::size_t>(found - wanted.begin()) >= reached;
            rule(sound, "the record " + std::to_string(r.id) + " stands where it may not");
            if (sound)
                reached = static_cast<std::size_t>(found - wanted.begin());
        }
        for (const U16 id : wanted)
            if (id != ROW && id != COLINFO && id != CONTINUE && id != 0x001D)
                rule(std::any_of(part.begin(), part.end(), [&](const auto& r) { return r.id == id; }), "the record " + std::to_string(id) + " is missing");
    }
    void head(const WalkedRecord& r, U16 kind) {
        rule(r.body.size() == 16 && at<U16>(r.body, 0) == 0x0600, "a BOF is not of version 8");
        rule(at<U16>(r.body, 2) == kind, "a BOF names another kind of substream");
    }
    void globals(const Part& part) {
        head(part.front(), 0x0005);
        order(part, kGlobalsOrder);
        for (std::size_t i = 0; i < part.size(); ++i) {
            const auto& r = part[i];
            switch (r.id) {
            case CODEPAGE: rule(r.body.size() == 2 && at<U16>(r.body, 0) == 1200, "the code page is not that of 16-bit text"); break;
            case FONT: font(r); break;
            case FORMAT: mFormats.insert(at<U16>(r.body, 0)); break;
            case XF: format(r); break;
            case STYLE: rule((at<U16>(r.body, 0) & 0xFFF) < mXfs.size() && mXfs[at<U16>(r.body, 0) & 0xFFF], "a STYLE names no style format"); break;
            case BOUNDSHEET: boundSheet(r); break;
            case SST: strings(part, i); break;
            case EXTSST: index(r); break;
            case CONTINUE: rule(i > 0 && (part[i - 1].id == SST || part[i - 1].id == CONTINUE), "a CONTINUE continues nothing"); break;
            default: break;
            }
        }
        rule(mXfs.size() >= 16, "there are fewer than 16 formats");
        for (const auto& r : part)
            if (r.id == RRTABID)
                rule(r.body.size() == 2 * mSheets.size(), "the list of sheet ids has another length than that of the sheets");
    }
    void font(const WalkedRecord& r) {
        const std::size_t count = at<U8>(r.body, 14), unit = at<U8>(r.body, 15) & 1 ? 2 : 1;
        rule(r.body.size() == 16 + count * unit, "a FONT has another length than its name");
        ++mFonts;
    }
    void format(const WalkedRecord& r) {
        const U16 fontNumber = at<U16>(r.body, 0), number = at<U16>(r.body, 2), type = at<U16>(r.body, 4);
        rule(r.body.size() == 20, "an XF is not 20 bytes long");
        rule(fontNumber != 4 && (fontNumber > 4 ? fontNumber - 1u : fontNumber) < mFonts, "an XF names no font");
        const bool builtIn = number <= 4 || (number >= 9 && number <= 22) || (number >= 37 && number <= 40) || (number >= 45 && number <= 49);
        rule(builtIn || mFormats.count(number) > 0, "an XF names no number format");
        const bool style = type & 4;
        const U16 parent = type >> 4;
        rule(style ? parent == 0xFFF : parent < mXfs.size() && mXfs[parent], "an XF's parent is no style");
        rule(mXfs.size() >= 15 || style, "one of the first 15 formats is no style");
        rule(mXfs.size() != 15 || !style, "format 15 is no cell format");
        mXfs.push_back(style);
    }
    void boundSheet(const WalkedRecord& r) {
        const std::size_t count = at<U8>(r.body, 6), unit = at<U8>(r.body, 7) & 1 ? 2 : 1;
        rule(count >= 1 && count <= 31, "a sheet's name is not of 1 to 31 characters");
        rule(r.body.size() == 8 + count * unit, "a BOUNDSHEET has another length than its name");
        rule(at<U16>(r.body, 4) == 0, "a sheet is hidden or no worksheet");
        std::u16string name;
        for (std::size_t i = 0; i < count; ++i)
            name += unit == 2 ? static_cast<char16_t>(at<U16>(r.body, 8 + 2 * i)) : static_cast<char16_t>(at<U8>(r.body, 8 + i));
        rule(name.find_first_of(u"\\/?*[]:") == std::u16string::npos, "a sheet's name has a forbidden character");
        rule(mNames.insert(name).second, "two sheets have one name");
        mSheets.push_back(at<U32>(r.body, 0));
    }
    // The table of texts over its records; `next` is where the next byte lies.
    void strings(const Part& part, std::size_t first) {
        mTextUses = at<U32>(part[first].body, 0);
        const U32 count = at<U32>(part[first].body, 4);
        std::size_t record = first, next = 8;
        std::set<std::u16string> seen;
        for (U32 i = 0; i < count; ++i) {
            if (next == part[record].body.size()) {
                if (part[record + 1].id != CONTINUE)
                    return rule(false, "the SST has fewer texts than it says");
                ++record;
                next = 0;
            }
            rule(part[record].body.size() - next >= 3, "the head of a text is torn apart");
            std::size_t left = at<U16>(part[record].body, next);
            U8 options = at<U8>(part[record].body, next + 2);
            rule(options <= 1, "a text has an unknown option");
            mTexts.push_back({part[record].place + 4 + next, 4 + next});
            next += 3;
            std::u16string text;
            while (left > 0) {
                const std::size_t unit = options & 1 ? 2 : 1, room = part[record].body.size() - next;
                const std::size_t fits = std::min(left, room / unit);
                for (std::size_t c = 0; c < fits; ++c, next += unit)
                    text += unit == 2 ? static_cast<char16_t>(at<U16>(part[record].body, next)) : static_cast<char16_t>(at<U8>(part[record].body, next));
                left -= fits;
                if (left == 0)
                    break;
                rule(next == part[record].body.size(), "a character is torn apart");
                if (part[record + 1].id != CONTINUE)
                    return rule(false, "the SST has fewer texts than it says");
                ++record;
                options = at<U8>(part[record].body, 0);
                rule(part[record].body.size() > 1 && options <= 1, "a continued text does not repeat its option byte");
                next = 1;
            }
            rule(seen.insert(text).second, "a text stands in the SST twice");
        }
        rule(next == part[record].body.size() && part[record + 1].id != CONTINUE, "the SST has more texts than it says");
    }
    void index(const WalkedRecord& r) {
        const std::size_t portion = at<U16>(r.body, 0);
        rule(portion >= 8, "a portion of EXTSST has fewer than 8 texts");
        if (portion == 0)
            return;
        rule(r.body.size() == 2 + 8 * ((mTexts.size() + portion - 1) / portion), "EXTSST has not as many portions as there are");
        for (std::size_t i = 0; 2 + 8 * i + 8 <= r.body.size() && i * portion < mTexts.size(); ++i) {
            rule(at<U32>(r.body, 2 + 8 * i) == mTexts[i * portion].place, "EXTSST names a place where no text begins");
            rule(at<U16>(r.body, 6 + 8 * i) == mTexts[i * portion].inRecord, "EXTSST names a wrong place in a record");
        }
    }

    struct Sheet {
        const WalkedRecord *index = nullptr, *dimensions = nullptr, *widths = nullptr;
        std::vector<const WalkedRecord*> blocks; // DBCELL
        std::size_t columns = 0;                 // COLINFO
        U32 rows = 0, firstColumn = 256, endColumn = 0;
        bool frozen = false;
    };
    struct Row {
        std::size_t place;
        U16 number, first, end;
    };
    void sheet(const Part& part) {
        head(part.front(), 0x0010);
        order(part, kSheetOrder);
        Sheet sheet;
        std::vector<Row> rows;                // of the block
        std::vector<std::size_t> firstCells;  // of each of its rows
        long lastPlace = -1;                  // row and column of the last cell
        for (const auto& r : part) {
            if (kCells.count(r.id)) {
                cell(sheet, rows, firstCells, lastPlace, r);
            } else if (r.id == ROW) {
                rule(firstCells.empty(), "a ROW stands behind the cells of its block");
                rule(r.body.size() == 16 && at<U16>(r.body, 0) == sheet.rows, "the rows are not in order");
                rule(at<U16>(r.body, 12) & 0x0100, "a ROW lacks its constant bit");
                xf(at<U16>(r.body, 14) & 0xFFF);
                rows.push_back({r.place, at<U16>(r.body, 0), at<U16>(r.body, 2), at<U16>(r.body, 4)});
                ++sheet.rows;
            } else if (r.id == DBCELL) {
                block(rows, firstCells, r);
                sheet.blocks.push_back(&r);
                rows.clear();
                firstCells.clear();
            } else {
                other(sheet, r);
            }
        }
        rule(rows.empty(), "a block of rows does not end with DBCELL");
        sums(sheet);
    }
    void other(Sheet& sheet, const WalkedRecord& r) {
        if (r.id == INDEX)
            sheet.index = &r;
        if (r.id == DIMENSIONS)
            sheet.dimensions = &r;
        if (r.id == DEFCOLWIDTH)
            sheet.widths = &r;
        if (r.id == COLINFO) {
            rule(at<U16>(r.body, 0) == sheet.columns && at<U16>(r.body, 2) == sheet.columns, "the widths of the columns are not in order");
            rule(at<U16>(r.body, 4) >= 256 && at<U16>(r.body, 4) <= 255 * 256, "a column has no width");
            xf(at<U16>(r.body, 6));
            ++sheet.columns;
        }
        if (r.id == WINDOW2)
            rule((at<U16>(r.body, 0) & 0x0108) == 0x0108, "the window is not frozen");
        if (r.id == PANE)
            rule(at<U16>(r.body, 0) == 0 && at<U16>(r.body, 2) == 1 && at<U16>(r.body, 4) == 1 && at<U8>(r.body, 8) == 2, "the pane is not frozen below row one");
    }
    void cell(Sheet& sheet, const std::vector<Row>& rows, std::vector<std::size_t>& firstCells, long& lastPlace, const WalkedRecord& r) {
        const U16 row = at<U16>(r.body, 0), first = at<U16>(r.body, 2);
        U16 last = first;
        const auto described = std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) { return candidate.number == row; });
        const std::size_t size = r.id == MULRK ? r.body.size() : r.id == BLANK ? 6 : r.id == NUMBER ? 14 : r.id == BOOLERR ? 8 : 10;
        rule(r.body.size() == size, "a cell has a wrong length");
        if (r.id == MULRK) {
            last = at<U16>(r.body, r.body.size() - 2);
            rule(last > first && r.body.size() == 6u + 6u * static_cast<unsigned>(last - first + 1), "a MULRK has not as many numbers as columns");
            for (std::size_t i = 4; i + 8 <= r.body.size(); i += 6)
                xf(at<U16>(r.body, i));
        } else {
            xf(at<U16>(r.body, 4));
        }
        if (r.id == NUMBER) {
            const double value = at<double>(r.body, 6);
            rule(std::isnormal(value), "a NUMBER is zero, denormal or not finite");
        }
        if (r.id == LABELSST) {
            ++mUses;
            rule(at<U32>(r.body, 6) < mTexts.size(), "a cell names a text that is not in the SST");
        }
        rule(static_cast<long>(row) * 256 + first > lastPlace, "the cells are not in order");
        if (lastPlace < 0 || lastPlace / 256 != row)
            firstCells.push_back(r.place);
        lastPlace = static_cast<long>(row) * 256 + last;
        rule(described != rows.end() && first >= described->first && last < described->end, "a cell lies outside of its ROW");
        sheet.firstColumn = std::min<U32>(sheet.firstColumn, first);
        sheet.endColumn = std::max<U32>(sheet.endColumn, last + 1u);
    }
    void block(const std::vector<Row>& rows, const std::vector<std::size_t>& firstCells, const WalkedRecord& r) {
        rule(!rows.empty() && rows.size() <= 32, "a block has not 1 to 32 rows");
        rule(r.body.size() == 4 + 2 * firstCells.size() && firstCells.size() == rows.size(), "a DBCELL has not one place a row");
        if (rows.empty() || firstCells.empty())
            return;
        rule(at<U32>(r.body, 0) == r.place - rows.front().place, "a DBCELL does not lead to the first row");
        std::size_t from = rows.front().place + 20;
        for (std::size_t i = 0; i < firstCells.size(); ++i) {
            rule(at<U16>(r.body, 4 + 2 * i) == firstCells[i] - from, "a DBCELL does not lead to a row's first cell");
            from = firstCells[i];
        }
    }
    void sums(const Sheet& sheet) {
        if (!sheet.index || !sheet.dimensions || !sheet.widths)
            return; // missed already
        const std::string_view d = sheet.dimensions->body, i = sheet.index->body;
        rule(d.size() == 14 && at<U32>(d, 0) == 0 && at<U32>(d, 4) == sheet.rows, "DIMENSIONS has other rows than the sheet");
        rule(sheet.rows == 0 || (at<U16>(d, 8) == sheet.firstColumn && at<U16>(d, 10) == sheet.endColumn), "DIMENSIONS has other columns than the sheet");
        rule(sheet.columns == sheet.endColumn, "not every column has a width");
        rule(at<U32>(i, 4) == 0 && at<U32>(i, 8) == sheet.rows, "INDEX has other rows than the sheet");
        rule(at<U32>(i, 12) == sheet.widths->place, "INDEX does not lead to the widths");
        rule(i.size() == 16 + 4 * sheet.blocks.size(), "INDEX has not one place a block");
        for (std::size_t b = 0; b < sheet.blocks.size() && 16 + 4 * b + 4 <= i.size(); ++b)
            rule(at<U32>(i, 16 + 4 * b) == sheet.blocks[b]->place, "INDEX does not lead to a block");
    }
    void xf(U16 number) { rule(number < mXfs.size() && !mXfs[number], "a cell names no cell format"); }

    struct Text {
        std::size_t place, inRecord;
    };
    std::string_view mStream;
    std::vector<WalkedRecord> mAll;
    std::vector<Part> mParts;
    std::vector<std::string> mFaults;
    std::vector<U32> mSheets;
    std::set<std::u16string> mNames;
    std::set<U16> mFormats;
    std::vector<bool> mXfs; // true: a style
    std::size_t mFonts = 0;
    std::vector<Text> mTexts;
    U32 mTextUses = 0, mUses = 0;
};
} // namespace

std::vector<WalkedRecord> recordsOf(std::string_view stream) {
    std::vector<WalkedRecord> all;
    for (std::size_t place = 0; place + 4 <= stream.size();) {
        const std::size_t size = at<U16>(stream, place + 2);
        if (place + 4 + size > stream.size())
            break;
        all.push_back({place, at<U16>(stream, place), stream.substr(place + 4, size)});
        place += 4 + size;
    }
    return all;
}

std::vector<std::string> walkWorkbook(std::string_view stream) { return Walker(stream).walk(); }

std::vector<std::string> walkContainer(std::string_view file) {
    std::vector<std::string> faults;
    const auto rule = [&](bool holds, const char* fault) {
        if (!holds)
            faults.emplace_back(fault);
        return holds;
    };
    if (!rule(file.size() >= 1536 && file.size() % 512 == 0, "the file is not made of whole sectors"))
        return faults;
    rule(file.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"), "the signature is missing");
    rule(at<U16>(file, 26) == 3 && at<U16>(file, 28) == 0xFFFE && at<U16>(file, 30) == 9 && at<U16>(file, 32) == 6, "the header names other sizes than usual");
    rule(at<U32>(file, 40) == 0, "the number of directory sectors is not left out");
    rule(at<U32>(file, 56) == 4096, "the limit of small streams is not 4,096");
    const std::size_t sectors = file.size() / 512 - 1;
    const auto sector = [&](U32 number) { return file.substr((std::size_t{number} + 1) * 512, 512); };
    std::vector<U32> places;
    for (std::size_t i = 0; i < 109; ++i)
        places.push_back(at<U32>(file, 76 + 4 * i));
    U32 more = at<U32>(file, 68), extra = 0;
    for (; more < sectors; ++extra) {
        for (std::size_t i = 0; i < 127; ++i)
            places.push_back(at<U32>(sector(more), 4 * i));
        more = at<U32>(sector(more), 508);
    }
    std::erase_if(places, [](U32 number) { return number == 0xFFFFFFFF; });
    rule(more == 0xFFFFFFFE && extra == at<U32>(file, 72), "the chain of the table's places is broken");
    rule(places.size() == at<U32>(file, 44), "the header names another number of table sectors");
    std::vector<U32> fat;
    for (const U32 place : places) {
        if (!rule(place < sectors, "a table sector lies outside of the file"))
            return faults;
        for (std::size_t i = 0; i < 128; ++i)
            fat.push_back(at<U32>(sector(place), 4 * i));
    }
    if (!rule(fat.size() >= sectors, "the table does not cover the file"))
        return faults;
    for (const U32 place : places)
        rule(fat[place] == 0xFFFFFFFD, "a table sector is not marked as one");
    std::vector<bool> used(sectors);
    const auto chain = [&](U32 start) {
        std::size_t length = 0;
        for (U32 number = start; number != 0xFFFFFFFE; number = fat[number], ++length) {
            if (!rule(number < sectors && !used[number], "a chain leaves the file or a sector has two owners"))
                break;
            used[number] = true;
        }
        return length;
    };
    const U32 directory = at<U32>(file, 48);
    const std::size_t entries = chain(directory) * 4;
    if (at<U32>(file, 60) != 0xFFFFFFFE)
        rule(chain(at<U32>(file, 60)) == at<U32>(file, 64), "the table of small sectors has another length than said");
    std::size_t streams = 0;
    U32 place = directory;
    for (std::size_t i = 0; i < entries; ++i) {
        if (i > 0 && i % 4 == 0)
            place = fat[place];
        const std::string_view entry = sector(place).substr(i % 4 * 128, 128);
        const U8 type = at<U8>(entry, 66);
        const U32 size = at<U32>(entry, 120);
        if (type == 5 || (type == 2 && size >= 4096))
            rule(chain(at<U32>(entry, 116)) == (size + 511) / 512 || size == 0, "a chain has another length than its stream");
        streams += type == 2;
    }
    rule(streams == 1, "there is not one stream");
    for (std::size_t i = 0; i < sectors; ++i)
        rule(used[i] || fat[i] >= 0xFFFFFFFC, "a sector belongs to nobody");
    return faults;
}
