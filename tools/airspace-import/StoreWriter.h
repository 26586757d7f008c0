#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "airspace-import/Airspace.h"
#include "common/Date.h"

namespace ornivane {

constexpr std::size_t MostAirspaces = 32767; // the program counts them in 16 bits

// Makes a whole airspace store under a temporary name and gives it its own. With replace, a store of airspace
// that is there is replaced; any other file never is. The airspaces are numbered from 1, at most
// MostAirspaces. RuntimeError PermissionDenied when there is a file that may not be replaced, and what making
// a store raises.
void WriteAirspaceStore(const std::filesystem::path& store, const std::vector<Airspace>& airspaces,
                        const Date& release, bool replace);

// Raises PermissionDenied as above, before the work.
void CheckReplacing(const std::filesystem::path& store, bool replace);

} // namespace ornivane
