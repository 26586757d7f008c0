#pragma once

#include <ostream>
#include <string>

#include "base/Numbers.h"
#include "base/Readout.h"

namespace ornivane {

// A display that shows this number, or "---".
inline Readout Showing(const std::string& text) { return {ParseNumber(text), {"##0.######", ""}}; }

// Displays are compared by their texts.
inline bool operator==(const Readout& shown, const char* text) {
    return shown.TextWithUnit(LocaleText()) == text;
}
inline void PrintTo(const Readout& shown, std::ostream* out) { *out << shown.TextWithUnit(LocaleText()); }

} // namespace ornivane
