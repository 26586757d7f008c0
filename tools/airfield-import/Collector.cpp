#include "airfield-import/Collector.h"

#include <algorithm>

#include "airfield-import/Conversion.h"
#include "airfield-import/Report.h"
#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane::airfields {

namespace {

constexpr double LongestFeet = 50000; // marked lake beds reach 40000
constexpr double LowestMegahertz = 108, HighestMegahertz = 137;
constexpr int SurelyPavedMetres = 1200;
constexpr std::size_t LongestDesignatorEnd = 8, LongestStationName = 80; // characters

bool IsSet(std::string_view flag) { return flag == "1" || flag == "true" || flag == "TRUE"; }

// Where the surface is not given, lights, a length of 1200 m or an airport of some size suggest a paved one;
// else it counts as grass, on which the pilot relies less.
bool IsPaved(const RunwayRecord& record, int length, bool largeOrMedium) {
    const Surface surface = SurfaceOf(record.Surface);
    if (surface != Surface::Unknown) return surface == Surface::Paved;
    return IsSet(record.Lighted) || length >= SurelyPavedMetres || largeOrMedium;
}

} // namespace

void Collector::Take(const CountryRecord& record) {
    if (record.Code.empty() || record.Name.empty())
        report.Refuse(record.Where, "a country without code or name");
    else
        countries.try_emplace(UpperAscii(record.Code), record.Name);
}

void Collector::Take(const AirportRecord& record) {
    ++counts.Airports;
    airports.Take(record);
}

void Collector::Take(const RunwayRecord& record) {
    ++counts.Runways;
    auto* owner =
        OwnerOf(record.Where, record.AirportId, record.AirportIdent, "runways of airports left out");
    if (!owner) return;
    if (IsSet(record.Closed)) return report.LeaveOut("closed runways");
    const double feet = record.Length.empty() ? 0 : ParsePlainNumber(record.Length).value_or(-1);
    if (feet < 0 || feet > LongestFeet)
        return report.Refuse(record.Where,
                             "length " + Shown(record.Length) + " is no number from 0 to 50000");
    if (CharacterCount(record.LowIdent) > LongestDesignatorEnd ||
        CharacterCount(record.HighIdent) > LongestDesignatorEnd)
        return report.Refuse(record.Where, "a runway designator of more than 8 characters");
    Runway runway;
    runway.Length = MetresOf(feet);
    runway.Paved = IsPaved(record, runway.Length, owner->LargeOrMedium);
    runway.Designator = DesignatorOf(record.LowIdent, record.HighIdent);
    runway.Heading = HeadingOf({record.LowIdent, record.LowHeading}, {record.HighIdent, record.HighHeading});
    owner->Field.Runways.push_back(std::move(runway));
}

void Collector::Take(const FrequencyRecord& record) {
    ++counts.Frequencies;
    auto* owner =
        OwnerOf(record.Where, record.AirportId, record.AirportIdent, "frequencies of airports left out");
    if (!owner) return;
    const double megahertz = ParsePlainNumber(record.Frequency).value_or(0);
    if (megahertz <= 0 || megahertz >= 1000)
        return report.Refuse(record.Where, "frequency " + Shown(record.Frequency) + " is none in MHz");
    if (megahertz < LowestMegahertz || megahertz >= HighestMegahertz)
        return report.LeaveOut("frequencies outside 108 to 137 MHz");
    Station station{StationName({record.Type, record.Description}), FrequencyText(megahertz)};
    if (station.Name.empty()) return report.Refuse(record.Where, "a frequency without type and description");
    if (CharacterCount(station.Name) > LongestStationName)
        return report.Refuse(record.Where, "a station's name of more than 80 characters");
    owner->Field.Stations.push_back(std::move(station));
}

AirportList::Entry* Collector::OwnerOf(const Place& place, std::string_view id, std::string_view ident,
                                       const char* leftOut) {
    const auto found = airports.Find(id, ident);
    if (!found.Known) report.Refuse(place, "there is no airport " + Shown(ident.empty() ? id : ident));
    if (found.Known && !found.Taken) report.LeaveOut(leftOut);
    return found.Taken;
}

std::vector<Airfield> Collector::Release() {
    std::vector<Airfield> fields = airports.Release();
    for (Airfield& field : fields) field = Completed(std::move(field));
    return fields;
}

int LongestRunway(const Airfield& field, bool paved) {
    int longest = 0;
    for (const Runway& runway : field.Runways)
        if (runway.Paved == paved) longest = std::max(longest, runway.Length);
    return longest;
}

Airfield Completed(Airfield field) {
    if (LongestRunway(field, true) == 0)
        for (Runway& runway : field.Runways) runway.Paved = false;
    if (field.Runways.empty()) field.Runways.emplace_back();
    return field;
}

} // namespace ornivane::airfields
