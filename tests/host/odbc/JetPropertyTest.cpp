// Any tables of any values come back from an Access file as they were.
#include "JetTestSupport.h"
#include "jet/JetValues.h"

#include <bit>
#include <gtest/gtest.h>
#include <rapidcheck.h>

using namespace odbc;
using namespace jettest;

namespace {
rc::Gen<std::string> anyText(int maxCharacters) {
    const auto letters = rc::gen::elementOf(std::vector<std::string>{"a", "Z", "0", " ", "_", "\\", "é", "ő", "Ű", "ÿ",
                                                                     "€", "日", std::string(1, '\0'), "\n", "Ā", "þ"});
    return rc::gen::mapcat(rc::gen::inRange(0, maxCharacters + 1), [=](int length) {
        return rc::gen::map(rc::gen::container<std::vector<std::string>>(static_cast<std::size_t>(length), letters),
                            [](const std::vector<std::string>& parts) {
                                std::string text;
                                for (const std::string& part : parts)
                                    text += part;
                                return text;
                            });
    });
}
rc::Gen<std::string> anyBytes(int most) {
    return rc::gen::mapcat(rc::gen::inRange(0, most + 1), [](int size) {
        return rc::gen::container<std::string>(static_cast<std::size_t>(size), rc::gen::arbitrary<char>());
    });
}
std::string moneyOf(std::int64_t units) {
    const std::uint64_t magnitude =
        units < 0 ? ~static_cast<std::uint64_t>(units) + 1 : static_cast<std::uint64_t>(units);
    return jet::formatDecimal({units < 0, magnitude}, 4);
}

rc::Gen<Cell> anyValue(const StoreColumn& column) {
    using rc::gen::arbitrary;
    using rc::gen::map;
    switch (column.kind) {
    case ColumnKind::Bool:
        return map(rc::gen::inRange(0, 2), [](int v) { return Cell(v); });
    case ColumnKind::Byte:
        return map(arbitrary<std::uint8_t>(), [](std::uint8_t v) { return Cell(int{v}); });
    case ColumnKind::Short:
        return map(arbitrary<std::int16_t>(), [](std::int16_t v) { return Cell(int{v}); });
    case ColumnKind::Long:
        return map(arbitrary<std::int32_t>(), [](std::int32_t v) { return Cell(v); });
    case ColumnKind::Currency:
        return map(arbitrary<std::int64_t>(), [](std::int64_t v) { return Cell(moneyOf(v)); });
    case ColumnKind::Single:
        return map(arbitrary<float>(), [](float v) { return Cell(double{v}); });
    case ColumnKind::Double:
        return map(arbitrary<std::uint64_t>(), [](std::uint64_t bits) { return Cell(std::bit_cast<double>(bits)); });
    case ColumnKind::Date:
        return map(arbitrary<double>(), [](double v) { return Cell(v); });
    case ColumnKind::Binary:
        return map(anyBytes(column.size), [](std::string v) { return Cell::blob(std::move(v)); });
    case ColumnKind::Text:
        return map(anyText(column.size), [](std::string v) { return Cell(std::move(v)); });
    case ColumnKind::Ole:
        return map(anyBytes(9000), [](std::string v) { return Cell::blob(std::move(v)); });
    case ColumnKind::Memo:
        return map(anyText(3000), [](std::string v) { return Cell(std::move(v)); });
    case ColumnKind::Guid:
        return map(rc::gen::container<std::vector<std::uint8_t>>(16, arbitrary<std::uint8_t>()),
                   [](const std::vector<std::uint8_t>& v) { return Cell(jet::formatGuid(v.data())); });
    case ColumnKind::Numeric:
        return map(arbitrary<std::int64_t>(), [scale = column.scale](std::int64_t v) {
            const std::uint64_t magnitude = v < 0 ? ~static_cast<std::uint64_t>(v) + 1 : static_cast<std::uint64_t>(v);
            return Cell(jet::formatDecimal({v < 0, magnitude}, scale));
        });
    }
    return rc::gen::just(Cell{});
}

rc::Gen<StoreColumn> anyColumn(int number) {
    const auto kinds = rc::gen::map(rc::gen::inRange(0, 14), [](int kind) { return static_cast<ColumnKind>(kind); });
    return rc::gen::map(rc::gen::tuple(kinds, rc::gen::inRange(1, 60), rc::gen::inRange(0, 10)),
                        [number](const std::tuple<ColumnKind, int, int>& facts) {
                            StoreColumn column{"C" + std::to_string(number), std::get<0>(facts), 0, 0, 0};
                            if (column.kind == ColumnKind::Text || column.kind == ColumnKind::Binary)
                                column.size = static_cast<std::uint16_t>(std::get<1>(facts));
                            if (column.kind == ColumnKind::Numeric) {
                                column.precision = 20;
                                column.scale = static_cast<std::uint8_t>(std::get<2>(facts));
                            }
                            return column;
                        });
}

Table anyTable(int number) {
    Table table{{"Tábla " + std::to_string(number), {}}, {}};
    const int columns = *rc::gen::inRange(1, 12), rows = *rc::gen::inRange(0, 40);
    for (int i = 0; i < columns; ++i)
        table.shape.columns.push_back(*anyColumn(i));
    for (int row = 0; row < rows; ++row) {
        Row& cells = table.rows.emplace_back();
        for (const StoreColumn& column : table.shape.columns) {
            const bool null = column.kind != ColumnKind::Bool && *rc::gen::inRange(0, 4) == 0;
            cells.push_back(null ? Cell{} : *anyValue(column));
        }
    }
    return table;
}
} // namespace

TEST(JetProperty, any_tables_come_back_and_break_no_rule) {
    const std::string path = newFile();
    EXPECT_TRUE(rc::check("tables come back", [&] {
        std::vector<Table> tables;
        const int count = *rc::gen::inRange(0, 5);
        for (int i = 0; i < count; ++i)
            tables.push_back(anyTable(i));
        expectComesBack(tables, path);
        RC_ASSERT(!testing::Test::HasFailure());
    }));
}
