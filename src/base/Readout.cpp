#include "base/Readout.h"

#include "base/Format.h"
#include "base/Numbers.h"

namespace ornivane {

double NumberAsShown(double value, std::string_view digits) {
    const std::string text = Format(value, digits, LocaleText());
    return text.find_first_of("0123456789") == std::string::npos ? 0 : NumberIn(text);
}

Readout::Readout(std::optional<double> value, const ReadoutFormat& shownAs) : format(shownAs) {
    if (value) number = NumberAsShown(*value, format.Digits);
}

Readout Readout::Blank() {
    Readout blank;
    blank.isBlank = true;
    return blank;
}

std::string Readout::Text(const LocaleText& locale) const {
    if (number) return Format(*number, format.Digits, locale);
    return isBlank ? std::string() : NoValue;
}

std::string Readout::TextWithUnit(const LocaleText& locale) const {
    const std::string text = Text(locale);
    return HasNumber() && !text.empty() ? text + " " + Unit() : text;
}

} // namespace ornivane
