#include "calibration/MapData.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "calibration/CatalogueBackup.h"
#include "calibration/FrameCheck.h"
#include "platform/PictureFormats.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

// Format by format; empty optional when the folder cannot be read.
std::optional<std::vector<std::string>> ImagesIn(const std::filesystem::path& folder) {
    std::vector<std::string> images;
    for (const PictureFormat& format : PictureFormats) {
        const auto files = GetFiles(folder, std::string("*.") + format.Ending);
        if (!files) return std::nullopt;
        images.insert(images.end(), files->begin(), files->end());
    }
    return images;
}

Hemisphere HemisphereOf(double edge) { return edge < 0 ? Hemisphere::SouthOrWest : Hemisphere::NorthOrEast; }

} // namespace

MapData::MapData(Variablen& variablen, Picture& picStorage, PictureSurface& picMap, Dialogs& messages)
    : shared(variablen), catalogue(variablen.DataConn), storage(picStorage), surface(picMap),
      dialogs(messages) {}

// The hemispheres of the last run come after the list has been filled: they are what a new chart starts with.
void MapData::Form_Load() {
    tPath = ChartsFolder().string();
    SetEdgeStates(EdgeState::NotStored);
    tKarten = {};
    chkVorschau = false;
    FillMapList();
    cmbLatLong = {};
    LoadLatData();
    MarkUnlikeRow();
}

// The hemispheres are those of the last run now, and blue is only what the row has.
void MapData::MarkUnlikeRow() {
    if (!MapCatalogue::StandOn(MapRowsSet, SelectedName())) return;
    const FrameEdges edges = ChartPlacement::EdgesFromRow(MapRowsSet).Edges();
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (EdgeStates[i] == EdgeState::Stored && cmbLatLong[i] != HemisphereOf(edges[i]))
            EdgeStates[i] = EdgeState::NotStored;
}

// What was never read is not overwritten.
void MapData::Form_Unload() {
    if (latDataLoaded) Remember({cmbLatLong, chkVorschau});
}

// Conveniences that nobody misses when the folder cannot be written.
void MapData::Remember(const LatData& data) const {
    IgnoreErrors([&] { WriteLatData(ChartsFolder(), data); });
}

// The file is emptied as soon as it was read, and gets its values back at the end of the run: values that
// made the program fail are not read again at the next start.
void MapData::LoadLatData() {
    LatData data;
    latDataLoaded = true;
    ReadLatData(ChartsFolder(), data);
    cmbLatLong = data.Hemispheres;
    if (data.Preview) chkVorschau_Click(true);
    Remember({});
}

int MapData::SearchList(const std::string& text) const {
    const auto found = std::ranges::find_if(
        listKarten, [&text](const Entry& entry) { return CompareText(entry.Name, text) == 0; });
    return found == listKarten.end() ? -1 : static_cast<int>(found - listKarten.begin());
}

std::string MapData::SelectedName() const {
    return ListIndex < 0 ? std::string() : listKarten[static_cast<std::size_t>(ListIndex)].Name;
}

void MapData::FillMapList() {
    LastMapName = SelectedName();
    const auto images = ImagesIn(ChartsFolder());
    backup.clear();
    listKarten.clear();
    ListIndex = -1;
    for (const std::string& name : images.value_or(std::vector<std::string>())) listKarten.push_back({name});
    RestoreOnError(
        [&] {
            if (!MapRowsSet.IsOpen()) catalogue.OpenAll(MapRowsSet);
            if (images) DropRowsWithoutImage();
            MapRowsSet.Requery();
            RequeryActiveMaps();
            shared.ChartsChanged.Raise();
        },
        [this] {
            // The next choice must be shown: the fields still have the frame of a chart that is not selected.
            SkipMapClick = false;
            ShowNothing();
        });
    // Like a list control: a change of the selection counts as a click.
    listKarten_Click(std::max(0, SearchList(LastMapName)));
    ShowMapData();
    if (listKarten.empty()) ShowNothing();
}

// No chart is selected: nothing of an earlier one stays.
void MapData::ShowNothing() {
    EmptyEdges();
    Size.reset();
    sizeOf.clear();
    PreviewFailed = false;
    RepaintPreview();
}

// From here on the fields are those of the selected chart.
void MapData::EmptyEdges() {
    SetEdgeStates(EdgeState::NotStored);
    tKarten = {};
    placement = {};
    edgesOf = SelectedName();
}

void MapData::DropRowsWithoutImage() {
    Recordset rows;
    catalogue.OpenAll(rows);
    const auto place = [this, &rows] { return SearchList(MapCatalogue::NameOf(rows)); };
    if (!rows.Eof()) SkipMapClick = true;
    // All ticks are read first: a row that cannot be deleted must not hide those of the other rows.
    bool anyStays = false;
    for (; !rows.Eof(); rows.MoveNext()) {
        const int index = place();
        anyStays = anyStays || index >= 0;
        if (index >= 0 && MapCatalogue::IsActive(rows))
            listKarten[static_cast<std::size_t>(index)].Selected = true;
    }
    // The mount point of a memory card that is not inserted looks like a folder without charts.
    if (rows.RecordCount() > 0 && !anyStays) backup = BackupCatalogue(shared.DataConn, shared.ProgramFolder);
    Transaction together(shared.DataConn);
    rows.MoveFirst();
    while (!rows.Eof())
        if (place() < 0)
            rows.Delete();
        else
            rows.MoveNext();
    together.Commit();
}

void MapData::listKarten_Click(int index) {
    if (index < 0 || index >= static_cast<int>(listKarten.size())) return;
    ListIndex = index;
    ShowMapData();
}

void MapData::ShowMapData() {
    if (SkipMapClick) {
        SkipMapClick = false;
        return;
    }
    const std::string name = SelectedName();
    if (name.empty()) return;
    if (edgesOf != name) EmptyEdges(); // whatever ends this early, no other chart's frame stays
    ReadSize(name);
    if (!chkVorschau) return ShowFrame(name);
    // With the preview on, an error ends this without a word.
    IgnoreErrors([&] {
        if (ShowPreview(name)) ShowFrame(name);
    });
}

void MapData::ShowFrame(const std::string& name) {
    if (!MapCatalogue::StandOn(MapRowsSet, name)) return ShowWithoutRow(name);
    ShowPlacement(ChartPlacement::EdgesFromRow(MapRowsSet));
    SetEdgeStates(EdgeState::Stored);
    RequeryActiveMaps();
}

void MapData::ReadSize(const std::string& name) {
    ImageSize size;
    const SizeReading reading = ReadImageSize(ChartsFolder() / name, size);
    if (reading == SizeReading::Damaged) dialogs.Message({}, "Fehler im Bild");
    if (reading == SizeReading::Read) ShowSize(size);
}

void MapData::ShowSize(const ImageSize& size) {
    Size = size;
    sizeOf = SelectedName();
}

bool MapData::ShowPreview(const std::string& name) {
    const bool loaded = storage.Load(ChartsFolder() / name);
    // An image stored from the top down has a height below zero, and cannot be painted by it.
    PreviewFailed = !loaded || !HasExtent();
    RepaintPreview();
    return loaded;
}

void MapData::RepaintPreview() {
    surface.Cls();
    if (chkVorschau && !PreviewFailed && !SelectedName().empty()) {
        const auto [width, height] = Size.value_or(ImageSize());
        surface.PaintPicture(storage, {0, 0, surface.ScaleWidth(), surface.ScaleHeight()},
                             {0, 0, static_cast<double>(width), static_cast<double>(height)});
    }
    surface.Refresh();
}

void MapData::ShowPlacement(const ChartPlacement& shown) {
    placement = shown;
    const FrameEdges edges = shown.Edges();
    for (std::size_t i = 0; i < edges.size(); ++i) {
        cmbLatLong[i] = HemisphereOf(edges[i]);
        tKarten[i] = NumberText(std::abs(edges[i]), shared.Locale);
    }
}

// The frame of a side file is no row yet: its fields stay in the colour of what is not stored.
void MapData::ShowWithoutRow(const std::string& name) {
    SetEdgeStates(EdgeState::NotStored);
    if (const auto stored = ReadSideFile(ChartsFolder(), name))
        ShowPlacement(*stored);
    else
        tKarten = {};
}

void MapData::chkVorschau_Click(bool on) {
    chkVorschau = on;
    if (on) return ShowMapData();
    PreviewFailed = false;
    RepaintPreview();
}

bool MapData::EdgesAreNumbers() const {
    return std::ranges::all_of(tKarten,
                               [](const std::string& text) { return ParseNumber(text).has_value(); });
}

void MapData::ReportBadData() {
    dialogs.Message(shared.Text("Datenfehler", "Data error"),
                    shared.Text("Bitte Kartendaten checken.Daten können nicht gespeichert werden.",
                                "Please check map data.Data can not be saved."));
}

FrameEdges MapData::SignedEdges() const {
    FrameEdges edges{};
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const double edge = NumberIn(tKarten[i]);
        edges[i] = cmbLatLong[i] == Hemisphere::SouthOrWest ? -edge : edge;
    }
    return edges;
}

// The placement as the fields have it; with a size when that is the selected chart's.
ChartPlacement MapData::WithFields(const FrameEdges& edges) const {
    const ChartPlacement shown = placement.WithEdges(edges);
    if (!Size || sizeOf != SelectedName()) return shown;
    return shown.WithSize({static_cast<double>(Size->Width), static_cast<double>(Size->Height)});
}

bool MapData::cmdSpeichern_Click() {
    const std::string name = SelectedName();
    if (name.empty() || !EdgesAreNumbers() || sizeOf != name || !HasExtent()) {
        ReportBadData();
        return false;
    }
    for (std::string& edge : tKarten) edge = NumberText(std::abs(NumberIn(edge)), shared.Locale);
    WriteSideFile(ChartsFolder(), name, WithFields(SignedEdges()));
    WriteRow(name, MapCatalogue::Tick::Keep);
    RowWritten();
    return true;
}

void MapData::TakeFrame(const ChartPlacement& found) {
    placement = found;
    const FrameEdges edges = found.Edges();
    for (std::size_t i = 0; i < edges.size(); ++i) tKarten[i] = NumberText(edges[i], shared.Locale);
    SetEdgeStates(EdgeState::NotStored);
    ShowSize(
        {static_cast<std::int32_t>(found.Frame().Breite), static_cast<std::int32_t>(found.Frame().Höhe)});
}

void MapData::listKarten_ItemCheck(int item) {
    if (item < 0 || item >= static_cast<int>(listKarten.size())) return;
    Entry& entry = listKarten[static_cast<std::size_t>(item)];
    entry.Selected = !entry.Selected;
    ListIndex = item;
    if (SkipMapClick) return;
    bool good = false;
    // What was not stored is not shown as if it were.
    const auto takeBack = [&entry] { entry.Selected = !entry.Selected; };
    RestoreOnError(
        [&] {
            ShowMapData();
            good = EdgesAreNumbers();
            if (good)
                WriteRow(entry.Name, MapCatalogue::Tick::Flip);
            else
                ReportBadData();
        },
        takeBack);
    good ? RowWritten() : takeBack();
}

void MapData::RowWritten() {
    SetEdgeStates(EdgeState::Stored);
    RequeryActiveMaps();
    shared.ChartsChanged.Raise();
}

void MapData::RequeryActiveMaps() {
    if (ActiveMapsSet.IsOpen())
        ActiveMapsSet.Requery();
    else
        catalogue.OpenActive(ActiveMapsSet);
}

// A row whose image tells no size any more keeps the one it has, so that its tick can still be taken.
void MapData::WriteRow(const std::string& name, MapCatalogue::Tick tick) {
    if (!Size) throw RuntimeError(ErrorNumber::TypeMismatch, "Breite"); // a size that was never read
    MapCatalogue::Write(MapRowsSet, name, WithFields(SignedEdges()), tick);
}

std::string MapData::BackupText() const {
    if (backup.empty()) return {};
    return shared.Text(
        "Zu keiner eingetragenen Karte war ein Bild im Ordner. Die Einträge sind aufgehoben in %1.",
        "No listed map had an image in the folder. Their entries are kept in %1.", {backup});
}

std::string MapData::ScaleText() const {
    if (Size && sizeOf != SelectedName())
        return shared.Text("Dieses Bild hat keine lesbare Größe; die gezeigte gehört zu einer anderen Karte.",
                           "The size of this image cannot be read; the one shown is another map's.");
    if (SelectedName().empty() || !Size || !EdgesAreNumbers()) return {};
    // As saving takes them: without the sign of the field, with that of its box.
    FrameEdges edges = SignedEdges();
    for (std::size_t i = 0; i < edges.size(); ++i)
        edges[i] = std::copysign(edges[i], cmbLatLong[i] == Hemisphere::SouthOrWest ? -1 : 1);
    return FrameCheck(WithFields(edges), shared);
}

} // namespace ornivane
