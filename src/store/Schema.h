#pragma once

#include <filesystem>
#include <functional>

namespace ornivane {

class Connection;

enum class StoreKind { Data, Track, Luftraum, Airfields };

// "data.ovd", "track.ovd", "Luftraum.ovd", "ovdata.ovd".
const char* StoreFileName(StoreKind kind);

// Makes an empty store under a temporary name and then gives it its own. RuntimeError PermissionDenied when
// there is a file of that name already (it is never touched), StoreError when it cannot be written.
void CreateStore(const std::filesystem::path& file, StoreKind kind);

// Makes a store under a temporary name, filled in one transaction, and then gives it its own; a store of that
// name is replaced, as a whole or not at all. RuntimeError StoreError, and as ReplaceFile.
void ReplaceStore(const std::filesystem::path& file, StoreKind kind,
                  const std::function<void(Connection&)>& fill);

} // namespace ornivane
