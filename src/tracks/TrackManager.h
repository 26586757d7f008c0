#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/Language.h"
#include "common/Settings.h"
#include "common/Undo.h"
#include "data/Tracks.h"
#include "platform/Dialogs.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "tracks/Gpx.h"
#include "tracks/TrackPoints.h"

namespace ornivane {

// The recorded tracks: choosing, looking at their points, deleting, exporting. Works on the track store
// through a connection of its own. Members carry the names of the controls that show them.
class TrackManager {
public:
    struct Row {
        std::string Name;       // in listTrack
        std::int64_t Index = 0; // in listIndex
        bool Selected = false;
    };

    // `lastDeed`: takes back the last deletion, from the backup that was made before it.
    TrackManager(const Language& texts, const Settings& program, Dialogs& messages, Undo& lastDeed);
    ~TrackManager();
    TrackManager(const TrackManager&) = delete;
    TrackManager& operator=(const TrackManager&) = delete;

    // RuntimeError FileNotFound or StoreError when there is no track store.
    void Form_Load();
    // A click on a row toggles it by what the form remembers of it.
    void listTrack_MouseUp(int row);
    // A click on its number moves to a row and selects nothing.
    void listIndex_Click(int row);
    void SelectAll();
    void cmdDelete_Click();
    void cmdTrack_Click() { Export(GpxContent::Track); }
    void cmdWpt_Click() { Export(GpxContent::Waypoints); }
    void cmdWptTrack_Click() { Export(GpxContent::Both); }

    std::vector<Row> Rows;
    int ListIndex = -1;
    int Fillings = 0; // how often Rows was read anew
    std::string lblRecords;
    TrackPoints TrackPointsSet;

private:
    void FillLists();
    void ShowTrackPoints();
    std::vector<std::int64_t> SelectedIndexes() const;
    // What the user sees of the lists.
    struct Choice {
        std::vector<std::int64_t> Selected; // indexes
        std::vector<bool> TrackChosen;
        int ListIndex = -1;
    };
    std::filesystem::path Backup() const { return settings.ProgramFolder / "track.bak"; }
    std::filesystem::path KeptBackup() const { return settings.ProgramFolder / "track.undo"; }
    void KeepBackup();
    void DropKeptBackup();
    bool BackupTrackStore();
    Tracks::Counts DeleteTracks(const std::vector<std::int64_t>& indexes);
    void OfferUndo(const Choice& before, const Tracks::Counts& deleted);
    void BringBack(const std::vector<std::int64_t>& indexes, std::int64_t points);
    void ShowAgain(const Choice& before);
    void Export(GpxContent content);

    const Language& language;
    const Settings& settings;
    Dialogs& dialogs;
    Undo& undo;
    bool undoFromKept = false; // what the last deletion deleted is in KeptBackup, not in Backup
    Connection TrackFormConn;
    Tracks store;
    Recordset TrackListSet;
    // What was chosen, by row. A deletion leaves it as it is, so that the first click on a row that moved up
    // may clear instead of set.
    std::vector<bool> TrackChosen;
};

} // namespace ornivane
