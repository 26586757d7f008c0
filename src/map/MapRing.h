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

    MapRing(Variablen& shared, ActiveMap& map, PictureSurface& picMap, Progress& progBar);

    // Automatic switching always means a centred map.
    void cmdMapScroll_Click();
    void PicMapScroll_Click();
    void tNextMap_MouseDown() { tNextMapShows = false; }

    // The search in each drawing pass; `aircraft` in decimal degrees, `mapPoint` in view pixels. A change of
    // map uses the name that the pass before has left in tNextMap, so that it comes one redraw after the map
    // was announced; while no chart can be shown it is as if the aircraft were at the edge. True when the map
    // was changed: what was painted belongs to the old one.
    bool Search(const Position& aircraft, const Point& mapPoint);
    // Nothing is announced in a pass that ends without a search, nor while the catalogue is empty.
    void HideNext();
    // Steps to the next map by hand and redraws. Nothing while automatic switching is off.
    void Step();
    // The next redraw changes to a map that covers the aircraft, if the present one does not.
    bool WillChange() const { return map.AutoMapSwitch && !listNextMap.empty(); }

    bool PicMapScroll = false; // the lamp over cmdMapScroll
    bool tNextMapShows = false;
    std::string tNextMap; // the name of the map that comes next
    bool LblMapNumberShows = false;
    std::string LblMapNumber; // "2 / 3"
    std::vector<std::string> listNextMap;
    std::int16_t MapListIndex = -1; // of the current map in listNextMap

private:
    bool IsAtEdge(const Point& mapPoint) const;
    std::string After(int index) const;

    MapCatalogue catalogue;
    ActiveMap& map;
    PictureSurface& surface;
    Progress& progress;
};

} // namespace ornivane
