// Files of Jet 3 (Access 97). No writer makes them any more, so the tests lay one out by hand, page
// by page, and let mdbtools confirm that it is one.
#include "JetTestSupport.h"

#include <bit>
#include <gtest/gtest.h>

using namespace odbc;
using namespace odbc::jet;
using namespace jettest;

namespace {
constexpr std::size_t kPage = 2048;

struct Column3 {
    std::string name;
    ColumnType type;
    bool fixed;
    std::uint16_t place; // fixed offset or variable index
    std::uint16_t length;
    std::uint16_t codePage = 0;
};

class Builder {
public:
    Builder() : m_bytes(kPage) {
        std::uint8_t* header = page(0);
        header[1] = 1;
        std::memcpy(header + 4, "Standard Jet DB", 16);
        put16(header + header::kCodePage, 1250);
        maskHeader(std::span(m_bytes).first(kPage), header::kMaskedSizeJet3);
    }
    std::uint32_t newPage() {
        m_bytes.resize(m_bytes.size() + kPage);
        return static_cast<std::uint32_t>(m_bytes.size() / kPage - 1);
    }
    std::uint8_t* page(std::uint32_t number) { return m_bytes.data() + number * kPage; }

    // A data page with these rows.
    void dataPage(std::uint32_t number, std::uint32_t owner, const std::vector<std::string>& rows) {
        std::uint8_t* at = page(number);
        at[0] = at[1] = 1;
        put32(at + data::kOwner, owner);
        put16(at + data::kRowCountJet3, rows.size());
        std::size_t end = kPage;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            end -= rows[i].size();
            std::memcpy(at + end, rows[i].data(), rows[i].size());
            put16(at + data::kRowsJet3 + 2 * i, end);
        }
        put16(at + data::kFree, end - data::kRowsJet3 - 2 * rows.size());
    }

    void definition(std::uint32_t number, std::uint8_t type, std::uint32_t rows, std::uint32_t usedMap,
                    std::uint32_t freeMap, const std::vector<Column3>& columns) {
        std::uint8_t* at = page(number);
        at[0] = 2, at[1] = 1, at[2] = 'V', at[3] = 'C';
        put32(at + 12, rows);
        at[20] = type;
        std::size_t variables = 0, offset = 43;
        for (const Column3& column : columns)
            variables += column.fixed ? 0 : 1;
        put16(at + 21, columns.size());
        put16(at + 23, variables);
        put16(at + 25, columns.size());
        put32(at + 35, usedMap);
        put32(at + 39, freeMap);
        for (std::size_t i = 0; i < columns.size(); ++i, offset += 18) {
            std::uint8_t* column = at + offset;
            column[0] = static_cast<std::uint8_t>(columns[i].type);
            put16(column + 1, i);
            put16(column + 3, columns[i].fixed ? 0 : columns[i].place);
            put16(column + 5, i);
            put16(column + 7, 1);
            put16(column + 9, 1033);
            put16(column + 11, columns[i].codePage);
            column[13] = columns[i].fixed ? 3 : 2;
            put16(column + 14, columns[i].fixed ? columns[i].place : 0);
            put16(column + 16, columns[i].length);
        }
        for (const Column3& column : columns) {
            at[offset++] = static_cast<std::uint8_t>(column.name.size());
            std::memcpy(at + offset, column.name.data(), column.name.size());
            offset += column.name.size();
        }
        put16(at + offset, 0xFFFF);
        put32(at + 8, static_cast<std::uint32_t>(offset + 2));
    }

    // A row: the fixed part, the variable values, and which columns are there.
    static std::string row(std::size_t columns, const std::string& fixed, const std::vector<std::string>& variables,
                           const std::vector<bool>& there) {
        std::string out(1, static_cast<char>(columns));
        out += fixed;
        std::vector<std::size_t> offsets;
        for (const std::string& value : variables) {
            offsets.push_back(out.size());
            out += value;
        }
        offsets.push_back(out.size());
        if (!variables.empty()) {
            const std::size_t tail = offsets.size() + 1 + (columns + 7) / 8;
            std::size_t jumps = 0;
            while ((out.size() + tail + jumps - 1) / 256 > jumps)
                ++jumps;
            std::string jumpTable; // from the end backward: where 256, 512, ... are passed
            for (std::size_t i = 0; i < offsets.size(); ++i)
                while (jumpTable.size() < offsets[i] / 256)
                    jumpTable.insert(jumpTable.begin(), static_cast<char>(i));
            jumpTable.insert(0, jumps - jumpTable.size(), '\xFF');
            for (auto at = offsets.rbegin(); at != offsets.rend(); ++at)
                out += static_cast<char>(*at);
            out += jumpTable;
            out += static_cast<char>(variables.size());
        }
        std::string mask((columns + 7) / 8, '\0');
        for (std::size_t i = 0; i < there.size(); ++i)
            if (there[i])
                mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << (i % 8));
        return out + mask;
    }
    static std::string map(const std::vector<std::uint32_t>& pages) {
        std::string out(133, '\0');
        for (const std::uint32_t page : pages)
            out[5 + page / 8] = static_cast<char>(out[5 + page / 8] | 1 << (page % 8));
        return out;
    }
    void save(const std::string& path) { FileBytes(m_bytes).save(path); }

private:
    std::vector<std::uint8_t> m_bytes;
};

template <class T> std::string little(T value) {
    std::string out(sizeof value, '\0');
    std::memcpy(out.data(), &value, sizeof value);
    return out;
}

// Árvíztűrő in Windows-1250.
const std::string kNarrow = "\xC1rv\xEDzt\xFBr\xF5";

std::string jet3File() {
    Builder file;
    const std::uint32_t freeMap = file.newPage(), objects = file.newPage(), maps = file.newPage(),
                        objectRows = file.newPage();
    const std::uint32_t table = file.newPage(), rows = file.newPage(), memos = file.newPage();
    file.dataPage(freeMap, freeMap, {Builder::map({})});
    file.dataPage(maps, 0, {Builder::map({objectRows}), Builder::map({}), Builder::map({rows}), Builder::map({})});
    const auto pointer = [&](std::uint32_t row) { return maps << 8 | row; };

    file.definition(objects, 0x53, 2, pointer(0), pointer(1),
                    {{"Id", ColumnType::Long, true, 0, 4},
                     {"ParentId", ColumnType::Long, true, 4, 4},
                     {"Name", ColumnType::Text, false, 0, 255},
                     {"Type", ColumnType::Short, true, 8, 2},
                     {"DateCreate", ColumnType::Date, true, 10, 8},
                     {"DateUpdate", ColumnType::Date, true, 18, 8},
                     {"Flags", ColumnType::Long, true, 26, 4},
                     {"LvProp", ColumnType::Ole, false, 1, 0}});
    const auto object = [&](std::uint32_t id, const std::string& name, std::uint32_t flags) {
        const std::string fixed = little(id) + little(std::uint32_t{0x0F000001}) + little(std::int16_t{1}) +
                                  little(35000.0) + little(35000.0) + little(flags);
        return Builder::row(8, fixed, {name, ""}, {true, true, true, true, true, true, true, false});
    };
    file.dataPage(objectRows, objects,
                  {object(objects, "MSysObjects", 0x80000000), object(table,
                                                                      "T\xE1"
                                                                      "bla",
                                                                      0)});

    file.definition(table, 0x4E, 3, pointer(2), pointer(3),
                    {{"ID", ColumnType::Long, true, 0, 4},
                     {"N\xE9v", ColumnType::Text, false, 0, 200, 1250},
                     {"Egy\xE9"
                      "b",
                      ColumnType::Text, false, 1, 200, 1250},
                     {"V\xE9g", ColumnType::Text, false, 2, 50, 1250},
                     {"Memo", ColumnType::Memo, false, 3, 0, 1250},
                     {"D", ColumnType::Double, true, 4, 8},
                     {"B", ColumnType::Bool, true, 0, 1}});
    const auto memoHead = [&](std::uint32_t length, std::uint32_t at) {
        return little(length) + little(at) + little(std::uint32_t{0});
    };
    const std::string longText(180, 'x'), otherText(150, 'y');
    file.dataPage(rows, table,
                  {Builder::row(7, little(std::int32_t{1}) + little(0.1),
                                {kNarrow, "", "v", memoHead(5 | 0x80000000, 0) + "r\xF6vid"},
                                {true, true, true, true, true, true, true}),
                   Builder::row(7, little(std::int32_t{-2}) + little(-1.5),
                                {longText, otherText, kNarrow, memoHead(300 | 0x40000000, memos << 8)},
                                {true, true, true, true, true, true, false}),
                   Builder::row(7, little(std::int32_t{3}) + little(0.0), {"", "", "", ""},
                                {true, false, false, false, false, false, false})});
    file.dataPage(memos, data::kLongValueOwner, {std::string(299, 'm') + "\xF5"});
    const std::string path = newFile();
    file.save(path);
    return path;
}
} // namespace

TEST(Jet3, text_comes_by_its_code_page_and_rows_past_256_bytes_by_their_jumps) {
    const std::vector<Table> found = read(jet3File());
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].shape.name, "Tábla");
    ASSERT_EQ(found[0].shape.columns.size(), 7u);
    EXPECT_TRUE(found[0].shape.columns[1] == text("Név", 200));
    EXPECT_EQ(found[0].shape.columns[2].name, "Egyéb");
    ASSERT_EQ(found[0].rows.size(), 3u);
    EXPECT_EQ(found[0].rows[0], (Row{1, "Árvíztűrő", "", "v", "rövid", 0.1, 1}));
    EXPECT_EQ(found[0].rows[1], (Row{-2, std::string(180, 'x'), std::string(150, 'y'), "Árvíztűrő",
                                     std::string(299, 'm') + "ő", -1.5, 0}));
    EXPECT_EQ(found[0].rows[2], (Row{3, {}, {}, {}, {}, {}, 0}));
}

TEST(Jet3, mdbtools_reads_the_same) {
    if (!hasProgram("mdb-export"))
        GTEST_SKIP() << "mdbtools is not installed";
    const std::string path = jet3File();
    EXPECT_EQ(runProgram("mdb-ver " + path), "JET3\n");
    // It prints an empty text as it prints a null: as nothing.
    EXPECT_EQ(runProgram("MDB_JET3_CHARSET=CP1250 mdb-export -B -H " + path + " Tábla"),
              "1,\"Árvíztűrő\",,\"v\",\"rövid\",0.1,TRUE\n"
              "-2,\"" +
                  std::string(180, 'x') + "\",\"" + std::string(150, 'y') + "\",\"Árvíztűrő\",\"" +
                  std::string(299, 'm') +
                  "ő\",-1.5,FALSE\n"
                  "3,,,,,,FALSE\n");
}
