#include "map/ActiveMap.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"

namespace ornivane {

ActiveMap::ActiveMap(const ChartParts& parts) : ChartView(parts), memory(parts.Program.ProgramFolder) {}

void ActiveMap::updateMapInfo() {
    CurrentMapName = cmbMaps;
    ChartView::updateMapInfo();
}

std::string ActiveMap::LoadLastMap() {
    const LastChoice last = ReadLastChoice(settings.ProgramFolder);
    if (last.Map) {
        FindMap(*last.Map);
        LastMapName = *last.Map;
    }
    if (last.Map && last.Route) return *last.Route;
    // What is remembered for the next time is a comfort, never a reason to disturb the pilot: also below.
    IgnoreErrors([this] { WriteLastChoice(settings.ProgramFolder, {"demo.bmp", std::nullopt}); });
    return {};
}

void ActiveMap::RememberChoice(const std::string& route) {
    WriteLastChoice(settings.ProgramFolder, {Name(), route});
}

// The list may offer a map that the catalogue has lost meanwhile; the first one shows then.
void ActiveMap::SwitchTo(const std::string& name) {
    SaveMapPosition();
    FindMap(name);
    cmbMaps = Name();
    InitializeData();
    // An aircraft that has left the chart before has switched centring off, and a chart that was never shown
    // remembers nothing else: automatic switching always means a centred map.
    if (AutoMapSwitch) CenterMap = true;
}

bool ActiveMap::cmbMaps_Click(const std::string& name) {
    if (!HasRows()) return false;
    SwitchTo(name);
    return true;
}

void ActiveMap::cmbMaps_Change(const std::string& name) {
    cmbMaps = name;
    if (!HasRows() || (name == CurrentMapName && !AutoMapSwitch)) return;
    SwitchTo(name);
}

void ActiveMap::RestoreMapPosition() {
    IgnoreErrors([this] {
        const auto view = memory.Find(Name());
        if (!view) return;
        SlideMap = view->SlideMap;
        View = Resized(view->Rect, Sizes); // the window may have another proportion now
        View.SX = std::max(View.SX, 0.0F); // and the image may be another one, less wide
        CenterMap = view->CenterMap || AutoMapSwitch;
    });
}

void ActiveMap::SaveMapPosition() {
    IgnoreErrors([this] {
        if (ViewIsOf()) memory.Save(*ViewIsOf(), {View, SlideMap, CenterMap});
    });
}

} // namespace ornivane
