#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "map/ActiveMap.h"
#include "map/MapCatalogue.h"

namespace ornivane {

// The active maps that cover the aircraft, as a ring in the order of their names: finds the one that comes
// next, changes to it when the aircraft reaches the edge of the view, and steps by hand.
class MapRing {
public:
    static constexpr double EdgePixels = 10; // view pixels from the edge at which the map changes

    MapRing(Connection& dataConn, ActiveMap& map, Progress& progBar);

    // Automatic switching always means a centred map: centring was asked for, draw it.
    void cmdMapScroll_Click() { map.AutoMapSwitch = map.CenterMap = true; }
    void PicMapScroll_Click();
    void tNextMap_MouseDown() { tNextMapShows = false; }

    // The search of each redraw. At the edge the map is to change to the one that the redraw before has left
    // in tNextMap, so that a change comes one redraw after it was announced: true, and Change is to follow.
    [[nodiscard]] bool Search(const Position& aircraft, bool isAtEdge);
    // `route`: for the memory of the last choice.
    void Change(const std::string& route);
    // Nothing is announced while the catalogue is empty.
    void HideNext() { tNextMapShows = LblMapNumberShows = false; }
    // Steps to the next map by hand; true: draw it. Nothing while automatic switching is off.
    [[nodiscard]] bool Step(const std::string& route);
    // The next redraw changes to a map that covers the aircraft, if the present one does not.
    bool WillChange() const { return map.AutoMapSwitch && !listNextMap.empty(); }

    bool tNextMapShows = false;
    std::string tNextMap; // the name of the map that comes next
    bool LblMapNumberShows = false;
    std::string LblMapNumber; // "2 / 3"
    std::vector<std::string> listNextMap;
    std::int16_t MapListIndex = -1; // of the current map in listNextMap

private:
    void Announce();
    std::string After(int index) const;

    MapCatalogue catalogue;
    ActiveMap& map;
    Progress& progress;
};

} // namespace ornivane
