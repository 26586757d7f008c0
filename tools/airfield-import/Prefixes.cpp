#include "airfield-import/Prefixes.h"

#include <algorithm>

#include "base/Strings.h"

namespace ornivane::airfields {

namespace {

using Countries = std::map<std::string, std::size_t>;

constexpr std::size_t LongestName = 50;
constexpr std::size_t SuffixLength = 5; // " (ED)"

// From the one with the most airfields on.
std::vector<std::pair<std::string, std::size_t>> Ranked(const Countries& countries) {
    std::vector<std::pair<std::string, std::size_t>> ranked(countries.begin(), countries.end());
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    return ranked;
}

// The country with at least four fifths, or none.
std::string Dominant(const Countries& countries) {
    std::size_t all = 0;
    for (const auto& [country, count] : countries) all += count;
    for (const auto& [country, count] : countries)
        if (count * 5 >= all * 4) return country;
    return {};
}

std::string NameOf(const Countries& countries, const std::map<std::string, std::string>& names) {
    const auto name = [&](const std::string& code) {
        const auto found = names.find(code);
        return found == names.end() || found->second.empty() ? code : found->second;
    };
    const std::string dominant = Dominant(countries);
    if (!dominant.empty()) return std::string(FirstCharacters(name(dominant), LongestName - SuffixLength));
    std::string joined;
    for (const auto& [code, count] : Ranked(countries)) {
        const std::string longer = joined + (joined.empty() ? "" : ", ") + name(code);
        if (!joined.empty() && CharacterCount(longer) > LongestName - SuffixLength) break;
        joined = longer;
    }
    return std::string(FirstCharacters(joined, LongestName - SuffixLength));
}

} // namespace

bool IsAllLetters(std::string_view code) {
    return std::all_of(code.begin(), code.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

void PrefixTally::Count(const Airfield& field) {
    if (!IsAllLetters(field.Code)) return;
    for (const std::size_t length : {1u, 2u}) ++countries[field.Code.substr(0, length)][field.Country];
}

std::string PrefixTally::CountryOf(std::string_view code) const {
    for (const std::size_t length : {2u, 1u}) {
        const auto found = countries.find(code.substr(0, length));
        if (found != countries.end()) return Dominant(found->second);
    }
    return {};
}

std::vector<std::pair<std::string, std::string>>
NamedPrefixes(const std::vector<Airfield>& fields, const std::map<std::string, std::string>& countryNames) {
    std::map<std::string, Countries> byPrefix;
    for (const Airfield& field : fields) ++byPrefix[field.Code.substr(0, 2)][field.Country];
    std::vector<std::pair<std::string, std::string>> named;
    std::map<std::string, std::size_t> uses; // the program's comparison ignores case
    for (const auto& [prefix, countries] : byPrefix) {
        named.emplace_back(prefix, NameOf(countries, countryNames));
        ++uses[LowerAscii(named.back().second)];
    }
    for (auto& [prefix, name] : named)
        if (uses[LowerAscii(name)] > 1) name += " (" + prefix + ")";
    return named;
}

} // namespace ornivane::airfields
