#pragma once

#include <string>

#include "map/ChartView.h"
#include "map/ViewMemory.h"

namespace ornivane {

// What the active map needs of its screen.
class ActiveMapOwner {
public:
    virtual ~ActiveMapOwner() = default;
    virtual void UpdateMap() = 0;
    // The same, with centring asked for: the pilot wants to know why when it does not come about.
    virtual void CentreMap() = 0;
    virtual std::string RouteName() const = 0; // text of cmbRoute
};

// The flying screen's map: the current row of MapsSet, with a view that is remembered for each map and can
// follow the aircraft.
class ActiveMap : public ChartView {
public:
    ActiveMap(Variablen& variablen, Recordset& mapsSet, Picture& picStorage, PictureSurface& picMap,
              Progress& progBar, Dialogs& dialogs, ActiveMapOwner& owner);

    void updateMapInfo() override;
    // Positions MapsSet on the map of the last run and returns the route of the last run; a damaged or
    // missing memory is made anew with the name of no map.
    std::string LoadLastMap();
    // The user's choice in cmbMaps.
    void cmbMaps_Click(const std::string& name);
    // The program's choice: does not redraw by itself, because it happens inside a drawing pass.
    void cmbMaps_Change(const std::string& name);

    void RestoreMapPosition() override;
    void SaveMapPosition();

    // Refused while centring is on, too.
    bool CanPan() const override { return !CenterMap && ChartView::CanPan(); }
    void CenterOnAircraft(const Point& aircraft);
    void cmdKartezentrieren_Click();
    void picKartezentrieren_Click();
    void SetCentring(bool on);

    std::string CurrentMapName; // text of cmbMaps when the list was last rebuilt
    std::string LastMapName;
    bool CenterMap = true;
    bool picKartezentrieren = true; // the lamp over cmdKartezentrieren
    bool AutoMapSwitch = false;

private:
    void Redraw() override;
    void RememberChoice();
    void SwitchTo(const std::string& name);

    ActiveMapOwner& owner;
    ViewMemory memory;
};

} // namespace ornivane
