#include "store/StoreValues.h"

#include "store/StoreDates.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <sqlite3.h>

namespace odbc {

namespace {
constexpr std::size_t kNumberText = 32; // the shortest text of a double is shorter
constexpr int kCurrencyScale = 4;
constexpr double kMostCurrency = 922337203685477.5807;

[[noreturn]] void refuseRange(const StoreColumn& column, const SqlToken& literal) {
    throw StoreError("Az érték nem fér el az oszlopban (" + column.name + "): " + shown(literal) + ".");
}
[[noreturn]] void refuseKind(const StoreColumn& column, const SqlToken& literal) {
    throw StoreError("Az oszlop (" + column.name + ") nem fogad ilyen fajta értéket: " + shown(literal) + ".");
}

// The text of the literal in `texts`.
std::string_view textOf(const SqlToken& literal, std::string& texts) {
    const std::size_t before = texts.size();
    if (literal.kind == SqlToken::Kind::Text) {
        appendText(literal, texts);
    } else {
        char digits[kNumberText];
        const auto result = std::to_chars(digits, digits + sizeof digits, numberOf(literal));
        texts.append(digits, result.ptr);
    }
    return std::string_view(texts).substr(before);
}

// The number of a literal; a text counts where all of it is a number.
double realOf(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    if (literal.kind == SqlToken::Kind::Number)
        return numberOf(literal);
    std::string_view text = textOf(literal, texts);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || !std::isfinite(value))
        refuseKind(column, literal);
    return value;
}

std::size_t utf16Units(std::string_view utf8) {
    std::size_t units = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        units += (byte & 0xC0) != 0x80 ? 1 : 0;
        units += byte >= 0xF0 ? 1 : 0; // a pair of surrogates
    }
    return units;
}

StoreCell textCell(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    const std::string_view text = textOf(literal, texts);
    if (column.kind == ColumnKind::Text && text.size() > column.size && utf16Units(text) > column.size)
        throw StoreError("Az oszlop (" + column.name + ") szövege hosszabb, mint " + std::to_string(column.size) + " karakter.");
    return StoreCell::text(text);
}

StoreCell wholeCell(const StoreColumn& column, const SqlToken& literal, double least, double most, std::string& texts) {
    const double value = std::nearbyint(realOf(column, literal, texts)); // a half goes to the even neighbour
    if (!(value >= least && value <= most))
        refuseRange(column, literal);
    return StoreCell::of(static_cast<std::int64_t>(value));
}

std::string_view decimalText(double value, int scale, DecimalText& text) {
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, scale);
    return result.ec == std::errc() ? std::string_view(text.data(), result.ptr) : std::string_view();
}

int scaleOf(const StoreColumn& column) {
    return column.kind == ColumnKind::Currency ? kCurrencyScale : column.scale;
}

StoreCell decimalCell(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    const double value = realOf(column, literal, texts);
    const double bound = column.kind == ColumnKind::Currency ? kMostCurrency : std::pow(10.0, column.precision - column.scale);
    if (!(std::fabs(value) < bound))
        refuseRange(column, literal);
    DecimalText text;
    const std::string_view rounded = decimalText(value, scaleOf(column), text);
    double kept = 0;
    std::from_chars(rounded.data(), rounded.data() + rounded.size(), kept);
    return StoreCell::of(kept);
}

StoreCell singleCell(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    const double value = realOf(column, literal, texts);
    if (std::fabs(value) > std::numeric_limits<float>::max())
        refuseRange(column, literal);
    return StoreCell::of(static_cast<double>(static_cast<float>(value)));
}

StoreCell dateCell(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    if (literal.kind == SqlToken::Kind::Number) {
        const double days = numberOf(literal);
        if (!datePartsOf(days))
            refuseRange(column, literal);
        return StoreCell::of(days);
    }
    const std::optional<double> days = daysOfText(textOf(literal, texts));
    if (!days)
        refuseKind(column, literal);
    return StoreCell::of(*days);
}

// {00000000-0000-0000-0000-000000000000}
StoreCell guidCell(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    constexpr std::string_view kForm = "{00000000-0000-0000-0000-000000000000}";
    const std::string_view text = literal.kind == SqlToken::Kind::Text ? textOf(literal, texts) : std::string_view();
    bool good = text.size() == kForm.size();
    for (std::size_t i = 0; good && i < text.size(); ++i)
        good = kForm[i] == '0' ? std::isxdigit(static_cast<unsigned char>(text[i])) != 0 : text[i] == kForm[i];
    if (!good)
        refuseKind(column, literal);
    return StoreCell::text(text);
}
} // namespace

std::size_t roomForTexts(const std::vector<SqlToken>& tokens) {
    std::size_t room = 0;
    for (const SqlToken& token : tokens)
        if (token.kind == SqlToken::Kind::Text)
            room += token.text.size() * 4;
        else if (token.kind == SqlToken::Kind::Number)
            room += kNumberText;
    return room;
}

StoreCell valueFor(const StoreColumn& column, const SqlToken& literal, std::string& texts) {
    switch (column.kind) {
    case ColumnKind::Double:
        return StoreCell::of(realOf(column, literal, texts));
    case ColumnKind::Text:
    case ColumnKind::Memo:
        return textCell(column, literal, texts);
    case ColumnKind::Bool:
        return StoreCell::of(std::int64_t{realOf(column, literal, texts) != 0 ? 1 : 0});
    case ColumnKind::Byte:
        return wholeCell(column, literal, 0, 255, texts);
    case ColumnKind::Short:
        return wholeCell(column, literal, -32768, 32767, texts);
    case ColumnKind::Long:
        return wholeCell(column, literal, -2147483648.0, 2147483647.0, texts);
    case ColumnKind::Single:
        return singleCell(column, literal, texts);
    case ColumnKind::Currency:
    case ColumnKind::Numeric:
        return decimalCell(column, literal, texts);
    case ColumnKind::Date:
        return dateCell(column, literal, texts);
    case ColumnKind::Guid:
        return guidCell(column, literal, texts);
    case ColumnKind::Binary:
    case ColumnKind::Ole:
        break;
    }
    refuseKind(column, literal);
}

StoreCell comparedValue(const SqlToken& literal, std::string& texts) {
    return literal.kind == SqlToken::Kind::Text ? StoreCell::text(textOf(literal, texts)) : StoreCell::of(numberOf(literal));
}

const char* sqliteType(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Bool:
    case ColumnKind::Byte:
    case ColumnKind::Short:
    case ColumnKind::Long:
        return "INTEGER";
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::Date:     // REAL would store whole numbers as integers and lose a negative zero
    case ColumnKind::Currency: // an amount beyond the doubles is text
    case ColumnKind::Numeric:
        return "ANY";
    case ColumnKind::Text:
    case ColumnKind::Memo:
    case ColumnKind::Guid:
        return "TEXT COLLATE access";
    case ColumnKind::Binary:
    case ColumnKind::Ole:
        break;
    }
    return "BLOB";
}

int bindCell(sqlite3_stmt* statement, int parameter, const StoreColumn& column, const StoreCell& cell) {
    switch (cell.type) {
    case StoreCell::Type::Null:
        break;
    case StoreCell::Type::Integer:
        return sqlite3_bind_int64(statement, parameter, cell.integer);
    case StoreCell::Type::Real:
        if (std::isnan(cell.real)) // SQLite would make it an empty field
            return sqlite3_bind_blob(statement, parameter, &cell.real, sizeof cell.real, SQLITE_TRANSIENT);
        return sqlite3_bind_double(statement, parameter, cell.real);
    case StoreCell::Type::Bytes:
        return sqlite3_bind_blob64(statement, parameter, cell.bytes.data() == nullptr ? "" : cell.bytes.data(), cell.bytes.size(), SQLITE_STATIC);
    case StoreCell::Type::Text:
        if (column.kind == ColumnKind::Currency || column.kind == ColumnKind::Numeric) {
            DecimalText text;
            double value = 0;
            const auto result = std::from_chars(cell.bytes.data(), cell.bytes.data() + cell.bytes.size(), value);
            if (result.ec == std::errc() && decimalText(value, scaleOf(column), text) == cell.bytes)
                return sqlite3_bind_double(statement, parameter, value);
        }
        return sqlite3_bind_text64(statement, parameter, cell.bytes.data() == nullptr ? "" : cell.bytes.data(), cell.bytes.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
    return sqlite3_bind_null(statement, parameter);
}

StoreCell readCell(sqlite3_stmt* statement, int index, const StoreColumn& column, DecimalText& decimals) {
    const int type = sqlite3_column_type(statement, index);
    if (type == SQLITE_NULL)
        return StoreCell::null();
    const auto bytes = [&](const void* data) {
        return std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(sqlite3_column_bytes(statement, index)));
    };
    switch (column.kind) {
    case ColumnKind::Bool:
    case ColumnKind::Byte:
    case ColumnKind::Short:
    case ColumnKind::Long:
        return StoreCell::of(static_cast<std::int64_t>(sqlite3_column_int64(statement, index)));
    case ColumnKind::Single:
    case ColumnKind::Double:
    case ColumnKind::Date: {
        double real = 0;
        if (type == SQLITE_BLOB)
            std::memcpy(&real, sqlite3_column_blob(statement, index), sizeof real);
        else
            real = sqlite3_column_double(statement, index);
        return StoreCell::of(real);
    }
    case ColumnKind::Currency:
    case ColumnKind::Numeric:
        if (type == SQLITE_FLOAT || type == SQLITE_INTEGER)
            return StoreCell::text(decimalText(sqlite3_column_double(statement, index), scaleOf(column), decimals));
        return StoreCell::text(bytes(sqlite3_column_text(statement, index)));
    case ColumnKind::Text:
    case ColumnKind::Memo:
    case ColumnKind::Guid:
        return StoreCell::text(bytes(sqlite3_column_text(statement, index)));
    case ColumnKind::Binary:
    case ColumnKind::Ole:
        break;
    }
    return StoreCell::blob(bytes(sqlite3_column_blob(statement, index)));
}

} // namespace odbc
