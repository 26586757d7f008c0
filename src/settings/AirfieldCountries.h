#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ornivane {

class Connection;

// The airfields of the airfield store whose codes begin alike.
struct AirfieldCountry {
    std::string Icao; // the prefix, two characters
    std::string Name; // "Kein Land gefunden" for a prefix that the store does not name
    long Anzahl = 0;  // airfields
    bool operator==(const AirfieldCountry&) const = default;
};

// The prefix of a code: its first two characters, without blanks.
std::string CountryPrefix(std::string_view icao);

// One for each prefix, by name; those of one name in the order of their prefixes. RuntimeError StoreError.
std::vector<AirfieldCountry> ReadAirfieldCountries(Connection& airfieldConn);

} // namespace ornivane
