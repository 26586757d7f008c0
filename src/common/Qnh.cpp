#include "common/Qnh.h"

#include "base/Numbers.h"

namespace ornivane {

constexpr double LowestQnh = 950, HighestQnh = 1050; // hPa, the highest excluded

void EnterQnh(DayQnh& qnh, const std::string& text, const Date& today) {
    const auto entered = ParseNumber(text);
    if (entered && *entered >= LowestQnh && *entered < HighestQnh) {
        qnh.QNH = ToInt16(*entered);
        qnh.QNHDate = today;
        qnh.tQNH = text;
    } else {
        qnh.QNH = StandardPressure;
        qnh.tQNH = std::to_string(StandardPressure);
    }
}

std::string QnhText(const DayQnh& qnh) {
    const auto typed = ParseNumber(qnh.tQNH);
    return typed && Round(*typed) == qnh.QNH ? qnh.tQNH : std::to_string(qnh.QNH);
}

} // namespace ornivane
