#pragma once

#include <filesystem>

namespace ornivane {

class Connection;

// A copy of an open store as it is at this moment, made under a temporary name and then renamed: a copy that
// is there already is replaced as a whole or stays. RuntimeError ObjectClosed, InvalidCall when the target is
// the store itself, StoreError (locked), DiskFull, PermissionDenied, PathNotFound.
void BackupStore(const Connection& store, const std::filesystem::path& target);

} // namespace ornivane
