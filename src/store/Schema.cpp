#include "store/Schema.h"

#include <memory>

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/SchemaText.h"
#include "store/Sqlite.h"

namespace ornivane {

namespace {

namespace fs = std::filesystem;

void MakeTables(const fs::path& file, StoreKind kind) {
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> handle(raw, sqlite3_close);
    if (result == SQLITE_OK) RegisterTextOrder(raw);
    if (result != SQLITE_OK || sqlite3_exec(raw, SchemaOf(kind), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw RuntimeError(ErrorNumber::StoreError, file.string() + ": " + sqlite3_errmsg(raw));
}

} // namespace

const char* StoreFileName(StoreKind kind) {
    switch (kind) {
    case StoreKind::Data:
        return "data.ovd";
    case StoreKind::Track:
        return "track.ovd";
    case StoreKind::Luftraum:
        return "Luftraum.ovd";
    case StoreKind::Airfields:
        break;
    }
    return "ovdata.ovd";
}

const char* SchemaOf(StoreKind kind) {
    switch (kind) {
    case StoreKind::Data:
        return DataSchema;
    case StoreKind::Track:
        return TrackSchema;
    case StoreKind::Luftraum:
        return LuftraumSchema;
    case StoreKind::Airfields:
        break;
    }
    return AirfieldsSchema;
}

void CreateStore(const fs::path& file, StoreKind kind) {
    std::error_code error;
    if (fs::exists(file, error)) throw RuntimeError(ErrorNumber::PermissionDenied, file.string() + " exists");
    const fs::path temporary = file.string() + ".new";
    fs::remove(temporary, error);
    MakeTables(temporary, kind);
    fs::rename(temporary, file, error);
    if (error) throw RuntimeError(ErrorNumber::StoreError, file.string() + ": " + error.message());
}

} // namespace ornivane
