#pragma once

#include <filesystem>

struct sqlite3;

namespace ornivane {

// A store being made under a temporary name beside its own, so that nobody ever meets half of it. Gone with
// this object unless it was given its name.
class TemporaryStore {
public:
    // RuntimeError StoreError when it cannot be made.
    explicit TemporaryStore(const std::filesystem::path& of);
    ~TemporaryStore();
    TemporaryStore(const TemporaryStore&) = delete;
    TemporaryStore& operator=(const TemporaryStore&) = delete;

    sqlite3* Handle() const { return handle; } // until Close
    const std::filesystem::path& Path() const { return temporary; }
    void Close();
    // Closes it and gives it its name; a file of that name is replaced. RuntimeError like ReplaceFile.
    void Keep();

private:
    void Remove() const;

    std::filesystem::path target, temporary;
    sqlite3* handle = nullptr;
};

} // namespace ornivane
