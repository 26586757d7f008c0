#include "common/Date.h"

#include <charconv>
#include <chrono>
#include <cstdio>

namespace ornivane {

std::string DateText(const Date& date) {
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.Year, date.Month, date.Day);
    return text;
}

std::optional<Date> ParseDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto number = [&](std::size_t from, std::size_t length) {
        int value = -1;
        const char* first = text.data() + from;
        const auto [end, error] = std::from_chars(first, first + length, value);
        return error == std::errc() && end == first + length ? value : -1;
    };
    const Date date{number(0, 4), number(5, 2), number(8, 2)};
    if (date.Year < 1 || date.Month < 1 || date.Day < 1) return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::year(date.Year),
                                          std::chrono::month(static_cast<unsigned>(date.Month)),
                                          std::chrono::day(static_cast<unsigned>(date.Day))};
    return day.ok() ? std::optional(date) : std::nullopt;
}

std::string ShortTime(int hour, int minute) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d", hour, minute);
    return text;
}

} // namespace ornivane
