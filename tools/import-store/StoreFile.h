#pragma once

#include <filesystem>
#include <vector>

namespace ornivane {

// What a tool makes whole from public data.
struct StoreContent {
    const char* Name;                // "airspace", as messages call it
    std::vector<const char*> Tables; // by which a store of this kind is known
};

// RuntimeError PermissionDenied when there is a file that may not be replaced. With `replace` a store of this
// content may be, any other file never: a slip of the name must not cost the pilot another store or file.
void CheckReplacing(const std::filesystem::path& store, const StoreContent& content, bool replace);

} // namespace ornivane
