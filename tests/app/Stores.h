#pragma once

#include <filesystem>

#include "common/Date.h"
#include "store/Connection.h"
#include "store/Schema.h"

namespace ornivane {

inline constexpr Date AirspaceRelease{2024, 3, 21};

// The four stores, empty but for the airspace's date. Those that are there already stay.
inline void MakeStores(const std::filesystem::path& folder) {
    for (const StoreKind kind :
         {StoreKind::Data, StoreKind::Track, StoreKind::Luftraum, StoreKind::Airfields}) {
        const std::filesystem::path file = folder / StoreFileName(kind);
        if (std::filesystem::exists(file)) continue;
        CreateStore(file, kind);
        if (kind != StoreKind::Luftraum) continue;
        Connection store;
        store.Open(file, Connection::Mode::ReadWrite);
        store.Execute("INSERT INTO RELEASE (Datum) VALUES (?)", {DateText(AirspaceRelease)});
    }
}

} // namespace ornivane
