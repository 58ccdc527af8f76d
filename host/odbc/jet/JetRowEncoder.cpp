#include "JetRowEncoder.h"

#include "JetValues.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace odbc::jet {

namespace {
constexpr std::size_t kMaxCompressedMemo = 1024; // Access compresses no longer memo

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// The decimal text of a number, or the cell's own text.
std::string decimalText(const StoreCell& cell) {
    char text[400];
    switch (cell.type) {
    case StoreCell::Type::Integer:
        return std::to_string(cell.integer);
    case StoreCell::Type::Real: {
        const auto result = std::to_chars(text, text + sizeof text, cell.real, std::chars_format::fixed);
        return {text, result.ptr};
    }
    case StoreCell::Type::Text:
        return std::string(cell.bytes);
    case StoreCell::Type::Null:
    case StoreCell::Type::Bytes:
        break;
    }
    return {};
}

std::size_t variableRoom(const JetColumnPlan& column) {
    return column.isLong() ? longvalue::kHeader + longvalue::kMaxInline : column.length + std::size_t{3};
}
} // namespace

JetRowEncoder::JetRowEncoder(const JetTablePlan& plan, JetPages& store)
    : m_plan(&plan), m_longPlace(plan.columns.size()) {
    std::size_t room = 2 + plan.fixedSize + 4 + (plan.columns.size() + 7) / 8;
    for (std::size_t i = 0; i < plan.columns.size(); ++i) {
        const JetColumnPlan& column = plan.columns[i];
        if (!column.fixed())
            room += variableRoom(column) + 2;
        if (column.isLong()) {
            m_longPlace[i] = m_longValues.size();
            m_longValues.emplace_back(data::kLongValueOwner, store);
        }
    }
    m_row.resize(room);
    m_offsets.resize(plan.variableCount);
}

void JetRowEncoder::fail(const JetColumnPlan& column, const std::string& why) const {
    throw StoreError("A tábla (" + m_plan->name + ") oszlopa (" + column.column.name + ") " + why + ".");
}

std::span<const std::uint8_t> JetRowEncoder::encode(std::span<const StoreCell> cells) {
    const std::vector<JetColumnPlan>& columns = m_plan->columns;
    if (cells.size() != columns.size())
        throw StoreError("A tábla (" + m_plan->name + ") egyik sorában nem annyi érték áll, ahány oszlop van.");
    std::uint8_t* row = m_row.data();
    std::array<std::uint8_t, (kMaxColumns + 7) / 8> present{};
    put16(row, columns.size());
    std::memset(row + 2, 0, m_plan->fixedSize);
    m_size = 2 + std::size_t{m_plan->fixedSize};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const JetColumnPlan& column = columns[i];
        const StoreCell& cell = cells[i];
        bool set = cell.type != StoreCell::Type::Null;
        if (!column.fixed())
            m_offsets[column.variableIndex] = static_cast<std::uint16_t>(m_size);
        if (set && column.type == ColumnType::Bool)
            set = integerOf(column, cell, std::numeric_limits<std::int64_t>::min(),
                            std::numeric_limits<std::int64_t>::max()) != 0;
        else if (set && column.fixed())
            encodeFixed(column, cell, row + 2 + column.fixedOffset);
        else if (set)
            appendVariable(column, cell);
        if (set)
            present[i / 8] = static_cast<std::uint8_t>(present[i / 8] | 1u << (i % 8));
    }
    if (m_plan->variableCount > 0) {
        const std::size_t end = m_size;
        put16(row + m_size, end);
        for (std::size_t i = m_plan->variableCount; i-- > 0;)
            put16(row + (m_size += 2), m_offsets[i]);
        put16(row + (m_size += 2), m_plan->variableCount);
        m_size += 2;
    }
    append({present.data(), (columns.size() + 7) / 8});
    if (m_size > data::kMaxRow)
        throw StoreError("A tábla (" + m_plan->name + ") egyik sora hosszabb, mint az Accessben megengedett 4060 bájt.");
    return {row, m_size};
}

std::span<const std::uint8_t> JetRowEncoder::encodeAlone(std::size_t number, const StoreCell& cell) {
    const JetColumnPlan& column = m_plan->columns[number];
    m_size = 0;
    if (!column.fixed()) {
        appendVariable(column, cell);
        return {m_row.data(), m_size};
    }
    encodeFixed(column, cell, m_row.data());
    return {m_row.data(), column.length};
}

void JetRowEncoder::append(std::span<const std::uint8_t> bytes) {
    std::copy(bytes.begin(), bytes.end(), m_row.begin() + static_cast<std::ptrdiff_t>(m_size));
    m_size += bytes.size();
}

std::int64_t JetRowEncoder::integerOf(const JetColumnPlan& column, const StoreCell& cell, std::int64_t least,
                                      std::int64_t most) const {
    std::int64_t value = cell.integer;
    if (cell.type == StoreCell::Type::Real) {
        if (!(cell.real > -9.2e18 && cell.real < 9.2e18) || std::nearbyint(cell.real) != cell.real)
            fail(column, "csak egész számot tárolhat");
        value = static_cast<std::int64_t>(cell.real);
    } else if (cell.type != StoreCell::Type::Integer) {
        fail(column, "csak számot tárolhat");
    }
    if (value < least || value > most)
        fail(column, "nem tárolhatja ezt az értéket: " + std::to_string(value));
    return value;
}

double JetRowEncoder::realOf(const JetColumnPlan& column, const StoreCell& cell) const {
    if (cell.type == StoreCell::Type::Integer)
        return static_cast<double>(cell.integer);
    if (cell.type != StoreCell::Type::Real)
        fail(column, "csak számot tárolhat");
    return cell.real;
}

void JetRowEncoder::encodeFixed(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const {
    switch (column.column.kind) {
    case ColumnKind::Byte:
        at[0] = static_cast<std::uint8_t>(integerOf(column, cell, 0, 255));
        return;
    case ColumnKind::Short:
        put16(at, static_cast<std::uint16_t>(integerOf(column, cell, INT16_MIN, INT16_MAX)));
        return;
    case ColumnKind::Long:
        put32(at, static_cast<std::uint32_t>(integerOf(column, cell, INT32_MIN, INT32_MAX)));
        return;
    case ColumnKind::Single: {
        const double value = realOf(column, cell);
        if (std::isfinite(value) && std::fabs(value) > std::numeric_limits<float>::max())
            fail(column, "nem tárolhat ekkora számot");
        put32(at, std::bit_cast<std::uint32_t>(static_cast<float>(value)));
        return;
    }
    case ColumnKind::Double:
    case ColumnKind::Date:
        put64(at, std::bit_cast<std::uint64_t>(realOf(column, cell)));
        return;
    case ColumnKind::Currency:
        encodeCurrency(column, cell, at);
        return;
    case ColumnKind::Numeric:
        encodeNumeric(column, cell, at);
        return;
    case ColumnKind::Guid:
        encodeGuid(column, cell, at);
        return;
    case ColumnKind::Bool: // a bit of the null mask
    case ColumnKind::Binary:
    case ColumnKind::Text:
    case ColumnKind::Ole:
    case ColumnKind::Memo:
        return;
    }
}

void JetRowEncoder::encodeCurrency(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const {
    const std::optional<JetDecimal> value = parseDecimal(decimalText(cell), 4);
    const std::uint64_t most = std::uint64_t{1} << 63;
    if (!value || value->magnitude > most - (value->negative ? 0 : 1))
        fail(column, "nem tárolhatja pénzösszegként ezt: " + decimalText(cell));
    const auto magnitude = static_cast<std::uint64_t>(value->magnitude);
    put64(at, value->negative ? ~magnitude + 1 : magnitude);
}

void JetRowEncoder::encodeNumeric(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const {
    const std::optional<JetDecimal> value = parseDecimal(decimalText(cell), column.column.scale);
    unsigned __int128 limit = 1;
    for (unsigned i = 0; i < column.column.precision; ++i)
        limit *= 10;
    if (!value || value->magnitude >= limit)
        fail(column, "nem tárolhat ilyen pontosságú számot: " + decimalText(cell));
    at[0] = value->negative ? 0x80 : 0;
    // Four groups of four bytes, the greatest group first, each group little-endian.
    for (unsigned group = 0; group < 4; ++group)
        put32(at + 1 + 4 * group, static_cast<std::uint32_t>(value->magnitude >> (96 - 32 * group)));
}

void JetRowEncoder::encodeGuid(const JetColumnPlan& column, const StoreCell& cell, std::uint8_t* at) const {
    const auto value = cell.type == StoreCell::Type::Text ? parseGuid(cell.bytes) : std::nullopt;
    if (!value)
        fail(column, "csak GUID értéket tárolhat");
    std::copy(value->begin(), value->end(), at);
}

void JetRowEncoder::appendVariable(const JetColumnPlan& column, const StoreCell& cell) {
    switch (column.type) {
    case ColumnType::Text:
        if (cell.type != StoreCell::Type::Text)
            fail(column, "csak szöveget tárolhat");
        appendText(column, cell.bytes);
        return;
    case ColumnType::Binary:
        if (cell.type != StoreCell::Type::Bytes && cell.type != StoreCell::Type::Text)
            fail(column, "csak bájtokat tárolhat");
        if (cell.bytes.size() > column.length)
            fail(column, "legfeljebb " + std::to_string(column.length) + " bájtot tárolhat");
        append(bytesOf(cell.bytes));
        return;
    case ColumnType::Memo:
    case ColumnType::Ole:
        appendLongValue(column, cell);
        return;
    default:
        fail(column, "nem fér el egy sorban"); // the plan knows no other variable columns
    }
}

void JetRowEncoder::appendText(const JetColumnPlan& column, std::string_view utf8) {
    const bool compressed = (column.extraFlags & columnbit::kCompressed) != 0;
    if (!m_text.encode(utf8, compressed ? kMaxTextLength : 0))
        fail(column, "csak Unicode szöveget tárolhat");
    if (m_text.characters() > column.column.size || m_text.bytes().size() > column.length)
        fail(column, "legfeljebb " + std::to_string(column.column.size) + " karaktert tárolhat");
    append(m_text.bytes());
}

void JetRowEncoder::appendLongValue(const JetColumnPlan& column, const StoreCell& cell) {
    std::span<const std::uint8_t> value;
    if (column.type == ColumnType::Memo) {
        if (cell.type != StoreCell::Type::Text)
            fail(column, "csak szöveget tárolhat");
        if (!m_text.encode(cell.bytes, kMaxCompressedMemo))
            fail(column, "csak Unicode szöveget tárolhat");
        value = m_text.bytes();
    } else {
        if (cell.type != StoreCell::Type::Bytes && cell.type != StoreCell::Type::Text)
            fail(column, "csak bájtokat tárolhat");
        value = bytesOf(cell.bytes);
    }
    if (value.size() > longvalue::kLengthMask)
        fail(column, "egy értékben legfeljebb 1 GB-ot tárolhat");
    std::array<std::uint8_t, longvalue::kHeader> head{};
    const auto length = static_cast<std::uint32_t>(value.size());
    if (value.size() <= longvalue::kMaxInline) {
        put32(head.data(), length | longvalue::kInline);
        append(head);
        append(value);
        return;
    }
    JetRowPages& pages = m_longValues[m_longPlace[static_cast<std::size_t>(&column - m_plan->columns.data())]];
    put32(head.data(), length | (value.size() <= longvalue::kMaxRow ? longvalue::kSinglePage : 0));
    put32(head.data() + 4, storeLongValue(pages, value));
    append(head);
}

// The pieces of a chain are put from the last to the first, since each begins with the pointer to
// the next; all but the last fill a page of their own.
std::uint32_t JetRowEncoder::storeLongValue(JetRowPages& pages, std::span<const std::uint8_t> value) {
    if (value.size() <= longvalue::kMaxRow)
        return pages.append(value);
    std::uint32_t next = 0;
    for (std::size_t begin = (value.size() - 1) / longvalue::kMaxPiece * longvalue::kMaxPiece;;
         begin -= longvalue::kMaxPiece) {
        const std::span<const std::uint8_t> piece =
            value.subspan(begin, std::min(longvalue::kMaxPiece, value.size() - begin));
        m_piece.resize(4 + piece.size());
        put32(m_piece.data(), next);
        std::copy(piece.begin(), piece.end(), m_piece.begin() + 4);
        next = next == 0 ? pages.append(m_piece) : pages.appendAlone(m_piece);
        if (begin == 0)
            return next;
    }
}

void JetRowEncoder::finish() {
    for (JetRowPages& pages : m_longValues)
        pages.finish();
}

} // namespace odbc::jet
