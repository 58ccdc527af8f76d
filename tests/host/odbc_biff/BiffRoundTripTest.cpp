// Whatever tables are written come back cell for cell.
#include "BiffTables.h"
#include "RecordWalker.h"
#include "TestSupport.h"
#include "biff/BiffReader.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <rapidcheck.h>

using odbc::ColumnKind;

namespace {
std::string anyText() {
    const auto letters = *rc::gen::container<std::vector<int>>(*rc::gen::inRange(0, 60), rc::gen::element<int>('a', ' ', '\'', 0xE9, 0x151, 0x171, 0x20AC, 0x1F6A6, '\n', 1));
    std::string text;
    for (const int c : letters) {
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else if (c < 0x800) {
            text += static_cast<char>(0xC0 | (c >> 6));
            text += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            text += static_cast<char>(0xE0 | (c >> 12));
            text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            text += static_cast<char>(0xF0 | (c >> 18));
            text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    const int repeat = *rc::gen::weightedElement<int>({{20, 1}, {2, 40}, {1, 250}});
    std::string all;
    for (int i = 0; i < repeat; ++i)
        all += text;
    return all;
}
double anyNumber() {
    switch (*rc::gen::inRange(0, 4)) {
    case 0: return *rc::gen::inRange(-1000, 1000);
    case 1: return static_cast<double>(*rc::gen::inRange<std::int64_t>(-600000000000LL, 600000000000LL)) / 100;
    case 2: return *rc::gen::inRange(-1000000000, 1000000000) / 1e6;
    default: break;
    }
    const double value = std::bit_cast<double>(*rc::gen::arbitrary<std::uint64_t>());
    return std::isnormal(value) ? value : 0;
}
Table anyTable(int index) {
    Table table;
    table.shape.name = "T" + std::to_string(index);
    const int width = *rc::gen::inRange(1, 9);
    for (int i = 0; i < width; ++i)
        table.shape.columns.push_back(column("C" + std::to_string(i), *rc::gen::element(ColumnKind::Double, ColumnKind::Text, ColumnKind::Memo, ColumnKind::Bool, ColumnKind::Date)));
    const int height = *rc::gen::weightedElement<int>({{10, 0}, {30, 3}, {20, 40}, {2, 300}});
    for (int r = 0; r < height; ++r) {
        std::vector<Value> row;
        for (const auto& column : table.shape.columns) {
            if (*rc::gen::inRange(0, 5) == 0)
                row.emplace_back();
            else if (column.kind == ColumnKind::Bool)
                row.push_back(Value::whole(*rc::gen::inRange(0, 2)));
            else if (column.kind == ColumnKind::Text || column.kind == ColumnKind::Memo)
                row.emplace_back(anyText());
            else
                row.emplace_back(anyNumber());
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}
} // namespace

TEST(BiffRoundTrip, any_tables_come_back_cell_for_cell) {
    EXPECT_TRUE(rc::check([] {
        std::vector<Table> tables;
        const int count = *rc::gen::inRange(1, 4);
        for (int i = 0; i < count; ++i)
            tables.push_back(anyTable(i));
        const std::string path = testTempPath() + "/round.xls";
        writeWorkbook(path, tables);
        KeepingSink sink;
        odbc::readBiff(path, sink);
        for (std::size_t i = 0; i < sink.tables.size() && i < tables.size(); ++i) {
            RC_ASSERT(sink.tables[i].rows.size() == tables[i].rows.size()); // empty rows, too
            RC_ASSERT(sink.tables[i].shape.columns.size() == tables[i].shape.columns.size());
        }
        RC_ASSERT(difference(expectedLines(tables), expectedLines(sink.tables)) == "");
        RC_ASSERT(walkWorkbook(workbookStream(tables)).empty());
        RC_ASSERT(walkContainer(fileBytes(path)).empty());
    }));
}
