#pragma once

#include <filesystem>

namespace ornivane {

// An empty file beside another one, under a name that nothing has: what is written in pieces is written
// there, so that nobody ever meets half of it. Gone with this object unless it was given its name.
class TemporaryFile {
public:
    // RuntimeError PathNotFound, PermissionDenied, DiskFull, DeviceError, with the name of the file that it
    // will be.
    explicit TemporaryFile(const std::filesystem::path& of);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::filesystem::path& Path() const { return temporary; }
    // Gives it the target's name; a file of that name is replaced. RuntimeError like ReplaceFile.
    void Keep();

private:
    std::filesystem::path target, temporary;
};

} // namespace ornivane
