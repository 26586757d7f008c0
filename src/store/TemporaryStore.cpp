#include "store/TemporaryStore.h"

#include <sqlite3.h>

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "store/Sqlite.h"

namespace ornivane {

namespace fs = std::filesystem;

TemporaryStore::TemporaryStore(const fs::path& of) : target(of), temporary(of.string() + ".new") {
    Remove();
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    if (sqlite3_open_v2(temporary.c_str(), &handle, flags, nullptr) != SQLITE_OK) {
        const std::string reason = target.string() + ": " + sqlite3_errmsg(handle);
        Close();
        throw RuntimeError(ErrorNumber::StoreError, reason);
    }
    RegisterTextOrder(handle);
}

TemporaryStore::~TemporaryStore() {
    Close();
    Remove();
}

void TemporaryStore::Keep() {
    Close();
    ReplaceFile(temporary, target);
}

void TemporaryStore::Close() {
    sqlite3_close(handle);
    handle = nullptr;
}

void TemporaryStore::Remove() const {
    std::error_code ignored;
    fs::remove(temporary, ignored);
    // A crash's journal would be played back into the next store of that name.
    fs::remove(temporary.string() + "-journal", ignored);
}

} // namespace ornivane
