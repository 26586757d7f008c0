#include "import-store/StoreFile.h"

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Refuse(const fs::path& store, const std::string& reason) {
    throw RuntimeError(ErrorNumber::PermissionDenied, store.string() + " " + reason);
}

bool HasTables(const fs::path& file, const std::vector<const char*>& tables) {
    return !ErrorOf([&] {
        Connection connection;
        connection.Open(file, Connection::Mode::ReadOnly);
        for (const char* table : tables)
            Statement(connection, "SELECT 1 FROM \"" + std::string(table) + "\" LIMIT 1").Step();
    });
}

} // namespace

void CheckReplacing(const fs::path& store, const StoreContent& content, bool replace) {
    std::error_code error;
    // A journal beside the store would be played back into the new one.
    if (fs::exists(store.string() + "-journal", error)) Refuse(store, "is being changed by another program");
    if (!fs::exists(store, error)) return;
    if (!replace) Refuse(store, "exists; --replace replaces it");
    if (!HasTables(store, content.Tables))
        Refuse(store, std::string("is no ") + content.Name + " store and is not replaced");
}

} // namespace ornivane
