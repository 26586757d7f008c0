#include "base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {

double Int(double x) { return std::floor(x); }

double Round(double x, int decimals) {
    if (decimals == 0) return std::nearbyint(x);
    const double scale = std::pow(10.0, decimals);
    // The product is taken at fifteen digits: 0.285 x 100 is 28.5 to a person, not 28.499999999999996.
    return std::nearbyint(CutToFifteenDigits(x * scale)) / scale;
}

std::int16_t ToInt16(double x) {
    const double rounded = std::nearbyint(x);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(rounded);
}

double CheckedDivide(double numerator, double denominator) {
    if (denominator == 0.0)
        throw RuntimeError(numerator == 0.0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    const double result = numerator / denominator;
    if (!std::isfinite(result)) throw RuntimeError(ErrorNumber::Overflow);
    return result;
}

double CutToFifteenDigits(double x) {
    if (!std::isfinite(x)) return x;
    char text[40];
    std::snprintf(text, sizeof text, "%.14e", x);
    double result = 0;
    std::from_chars(text, text + sizeof text, result);
    return result;
}

std::string NumberText(double x) {
    if (!std::isfinite(x)) throw RuntimeError(ErrorNumber::Overflow);
    if (x == 0) return "0";
    char text[40];
    const double cut = CutToFifteenDigits(x);
    const bool plain = std::fabs(cut) >= 1e-5 && std::fabs(cut) < 1e15;
    const auto end = std::to_chars(text, text + sizeof text, cut,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific);
    return std::string(text, end.ptr);
}

std::string NumberText(double x, const LocaleText& locale) {
    std::string text = NumberText(x);
    std::replace(text.begin(), text.end(), '.', locale.DecimalSeparator);
    return text;
}

std::optional<double> ParsePlainNumber(std::string_view text) {
    text = Trim(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    // from_chars would also take "inf" and "nan".
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
    double result = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return result;
}

std::optional<double> ParseNumber(std::string_view text) {
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), ',', '.');
    return ParsePlainNumber(plain);
}

double LeadingNumber(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    const std::size_t digits = text.find_first_of("0123456789");
    if (digits == std::string_view::npos || text.find_first_not_of("-.") != digits) return 0; // inf, nan
    double result = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
    return error == std::errc() ? result : 0;
}

double NumberIn(std::string_view text) {
    const std::optional<double> number = ParseNumber(text);
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch, std::string(text.substr(0, 40)));
    return *number;
}

} // namespace ornivane
