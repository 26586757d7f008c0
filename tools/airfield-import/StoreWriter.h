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

// RuntimeError PermissionDenied when there is a file that may not be replaced, before the work: without
// `replace` any, with it what is no store of airfields.
void CheckReplacing(const std::filesystem::path& file, bool replace);

// Makes the store of airfields; a crash leaves the old store or the new one. Each airfield must be complete.
// RuntimeError as CheckReplacing, CreateStore and Connection have them.
Written WriteStore(const std::filesystem::path& file, const std::vector<Airfield>& fields,
                   const std::vector<std::pair<std::string, std::string>>& prefixes, bool replace);

} // namespace ornivane::airfields
