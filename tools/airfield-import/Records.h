#pragma once

#include <cstdint>
#include <string_view>

namespace ornivane::airfields {

// Where a row was read: a file and its line, or a table of a database file and its row.
struct Place {
    std::string_view File;
    std::int64_t Line = 0;
};

// The rows of a source as the texts that stand there, nothing checked yet; empty is not known. The texts live
// as long as the call that hands the row over.

struct CountryRecord {
    Place Where;
    std::string_view Code, Name;
};

struct AirportRecord {
    Place Where;
    std::string_view Id, Ident, Type;
    std::string_view IcaoCode, GpsCode;
    std::string_view Latitude, Longitude; // degrees
    std::string_view Country;             // code
};

struct RunwayRecord {
    Place Where;
    std::string_view AirportId, AirportIdent; // either names the airport
    std::string_view Length;                  // feet
    std::string_view Surface, Lighted, Closed;
    std::string_view LowIdent, LowHeading; // degrees true
    std::string_view HighIdent, HighHeading;
};

struct FrequencyRecord {
    Place Where;
    std::string_view AirportId, AirportIdent;
    std::string_view Type, Description;
    std::string_view Frequency; // MHz
};

} // namespace ornivane::airfields
