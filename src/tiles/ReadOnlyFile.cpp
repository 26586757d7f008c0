#include "tiles/ReadOnlyFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ornivane {

Result<ReadOnlyFile> ReadOnlyFile::Open(const std::filesystem::path& file) {
    // Without O_NONBLOCK a pipe among the charts would be waited for.
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return Failure{errno == EIO ? Fault::CannotRead : Fault::NotThere, std::strerror(errno)};
    ReadOnlyFile opened(descriptor);
    struct stat state {};
    if (::fstat(descriptor, &state) != 0 || !S_ISREG(state.st_mode)) return Failure{Fault::NotThere, {}};
    return opened;
}

ReadOnlyFile::~ReadOnlyFile() {
    if (descriptor >= 0) ::close(descriptor);
}

ReadOnlyFile& ReadOnlyFile::operator=(ReadOnlyFile&& other) noexcept {
    std::swap(descriptor, other.descriptor);
    return *this;
}

std::optional<std::size_t> ReadOnlyFile::Read(std::uint64_t offset, void* to, std::size_t count) const {
    std::size_t got = 0;
    while (got < count) {
        const ssize_t now =
            ::pread(descriptor, static_cast<char*>(to) + got, count - got, static_cast<off_t>(offset + got));
        if (now == 0) break;
        if (now < 0 && errno != EINTR) return std::nullopt;
        if (now > 0) got += static_cast<std::size_t>(now);
    }
    return got;
}

bool ReadOnlyFile::ReadAll(std::uint64_t offset, void* to, std::size_t count) const {
    return Read(offset, to, count) == count;
}

std::optional<FileState> ReadOnlyFile::State() const {
    struct stat state {};
    if (::fstat(descriptor, &state) != 0) return std::nullopt;
    return FileState{static_cast<std::uint64_t>(state.st_size),
                     state.st_mtim.tv_sec * 1'000'000'000LL + state.st_mtim.tv_nsec};
}

} // namespace ornivane
