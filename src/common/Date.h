#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace ornivane {

// A calendar date, for settings and data releases.
struct Date {
    int Year = 0, Month = 0, Day = 0;
    bool operator==(const Date&) const = default;
};

inline Date DateOf(const LocalTime& time) { return {time.Year, time.Month, time.Day}; }

// "yyyy-mm-dd".
std::string DateText(const Date& date);
// Empty unless it is a real day of the years 1 to 9999 written as yyyy-mm-dd.
std::optional<Date> ParseDate(std::string_view text);

// "hh:mm", 24 hours.
std::string ShortTime(int hour, int minute);

} // namespace ornivane
