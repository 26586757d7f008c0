#include "store/Schema.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/SchemaText.h"
#include "store/Sqlite.h"
#include "store/TemporaryStore.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

struct Store {
    const char* File;
    const char* Statements; // that make its tables and indexes
};
// In the order of StoreKind.
constexpr Store Stores[] = {{"data.ovd", DataSchema},
                            {"track.ovd", TrackSchema},
                            {"Luftraum.ovd", LuftraumSchema},
                            {"ovdata.ovd", AirfieldsSchema}};

const Store& Of(StoreKind kind) { return Stores[static_cast<std::size_t>(kind)]; }

} // namespace

const char* StoreFileName(StoreKind kind) { return Of(kind).File; }

void CreateStore(const fs::path& file, StoreKind kind) {
    std::error_code error;
    if (fs::exists(file, error)) throw RuntimeError(ErrorNumber::PermissionDenied, file.string() + " exists");
    ReplaceStore(file, kind, {});
}

void ReplaceStore(const fs::path& file, StoreKind kind, const std::function<void(Connection&)>& fill) {
    TemporaryStore store(file);
    if (sqlite3_exec(store.Handle(), Of(kind).Statements, nullptr, nullptr, nullptr) != SQLITE_OK)
        ThrowSqliteError(store.Handle());
    store.Close();
    if (fill) {
        Connection connection;
        connection.Open(store.Path(), Connection::Mode::ReadWrite);
        Transaction transaction(connection);
        fill(connection);
        transaction.Commit();
    }
    store.Keep();
}

} // namespace ornivane
