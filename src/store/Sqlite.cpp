#include "store/Sqlite.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/TextOrder.h"

namespace ornivane {

namespace {

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return CompareText({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                       {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

} // namespace

void RegisterTextOrder(sqlite3* handle) {
    sqlite3_create_collation_v2(handle, "ORNIVANE", SQLITE_UTF8, nullptr, Collate, nullptr);
}

void ThrowSqliteError(sqlite3* handle) {
    const bool full = sqlite3_errcode(handle) == SQLITE_FULL;
    throw RuntimeError(full ? ErrorNumber::DiskFull : ErrorNumber::StoreError, sqlite3_errmsg(handle));
}

} // namespace ornivane
