#include "tracks/TrackManager.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "store/Backup.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

namespace {

const char* const Backup = "track.bak";
const char* const KeptBackup = "track.undo";
const char* const OfTrack = "\"Index\" = ?";

} // namespace

TrackManager::TrackManager(Variablen& variablen, Dialogs& dialogsOf, Undo& lastDeed)
    : shared(variablen), dialogs(dialogsOf), undo(lastDeed), undoFrom(Backup) {}

TrackManager::~TrackManager() { DropKeptBackup(); }

void TrackManager::Form_Load() {
    TrackFormConn.Open(shared.ProgramFolder / "track.ovd", Connection::Mode::ReadWrite);
    TrackListSet.Open(TrackFormConn, "SELECT * FROM List ORDER BY \"Index\"");
    FillLists();
    TrackChosen.assign(Rows.size() + 1, false);
    ShowTrackPoints();
}

void TrackManager::FillLists() {
    Rows.clear();
    ListIndex = -1;
    ++Fillings;
    for (; !TrackListSet.Eof(); TrackListSet.MoveNext())
        Rows.push_back({TrackListSet.TextOrEmpty("Name"), TrackListSet.Get("Index").Integer(), false});
}

void TrackManager::listTrack_MouseUp(int row) {
    if (row < 0 || row >= static_cast<int>(Rows.size())) return;
    const auto place = static_cast<std::size_t>(row);
    if (place >= TrackChosen.size()) TrackChosen.resize(place + 1);
    TrackChosen[place] = !TrackChosen[place];
    Rows[place].Selected = TrackChosen[place];
    ListIndex = row;
    ShowTrackPoints();
}

void TrackManager::listIndex_Click(int row) {
    if (row >= 0 && row < static_cast<int>(Rows.size())) ListIndex = row;
}

void TrackManager::SelectAll() {
    if (TrackChosen.size() < Rows.size()) TrackChosen.resize(Rows.size());
    for (std::size_t i = 0; i < Rows.size(); ++i) TrackChosen[i] = Rows[i].Selected = true;
    ShowTrackPoints();
}

std::vector<std::int64_t> TrackManager::SelectedIndexes() const {
    std::vector<std::int64_t> indexes;
    for (const Row& row : Rows)
        if (row.Selected) indexes.push_back(row.Index);
    return indexes;
}

void TrackManager::ShowTrackPoints() {
    TrackPointsSet.Open(TrackFormConn, SelectedIndexes());
    const int count = TrackPointsSet.Count();
    lblRecords = std::to_string(count) + (count == 1 ? shared.Text(" Trackpunkt", " trackpoint")
                                                     : shared.Text(" Trackpunkte", " trackpoints"));
}

// The list of the message and what is deleted are one and the same.
void TrackManager::cmdDelete_Click() {
    const auto indexes = SelectedIndexes();
    std::string message = shared.Text("Es wurden keine Tracks ausgewählt", "No tracks selected");
    if (!indexes.empty()) {
        message = "Track: | ";
        for (const std::int64_t index : indexes) message += std::to_string(index) + " | ";
        message += shared.Text(" werden gelöscht ! ", " will be deleted ! ");
    }
    if (!dialogs.AskYesNo(shared.Text("Achtung", "Attention"), message)) return;
    TrackPointsSet.Close(); // a statement that stands on a row would lock the store
    const Choice before{indexes, TrackChosen, ListIndex};
    KeepBackup();
    const bool hasBackup = BackupTrackStore();
    std::int64_t samples = 0;
    try {
        samples = DeleteTracks(indexes);
    } catch (...) {
        ShowTrackPoints();
        throw;
    }
    if (hasBackup && !indexes.empty())
        OfferUndo(before, samples);
    else if (!indexes.empty())
        undo.Refuse("Gelöscht; ohne Sicherung nicht rückgängig zu machen",
                    "Deleted; without a backup it cannot be undone");
    TrackListSet.Requery();
    FillLists();
    ShowTrackPoints();
}

// A deletion of nothing and one that fails make a new backup, too: what the one before deleted can still be
// brought back.
void TrackManager::KeepBackup() {
    if (!undo.Stands() || undoFrom == KeptBackup) return;
    std::error_code error;
    std::filesystem::copy_file(shared.ProgramFolder / Backup, shared.ProgramFolder / KeptBackup,
                               std::filesystem::copy_options::overwrite_existing, error);
    if (error)
        DropKeptBackup();
    else
        undoFrom = KeptBackup;
}

void TrackManager::DropKeptBackup() {
    std::error_code ignored;
    std::filesystem::remove(shared.ProgramFolder / KeptBackup, ignored);
    undoFrom = Backup;
}

bool TrackManager::BackupTrackStore() {
    try {
        BackupStore(TrackFormConn, shared.ProgramFolder / Backup);
        return true;
    } catch (const RuntimeError&) {
        return false; // the deletion was confirmed, and goes on without its backup
    }
}

std::int64_t TrackManager::DeleteTracks(const std::vector<std::int64_t>& indexes) {
    Transaction together(TrackFormConn);
    std::int64_t samples = 0;
    for (const std::int64_t index : indexes) {
        TrackFormConn.Execute("DELETE FROM Track WHERE \"Index\" = ?", {index});
        Statement changes(TrackFormConn, "SELECT changes()");
        changes.Step();
        samples += changes.Integer(0);
        TrackFormConn.Execute("DELETE FROM List WHERE \"Index\" = ?", {index});
    }
    together.Commit();
    return samples;
}

void TrackManager::OfferUndo(const Choice& before, std::int64_t samples) {
    DropKeptBackup();
    const std::size_t count = before.Selected.size();
    const std::string tracks =
        count == 1 ? "Track " + std::to_string(before.Selected.front()) : std::to_string(count) + " Tracks";
    undo.Offer({tracks + " gelöscht", tracks + " deleted", TrackFormConn,
                [this, indexes = before.Selected, samples] { BringBack(indexes, samples); },
                [this, before] { ShowAgain(before); }});
}

// From the backup, a row at a time: a year of flights has a million samples. They must be those that were
// deleted, or some would be missing and nobody would know.
void TrackManager::BringBack(const std::vector<std::int64_t>& indexes, std::int64_t samples) {
    Connection backup;
    backup.Open(shared.ProgramFolder / undoFrom, Connection::Mode::ReadOnly);
    std::int64_t rows = 0, back = 0;
    for (const std::int64_t index : indexes) {
        rows += KeptRows::Copy(backup, TrackFormConn, "List", OfTrack, {index});
        back += KeptRows::Copy(backup, TrackFormConn, "Track", OfTrack, {index});
    }
    if (rows != static_cast<std::int64_t>(indexes.size()) || back != samples)
        throw RuntimeError(ErrorNumber::StoreError,
                           std::string(undoFrom) + shared.Text(": nicht die gelöschten Tracks",
                                                               ": not the tracks that were deleted"));
}

void TrackManager::ShowAgain(const Choice& before) {
    TrackListSet.Requery();
    FillLists();
    for (Row& row : Rows)
        row.Selected =
            std::find(before.Selected.begin(), before.Selected.end(), row.Index) != before.Selected.end();
    TrackChosen = before.TrackChosen;
    ListIndex = before.ListIndex;
    ShowTrackPoints();
}

void TrackManager::Export(GpxContent content) {
    if (TrackPointsSet.Count() < 1) return;
    FileQuestion question;
    question.Title = shared.Text("Tracks speichern", "Save tracks");
    question.Start = shared.ProgramFolder / ("Track" + std::to_string(TrackPointsSet.At(0).Index) + ".gpx");
    question.Filters = {{"All files (*.*)", "*.*"}, {"GPX files", "*.gpx"}};
    question.Preselected = 1;
    question.DefaultExtension = "gpx";
    const auto file = dialogs.SaveFile(question);
    if (!file) return;
    try {
        SaveGpxFile(*file, TrackPointsSet, content);
    } catch (const RuntimeError& error) {
        using enum ErrorNumber;
        // A file that cannot be written is left as it was, and nothing is reported; points that cannot be
        // read are.
        for (const ErrorNumber ofFile : {PathNotFound, PermissionDenied, DiskFull, DeviceError})
            if (error.Number() == ofFile) return;
        throw;
    }
}

} // namespace ornivane
