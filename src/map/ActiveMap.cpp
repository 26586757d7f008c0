#include "map/ActiveMap.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"
#include "map/ChartFiles.h"
#include "map/MapCatalogue.h"

namespace ornivane {

namespace fs = std::filesystem;

ActiveMap::ActiveMap(Variablen& variablen, Picture& picStorage, PictureSurface& picMap, Progress& progBar,
                     Dialogs& messages, ActiveMapOwner& mapOwner)
    : shared(variablen), storage(picStorage), surface(picMap), progress(progBar), dialogs(messages),
      owner(mapOwner), memory(variablen.ProgramFolder) {}

bool ActiveMap::HasMap() const { return shared.MapsSet.IsOpen() && shared.MapsSet.RecordCount() > 0; }

std::string ActiveMap::Name() const { return shared.MapsSet.Text("Name"); }

void ActiveMap::LoadPicture() {
    const auto file = FindFileIgnoringCase(shared.ProgramFolder / "Karten", Name());
    if (!file) return;
    // A screen that comes to the front makes its map active again; decoding a large chart for that would take
    // a second each time, so the image is read only when the file is another one or has changed.
    std::error_code error;
    const auto size = fs::file_size(*file, error);
    const auto time = fs::last_write_time(*file, error);
    const std::string identity =
        file->string() + '|' + std::to_string(size) + '|' + std::to_string(time.time_since_epoch().count());
    if (identity == loaded) return;
    if (storage.Load(*file)) loaded = identity;
}

void ActiveMap::ReadSizes() {
    // Before any image could be loaded the sheet is blank and as large as the row says, so that a map whose
    // image is missing still shows positions.
    Sizes.StoreWidth = static_cast<float>(storage.ScaleWidth() > 0 ? storage.ScaleWidth() : Breite);
    Sizes.StoreHeight = static_cast<float>(storage.ScaleHeight() > 0 ? storage.ScaleHeight() : Höhe);
    Sizes.ViewWidth = surface.ScaleWidth();
    Sizes.ViewHeight = surface.ScaleHeight();
    Sizes.AspectFactor =
        AspectFactorOf(Sizes.StoreWidth, Sizes.StoreHeight, Sizes.ViewWidth, Sizes.ViewHeight, Breite, Höhe);
}

void ActiveMap::InitializeData() {
    if (!HasMap()) return;
    const Recordset& row = shared.MapsSet;
    progress.SetVisible(true);
    progress.SetValue(50);
    LoadPicture();
    try {
        const MapFrame frame = MapCatalogue::FrameOf(row);
        Breite = frame.Breite;
        Höhe = frame.Höhe;
        scale = MapCatalogue::ScaleOf(frame);
        ReadSizes();
        View = OpenedView(Sizes);
        Sizes.HalfWidth = View.SW;
        SlideMap = 0;
        RestoreMapPosition();
    } catch (const RuntimeError&) {
        surface.Cls();
        const std::string name = Name();
        if (shared.EnglishUI == 1)
            dialogs.Message("Map error", "Map error: " + name + " - please check coordinates.");
        else
            dialogs.Message("Fehler in Karte",
                            "Fehler in Karte: " + name + " - Bitte Koordinaten üperprüfen.");
        return;
    }
    progress.SetValue(100);
    progress.SetVisible(false);
}

void ActiveMap::updateMapInfo() {
    Recordset list;
    list.Open(shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
    CurrentMapName = cmbMaps;
    MapNames.clear();
    if (list.RecordCount() == 0) return;
    for (; !list.Eof(); list.MoveNext()) MapNames.push_back(list.Text("Name"));
    if (HasMap()) cmbMaps = Name();
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

void ActiveMap::FindMap(const std::string& name) {
    Recordset& maps = shared.MapsSet;
    if (!HasMap()) return;
    maps.MoveFirst();
    if (!maps.Find("Name", Comparison::Equal, name)) maps.MoveFirst();
}

void ActiveMap::RememberChoice() { WriteLastChoice(shared.ProgramFolder, {Name(), owner.RouteName()}); }

void ActiveMap::SwitchTo(const std::string& name, bool firstIfGone) {
    SaveMapPosition();
    Recordset& maps = shared.MapsSet;
    maps.MoveFirst();
    if (!maps.Find("Name", Comparison::Equal, name) && firstIfGone) maps.MoveFirst();
    // The list offers maps that the catalogue may have lost meanwhile; without a row there is no map to show.
    if (maps.Eof()) maps.MoveFirst();
    cmbMaps = Name();
    InitializeData();
}

void ActiveMap::cmbMaps_Click(const std::string& name) {
    if (!HasMap()) return;
    SwitchTo(name, false);
    owner.UpdateMap();
    surface.Refresh();
    // Last: a folder that cannot be written must not keep the new map from the screen.
    RememberChoice();
}

void ActiveMap::cmbMaps_Change(const std::string& name) {
    cmbMaps = name;
    if (!HasMap() || (name == CurrentMapName && !AutoMapSwitch)) return;
    SwitchTo(name, true);
    CallOffErrors([this] { RememberChoice(); });
}

void ActiveMap::CallOffErrors(const std::function<void()>& action) const {
    try {
        action();
    } catch (const RuntimeError&) {
        // What is remembered for the next time is a comfort, never a reason to disturb the pilot.
    }
}

void ActiveMap::RestoreMapPosition() {
    CallOffErrors([this] {
        const auto view = memory.Find(Name());
        if (!view) return;
        SlideMap = view->SlideMap;
        View = Resized(view->Rect, Sizes); // the window may have another proportion now
        SetCentring(view->CenterMap || AutoMapSwitch);
    });
}

void ActiveMap::SaveMapPosition() {
    CallOffErrors([this] {
        if (HasMap()) memory.Save(Name(), {View, SlideMap, CenterMap});
    });
}

void ActiveMap::SetCentring(bool on) {
    CenterMap = on;
    picKartezentrieren = on;
}

void ActiveMap::ApplyZoom() {
    View = Zoomed(View, Sizes, SlideMap);
    owner.UpdateMap();
    surface.Refresh();
}

void ActiveMap::SetSlide(int value) {
    SlideMap = std::clamp(value, SlideMin, SlideMax);
    ApplyZoom();
}

void ActiveMap::AdjustViewToPicture() {
    if (!HasMap()) return;
    CallOffErrors([this] {
        ReadSizes();
        View = Resized(View, Sizes);
    });
}

void ActiveMap::Pan(double dx, double dy) {
    if (!CanPan()) return;
    View = Dragged(View, Sizes, dx, dy);
    owner.UpdateMap();
}

void ActiveMap::CenterOnAircraft(const Point& aircraft) {
    View = CentredOn(View, Sizes, aircraft.X, aircraft.Y);
}

void ActiveMap::cmdKartezentrieren_Click() {
    SetCentring(true);
    owner.UpdateMap();
}

void ActiveMap::picKartezentrieren_Click() {
    SetCentring(false);
    owner.UpdateMap();
}

MapTransform ActiveMap::Transform() const {
    const MapFrame frame = MapCatalogue::FrameOf(shared.MapsSet);
    MapScale placed = scale;
    placed.Links = ToDecimalDegrees(frame.Links);
    placed.Unten = ToDecimalDegrees(frame.Unten);
    placed.Höhe = Höhe;
    return {placed, View, surface.ScaleWidth(), surface.ScaleHeight()};
}

} // namespace ornivane
