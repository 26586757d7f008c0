#pragma once

#include <array>
#include <string>

namespace ornivane {

// What the program needs to know of the system's locale. Read once at start-up and handed to whoever shows or
// reads numbers and dates, so that tests can be German or English on demand.
struct LocaleText {
    char DecimalSeparator = '.';
    std::array<std::string, 12> ShortMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

} // namespace ornivane
