#include "calibration/CatalogueBackup.h"

#include "base/RuntimeError.h"
#include "store/Backup.h"
#include "store/Connection.h"
#include "store/Recordset.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

constexpr const char* ChartNames = "SELECT Name FROM Maps ORDER BY Name";

// Every chart of the backup is in the store as well.
bool MayReplace(const fs::path& backup, Connection& store) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(backup, error))) return true;
    try {
        Connection kept;
        kept.Open(backup, Connection::Mode::ReadOnly);
        Recordset charts, present;
        charts.Open(kept, ChartNames);
        present.Open(store, ChartNames);
        for (; !charts.Eof(); charts.MoveNext()) {
            present.MoveFirst();
            if (!present.Find("Name", Comparison::Equal, charts.Get("Name"))) return false;
        }
        return true;
    } catch (const RuntimeError&) {
        return false; // not ours, or damaged: perhaps somebody can still save something of it
    }
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
