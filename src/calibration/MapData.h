#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "calibration/ChartFolder.h"
#include "calibration/ImageSize.h"
#include "common/Variablen.h"
#include "map/MapCatalogue.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "store/Recordset.h"

namespace ornivane {

// What an edge's field tells by its colour.
enum class EdgeState { NotStored, Stored };

// The catalogue of charts: which images exist, their size and frame, which of them flight and planning use.
// Nothing else writes the table Maps. Members carry the names of the controls that show them; the fields of
// the edges, in the order of FrameEdges, are a view of the chart's placement. The form frmCalibrate owns it.
class MapData {
public:
    struct Entry { // of the list
        std::string Name;
        bool Selected = false; // the tick
    };

    MapData(Variablen& variablen, Picture& picStorage, PictureSurface& picMap, Dialogs& messages);

    void Form_Load();
    void Form_Deactivate() { LastMapName = SelectedName(); }
    // Keeps the hemispheres and the preview's switch for the next run.
    void Form_Unload();

    // Lists the images anew and drops the rows of those that are gone. A folder that cannot be read says
    // nothing about its images: the list is empty then, and the rows stay. Before all rows go, the store is
    // kept in a backup; without one, RuntimeError, and the rows stay as well.
    void FillMapList();
    void listKarten_Click(int index);
    // The tick of an entry was flipped, which also moves the selection there. It goes back when the frame is
    // no numbers.
    void listKarten_ItemCheck(int item);
    void chkVorschau_Click(bool on);
    // picMap has a new size: the preview is painted again, not loaded.
    void RepaintPreview();
    void tKarten_Click(std::size_t index) { EdgeStates[index] = EdgeState::NotStored; }
    // False, and nothing is written, when frame or size are no numbers, or the size that shows is that of
    // another chart.
    bool cmdSpeichern_Click();
    // What a calibration found for the selected entry, with the size that it went by. Not stored yet. The
    // hemispheres stay: what is south or west counts as their boxes say.
    void TakeFrame(const ChartPlacement& found);

    // Size, preview and frame of the selected entry.
    void ShowMapData();
    // The selected entry; empty without one.
    std::string SelectedName() const;
    std::filesystem::path ChartsFolder() const { return shared.ProgramFolder / "Karten"; }

    // The FrameCheck of what stands in the fields. Says so when the size that shows is that of another chart.
    // Empty while frame or size are no numbers.
    std::string ScaleText() const;
    // Where the rows are kept that the last refill dropped all together; empty when it did not.
    std::string BackupText() const;

    Recordset ActiveMapsSet; // of gridMaps: what is active now

    // listKarten
    std::vector<Entry> listKarten;
    int ListIndex = -1;
    std::string tPath;
    std::array<std::string, 4> tKarten; // magnitudes, as typed
    std::array<Hemisphere, 4> cmbLatLong{};
    std::array<EdgeState, 4> EdgeStates{};
    std::optional<ImageSize> Size; // lblBreite and lblHoehe; none while they are empty
    bool chkVorschau = false;
    bool PreviewFailed = false; // the preview is on and the selected image cannot be shown

private:
    int SearchList(const std::string& text) const;
    void DropRowsWithoutImage();
    void ReadSize(const std::string& name);
    void ShowSize(const ImageSize& size);
    bool HasExtent() const { return Size && Size->Width > 0 && Size->Height > 0; }
    void MarkUnlikeRow();
    bool ShowPreview(const std::string& name);
    void ShowFrame(const std::string& name);
    void ShowWithoutRow(const std::string& name);
    void ShowPlacement(const ChartPlacement& shown);
    void LoadLatData();
    bool EdgesAreNumbers() const;
    void ReportBadData();
    FrameEdges SignedEdges() const;
    ChartPlacement WithFields(const FrameEdges& edges) const;
    void WriteRow(const std::string& name, MapCatalogue::Tick tick);
    void RowWritten();
    void RequeryActiveMaps();
    void ShowNothing();
    void EmptyEdges();
    void SetEdgeStates(EdgeState state) { EdgeStates.fill(state); }
    void Remember(const LatData& data) const;

    Variablen& shared;
    MapCatalogue catalogue;
    Picture& storage;
    PictureSurface& surface;
    Dialogs& dialogs;
    Recordset MapRowsSet;
    bool latDataLoaded = false;
    bool SkipMapClick = false; // the next entry into ShowMapData clears it and returns
    std::string LastMapName;
    ChartPlacement placement; // what the fields of the frame were filled with
    // The chart that they were filled for, and the one whose image has the size shown.
    std::string edgesOf, sizeOf;
    std::string backup; // file name
};

} // namespace ornivane
