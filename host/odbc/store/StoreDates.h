// Dates of the store: days since 1899-12-30, the fraction is the time of the day. Before that day the
// fraction still counts forward: -1.25 is 06:00 of 1899-12-29.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace odbc {

struct DateParts {
    int year = 1899;
    unsigned month = 12, day = 30, hour = 0, minute = 0, second = 0;
    friend bool operator==(const DateParts&, const DateParts&) = default;
};

// To the nearest second. None outside the years 100 to 9999, which Access keeps to.
std::optional<DateParts> datePartsOf(double days);
// None where there is no such day or time.
std::optional<double> daysOf(const DateParts& parts);
// "2001-02-03 04:05:06"; empty where datePartsOf gives none.
std::string dateText(double days);
// Reads that text; the time may be left out.
std::optional<double> daysOfText(std::string_view text);

} // namespace odbc
