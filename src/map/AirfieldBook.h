#pragma once

#include <string>
#include <unordered_map>

#include "store/Statement.h"

namespace ornivane {

class Connection;

// What the map says of an airfield.
struct AirfieldInfo {
    bool IsPaved = false;
    double Heading = NoHeading; // degrees; of the longest runway of that surface
    std::string Runway;         // "07/25 - 1200 m "
    std::string Information;    // "KOELN INFO 120.250"; empty without a station
    std::string Atis;           // likewise
    static constexpr double NoHeading = -99;
};

// The airfields of the store, by ICAO code. The store never changes while the program runs, so each airfield
// is looked up once.
class AirfieldBook {
public:
    explicit AirfieldBook(Connection& airfieldConn) : airfields(airfieldConn) {}

    // Good as long as the book. RuntimeError NoCurrentRecord for a code without airfield or without a runway
    // of the surface that it claims.
    const AirfieldInfo& Of(const std::string& icao);
    // Null instead of the error.
    const AirfieldInfo* Find(const std::string& icao);

private:
    struct Entry {
        bool IsKnown = false;
        AirfieldInfo Info;
    };
    void Prepare();
    Entry LookUp(const std::string& icao);
    bool ReadRunway(const std::string& icao, AirfieldInfo& info);
    void ReadRadio(const std::string& icao, AirfieldInfo& info);

    Connection& airfields;
    Statement airports, runways, radio;
    std::unordered_map<std::string, Entry> entries;
};

} // namespace ornivane
