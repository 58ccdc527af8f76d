#include "store/ResultSet.h"

#include "OdbcTypes.h"

#include <limits>

namespace odbc {

namespace {
// Row by kind: SQL type, precision (0: the column's size), scale.
struct KindRow {
    ColumnKind kind;
    std::int16_t sqlType;
    std::uint32_t precision;
    std::int16_t scale;
};
constexpr std::uint32_t kLong = 0x3FFFFFFF; // memo and OLE fields
constexpr KindRow kKinds[] = {
    {ColumnKind::Bool, SQL_BIT, 1, 0},
    {ColumnKind::Byte, SQL_TINYINT, 3, 0},
    {ColumnKind::Short, SQL_SMALLINT, 5, 0},
    {ColumnKind::Long, SQL_INTEGER, 10, 0},
    {ColumnKind::Currency, SQL_NUMERIC, 19, 4},
    {ColumnKind::Single, SQL_REAL, 24, 0},
    {ColumnKind::Double, SQL_DOUBLE, 53, 0},
    {ColumnKind::Date, SQL_TIMESTAMP, 19, 0},
    {ColumnKind::Binary, SQL_VARBINARY, 0, 0},
    {ColumnKind::Text, SQL_WVARCHAR, 0, 0},
    {ColumnKind::Ole, SQL_LONGVARBINARY, kLong, 0},
    {ColumnKind::Memo, SQL_WLONGVARCHAR, kLong, 0},
    {ColumnKind::Guid, SQL_GUID, 36, 0},
    {ColumnKind::Numeric, SQL_NUMERIC, 0, 0},
};
} // namespace

ResultColumn resultColumn(const StoreColumn& column) {
    const KindRow& row = kKinds[static_cast<std::size_t>(column.kind)];
    ResultColumn result{column.name, row.sqlType, row.precision, row.scale, 1};
    if (column.kind == ColumnKind::Text || column.kind == ColumnKind::Binary)
        result.precision = column.size;
    if (column.kind == ColumnKind::Numeric) {
        result.precision = column.precision;
        result.scale = column.scale;
    }
    return result;
}

void ResultSet::add(const StoreCell& cell) {
    Cell kept{cell.type, 0, {}};
    switch (cell.type) {
    case StoreCell::Type::Null:
        break;
    case StoreCell::Type::Integer:
        kept.integer = cell.integer;
        break;
    case StoreCell::Type::Real:
        kept.real = cell.real;
        break;
    case StoreCell::Type::Text:
    case StoreCell::Type::Bytes:
        if (cell.bytes.size() > std::numeric_limits<std::uint32_t>::max())
            throw StoreError("Egy mező nagyobb, mint 4 GB.");
        kept.length = static_cast<std::uint32_t>(cell.bytes.size());
        kept.offset = mBytes.size();
        mBytes += cell.bytes;
        break;
    }
    mCells.push_back(kept);
}

StoreCell ResultSet::cell(std::size_t row, std::size_t column) const {
    const Cell& kept = mCells[row * columns.size() + column];
    StoreCell cell;
    cell.type = kept.type;
    switch (kept.type) {
    case StoreCell::Type::Null:
        break;
    case StoreCell::Type::Integer:
        cell.integer = kept.integer;
        break;
    case StoreCell::Type::Real:
        cell.real = kept.real;
        break;
    case StoreCell::Type::Text:
    case StoreCell::Type::Bytes:
        cell.bytes = std::string_view(mBytes).substr(static_cast<std::size_t>(kept.offset), kept.length);
        break;
    }
    return cell;
}

} // namespace odbc
