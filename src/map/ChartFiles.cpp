#include "map/ChartFiles.h"

#include "store/TextOrder.h"

namespace ornivane {

namespace fs = std::filesystem;

std::optional<fs::path> FindFileIgnoringCase(const fs::path& folder, const std::string& name) {
    std::optional<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string entryName = entry->path().filename().string();
        if (entryName == name) return entry->path();
        // The lowest of several, so that the choice does not hang on the order in which the folder is read.
        if (CompareText(entryName, name) == 0 && (!found || entryName < found->filename().string()))
            found = entry->path();
    }
    return found;
}

} // namespace ornivane
