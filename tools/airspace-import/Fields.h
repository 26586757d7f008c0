#pragma once

#include <string>
#include <string_view>

#include "airspace-import/Airspace.h"

namespace ornivane {

// The fields of OpenAir records. All raise Unusable with the reason.

// "48:47:27 N 016:53:33 E", "48:47.45N 16:53.55E", "N48.79 E16.89": latitude, then longitude.
Position ParsePosition(std::string_view text);

// "FL95", "3500ft MSL", "1000 AGL", "300 m", "GND", "UNL" and their like, in any case and with any blanks. A
// bare number is feet above sea level, and a height of 0 the ground. Metres come out as whole feet.
Limit ParseLimit(std::string_view text);

// "2", "0.5 NM": nautical miles, above 0 and up to 500.
double ParseRadius(std::string_view text);

// Degrees, 0 to 360.
double ParseAngle(std::string_view text);

// The AspType of a class (AC) and a type (AY, empty when there is none).
std::string AspTypeFor(std::string_view airspaceClass, std::string_view type);

// Without the blanks and tabs at both ends.
std::string_view TrimWhite(std::string_view text);

// The same in upper case; other letters than those of ASCII stay.
std::string Upper(std::string_view text);

} // namespace ornivane
