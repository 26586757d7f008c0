#pragma once

#include <string>
#include <vector>

namespace ornivane::airfields {

struct Runway {
    int Length = 0; // metres, 0 not known
    bool Paved = false;
    std::string Designator; // "07/25"; may be empty
    std::string Heading;    // "068"; empty when not known
    bool operator==(const Runway&) const = default;
};

struct Station {
    std::string Name, Frequency; // "Köln TWR", "119.025"
    bool operator==(const Station&) const = default;
};

struct Airfield {
    std::string Code;                   // four letters or digits, upper case
    double Latitude = 0, Longitude = 0; // decimal degrees, WGS 84
    std::string Country;                // two-letter code
    std::vector<Runway> Runways;
    std::vector<Station> Stations;
};

} // namespace ornivane::airfields
