#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/LocaleText.h"

namespace ornivane {

// What a display shows that has no value.
inline const std::string NoValue = "---";

// How a display writes its number: the picture of its digits (see Format), and the unit. Both are literals.
struct ReadoutFormat {
    std::string_view Digits;
    std::string_view Unit;
    bool operator==(const ReadoutFormat&) const = default;
};

// The number that is read in the text of Format: 0 where the text has no digit. RuntimeError as Format, and
// TypeMismatch where rounding leads beyond the largest double.
double NumberAsShown(double value, std::string_view digits);

// A display: a number rounded by the picture of its digits, "---" where there is none, or blank. Whatever is
// computed from a display is computed with Number(), so that no result contradicts what is read there.
class Readout {
public:
    Readout() = default; // "---"
    // "---" without a value. RuntimeError as NumberAsShown.
    Readout(std::optional<double> value, const ReadoutFormat& shownAs);
    static Readout Blank();

    bool HasNumber() const { return number.has_value(); }
    double Number() const { return number.value_or(0); }
    std::string Unit() const { return std::string(format.Unit); }
    // Without the unit. Empty when blank, and for a 0 in a picture that asks for no digit.
    std::string Text(const LocaleText& locale) const;
    // The unit behind a number that shows.
    std::string TextWithUnit(const LocaleText& locale) const;

    bool operator==(const Readout&) const = default;

private:
    std::optional<double> number;
    ReadoutFormat format;
    bool isBlank = false;
};

} // namespace ornivane
