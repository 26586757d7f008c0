#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "airfield-import/AirportList.h"
#include "airfield-import/Records.h"

namespace ornivane::airfields {

class Report;

// Takes the rows of a source, checks them, and keeps what the program can use. The order: airports,
// EndOfAirports, runways and frequencies; countries at any time.
class Collector {
public:
    struct Counts {
        std::size_t Airports = 0, Runways = 0, Frequencies = 0; // rows read
    };

    Collector(Report& to, Extent extent) : report(to), airports(to, extent) {}

    void Take(const CountryRecord& record);
    void Take(const AirportRecord& record);
    void EndOfAirports() { airports.Close(); }
    void Take(const RunwayRecord& record);
    void Take(const FrequencyRecord& record);

    Report& Refusals() { return report; }
    const Counts& Read() const { return counts; }
    // Names by country code.
    const std::map<std::string, std::string>& Countries() const { return countries; }
    // Sorted by code, each complete (see Completed); leaves none here.
    std::vector<Airfield> Release();

private:
    AirportList::Entry* OwnerOf(const Place& place, std::string_view id, std::string_view ident,
                                const char* leftOut);

    Report& report;
    AirportList airports;
    Counts counts;
    std::map<std::string, std::string> countries;
};

// The longest runway of a surface, metres; 0 when there is none.
int LongestRunway(const Airfield& field, bool paved);

// The program draws the longest paved runway or, with none, an unpaved one, and cannot draw an airfield that
// lacks the one it asks for: it would end the drawing of the whole map. So where no paved runway has a
// length, all count as unpaved, and an airfield without any gets one of which nothing is known.
Airfield Completed(Airfield field);

} // namespace ornivane::airfields
