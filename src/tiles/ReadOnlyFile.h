#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <utility>

#include "tiles/Failure.h"

namespace ornivane {

// What tells that a file is still the one that it was.
struct FileState {
    std::uint64_t Bytes = 0;
    std::int64_t ModifiedNs = 0; // since 1970
    bool operator==(const FileState&) const = default;
};

// A file that is read with pread. It is never mapped into memory: a page of a stick that was pulled out would
// end the program, and a page that is not there yet would stop whoever touches it.
class ReadOnlyFile {
public:
    static Result<ReadOnlyFile> Open(const std::filesystem::path& file);
    // Takes the descriptor over.
    explicit ReadOnlyFile(int fileDescriptor) : descriptor(fileDescriptor) {}
    ~ReadOnlyFile();
    ReadOnlyFile(ReadOnlyFile&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}
    ReadOnlyFile& operator=(ReadOnlyFile&& other) noexcept;

    // How many bytes were read, fewer only at the end of the file; nothing when the device failed.
    std::optional<std::size_t> Read(std::uint64_t offset, void* to, std::size_t count) const;
    // All of them or false.
    bool ReadAll(std::uint64_t offset, void* to, std::size_t count) const;
    std::optional<FileState> State() const;
    int Descriptor() const { return descriptor; }

private:
    int descriptor = -1;
};

} // namespace ornivane
