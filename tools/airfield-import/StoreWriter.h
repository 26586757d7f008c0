#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "airfield-import/Airfield.h"

namespace ornivane::airfields {

struct Written {
    std::size_t Airfields = 0, Runways = 0, Stations = 0, Prefixes = 0;
};

// Makes the store of airfields under a temporary name beside its own and then gives it its name: a crash
// leaves the old store or the new one. Each airfield must be complete. RuntimeError PermissionDenied when
// there is a file already and replace is not set, otherwise as CreateStore and Connection have them.
Written WriteStore(const std::filesystem::path& file, const std::vector<Airfield>& fields,
                   const std::vector<std::pair<std::string, std::string>>& prefixes, bool replace);

} // namespace ornivane::airfields
