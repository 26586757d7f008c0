#include "tracks/TrackManager.h"

#include <algorithm>
#include <system_error>

#include "base/RuntimeError.h"
#include "store/Backup.h"

namespace ornivane {

TrackManager::TrackManager(const Language& texts, const Settings& program, Dialogs& messages, Undo& lastDeed)
    : language(texts), settings(program), dialogs(messages), undo(lastDeed), store(TrackFormConn) {}

TrackManager::~TrackManager() { DropKeptBackup(); }

void TrackManager::Form_Load() {
    TrackFormConn.Open(settings.ProgramFolder / "track.ovd", Connection::Mode::ReadWrite);
    store.OpenList(TrackListSet);
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
    TrackPointsSet.Open(store, SelectedIndexes());
    const int count = TrackPointsSet.Count();
    lblRecords = std::to_string(count) + (count == 1 ? language.Text(" Trackpunkt", " trackpoint")
                                                     : language.Text(" Trackpunkte", " trackpoints"));
}

// The list of the message and what is deleted are one and the same.
void TrackManager::cmdDelete_Click() {
    const auto indexes = SelectedIndexes();
    std::string message = language.Text("Es wurden keine Tracks ausgewählt", "No tracks selected");
    if (!indexes.empty()) {
        message = "Track: | ";
        for (const std::int64_t index : indexes) message += std::to_string(index) + " | ";
        message += language.Text(" werden gelöscht ! ", " will be deleted ! ");
    }
    if (!dialogs.AskYesNo(language.Text("Achtung", "Attention"), message)) return;
    TrackPointsSet.Close(); // a statement that stands on a row would lock the store
    const Choice before{indexes, TrackChosen, ListIndex};
    KeepBackup();
    const bool hasBackup = BackupTrackStore();
    Tracks::Counts deleted;
    RestoreOnError([&] { deleted = DeleteTracks(indexes); }, [this] { ShowTrackPoints(); });
    if (hasBackup && !indexes.empty())
        OfferUndo(before, deleted);
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
    if (!undo.Stands() || undoFromKept) return;
    std::error_code error;
    std::filesystem::copy_file(Backup(), KeptBackup(), std::filesystem::copy_options::overwrite_existing,
                               error);
    if (error) return DropKeptBackup();
    undoFromKept = true;
}

void TrackManager::DropKeptBackup() {
    std::error_code ignored;
    std::filesystem::remove(KeptBackup(), ignored);
    undoFromKept = false;
}

// The deletion was confirmed, and goes on without its backup.
bool TrackManager::BackupTrackStore() {
    return !ErrorOf([this] { BackupStore(TrackFormConn, Backup()); });
}

Tracks::Counts TrackManager::DeleteTracks(const std::vector<std::int64_t>& indexes) {
    Transaction together(TrackFormConn);
    Tracks::Counts deleted;
    for (const std::int64_t index : indexes) deleted += store.Delete(index);
    together.Commit();
    return deleted;
}

void TrackManager::OfferUndo(const Choice& before, const Tracks::Counts& deleted) {
    DropKeptBackup();
    const std::size_t count = before.Selected.size();
    const std::string tracks =
        count == 1 ? "Track " + std::to_string(before.Selected.front()) : std::to_string(count) + " Tracks";
    undo.Offer({{"%1 gelöscht", "%1 deleted"},
                tracks,
                TrackFormConn,
                [this, indexes = before.Selected, points = deleted.Points] { BringBack(indexes, points); },
                [this, before] { ShowAgain(before); }});
}

// From the backup, a row at a time: a year of flights has a million samples. They must be those that were
// deleted, or some would be missing and nobody would know.
void TrackManager::BringBack(const std::vector<std::int64_t>& indexes, std::int64_t points) {
    const std::filesystem::path file = undoFromKept ? KeptBackup() : Backup();
    Connection backup;
    backup.Open(file, Connection::Mode::ReadOnly);
    Tracks::Counts copied;
    for (const std::int64_t index : indexes) copied += store.CopyFrom(backup, index);
    if (copied != Tracks::Counts{static_cast<std::int64_t>(indexes.size()), points})
        throw RuntimeError(ErrorNumber::StoreError,
                           file.filename().string() + language.Text(": nicht die gelöschten Tracks",
                                                                    ": not the tracks that were deleted"));
}

void TrackManager::ShowAgain(const Choice& before) {
    TrackListSet.Requery();
    FillLists();
    for (Row& row : Rows) row.Selected = std::ranges::count(before.Selected, row.Index) > 0;
    TrackChosen = before.TrackChosen;
    ListIndex = before.ListIndex;
    ShowTrackPoints();
}

void TrackManager::Export(GpxContent content) {
    if (TrackPointsSet.Count() < 1) return;
    FileQuestion question;
    question.Title = language.Text("Tracks speichern", "Save tracks");
    question.Start = settings.ProgramFolder / ("Track" + std::to_string(TrackPointsSet.At(0).Index) + ".gpx");
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
