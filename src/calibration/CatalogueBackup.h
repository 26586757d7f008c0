#pragma once

#include <filesystem>
#include <string>

namespace ornivane {

class Connection;

// Copies the whole store, before all of its charts are deleted, to a file in the folder, and returns the
// file's name: data.bak. A file that has a chart which the store lacks, or that cannot be read, is not
// replaced: the next free one of data-2.bak, data-3.bak and so on is taken then. RuntimeError as of
// BackupStore.
std::string BackupCatalogue(Connection& store, const std::filesystem::path& folder);

} // namespace ornivane
