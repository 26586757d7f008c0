#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace ornivane {

// The file of that name in a folder, upper and lower case being the same, as the stores' map names are. An
// exact match comes first. Empty when there is none; a name with a path in it never matches.
std::optional<std::filesystem::path> FindFileIgnoringCase(const std::filesystem::path& folder,
                                                          const std::string& name);

} // namespace ornivane
