// Values that are text in the store and numbers in the file.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace odbc::jet {

// A decimal number as an integer of its last place.
struct JetDecimal {
    bool negative = false;
    unsigned __int128 magnitude = 0;
};
// Decimal text with `scale` places kept, more places rounded half away from zero. Nothing where the text
// is no plain decimal number or has more than 38 digits.
std::optional<JetDecimal> parseDecimal(std::string_view text, unsigned scale);
std::string formatDecimal(const JetDecimal& value, unsigned scale);

// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", the braces optional when read.
std::optional<std::array<std::uint8_t, 16>> parseGuid(std::string_view text);
std::string formatGuid(const std::uint8_t* bytes);

} // namespace odbc::jet
