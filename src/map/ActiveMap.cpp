#include "map/ActiveMap.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"

namespace ornivane {

ActiveMap::ActiveMap(Variablen& variablen, Recordset& mapsSet, Picture& picStorage, PictureSurface& picMap,
                     Progress& progBar, Dialogs& messages, ActiveMapOwner& mapOwner)
    : ChartView(variablen, mapsSet, picStorage, picMap, progBar, messages), owner(mapOwner),
      memory(variablen.ProgramFolder) {}

void ActiveMap::updateMapInfo() {
    CurrentMapName = cmbMaps;
    ChartView::updateMapInfo();
}

std::string ActiveMap::LoadLastMap() {
    const LastChoice last = ReadLastChoice(shared.ProgramFolder);
    if (last.Map) {
        FindMap(*last.Map);
        LastMapName = *last.Map;
    }
    if (last.Map && last.Route) return *last.Route;
    CallOffErrors([this] { WriteLastChoice(shared.ProgramFolder, {"demo.bmp", std::nullopt}); });
    return {};
}

void ActiveMap::RememberChoice() { WriteLastChoice(shared.ProgramFolder, {Name(), owner.RouteName()}); }

// The list may offer a map that the catalogue has lost meanwhile; the first one shows then.
void ActiveMap::SwitchTo(const std::string& name) {
    SaveMapPosition();
    FindMap(name);
    cmbMaps = Name();
    InitializeData();
    // An aircraft that has left the chart before has switched centring off, and a chart that was never shown
    // remembers nothing else: automatic switching always means a centred map.
    if (AutoMapSwitch) SetCentring(true);
}

void ActiveMap::Redraw() {
    owner.UpdateMap();
    surface.Refresh();
}

void ActiveMap::cmbMaps_Click(const std::string& name) {
    if (!HasRows()) return;
    SwitchTo(name);
    Redraw();
    // Last: a folder that cannot be written must not keep the new map from the screen.
    RememberChoice();
}

void ActiveMap::cmbMaps_Change(const std::string& name) {
    cmbMaps = name;
    if (!HasRows() || (name == CurrentMapName && !AutoMapSwitch)) return;
    SwitchTo(name);
    CallOffErrors([this] { RememberChoice(); });
}

void ActiveMap::RestoreMapPosition() {
    CallOffErrors([this] {
        const auto view = memory.Find(Name());
        if (!view) return;
        SlideMap = view->SlideMap;
        View = Resized(view->Rect, Sizes); // the window may have another proportion now
        View.SX = std::max(View.SX, 0.0F); // and the image may be another one, less wide
        SetCentring(view->CenterMap || AutoMapSwitch);
    });
}

void ActiveMap::SaveMapPosition() {
    CallOffErrors([this] {
        if (ViewIsOf()) memory.Save(*ViewIsOf(), {View, SlideMap, CenterMap});
    });
}

void ActiveMap::SetCentring(bool on) {
    CenterMap = on;
    picKartezentrieren = on;
}

void ActiveMap::CenterOnAircraft(const Point& aircraft) {
    View = CentredOn(View, Sizes, aircraft.X, aircraft.Y);
}

void ActiveMap::cmdKartezentrieren_Click() {
    SetCentring(true);
    owner.CentreMap();
}

void ActiveMap::picKartezentrieren_Click() {
    SetCentring(false);
    owner.UpdateMap();
}

} // namespace ornivane
