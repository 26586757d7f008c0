#include "base/Format.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

// The decimal digits of |value| at fifteen significant places, and how many of them stand before the point.
struct Decimal {
    std::string Digits;
    int Whole;
};

Decimal DecimalOf(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.14e", std::fabs(value)); // d.dddddddddddddde±xx
    std::string digits{text[0]};
    digits.append(text + 2, 14);
    return {digits, std::atoi(text + 17) + 1};
}

// The digits of the whole part and of `places` decimals, rounded half away from zero.
std::string RoundedDigits(Decimal decimal, std::size_t places) {
    if (decimal.Whole < 0) {
        decimal.Digits.insert(0, static_cast<std::size_t>(-decimal.Whole), '0');
        decimal.Whole = 0;
    }
    std::string digits = "0" + decimal.Digits; // room for a carry
    const auto keep = static_cast<std::size_t>(decimal.Whole) + 1 + places;
    if (digits.size() <= keep) {
        digits.append(keep - digits.size(), '0');
        return digits;
    }
    const bool up = digits[keep] >= '5';
    digits.resize(keep);
    for (std::size_t i = keep; up && i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
    }
    return digits;
}

} // namespace

std::string Format(double value, std::string_view picture, const LocaleText& locale) {
    if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow);
    const auto point = picture.find('.');
    const std::string_view wholePicture = picture.substr(0, point);
    const std::string_view fractionPicture =
        point == std::string_view::npos ? std::string_view{} : picture.substr(point + 1);
    const std::size_t places = fractionPicture.size();

    const std::string digits = RoundedDigits(DecimalOf(value), places);
    std::string whole = digits.substr(0, digits.size() - places);
    std::string fraction = digits.substr(digits.size() - places);
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;

    const auto firstZero = wholePicture.find('0');
    const std::size_t leastWhole = firstZero == std::string_view::npos ? 0 : wholePicture.size() - firstZero;
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() < leastWhole) whole.insert(0, leastWhole - whole.size(), '0');

    const auto lastZero = fractionPicture.rfind('0');
    const std::size_t leastFraction = lastZero == std::string_view::npos ? 0 : lastZero + 1;
    while (fraction.size() > leastFraction && fraction.back() == '0') fraction.pop_back();

    std::string result = value < 0 && !isZero ? "-" + whole : whole;
    if (point != std::string_view::npos) result += locale.DecimalSeparator + fraction;
    return result;
}

} // namespace ornivane
