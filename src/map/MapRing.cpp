#include "map/MapRing.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "store/TextOrder.h"

namespace ornivane {

MapRing::MapRing(Connection& dataConn, ActiveMap& activeMap, Progress& progBar)
    : catalogue(dataConn), map(activeMap), progress(progBar) {}

void MapRing::PicMapScroll_Click() {
    map.AutoMapSwitch = false;
    HideNext();
}

std::string MapRing::After(int index) const {
    const int next = index + 1;
    return next < static_cast<int>(listNextMap.size()) ? listNextMap[static_cast<std::size_t>(next)]
                                                       : listNextMap.front();
}

bool MapRing::Search(const Position& aircraft, bool isAtEdge) {
    HideNext();
    listNextMap.clear();
    if (!map.AutoMapSwitch) return false;
    listNextMap = catalogue.Covering(aircraft);
    // Tried again, a chart that cannot be shown would blank the sheet at the edge of every other one.
    std::erase_if(listNextMap, [this](const std::string& name) { return map.IsRefused(name); });
    if (listNextMap.empty()) return false;
    LblMapNumberShows = listNextMap.size() > 2;
    tNextMapShows = listNextMap.size() > 1;
    const bool changes = isAtEdge && !tNextMap.empty() && !map.IsRefused(tNextMap);
    if (!changes) Announce();
    return changes;
}

// Also when it is the map that stands already: its remembered view and centring come back.
void MapRing::Change(const std::string& route) {
    map.cmbMaps_Change(tNextMap);
    // A folder that cannot be written is no reason to disturb the pilot here; also below.
    IgnoreErrors([&] { map.RememberChoice(route); });
    Announce();
}

// The map behind the one that stands now.
void MapRing::Announce() {
    std::ranges::sort(listNextMap, TextBefore());
    const auto found = std::ranges::find(listNextMap, map.cmbMaps);
    MapListIndex =
        found == listNextMap.end() ? std::int16_t{-1} : ToInt16(double(found - listNextMap.begin()));
    tNextMap = After(MapListIndex);
    LblMapNumber = std::to_string(MapListIndex + 1) + " / " + std::to_string(listNextMap.size());
}

bool MapRing::Step(const std::string& route) {
    if (!map.AutoMapSwitch || !map.HasRows()) return false;
    if (listNextMap.size() >= 2) {
        progress.SetVisible(true);
        progress.SetValue(25);
    }
    if (!listNextMap.empty()) {
        const auto last = static_cast<int>(listNextMap.size()) - 1;
        MapListIndex = MapListIndex < last ? ToInt16(MapListIndex + 1.0) : std::int16_t{0};
        tNextMap = After(MapListIndex);
        map.cmbMaps_Change(listNextMap[static_cast<std::size_t>(MapListIndex)]);
        IgnoreErrors([&] { map.RememberChoice(route); });
        progress.SetVisible(false);
    }
    return map.ApplyZoom();
}

} // namespace ornivane
