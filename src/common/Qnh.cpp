#include "common/Qnh.h"

#include "base/Numbers.h"

namespace ornivane {

namespace {

constexpr double LowestQnh = 950, HighestQnh = 1050; // hPa, the highest excluded

} // namespace

void EnterQnh(Variablen& shared, const std::string& text, const Date& today) {
    const auto entered = ParseNumber(text);
    if (entered && *entered >= LowestQnh && *entered < HighestQnh) {
        shared.QNH = ToInt16(*entered);
        shared.QNHDate = today;
        shared.tQNH = text;
    } else {
        shared.QNH = StandardPressure;
        shared.tQNH = std::to_string(StandardPressure);
    }
}

std::string QnhText(const Variablen& shared) {
    const auto typed = ParseNumber(shared.tQNH);
    return typed && Round(*typed) == shared.QNH ? shared.tQNH : std::to_string(shared.QNH);
}

} // namespace ornivane
