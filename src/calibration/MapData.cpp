#include "calibration/MapData.h"

#include <algorithm>
#include <cmath>

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "calibration/CatalogueBackup.h"
#include "geo/NavigationMaths.h"
#include "map/ChartFiles.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

constexpr const char* AllMaps = "SELECT * FROM Maps ORDER BY Name";
constexpr const char* ActiveMaps = "SELECT * FROM Maps WHERE Active <> 0 ORDER BY Name";
constexpr std::array EdgeFields = {"Unten", "Oben", "Links", "Rechts"};
constexpr double MetresPerDegree = 60 * 1000 * KilometresPerNauticalMile;
// Charts of conformal projections and those drawn for their middle latitude stay below; a minute mistyped on
// a chart of one degree does not.
constexpr double SuspiciousPercent = 3;
constexpr double FarthestPixel = 1e7; // metres; no frame on the earth has larger ones

// All BMP before all JPG; empty optional when the folder cannot be read.
std::optional<std::vector<std::string>> ImagesIn(const std::filesystem::path& folder) {
    auto images = GetFiles(folder, "*.bmp");
    const auto others = GetFiles(folder, "*.jpg");
    if (!images || !others) return std::nullopt;
    images->insert(images->end(), others->begin(), others->end());
    return images;
}

} // namespace

MapData::MapData(Variablen& variablen, Picture& picStorage, PictureSurface& picMap, Dialogs& dialogsOf)
    : shared(variablen), storage(picStorage), surface(picMap), dialogs(dialogsOf) {}

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
    if (!FindRow(SelectedName())) return;
    for (std::size_t i = 0; i < EdgeFields.size(); ++i)
        if (EdgeStates[i] == EdgeState::Stored &&
            cmbLatLong[i] != (MapRowsSet.Number(EdgeFields[i]) >= 0 ? 0 : 1))
            EdgeStates[i] = EdgeState::NotStored;
}

void MapData::Form_Deactivate() { LastMapName = SelectedName(); }

// What was never read is not overwritten.
void MapData::Form_Unload() {
    if (latDataLoaded) Remember({cmbLatLong, chkVorschau ? 1 : 0});
}

// Conveniences that nobody misses when the folder cannot be written.
void MapData::Remember(const LatData& data) const {
    try {
        WriteLatData(ChartsFolder(), data);
    } catch (const RuntimeError&) {
    }
}

// The file is emptied as soon as it was read, and gets its values back at the end of the run: values with
// which the program once came to harm are not met again at the next start.
void MapData::LoadLatData() {
    LatData data;
    latDataLoaded = true;
    ReadLatData(ChartsFolder(), data);
    cmbLatLong = data.Hemispheres;
    if (data.Preview == 1) chkVorschau_Click(true);
    Remember({});
}

int MapData::SearchList(const std::string& text) const {
    const auto found = std::find_if(listKarten.begin(), listKarten.end(), [&text](const Entry& entry) {
        return CompareText(entry.Name, text) == 0;
    });
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
    try {
        OpenRows();
        if (images) DropRowsWithoutImage();
        MapRowsSet.Requery();
        RequeryActiveMaps();
        shared.ChartsChanged.Raise();
    } catch (...) {
        // The next choice must be shown: the fields still have the frame of a chart that is not selected.
        SkipMapClick = false;
        ShowNothing();
        throw;
    }
    SelectEntry(std::max(0, SearchList(LastMapName)));
    ShowMapData();
    if (listKarten.empty()) ShowNothing();
}

void MapData::OpenRows() {
    if (!MapRowsSet.IsOpen()) MapRowsSet.Open(shared.DataConn, AllMaps);
}

// No chart is selected: nothing of an earlier one stays.
void MapData::ShowNothing() {
    EmptyEdges();
    lblBreite.clear();
    lblHoehe.clear();
    sizeOf.clear();
    PreviewFailed = false;
    RepaintPreview();
}

// From here on the fields are those of the selected chart.
void MapData::EmptyEdges() {
    SetEdgeStates(EdgeState::NotStored);
    tKarten = {};
    edgesOf = SelectedName();
}

void MapData::DropRowsWithoutImage() {
    Recordset rows;
    rows.Open(shared.DataConn, AllMaps);
    const auto place = [this, &rows] { return SearchList(rows.TextOrEmpty("Name")); };
    if (!rows.Eof()) SkipMapClick = true;
    // All ticks first: a row that cannot be deleted must not leave others' ticks untold.
    bool anyStays = false;
    for (; !rows.Eof(); rows.MoveNext()) {
        const Value active = rows.Get("Active");
        const int index = place();
        anyStays = anyStays || index >= 0;
        if (index >= 0 && !active.IsNull() && active.Boolean())
            listKarten[static_cast<std::size_t>(index)].Selected = true;
    }
    // The place where a card with the charts is missing looks like a folder without charts.
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

// As a list does it: another selection is a click.
void MapData::SelectEntry(int index) {
    if (index >= static_cast<int>(listKarten.size()) || index == ListIndex) return;
    ListIndex = index;
    ShowMapData();
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
    try {
        if (chkVorschau && !ShowPreview(name)) return;
        if (FindRow(name))
            ShowRow();
        else
            ShowWithoutRow(name);
    } catch (const RuntimeError&) {
        if (!chkVorschau) throw; // with the preview on, errors end this without a word
    }
}

void MapData::ReadSize(const std::string& name) {
    ImageSize size;
    const SizeReading reading = ReadImageSize(ChartsFolder() / name, size);
    if (reading == SizeReading::Damaged) dialogs.Message({}, "Fehler im Bild");
    if (reading == SizeReading::Read) ShowSize(size);
}

void MapData::ShowSize(const ImageSize& size) {
    lblBreite = std::to_string(size.Width);
    lblHoehe = std::to_string(size.Height);
    sizeOf = SelectedName();
}

bool MapData::ShowPreview(const std::string& name) {
    const bool loaded = storage.Load(ChartsFolder() / name);
    // An image stored from the top down has a height below zero, and cannot be painted by it.
    PreviewFailed = !loaded || LeadingNumber(lblBreite) <= 0 || LeadingNumber(lblHoehe) <= 0;
    RepaintPreview();
    return loaded;
}

void MapData::RepaintPreview() {
    surface.Cls();
    if (chkVorschau && !PreviewFailed && !SelectedName().empty())
        surface.PaintPicture(storage, {0, 0, surface.ScaleWidth(), surface.ScaleHeight()},
                             {0, 0, LeadingNumber(lblBreite), LeadingNumber(lblHoehe)});
    surface.Refresh();
}

bool MapData::FindRow(const std::string& name) {
    if (MapRowsSet.RecordCount() == 0) return false;
    MapRowsSet.MoveFirst();
    return MapRowsSet.Find("Name", Comparison::Equal, name);
}

void MapData::ShowRow() {
    FrameEdges edges{}; // all of them first: a damaged row shows nothing rather than a half
    for (std::size_t i = 0; i < edges.size(); ++i) edges[i] = MapRowsSet.Number(EdgeFields[i]);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        cmbLatLong[i] = edges[i] >= 0 ? 0 : 1;
        tKarten[i] = NumberText(std::abs(edges[i]), shared.Locale);
    }
    SetEdgeStates(EdgeState::Stored);
    RequeryActiveMaps();
}

// The frame of a side file is no row yet: its fields stay in the colour of what is not stored.
void MapData::ShowWithoutRow(const std::string& name) {
    SetEdgeStates(EdgeState::NotStored);
    if (!LoadMapSideFile(name)) tKarten = {};
}

bool MapData::LoadMapSideFile(const std::string& name) {
    const auto edges = ReadSideFile(ChartsFolder(), name);
    if (!edges) return false;
    for (std::size_t i = 0; i < edges->size(); ++i) {
        tKarten[i] = NumberText(std::abs((*edges)[i]), shared.Locale);
        cmbLatLong[i] = (*edges)[i] < 0 ? 1 : 0;
    }
    return true;
}

void MapData::chkVorschau_Click(bool on) {
    chkVorschau = on;
    if (on) return ShowMapData();
    PreviewFailed = false;
    RepaintPreview();
}

bool MapData::EdgesAreNumbers() const {
    return std::all_of(tKarten.begin(), tKarten.end(),
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
        edges[i] = cmbLatLong[i] == 1 ? -edge : edge;
    }
    return edges;
}

bool MapData::cmdSpeichern_Click() {
    const std::string name = SelectedName();
    if (name.empty() || !EdgesAreNumbers() || sizeOf != name || LeadingNumber(lblBreite) <= 0 ||
        LeadingNumber(lblHoehe) <= 0) {
        ReportBadData();
        return false;
    }
    for (std::string& edge : tKarten) edge = NumberText(std::abs(NumberIn(edge)), shared.Locale);
    const FrameEdges edges = SignedEdges();
    WriteSideFile(ChartsFolder(), name, edges);
    WriteRow(name, edges, false);
    RowWritten();
    return true;
}

void MapData::TakeFrame(const std::array<std::string, 4>& edges, const ImageSize& size) {
    tKarten = edges;
    SetEdgeStates(EdgeState::NotStored);
    ShowSize(size);
}

void MapData::listKarten_ItemCheck(int item) {
    if (item < 0 || item >= static_cast<int>(listKarten.size())) return;
    Entry& entry = listKarten[static_cast<std::size_t>(item)];
    entry.Selected = !entry.Selected;
    ListIndex = item;
    if (SkipMapClick) return;
    bool good = false;
    try {
        ShowMapData();
        good = EdgesAreNumbers();
        if (good)
            WriteRow(entry.Name, SignedEdges(), true);
        else
            ReportBadData();
    } catch (...) {
        entry.Selected = !entry.Selected; // what was not stored is not shown as if it were
        throw;
    }
    if (good)
        RowWritten();
    else
        entry.Selected = !entry.Selected;
}

void MapData::WriteRow(const std::string& name, const FrameEdges& edges, bool flip) {
    try {
        SetRow(name, edges, flip);
    } catch (...) {
        MapRowsSet.CancelUpdate(); // or the next move would write what was set, for another chart
        throw;
    }
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
        ActiveMapsSet.Open(shared.DataConn, ActiveMaps);
}

void MapData::SetRow(const std::string& name, const FrameEdges& edges, bool flip) {
    const bool isNew = !FindRow(name);
    if (isNew) MapRowsSet.AddNew();
    for (std::size_t i = 0; i < EdgeFields.size(); ++i) MapRowsSet.Set(EdgeFields[i], edges[i]);
    MapRowsSet.Set("Name", name);
    SetSize(name, isNew);
    if (flip) {
        const Value active = isNew ? Value() : MapRowsSet.Get("Active");
        MapRowsSet.Set("Active", active.IsNull() || !active.Boolean());
    } else if (isNew) {
        MapRowsSet.Set("Active", false);
    }
    MapRowsSet.Update();
}

// A row whose image tells no size any more keeps the one it has, so that its tick can still be taken.
void MapData::SetSize(const std::string& name, bool isNew) {
    if (sizeOf == name) {
        MapRowsSet.Set("Breite", LeadingNumber(lblBreite));
        MapRowsSet.Set("Höhe", LeadingNumber(lblHoehe));
    } else if (isNew || lblBreite.empty()) {
        throw RuntimeError(ErrorNumber::TypeMismatch, "Breite"); // a size that was never read is no number
    }
}

std::string MapData::BackupText() const {
    if (backup.empty()) return {};
    return shared.Text(
               "Zu keiner eingetragenen Karte war ein Bild im Ordner. Die Einträge sind aufgehoben in ",
               "No listed map had an image in the folder. Their entries are kept in ") +
           backup + ".";
}

std::string MapData::ScaleText() const {
    if (!lblBreite.empty() && sizeOf != SelectedName())
        return shared.Text("Dieses Bild hat keine lesbare Größe; die gezeigte gehört zu einer anderen Karte.",
                           "The size of this image cannot be read; the one shown is another map's.");
    const double width = LeadingNumber(lblBreite), height = LeadingNumber(lblHoehe);
    if (SelectedName().empty() || !EdgesAreNumbers() || width <= 0 || height <= 0) return {};
    // As saving takes them: without the sign of the field, with that of its box.
    FrameEdges edges{};
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const double edge = std::abs(NumberIn(tKarten[i]));
        edges[i] = ToDecimalDegrees(cmbLatLong[i] == 1 ? -edge : edge);
    }
    const auto [bottom, top, left, right] = edges;
    if (top <= bottom || right <= left)
        return shared.Text(
            "Der Rahmen steht verkehrt: Oben muss über Unten liegen, Rechts östlich von Links.",
            "The frame is the wrong way round: upper must lie above lower, right east of left.");
    const double across = (right - left) * MetresPerDegree * std::cos(DegToRad((top + bottom) / 2)) / width;
    const double down = (top - bottom) * MetresPerDegree / height;
    const double differ = 200 * std::abs(across - down) / (across + down);
    if (!std::isfinite(across) || !std::isfinite(down) || across > FarthestPixel || down > FarthestPixel)
        return {};
    const auto number = [this](double value) { return Format(value, "0.0", shared.Locale); };
    std::string text = shared.Text("Ein Bildpunkt: ", "One pixel: ") + number(across) +
                       shared.Text(" m breit, ", " m across, ") + number(down) +
                       shared.Text(" m hoch. Unterschied ", " m down. They differ by ") + number(differ) +
                       "\u00a0%.";
    if (differ > SuspiciousPercent)
        text += shared.Text(" Bitte die Koordinaten prüfen.", " Please check the coordinates.");
    return text;
}

} // namespace ornivane
