#include "store/StoreDates.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace odbc {

namespace {
constexpr std::chrono::sys_days kFirst = std::chrono::year{1899} / 12 / 30;
constexpr int kDaySeconds = 86400;
constexpr double kMostDays = 3000000; // beyond the year 9999 either way

// Digits up to `separator` or the end; what follows them stays in text.
std::optional<unsigned> part(std::string_view& text, char separator) {
    unsigned value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    if (separator != '\0') {
        if (text.empty() || text.front() != separator)
            return std::nullopt;
        text.remove_prefix(1);
    }
    return value;
}
} // namespace

std::optional<DateParts> datePartsOf(double days) {
    if (!(std::fabs(days) < kMostDays))
        return std::nullopt;
    double whole = std::trunc(days);
    auto seconds = static_cast<int>(std::lround(std::fabs(days - whole) * kDaySeconds));
    if (seconds == kDaySeconds) {
        seconds = 0;
        whole += 1;
    }
    const std::chrono::year_month_day date(kFirst + std::chrono::days(static_cast<int>(whole)));
    DateParts parts;
    parts.year = static_cast<int>(date.year());
    if (parts.year < 100 || parts.year > 9999)
        return std::nullopt;
    parts.month = static_cast<unsigned>(date.month());
    parts.day = static_cast<unsigned>(date.day());
    parts.hour = static_cast<unsigned>(seconds / 3600);
    parts.minute = static_cast<unsigned>(seconds / 60 % 60);
    parts.second = static_cast<unsigned>(seconds % 60);
    return parts;
}

std::optional<double> daysOf(const DateParts& parts) {
    const std::chrono::year_month_day date{std::chrono::year(parts.year), std::chrono::month(parts.month), std::chrono::day(parts.day)};
    if (!date.ok() || parts.year < 100 || parts.year > 9999 || parts.hour > 23 || parts.minute > 59 || parts.second > 59)
        return std::nullopt;
    const double whole = static_cast<double>((std::chrono::sys_days(date) - kFirst).count());
    const double time = static_cast<double>(parts.hour * 3600 + parts.minute * 60 + parts.second) / kDaySeconds;
    return whole < 0 ? whole - time : whole + time;
}

std::string dateText(double days) {
    const std::optional<DateParts> parts = datePartsOf(days);
    if (!parts)
        return {};
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02u:%02u:%02u", parts->year, parts->month, parts->day, parts->hour, parts->minute, parts->second);
    return text;
}

std::optional<double> daysOfText(std::string_view text) {
    DateParts parts;
    const auto year = part(text, '-'), month = part(text, '-'), day = part(text, '\0');
    if (!year || !month || !day || *year > 9999)
        return std::nullopt;
    parts.year = static_cast<int>(*year);
    parts.month = *month;
    parts.day = *day;
    if (!text.empty()) {
        if (text.front() != ' ')
            return std::nullopt;
        text.remove_prefix(1);
        const auto hour = part(text, ':'), minute = part(text, ':'), second = part(text, '\0');
        if (!hour || !minute || !second || !text.empty())
            return std::nullopt;
        parts.hour = *hour;
        parts.minute = *minute;
        parts.second = *second;
    }
    return daysOf(parts);
}

} // namespace odbc
