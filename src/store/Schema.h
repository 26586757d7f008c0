#pragma once

#include <filesystem>

namespace ornivane {

enum class StoreKind { Data, Track, Luftraum, Airfields };

// "data.ovd", "track.ovd", "Luftraum.ovd", "ovdata.ovd".
const char* StoreFileName(StoreKind kind);

// The statements that make the tables and indexes of a store.
const char* SchemaOf(StoreKind kind);

// Makes an empty store under a temporary name and then gives it its own. RuntimeError PermissionDenied when
// there is a file of that name already (it is never touched), StoreError when it cannot be written.
void CreateStore(const std::filesystem::path& file, StoreKind kind);

} // namespace ornivane
