#pragma once

#include <filesystem>
#include <string>

#include "chart-import/ImportFailure.h"

namespace ornivane {

// The folder of what an import makes until it is whole: a hidden one within the folder of charts, so that a
// finished image gets its name without being copied. Gone with this object; one that a killed program left
// behind goes with the next import.
class ImportFolder {
public:
    // CannotWrite, DiskFull.
    static Imported<ImportFolder> Make(const std::filesystem::path& charts);
    ~ImportFolder();
    ImportFolder(ImportFolder&& other) noexcept;
    ImportFolder& operator=(ImportFolder&& other) noexcept;

    const std::filesystem::path& Path() const { return path; }

private:
    ImportFolder(std::filesystem::path folder, int lockedFolder)
        : path(std::move(folder)), lock(lockedFolder) {}

    std::filesystem::path path;
    int lock = -1; // held as long as somebody works in it
};

} // namespace ornivane
