#include "map/MapCatalogue.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace ornivane {

namespace {

constexpr const char* AllMaps = "SELECT * FROM Maps ORDER BY Name";
constexpr const char* ActiveMaps = "SELECT * FROM Maps WHERE Active <> 0 ORDER BY Name";
constexpr const char* CoveringMaps =
    "SELECT Name FROM Maps WHERE Active <> 0 AND ? BETWEEN Links AND Rechts AND ? BETWEEN Unten AND Oben";
constexpr std::array EdgeFields = {"Unten", "Oben", "Links", "Rechts"};

// RuntimeError also for an extent of so many degrees that nothing would be left of the scale.
double PixelsPerTenth(double pixels, double degrees) {
    const double perTenth = CheckedDivide(pixels, degrees * 10.0);
    if (perTenth == 0) throw RuntimeError(ErrorNumber::Overflow);
    return perTenth;
}

void SetEntry(Recordset& all, const MapCatalogue::Entry& entry, MapCatalogue::Tick tick) {
    const bool isNew = !MapCatalogue::StandOn(all, entry.Name);
    if (isNew && !entry.Size) throw RuntimeError(ErrorNumber::TypeMismatch, "Breite");
    const bool flips = tick == MapCatalogue::Tick::Flip;
    // A damaged tick keeps nobody from saving the frame.
    const bool wasActive = flips && !isNew && MapCatalogue::IsActive(all);
    if (isNew) all.AddNew();
    for (std::size_t i = 0; i < EdgeFields.size(); ++i) all.Set(EdgeFields[i], entry.Edges[i]);
    all.Set("Name", entry.Name);
    if (entry.Size) {
        all.Set("Breite", entry.Size->Breite);
        all.Set("Höhe", entry.Size->Höhe);
    }
    if (isNew || flips) all.Set("Active", wasActive != flips);
    all.Update();
}

} // namespace

void MapCatalogue::OpenAll(Recordset& list) const { list.Open(dataConn, AllMaps); }

void MapCatalogue::OpenActive(Recordset& list) const { list.Open(dataConn, ActiveMaps); }

std::vector<std::string> MapCatalogue::ActiveNames() const {
    Recordset list;
    OpenActive(list);
    std::vector<std::string> names;
    for (; !list.Eof(); list.MoveNext()) names.push_back(NameOf(list));
    return names;
}

bool MapCatalogue::IsActive(const Recordset& row) {
    const Value active = row.Get("Active");
    return !active.IsNull() && active.Boolean();
}

bool MapCatalogue::StandOn(Recordset& list, const std::string& name) {
    list.MoveFirst();
    return list.RecordCount() > 0 && list.Find("Name", Comparison::Equal, name);
}

// What was set and not written would go into the store with the next move, for another chart.
void MapCatalogue::Write(Recordset& all, const Entry& entry, Tick tick) {
    RestoreOnError([&] { SetEntry(all, entry, tick); }, [&] { all.CancelUpdate(); });
}

FrameEdges MapCatalogue::EdgesOf(const Recordset& row) {
    FrameEdges edges{};
    for (std::size_t i = 0; i < edges.size(); ++i) edges[i] = row.Number(EdgeFields[i]);
    return edges;
}

MapFrame MapCatalogue::FrameOf(const Recordset& row) {
    const auto [bottom, top, left, right] = EdgesOf(row);
    return {StoredLatitude(bottom), StoredLatitude(top),  StoredLongitude(left),
            StoredLongitude(right), row.Number("Breite"), row.Number("Höhe")};
}

MapScale MapCatalogue::ScaleOf(const MapFrame& frame) {
    const Longitude west = ToDecimalDegrees(frame.Links), east = ToDecimalDegrees(frame.Rechts);
    const Latitude south = ToDecimalDegrees(frame.Unten), north = ToDecimalDegrees(frame.Oben);
    return {west, south, frame.Höhe, PixelsPerTenth(frame.Höhe, north.Degrees() - south.Degrees()),
            PixelsPerTenth(frame.Breite, east.Degrees() - west.Degrees())};
}

std::vector<std::string> MapCatalogue::Covering(const Position& position) {
    // As stored, so that the floor of southern and western values is the same on both sides.
    const DegMin stored = ToDegMinValue(position);
    const StatementRun run(covering, dataConn, CoveringMaps, {stored.Long.Value(), stored.Lat.Value()});
    std::vector<std::string> names;
    while (covering.Step()) names.emplace_back(covering.Text(0));
    return names;
}

} // namespace ornivane
