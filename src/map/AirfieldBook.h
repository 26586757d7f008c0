#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "base/RuntimeError.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// What the map says of an airfield.
struct AirfieldInfo {
    bool IsPaved = false;
    std::optional<double> Heading; // degrees; of the longest runway of that surface
    std::string Runway;            // "07/25 - 1200 m "
    std::string Information;       // "KOELN INFO 120.250"; empty without a station
    std::string Atis;              // likewise
};

// There is nothing to show for a code: no airfield has it, or the one that has it lacks a runway of the kind
// that it claims.
struct MissingAirfield : RuntimeError {
    enum class Kind { Paved, Grass };
    MissingAirfield(const std::string& icao, std::optional<Kind> kindOfRunway)
        : RuntimeError(ErrorNumber::NoCurrentRecord, icao), Icao(icao), KindOfRunway(kindOfRunway) {}
    std::string Icao;
    std::optional<Kind> KindOfRunway; // the one that is missing; none without an airfield
};

// The airfields of the store, by ICAO code. The store never changes while the program runs, so each airfield
// is looked up once.
class AirfieldBook {
public:
    explicit AirfieldBook(Connection& airfieldConn) : airfields(airfieldConn) {}

    // Good as long as the book. MissingAirfield when there is none to show.
    const AirfieldInfo& Of(const std::string& icao);
    // Null instead of the error.
    const AirfieldInfo* Find(const std::string& icao);

private:
    struct Entry {
        bool HasAirport = false, HasRunway = false;
        AirfieldInfo Info;
    };
    const Entry& EntryOf(const std::string& icao);
    Entry LookUp(const std::string& icao);
    void ReadRunway(const std::string& icao, Entry& entry);
    void ReadRadio(const std::string& icao, AirfieldInfo& info);

    Connection& airfields;
    Statement airports, runways, radio;
    std::unordered_map<std::string, Entry> entries;
};

} // namespace ornivane
