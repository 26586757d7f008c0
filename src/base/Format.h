#pragma once

#include <string>
#include <string_view>

#include "base/LocaleText.h"

namespace ornivane {

// A number in a picture of digits: "0" a digit always shown, "#" one shown only when significant. Rounds half
// away from zero on the value's fifteen-digit decimal form. In the whole part every place to the right of the
// first "0" is shown, in the fraction every place to the left of the last "0"; the separator of a picture
// that has one is always written, so "###.####" of 8 is "8.". RuntimeError Overflow when the value is not
// finite.
std::string Format(double value, std::string_view picture, const LocaleText& locale);

} // namespace ornivane
