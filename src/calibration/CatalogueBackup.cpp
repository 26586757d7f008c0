#include "calibration/CatalogueBackup.h"

#include "base/RuntimeError.h"
#include "map/MapCatalogue.h"
#include "store/Backup.h"
#include "store/Connection.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

// Every chart of the backup is in the store as well.
bool MayReplace(const fs::path& backup, Connection& store) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(backup, error))) return true;
    bool allPresent = true;
    const auto unreadable = ErrorOf([&] {
        Connection kept;
        kept.Open(backup, Connection::Mode::ReadOnly);
        Recordset charts, present;
        MapCatalogue(kept).OpenAll(charts);
        MapCatalogue(store).OpenAll(present);
        for (; !charts.Eof() && allPresent; charts.MoveNext())
            allPresent = MapCatalogue::StandOn(present, MapCatalogue::NameOf(charts));
    });
    // One that is not ours, or damaged, is kept: perhaps somebody can still save something of it.
    return allPresent && !unreadable;
}

} // namespace

std::string BackupCatalogue(Connection& store, const fs::path& folder) {
    std::string name = "data.bak";
    for (int number = 2; !MayReplace(folder / name, store); ++number)
        name = "data-" + std::to_string(number) + ".bak";
    BackupStore(store, folder / name);
    return name;
}

} // namespace ornivane
