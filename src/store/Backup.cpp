#include "store/Backup.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Sqlite.h"
#include "store/TemporaryStore.h"

namespace ornivane {

namespace fs = std::filesystem;

void BackupStore(const Connection& store, const fs::path& target) {
    sqlite3* source = store.Handle();
    std::error_code error;
    if (fs::equivalent(sqlite3_db_filename(source, "main"), target, error))
        throw RuntimeError(ErrorNumber::InvalidCall, target.string());
    TemporaryStore copy(target);
    sqlite3_backup* backup = sqlite3_backup_init(copy.Handle(), "main", source, "main");
    if (!backup) ThrowSqliteError(copy.Handle());
    const int step = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (step != SQLITE_DONE)
        throw RuntimeError(step == SQLITE_FULL ? ErrorNumber::DiskFull : ErrorNumber::StoreError,
                           sqlite3_errstr(step));
    copy.Keep();
}

} // namespace ornivane
