#include "JetValues.h"

#include <algorithm>
#include <cstddef>

namespace odbc::jet {

namespace {
int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const char small = static_cast<char>(c | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The text's order of the bytes: the first three groups are numbers, little-endian in the file.
constexpr std::array<std::size_t, 16> kGuidOrder{3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
bool dashBefore(std::size_t byte) {
    return byte == 4 || byte == 6 || byte == 8 || byte == 10;
}
} // namespace

std::optional<JetDecimal> parseDecimal(std::string_view text, unsigned scale) {
    JetDecimal value;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        value.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point),
                           fraction = point < text.size() ? text.substr(point + 1) : std::string_view{};
    if (whole.empty() && fraction.empty())
        return std::nullopt;
    if (!std::all_of(whole.begin(), whole.end(), isDigit) || !std::all_of(fraction.begin(), fraction.end(), isDigit))
        return std::nullopt;
    std::string digits(whole);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    for (unsigned i = 0; i < scale; ++i)
        digits += i < fraction.size() ? fraction[i] : '0';
    if (digits.size() > 38)
        return std::nullopt;
    for (const char c : digits)
        value.magnitude = value.magnitude * 10 + static_cast<unsigned>(c - '0');
    if (fraction.size() > scale && fraction[scale] >= '5')
        ++value.magnitude;
    value.negative = value.negative && value.magnitude != 0;
    return value;
}

std::string formatDecimal(const JetDecimal& value, unsigned scale) {
    std::string digits;
    for (unsigned __int128 rest = value.magnitude; rest != 0 || digits.size() <= scale; rest /= 10) {
        digits += static_cast<char>('0' + static_cast<int>(rest % 10));
        if (digits.size() == scale)
            digits += '.';
    }
    if (scale != 0 && digits.back() == '.')
        digits += '0';
    if (value.negative)
        digits += '-';
    std::reverse(digits.begin(), digits.end());
    return digits;
}

std::optional<std::array<std::uint8_t, 16>> parseGuid(std::string_view text) {
    if (text.size() == 38 && text.front() == '{' && text.back() == '}')
        text = text.substr(1, 36);
    if (text.size() != 36)
        return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t at = 0;
    for (std::size_t i = 0; i < 16; ++i) {
        if (dashBefore(i) && text[at++] != '-')
            return std::nullopt;
        const int high = hexDigit(text[at]), low = hexDigit(text[at + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes[kGuidOrder[i]] = static_cast<std::uint8_t>(high << 4 | low);
        at += 2;
    }
    return bytes;
}

std::string formatGuid(const std::uint8_t* bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "{";
    for (std::size_t i = 0; i < 16; ++i) {
        if (dashBefore(i))
            text += '-';
        text += digits[bytes[kGuidOrder[i]] >> 4];
        text += digits[bytes[kGuidOrder[i]] & 15];
    }
    return text + '}';
}

} // namespace odbc::jet
