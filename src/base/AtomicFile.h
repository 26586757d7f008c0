#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace ornivane {

// Writes the bytes to a temporary name in the same folder, to the disk, and renames it, so that a crash
// leaves the old file or the new one, never half. RuntimeError PathNotFound, PermissionDenied, DiskFull,
// DeviceError.
void WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes);

// Gives a finished file its name, durably; a file of that name is replaced. Both in one folder. RuntimeError
// as above.
void ReplaceFile(const std::filesystem::path& finished, const std::filesystem::path& file);

// What a reason of the system (errno) for a failure with a file is here. RuntimeError as above.
[[noreturn]] void ThrowFileError(int reason, const std::filesystem::path& file);

// All bytes of a file; empty when it is not there or cannot be read. A file above 256 MiB is taken as
// unreadable: nothing of this program comes near that size.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& file);

} // namespace ornivane
