#include "airfield-import/Conversion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <span>

#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane::airfields {

namespace {

constexpr double MetresPerFoot = 0.3048;

bool IsLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool ContainsOneOf(std::string_view text, std::span<const std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](auto word) { return text.find(word) != std::string_view::npos; });
}

// 1 to 36 from "7", "07" or "07L"; the letters behind it in rest.
std::optional<int> RunwayNumber(std::string_view ident, std::string_view& rest) {
    std::size_t digits = 0;
    int number = 0;
    for (; digits < ident.size() && digits < 2 && IsDigit(ident[digits]); ++digits)
        number = number * 10 + (ident[digits] - '0');
    rest = ident.substr(digits);
    const bool oneLetterAtMost = rest.empty() || (rest.size() == 1 && IsLetter(rest[0]));
    if (digits == 0 || !oneLetterAtMost || number < 1 || number > 36) return std::nullopt;
    return number;
}

std::string EndText(std::string_view ident) {
    std::string_view rest;
    std::string upper = UpperAscii(ident);
    const auto number = RunwayNumber(upper, rest);
    if (!number) return upper;
    return (*number < 10 ? "0" : "") + std::to_string(*number) + std::string(rest);
}

std::optional<double> Heading(std::string_view text) {
    const auto degrees = ParsePlainNumber(text);
    return degrees && *degrees >= 0 && *degrees <= 360 ? degrees : std::nullopt;
}

std::optional<double> HeadingOfIdent(std::string_view ident) {
    std::string_view rest;
    const std::string upper = UpperAscii(ident);
    if (const auto number = RunwayNumber(upper, rest)) return *number * 10.0;
    return std::nullopt;
}

std::optional<double> Opposite(std::optional<double> heading) {
    return heading ? std::optional(std::fmod(*heading + 180, 360)) : heading;
}

struct Kind {
    std::string_view Type;                 // as the data have it
    std::string_view Added;                // what the name gets when it does not say its kind
    std::array<std::string_view, 4> Words; // any of them says it
    std::size_t WordCount;
};

// Aerodrome flight information is what the program knows as an INFO station, so it gets that word.
constexpr std::array Kinds = {
    Kind{"ATIS", "ATIS", {"ATIS"}, 1},         Kind{"TWR", "TWR", {"TWR", "TOWER", "START", "TURM"}, 4},
    Kind{"AFIS", "INFO", {"INFO"}, 1},         Kind{"INFO", "INFO", {"INFO"}, 1},
    Kind{"GND", "GND", {"GND", "GROUND"}, 2},  Kind{"APP", "APP", {"APP", "RADAR", "ARRIVAL"}, 3},
    Kind{"DEP", "DEP", {"DEP", "RADAR"}, 2},   Kind{"CLD", "CLD", {"CLD", "CLEARANCE", "DELIVERY"}, 3},
    Kind{"RDO", "RADIO", {"RADIO", "RDO"}, 2}, Kind{"UNIC", "UNICOM", {"UNIC"}, 1},
};

} // namespace

Surface SurfaceOf(std::string_view text) {
    constexpr std::array<std::string_view, 20> Paved = {"ASP", "ASF", "BET",  "BIT", "BRI", "CEM", "CON",
                                                        "COM", "COP", "HARD", "MAC", "MET", "PAV", "PEM",
                                                        "PSP", "ROO", "SEAL", "STE", "TAR", "ALU"};
    const std::string upper = UpperAscii(text);
    const std::size_t letter = std::min(upper.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), upper.size());
    const std::string_view word = std::string_view(upper).substr(letter);
    if (word.empty() || word == "U" || word == "X" || word.starts_with("UNK")) return Surface::Unknown;
    const bool paved = std::ranges::any_of(Paved, [&](auto start) { return word.starts_with(start); });
    return paved ? Surface::Paved : Surface::Unpaved;
}

int MetresOf(double feet) { return static_cast<int>(std::lround(feet * MetresPerFoot)); }

std::string DesignatorOf(std::string_view low, std::string_view high) {
    if (low.empty() || high.empty()) return EndText(low.empty() ? high : low);
    return EndText(low) + "/" + EndText(high);
}

std::string HeadingOf(const RunwayEnd& low, const RunwayEnd& high) {
    auto heading = Heading(low.Heading);
    if (!heading) heading = Opposite(Heading(high.Heading));
    if (!heading) heading = HeadingOfIdent(low.Ident);
    if (!heading) heading = Opposite(HeadingOfIdent(high.Ident));
    if (!heading) return {};
    const long whole = std::lround(*heading) % 360;
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%03d", whole == 0 ? 360 : static_cast<int>(whole));
    return text.data();
}

std::string FrequencyText(double megahertz) {
    long kilohertz = std::lround(megahertz * 1000);
    // Two decimals are the old short form of a channel: 119.02 and 119.07 mean 119.025 and 119.075, and no
    // channel is named 119.020 or 119.070.
    if (kilohertz >= 118000 && kilohertz < 137000 && kilohertz % 50 == 20) kilohertz += 5;
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%ld.%03ld", kilohertz / 1000, kilohertz % 1000);
    return text.data();
}

std::string StationName(const FrequencyWords& words) {
    const auto [type, description] = words;
    const std::string upperType = UpperAscii(type), upper = UpperAscii(description);
    std::string_view added = type;
    bool said = upper.find(upperType) != std::string::npos;
    for (const Kind& kind : Kinds) {
        if (kind.Type != upperType) continue;
        said = ContainsOneOf(upper, {kind.Words.data(), kind.WordCount});
        added = kind.Added;
    }
    // "Arrival information" of an ATIS would pass for the airfield's information station.
    if (upperType == "ATIS" && upper.find("INFO") != std::string::npos) return "ATIS";
    if (description.empty()) return std::string(added);
    if (said) return std::string(description);
    return std::string(description) + " " + std::string(added);
}

} // namespace ornivane::airfields
