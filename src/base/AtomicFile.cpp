#include "base/AtomicFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

#include "base/Paths.h"
#include "base/RuntimeError.h"
#include "base/TemporaryFile.h"

namespace ornivane {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t LargestFile = 256u << 20;

// 0, or the reason why not all bytes were written.
int WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Its bytes, before a name that counts points to them.
void SyncFile(const fs::path& file) {
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) ThrowFileError(errno, file);
    const int reason = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    if (reason != 0 && reason != EINVAL)
        ThrowFileError(reason, file); // a file system that cannot do it has no such promise
}

void SyncFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor); // the name's durability; a file system that cannot do it keeps the old name at worst
    ::close(descriptor);
}

} // namespace

void ThrowFileError(int reason, const fs::path& file) {
    const ErrorNumber number = reason == ENOENT || reason == ENOTDIR ? ErrorNumber::PathNotFound
                               : reason == EACCES || reason == EPERM || reason == EROFS
                                   ? ErrorNumber::PermissionDenied
                               : reason == ENOSPC || reason == EDQUOT ? ErrorNumber::DiskFull
                                                                      : ErrorNumber::DeviceError;
    throw RuntimeError(number, file.string() + ": " + std::strerror(reason));
}

void WriteFileAtomically(const fs::path& file, std::string_view bytes) {
    TemporaryFile temporary(file);
    const int descriptor = ::open(temporary.Path().c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) ThrowFileError(errno, file);
    int reason = WriteAll(descriptor, bytes);
    if (::close(descriptor) != 0 && reason == 0) reason = errno;
    if (reason != 0) ThrowFileError(reason, file);
    temporary.Keep();
}

void ReplaceFile(const fs::path& finished, const fs::path& file) {
    SyncFile(finished);
    if (::rename(finished.c_str(), file.c_str()) != 0) ThrowFileError(errno, file);
    SyncFolder(file.parent_path());
}

std::optional<std::string> ReadWholeFile(const fs::path& file) {
    if (!FileExists(file)) return std::nullopt;
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error || size > LargestFile) return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(size, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(size));
    if (!stream) return std::nullopt;
    return bytes;
}

} // namespace ornivane
