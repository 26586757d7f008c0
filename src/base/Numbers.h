#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/LocaleText.h"

namespace ornivane {

// The greatest whole number not above x, also for negative x.
double Int(double x);

// Ties to even, at the given number of decimals (0 to 15).
double Round(double x, int decimals = 0);

// Ties to even; RuntimeError Overflow outside -32768..32767 or when not finite.
std::int16_t ToInt16(double x);

// Doubles do not raise errors by themselves: RuntimeError DivisionByZero for x / 0, Overflow for 0 / 0 and
// for a result that is not finite.
double CheckedDivide(double numerator, double denominator);

// The value as text has it: cut to fifteen significant digits and read back.
double CutToFifteenDigits(double x);

// Shortest text of at most fifteen significant digits, decimal point, no locale: for SQL, files and GPX.
// RuntimeError Overflow when not finite.
std::string NumberText(double x);

// The same with the locale's decimal separator: what a field or label shows.
std::string NumberText(double x, const LocaleText& locale);

// A number as files and receivers write it: optional sign, digits, decimal point, exponent, blanks around.
// Empty when the text is anything else.
std::optional<double> ParsePlainNumber(std::string_view text);

// A number as a user enters it or a label shows it. A comma and a point are both taken as the decimal
// separator, in every locale: nobody enters thousands separators here, and reading 47,4 as 474 would put a
// waypoint on another continent. Empty when the text is no number.
std::optional<double> ParseNumber(std::string_view text);

// The number with which the text begins, blanks skipped, decimal point; what follows it is not looked at. 0
// when it begins with none, or with one that no double holds.
double LeadingNumber(std::string_view text);

// As ParseNumber for a text that must be a number: RuntimeError TypeMismatch when it is none.
double NumberIn(std::string_view text);

} // namespace ornivane
