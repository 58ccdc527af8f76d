#include "JetKeys.h"

#include "JetCollation.h"
#include "JetDecoder.h"
#include "store/StoreText.h"

#include <algorithm>

namespace odbc::jet {

namespace {
constexpr unsigned char kDescendingValue = 0x80, kDescendingNull = 0xFF;

const JetColumn* columnOf(const JetDefinition& definition, std::uint16_t number) {
    const auto found = std::find_if(definition.columns.begin(), definition.columns.end(), [number](const JetColumn& c) { return c.number == number; });
    return found == definition.columns.end() ? nullptr : &*found;
}

bool isFloating(const JetColumn& column) {
    return column.is(ColumnType::Single) || column.is(ColumnType::Double) || column.is(ColumnType::Date);
}

bool isNumber(const JetColumn& column) {
    return column.is(ColumnType::Byte) || column.is(ColumnType::Short) || column.is(ColumnType::Long) || column.is(ColumnType::Currency) || isFloating(column);
}

// Most significant byte first, in an order that bytes sort by: negative numbers below the others, and of floating
// ones the greater magnitude first.
std::string numberKey(const JetColumn& column, const std::string& value) {
    std::string key(value.rbegin(), value.rend());
    if (column.is(ColumnType::Byte) || key.empty())
        return key;
    const bool negative = (static_cast<unsigned char>(key[0]) & 0x80) != 0;
    if (isFloating(column) && negative)
        std::transform(key.begin(), key.end(), key.begin(), [](char c) { return static_cast<char>(~c); });
    else
        key[0] = static_cast<char>(key[0] ^ '\x80');
    return key;
}

bool appendText(const std::string& value, std::string& key) {
    std::string utf8;
    std::u16string wide;
    appendJet4Text({reinterpret_cast<const std::uint8_t*>(value.data()), value.size()}, utf8);
    return appendUtf16(utf8, wide) && appendSortKey(wide, key);
}
} // namespace

bool knowsKeysOf(const JetDefinition& definition, const JetIndex::Part& part) {
    const JetColumn* column = columnOf(definition, part.column);
    if (column == nullptr || part.column >= definition.maxColumns)
        return false;
    if (isNumber(*column))
        return true;
    return column->is(ColumnType::Text) && part.ascending && column->detail == kGeneralSortOrder && column->sortVersion == 0;
}

JetValues valuesOf(const JetDefinition& definition, const JetRow& row) {
    JetValues values(definition.maxColumns);
    for (const JetColumn& column : definition.columns) {
        if (column.number >= values.size())
            continue;
        if (column.is(ColumnType::Bool)) {
            if (row.boolean(column))
                values[column.number].emplace();
        } else if (const auto bytes = row.value(column)) {
            values[column.number].emplace(reinterpret_cast<const char*>(bytes->data()), bytes->size());
        }
    }
    return values;
}

std::optional<JetKey> keyOf(const JetDefinition& definition, const JetIndex& index, const JetValues& values) {
    JetKey key;
    for (const JetIndex::Part& part : index.parts) {
        const JetColumn* column = columnOf(definition, part.column);
        const std::optional<std::string>& value = values[part.column];
        key.allNull = key.allNull && !value;
        key.anyNull = key.anyNull || !value;
        if (!value) {
            key.bytes += static_cast<char>(part.ascending ? jet::index::kAscendingNull : kDescendingNull);
            continue;
        }
        key.bytes += static_cast<char>(part.ascending ? jet::index::kAscendingValue : kDescendingValue);
        std::string bytes;
        if (column->is(ColumnType::Text) ? !appendText(*value, bytes) : (bytes = numberKey(*column, *value), false))
            return std::nullopt;
        if (!part.ascending)
            std::transform(bytes.begin(), bytes.end(), bytes.begin(), [](char c) { return static_cast<char>(~c); });
        key.bytes += bytes;
    }
    return key;
}

} // namespace odbc::jet
