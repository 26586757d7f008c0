#pragma once

#include <filesystem>
#include <string>

namespace ornivane {

class Connection;

// Keeps the whole store, before all of its charts leave it, in a file in the folder, and returns the file's
// name: data.bak. A file that has a chart which the store lacks, or that cannot be read, is worth more than
// what would replace it: then it is data-2.bak, data-3.bak and so on. RuntimeError as of BackupStore.
std::string BackupCatalogue(Connection& store, const std::filesystem::path& folder);

} // namespace ornivane
