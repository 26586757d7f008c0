#include "map/MapCatalogue.h"

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

constexpr const char* AllMaps = "SELECT * FROM Maps ORDER BY Name";
constexpr const char* ActiveMaps = "SELECT * FROM Maps WHERE Active <> 0 ORDER BY Name";
const std::string CoveringMaps =
    std::string("SELECT Name FROM Maps WHERE Active <> 0 AND ") + ChartPlacement::Covers;

void SetEntry(Recordset& all, const std::string& name, const ChartPlacement& placement,
              MapCatalogue::Tick tick) {
    const bool isNew = !MapCatalogue::StandOn(all, name);
    if (isNew && !placement.HasSize()) throw RuntimeError(ErrorNumber::TypeMismatch, "Breite");
    const bool flips = tick == MapCatalogue::Tick::Flip;
    // A damaged tick keeps nobody from saving the frame.
    const bool wasActive = flips && !isNew && MapCatalogue::IsActive(all);
    if (isNew) all.AddNew();
    placement.ToRow(all);
    all.Set("Name", name);
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
void MapCatalogue::Write(Recordset& all, const std::string& name, const ChartPlacement& placement,
                         Tick tick) {
    RestoreOnError([&] { SetEntry(all, name, placement, tick); }, [&] { all.CancelUpdate(); });
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
