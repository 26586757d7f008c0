#include "airspace-import/Fields.h"

#include <algorithm>
#include <array>
#include <optional>

#include "airspace-import/Unusable.h"
#include "base/Numbers.h"
#include "base/Strings.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr std::string_view Digits = "0123456789.", Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::size_t LongestClass = 16;

// Takes a text apart from the front.
class Cursor {
public:
    explicit Cursor(std::string_view of) : rest(of) { SkipBlanks(); }

    bool AtEnd() const { return rest.empty(); }
    // The signs of a set that come next, perhaps none; blanks behind them are skipped.
    std::string_view Take(std::string_view set) {
        const auto taken = rest.substr(0, rest.find_first_not_of(set));
        rest.remove_prefix(taken.size());
        SkipBlanks();
        return taken;
    }
    bool Take(char sign) {
        if (rest.empty() || rest.front() != sign) return false;
        rest.remove_prefix(1);
        SkipBlanks();
        return true;
    }

private:
    void SkipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size())); }

    std::string_view rest;
};

double NumberOf(std::string_view digits, const char* what) {
    const auto number = digits.empty() ? std::nullopt : ParsePlainNumber(digits);
    if (!number) throw Unusable(std::string(what) + " without a number");
    return *number;
}

// -1, 1, or 0 when neither comes next.
int TakeSide(Cursor& cursor, char positive, char negative) {
    if (cursor.Take(positive)) return 1;
    return cursor.Take(negative) ? -1 : 0;
}

// One coordinate of a position: how it is called, its letters, and its greatest value in degrees.
struct Axis {
    const char* Name;
    char Positive, Negative;
    double Most;
};

double TakeAngle(Cursor& cursor, const Axis& axis) {
    const auto [what, positive, negative, most] = axis;
    int side = TakeSide(cursor, positive, negative);
    double angle = 0, unit = 1;
    for (int field = 0; field < 3; ++field) {
        const auto digits = cursor.Take(Digits);
        const double value = NumberOf(digits, what);
        if (field > 0 && value >= 60) throw Unusable(std::string(what) + " with 60 minutes or seconds");
        angle += value / unit;
        unit *= 60;
        if (field == 2 || !cursor.Take(':')) break;
        if (digits.find('.') != std::string_view::npos)
            throw Unusable(std::string(what) + " with a fraction before the last place");
    }
    if (side == 0) side = TakeSide(cursor, positive, negative);
    if (side == 0) throw Unusable(std::string(what) + " without " + positive + " or " + negative);
    if (angle > most) throw Unusable(std::string(what) + " beyond " + NumberText(most) + " degrees");
    return side * angle;
}

template <std::size_t Count>
bool Is(std::string_view word, const std::array<std::string_view, Count>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

struct LimitWords {
    std::optional<double> Number;
    bool Level = false, Feet = false, Metres = false, Sea = false, Ground = false, Standard = false,
         Unlimited = false;
};

void TakeWord(LimitWords& words, std::string_view word) {
    static constexpr std::array<std::string_view, 3> feet{"FT", "FEET", "F"};
    static constexpr std::array<std::string_view, 5> metres{"M", "METER", "METERS", "METRES", "MTR"};
    static constexpr std::array<std::string_view, 4> sea{"MSL", "AMSL", "ALT", "ASL"};
    static constexpr std::array<std::string_view, 6> ground{"GND", "SFC", "AGL", "ASFC", "SURFACE", "GROUND"};
    static constexpr std::array<std::string_view, 4> unlimited{"UNL", "UNLTD", "UNLIM", "UNLIMITED"};
    bool& flag = word == "FL"          ? words.Level
                 : word == "STD"       ? words.Standard
                 : Is(word, feet)      ? words.Feet
                 : Is(word, metres)    ? words.Metres
                 : Is(word, sea)       ? words.Sea
                 : Is(word, ground)    ? words.Ground
                 : Is(word, unlimited) ? words.Unlimited
                                       : throw Unusable("a limit with \"" + std::string(word) + "\"");
    flag = true;
}

LimitWords ReadLimit(std::string_view text) {
    LimitWords words;
    for (Cursor cursor(text); !cursor.AtEnd();) {
        if (const auto word = cursor.Take(Letters); !word.empty()) {
            TakeWord(words, word);
            continue;
        }
        const auto digits = cursor.Take(Digits);
        if (digits.empty() || words.Number) throw Unusable("a limit that is no height: " + std::string(text));
        words.Number = NumberOf(digits, "a limit");
    }
    return words;
}

} // namespace

Position ParsePosition(std::string_view text) {
    const std::string upper = Upper(text);
    Cursor cursor(upper);
    const Latitude latitude(TakeAngle(cursor, {"a latitude", 'N', 'S', 90}));
    const Longitude longitude(TakeAngle(cursor, {"a longitude", 'E', 'W', 180}));
    if (!cursor.AtEnd()) throw Unusable("a position with more behind it");
    return {latitude, longitude};
}

Limit ParseLimit(std::string_view text) {
    const LimitWords words = ReadLimit(Upper(text));
    const int references = (words.Level || words.Standard) + words.Sea + words.Ground + words.Unlimited;
    const bool number = words.Number.has_value();
    // Without a number the word itself is the height: the ground or no limit at all.
    if (references > 1 || (words.Feet + words.Metres + words.Level > 1) || (number && words.Unlimited) ||
        (!number && !words.Ground && !words.Unlimited))
        throw Unusable("a limit that is no height: " + Upper(text));
    if (words.Unlimited) return {Limit::Unlimited, Limit::Reference::Sea};
    double feet = words.Number.value_or(0);
    if (words.Level) feet *= 100;
    if (words.Metres) feet = Round(feet * FeetPerMetre);
    if (feet > Limit::Unlimited) throw Unusable("a limit beyond 99999 feet");
    if (feet == 0 || words.Ground) return {feet, Limit::Reference::Ground};
    return {feet, words.Level || words.Standard ? Limit::Reference::FlightLevel : Limit::Reference::Sea};
}

double ParseRadius(std::string_view text) {
    const std::string upper = Upper(text);
    Cursor cursor(upper);
    const double radius = NumberOf(cursor.Take(Digits), "a radius");
    const auto unit = cursor.Take(Letters);
    if (!cursor.AtEnd() || (!unit.empty() && unit != "NM"))
        throw Unusable("a radius that is not in nautical miles");
    if (radius <= 0) throw Unusable("a radius of 0");
    if (radius > 500) throw Unusable("a radius above 500 nautical miles");
    return radius;
}

double ParseAngle(std::string_view text) {
    Cursor cursor(text);
    const double angle = NumberOf(cursor.Take(Digits), "an angle");
    if (!cursor.AtEnd() || angle > 360) throw Unusable("an angle that is not 0 to 360 degrees");
    return angle;
}

std::string AspTypeFor(std::string_view airspaceClass, std::string_view type) {
    static constexpr std::array<std::string_view, 3> told{"TMZ", "CTR", "Q"};
    static constexpr std::array<std::string_view, 3> nothing{"", "UNC", "UNCLASSIFIED"};
    const std::string given = Upper(airspaceClass), kind = Upper(type);
    // The newer form of these files has the danger area as a type with the letter that also is a class.
    const std::string_view named = kind == "D" ? "Q" : std::string_view(kind);
    std::string result(Is(named, told) || (Is(given, nothing) && !named.empty()) ? named : given);
    if (result.empty()) throw Unusable("no class");
    if (result.size() > LongestClass ||
        result.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 -_/+") != std::string::npos)
        throw Unusable("a class that is no name: " + result);
    // "A" alone is the store's mark of a traffic pattern, which has another colour, another selection and
    // no heights.
    return result == "A" ? "CLASS A" : result;
}

std::string_view TrimWhite(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Upper(std::string_view text) { return UpperAscii(TrimWhite(text)); }

} // namespace ornivane
