#include "map/ChartView.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "map/ChartFiles.h"
#include "map/MapCatalogue.h"

namespace ornivane {

namespace fs = std::filesystem;

ChartView::ChartView(Variablen& variablen, Recordset& list, Picture& picStorage, PictureSurface& picMap,
                     Progress& progBar, Dialogs& messages)
    : shared(variablen), maps(list), surface(picMap), storage(picStorage), progress(progBar),
      dialogs(messages) {}

bool ChartView::HasRows() const { return maps.IsOpen() && maps.RecordCount() > 0; }

std::string ChartView::Name() const { return maps.TextOrEmpty("Name"); }

void ChartView::LoadPicture() {
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

void ChartView::ReadSizes() {
    // Before any image could be loaded the sheet is blank and as large as the row says, so that a map whose
    // image is missing still shows positions.
    Sizes.StoreWidth = static_cast<float>(storage.ScaleWidth() > 0 ? storage.ScaleWidth() : Breite);
    Sizes.StoreHeight = static_cast<float>(storage.ScaleHeight() > 0 ? storage.ScaleHeight() : Höhe);
    Sizes.ViewWidth = surface.ScaleWidth();
    Sizes.ViewHeight = surface.ScaleHeight();
    Sizes.AspectFactor =
        AspectFactorOf(Sizes.StoreWidth, Sizes.StoreHeight, Sizes.ViewWidth, Sizes.ViewHeight, Breite, Höhe);
}

void ChartView::InitializeData() {
    if (!HasRows()) return;
    progress.SetVisible(true);
    progress.SetValue(50);
    viewIsOf.reset();
    LoadPicture();
    try {
        TakeInRow();
    } catch (const RuntimeError&) {
        Refuse();
        return;
    }
    refused.erase(Name());
    progress.SetValue(100);
    progress.SetVisible(false);
}

void ChartView::TakeInRow() {
    const MapFrame frame = MapCatalogue::FrameOf(maps);
    taken = {Name(), frame};
    Breite = frame.Breite;
    Höhe = frame.Höhe;
    scale = MapCatalogue::ScaleOf(frame);
    ReadSizes();
    View = OpenedView(Sizes);
    Sizes.HalfWidth = View.SW;
    SlideMap = 0;
    viewIsOf = taken->Name;
    RestoreMapPosition();
}

void ChartView::Refuse() {
    const std::string name = Name();
    viewIsOf.reset();
    refused.insert(name);
    surface.Cls();
    surface.Refresh();
    if (shared.EnglishUI == 1)
        dialogs.Message("Map error", "Map error: " + name + " - please check coordinates.");
    else
        dialogs.Message("Fehler in Karte", "Fehler in Karte: " + name + " - Bitte Koordinaten üperprüfen.");
}

std::string ChartView::MapError() const {
    return shared.Text("Fehler in Karte: ", "Map error: ") + Name() +
           shared.Text("\nBitte den Rahmen unter Kartendaten prüfen oder eine andere Karte wählen.",
                       "\nPlease check its frame under Map Data or choose another chart.");
}

bool ChartView::RowHasChanged() const {
    if (!HasRows() || maps.Eof()) return true;
    try {
        return taken != TakenIn{Name(), MapCatalogue::FrameOf(maps)};
    } catch (const RuntimeError&) {
        return true; // a row without a frame was never taken in
    }
}

void ChartView::ChartsChanged() {
    if (!maps.IsOpen()) return;
    const std::string chart = maps.Eof() ? std::string() : maps.TextOrEmpty("Name");
    maps.Requery();
    FindMap(chart);
    if (HasRows()) return;
    // The screen will come back without a map, or with one that has to be taken in anew.
    viewIsOf.reset();
    taken.reset();
}

void ChartView::updateMapInfo() {
    Recordset list;
    list.Open(shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
    MapNames.clear();
    // What was refused may have been mended; the chart of this moment has just been tried.
    std::erase_if(refused,
                  [this](const std::string& name) { return HasMap() || !HasRows() || name != Name(); });
    if (list.RecordCount() == 0) return;
    for (; !list.Eof(); list.MoveNext()) MapNames.push_back(list.TextOrEmpty("Name"));
    if (HasRows()) cmbMaps = Name();
}

void ChartView::FindMap(const std::string& name) {
    if (!HasRows()) return;
    maps.MoveFirst();
    if (!maps.Find("Name", Comparison::Equal, name)) maps.MoveFirst();
}

void ChartView::CallOffErrors(const std::function<void()>& action) const {
    try {
        action();
    } catch (const RuntimeError&) {
        // What is remembered for the next time is a comfort, never a reason to disturb the pilot.
    }
}

void ChartView::ApplyZoom() {
    if (!HasMap()) return;
    View = Zoomed(View, Sizes, SlideMap);
    Redraw();
}

void ChartView::SetSlide(int value) {
    if (!HasMap()) return;
    SlideMap = std::clamp(value, SlideMin, SlideMax);
    ApplyZoom();
}

void ChartView::AdjustViewToPicture() {
    if (!HasMap()) return;
    CallOffErrors([this] {
        ReadSizes();
        View = Resized(View, Sizes);
    });
}

void ChartView::Pan(double dx, double dy) {
    if (!CanPan()) return;
    View = Dragged(View, Sizes, dx, dy);
    Redraw();
}

MapTransform ChartView::Transform() const {
    if (!taken) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    MapScale placed = scale;
    placed.Links = ToDecimalDegrees(taken->Frame.Links);
    placed.Unten = ToDecimalDegrees(taken->Frame.Unten);
    placed.Höhe = Höhe;
    return {placed, View, surface.ScaleWidth(), surface.ScaleHeight()};
}

} // namespace ornivane
