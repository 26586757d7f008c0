#pragma once

#include <filesystem>

namespace ornivane {

// What can be reached there, links followed: a file with bytes; a folder. A path that cannot be looked at
// counts as nothing.
bool FileExists(const std::filesystem::path& path);
bool DirExists(const std::filesystem::path& path);

} // namespace ornivane
