#include "map/ChartView.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "map/ChartFiles.h"
#include "map/MapCatalogue.h"

namespace ornivane {

namespace fs = std::filesystem;

ChartView::ChartView(const ChartParts& parts)
    : language(parts.Texts), settings(parts.Program), dataConn(parts.DataConn), maps(parts.List),
      surface(parts.picMap), storage(parts.picStorage), progress(parts.progBar), dialogs(parts.Messages) {}

std::string ChartView::Name() const { return MapCatalogue::NameOf(maps); }

void ChartView::LoadPicture() {
    const auto file = FindFileIgnoringCase(settings.ProgramFolder / "Karten", Name());
    if (!file) return;
    // A screen that comes to the front makes its map active again; decoding a large chart for that would take
    // a second each time, so the image is read only when the file is another one or has changed.
    std::error_code error;
    const auto size = fs::file_size(*file, error);
    const auto time = fs::last_write_time(*file, error);
    const std::string identity =
        file->string() + '|' + std::to_string(size) + '|' + std::to_string(time.time_since_epoch().count());
    if (identity == loaded && !storage.MustBeReadAgain()) return;
    if (storage.Load(*file)) loaded = identity;
}

void ChartView::ReadSizes() {
    // Before any image could be loaded the sheet is blank and as large as the row says, so that a map whose
    // image is missing still shows positions.
    Sizes.StoreWidth = static_cast<float>(storage.ScaleWidth() > 0 ? storage.ScaleWidth() : Breite);
    Sizes.StoreHeight = static_cast<float>(storage.ScaleHeight() > 0 ? storage.ScaleHeight() : Höhe);
    Sizes.ViewWidth = surface.ScaleWidth();
    Sizes.ViewHeight = surface.ScaleHeight();
    Sizes.AspectFactor = AspectFactorOf(Sizes, Breite, Höhe);
}

void ChartView::InitializeData() {
    if (!HasRows()) return;
    progress.SetVisible(true);
    progress.SetValue(50);
    viewIsOf.reset();
    LoadPicture();
    if (ErrorOf([this] { TakeInRow(); })) return Refuse();
    refused.erase(Name());
    progress.SetValue(100);
    progress.SetVisible(false);
}

void ChartView::TakeInRow() {
    taken = {Name(), ChartPlacement::FromRow(maps)};
    Breite = taken->Placement.Frame().Breite;
    Höhe = taken->Placement.Frame().Höhe;
    scale = taken->Placement.Scale();
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
    dialogs.Message(language.Text("Fehler in Karte", "Map error"),
                    language.Text("Fehler in Karte: %1 - Bitte Koordinaten üperprüfen.",
                                  "Map error: %1 - please check coordinates.", {name}));
}

std::string ChartView::MapError() const {
    return language.Text(
        "Fehler in Karte: %1\nBitte den Rahmen unter Kartendaten prüfen oder eine andere Karte wählen.",
        "Map error: %1\nPlease check its frame under Map Data or choose another chart.", {Name()});
}

bool ChartView::RowHasChanged() const {
    if (!HasRows() || maps.Eof()) return true;
    std::optional<TakenIn> row; // a row without a frame was never taken in
    IgnoreErrors([&] { row = {Name(), ChartPlacement::FromRow(maps)}; });
    return !row || taken != row;
}

void ChartView::ChartsChanged() {
    if (!maps.IsOpen()) return;
    const std::string chart = maps.Eof() ? std::string() : Name();
    maps.Requery();
    FindMap(chart);
    if (HasRows()) return;
    // The screen will come back without a map, or with one that has to be taken in anew.
    viewIsOf.reset();
    taken.reset();
}

void ChartView::updateMapInfo() {
    MapNames = MapCatalogue(dataConn).ActiveNames();
    // What was refused may have been mended; the chart of this moment has just been tried.
    std::erase_if(refused,
                  [this](const std::string& name) { return HasMap() || !HasRows() || name != Name(); });
    if (!MapNames.empty() && HasRows()) cmbMaps = Name();
}

void ChartView::FindMap(const std::string& name) {
    if (HasRows() && !MapCatalogue::StandOn(maps, name)) maps.MoveFirst();
}

bool ChartView::ApplyZoom() {
    if (!HasMap()) return false;
    View = Zoomed(View, Sizes, SlideMap);
    return true;
}

bool ChartView::SetSlide(int value) {
    if (!HasMap()) return false;
    SlideMap = std::clamp(value, SlideMin, SlideMax);
    return ApplyZoom();
}

void ChartView::AdjustViewToPicture() {
    if (!HasMap()) return;
    // A picture without extent has no view; the one of before stays.
    IgnoreErrors([this] {
        ReadSizes();
        View = Resized(View, Sizes);
    });
}

bool ChartView::Pan(double dxPixels, double dyPixels) {
    if (!CanPan()) return false;
    View = Dragged(View, Sizes, Transform().ImageDrag({dxPixels, dyPixels}));
    return true;
}

MapTransform ChartView::Transform() const {
    if (!taken) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    return {scale, View, {surface.ScaleWidth(), surface.ScaleHeight()}};
}

} // namespace ornivane
