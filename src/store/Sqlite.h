#pragma once

struct sqlite3;

namespace ornivane {

// The collation ORNIVANE on a handle.
void RegisterTextOrder(sqlite3* handle);

// RuntimeError DiskFull or StoreError with SQLite's own words for the last failure on a handle.
[[noreturn]] void ThrowSqliteError(sqlite3* handle);

} // namespace ornivane
