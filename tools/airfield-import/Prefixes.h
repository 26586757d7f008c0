#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "airfield-import/Airfield.h"

namespace ornivane::airfields {

bool IsAllLetters(std::string_view code);

// Which country the prefix of a location indicator stands for, learned from the airfields themselves. Only
// codes of four letters teach: those with digits are national lists that run across all prefixes.
class PrefixTally {
public:
    void Count(const Airfield& field);
    // The country that has at least four fifths of the code's two-letter prefix or, where nobody has that
    // prefix, of its first letter (C is Canada, K the United States); empty when there is none.
    std::string CountryOf(std::string_view code) const;

private:
    std::map<std::string, std::map<std::string, std::size_t>, std::less<>>
        countries; // by prefix, then country
};

// The two-letter prefixes of all these airfields with their countries' names, sorted by prefix. Every prefix
// has a name and no two have the same, because the program finds the prefix by the name: a country of several
// prefixes has them behind its name, "Germany (ED)" and "Germany (ET)", and a prefix that no country has four
// fifths of is named after all of them. At most 50 characters, what the program's list holds.
std::vector<std::pair<std::string, std::string>>
NamedPrefixes(const std::vector<Airfield>& fields, const std::map<std::string, std::string>& countryNames);

} // namespace ornivane::airfields
