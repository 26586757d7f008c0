#include "map/AirfieldBook.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/Numbers.h"

namespace ornivane {

namespace {

// The services of whole regions, which are no station of an airfield.
constexpr std::string_view RegionServices[] = {"LANGEN", "MÜNCHEN", "MUNICH", "MUNCHEN", "BERLIN", "BREMEN"};
constexpr std::string_view TowerWords[] = {"TWR", "TOWER", "START", "TURM"};
constexpr double NoDirection = -99; // as a store may have it

// Latin letters with their accents, of one and two bytes.
std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (std::size_t i = 0; i < upper.size(); ++i) {
        const auto c = static_cast<unsigned char>(upper[i]);
        const bool isPlain = c >= 'a' && c <= 'z';
        const bool isAccented =
            i > 0 && static_cast<unsigned char>(upper[i - 1]) == 0xC3 && c >= 0xA0 && c <= 0xBE;
        if (isPlain || isAccented) upper[i] = static_cast<char>(c - 0x20);
    }
    return upper;
}

template <typename Words>
bool HasAny(const std::string& text, const Words& words) {
    return std::any_of(std::begin(words), std::end(words),
                       [&](std::string_view word) { return text.find(word) != std::string::npos; });
}

std::string AsShown(const Statement& row, int column) { return row.ColumnValue(column).TextOrEmpty(); }

} // namespace

const AirfieldBook::Entry& AirfieldBook::EntryOf(const std::string& icao) {
    auto found = entries.find(icao);
    if (found == entries.end()) found = entries.emplace(icao, LookUp(icao)).first;
    return found->second;
}

const AirfieldInfo* AirfieldBook::Find(const std::string& icao) {
    const Entry& entry = EntryOf(icao);
    return entry.HasRunway ? &entry.Info : nullptr;
}

const AirfieldInfo& AirfieldBook::Of(const std::string& icao) {
    using Kind = MissingAirfield::Kind;
    const Entry& entry = EntryOf(icao);
    if (!entry.HasAirport) throw MissingAirfield(icao, std::nullopt);
    if (!entry.HasRunway) throw MissingAirfield(icao, entry.Info.IsPaved ? Kind::Paved : Kind::Grass);
    return entry.Info;
}

AirfieldBook::Entry AirfieldBook::LookUp(const std::string& icao) {
    Entry entry;
    try {
        ReadRadio(icao, entry.Info);
        ReadRunway(icao, entry);
    } catch (const RuntimeError& error) {
        throw Located("ovdata.ovd, " + icao, error);
    }
    return entry;
}

void AirfieldBook::ReadRunway(const std::string& icao, Entry& entry) {
    AirfieldInfo& info = entry.Info;
    const StatementRun airportRun(airports, airfields, "SELECT RWYALen, RWYGLen from ARPT Where ICAO = ?",
                                  {icao});
    entry.HasAirport = airports.Step();
    if (!entry.HasAirport) return;
    const double paved = airports.IsNull(0) ? 0 : airports.Number(0);
    info.IsPaved = paved > 0;
    const double length = info.IsPaved ? paved : airports.IsNull(1) ? 0 : airports.Number(1);

    const StatementRun runwayRun(
        runways, airfields,
        "SELECT rwy, RWYHdg from RWY Where ICAO = ? AND Surface = ? ORDER BY LENGTH DESC LIMIT 1",
        {icao, info.IsPaved ? "0" : "1"});
    entry.HasRunway = runways.Step();
    if (!entry.HasRunway) return;
    info.Runway = AsShown(runways, 0) + " - " + NumberText(length) + " m ";
    info.Heading = ParsePlainNumber(AsShown(runways, 1).substr(0, 3));
    if (info.Heading == NoDirection) info.Heading.reset();
}

void AirfieldBook::ReadRadio(const std::string& icao, AirfieldInfo& info) {
    struct Station {
        std::string Upper, Shown;
    };
    std::vector<Station> stations;
    const StatementRun run(radio, airfields, "SELECT Name, Freq from ACOM Where ICAO = ?", {icao});
    while (radio.Step())
        stations.push_back({UpperCase(AsShown(radio, 0)), AsShown(radio, 0) + " " + AsShown(radio, 1)});
    // The last one of its kind is taken.
    for (const Station& station : stations) {
        if (station.Upper.find("ATIS") != std::string::npos) info.Atis = station.Shown;
        if (station.Upper.find("INFO") != std::string::npos && !HasAny(station.Upper, RegionServices))
            info.Information = station.Shown;
    }
    if (!info.Information.empty()) return;
    const auto tower = std::find_if(stations.begin(), stations.end(),
                                    [](const Station& station) { return HasAny(station.Upper, TowerWords); });
    if (tower != stations.end()) info.Information = tower->Shown;
}

} // namespace ornivane
