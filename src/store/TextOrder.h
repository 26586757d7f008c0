#pragma once

#include <string_view>

namespace ornivane {

// How texts compare in the stores, in Sort and in Find: below 0, 0 or above 0. Case does not matter; ä sorts
// with a, ö with o, ü with u, ß with ss, other accented letters with their base letter, but equality still
// tells them apart. UTF-8; bytes that are none compare by value.
int CompareText(std::string_view a, std::string_view b);

// By which names are sorted and looked up.
struct TextBefore {
    bool operator()(std::string_view a, std::string_view b) const { return CompareText(a, b) < 0; }
};

// Whether the text begins with the prefix by the same rule (accents count, case does not).
bool StartsWith(std::string_view text, std::string_view prefix);

} // namespace ornivane
