#include "store/Schema.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/SchemaText.h"
#include "store/Sqlite.h"
#include "store/TemporaryStore.h"

namespace ornivane {

namespace fs = std::filesystem;

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
    TemporaryStore store(file);
    if (sqlite3_exec(store.Handle(), SchemaOf(kind), nullptr, nullptr, nullptr) != SQLITE_OK)
        ThrowSqliteError(store.Handle());
    store.Keep();
}

} // namespace ornivane
