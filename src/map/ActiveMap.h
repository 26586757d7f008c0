#pragma once

#include <string>

#include "map/ChartView.h"
#include "map/ViewMemory.h"

namespace ornivane {

// The flying screen's map: the current row of MapsSet, with a view that is remembered for each map and can
// follow the aircraft.
class ActiveMap : public ChartView {
public:
    explicit ActiveMap(const ChartParts& parts);

    void updateMapInfo() override;
    // Positions MapsSet on the map of the last run and returns the name of its route. A missing or damaged
    // memory (kartendaten.crm) is written anew and the route is empty.
    std::string LoadLastMap();
    // The user's choice in cmbMaps; true: draw it and then remember it.
    [[nodiscard]] bool cmbMaps_Click(const std::string& name);
    // The program's choice, at the edge or by the ring.
    void cmbMaps_Change(const std::string& name);
    // This map and the route, for the next start.
    void RememberChoice(const std::string& route);

    void RestoreMapPosition() override;
    void SaveMapPosition();

    // Refused while centring is on, too.
    bool CanPan() const override { return !CenterMap && ChartView::CanPan(); }
    void CenterOnAircraft(const Point& aircraft) { View = CentredOn(View, Sizes, aircraft); } // on the image

    std::string CurrentMapName; // text of cmbMaps when the list was last rebuilt
    std::string LastMapName;
    bool CenterMap = true;      // the lamp over cmdKartezentrieren shows it
    bool AutoMapSwitch = false; // the lamp over cmdMapScroll

private:
    void SwitchTo(const std::string& name);

    ViewMemory memory;
};

} // namespace ornivane
