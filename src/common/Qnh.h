#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "common/Date.h"

namespace ornivane {

inline constexpr std::int16_t StandardPressure = 1013; // hPa: what an unset QNH stands for

// The QNH of the day on which it was entered.
struct DayQnh {
    std::int16_t QNH = 0; // hPa
    std::optional<Date> QNHDate;
    // As it stands in the settings screen: what holds on a day for which none was entered.
    std::string tQNH = "1013";
};

// Takes a text as the QNH, wherever it was entered: a number from 950 to below 1050 hPa holds for this day,
// anything else is the standard pressure. The entry field of the settings holds what counts then.
void EnterQnh(DayQnh& qnh, const std::string& text, const Date& today);

// What an entry field shows of the QNH in force, to be typed over or left: the text as it was typed while it
// is that QNH, or its whole number. 1049.6 is a QNH, and rounded it would be none.
std::string QnhText(const DayQnh& qnh);

} // namespace ornivane
