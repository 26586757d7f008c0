#include "chart-import/ImportFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace ornivane {

namespace fs = std::filesystem;

namespace {

constexpr const char* Prefix = ".chart-import-";

// -1 when somebody works in it.
int Locked(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0) return -1;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return descriptor;
    ::close(descriptor);
    return -1;
}

void RemoveLeftBehind(const fs::path& charts) {
    std::error_code failed;
    std::vector<fs::path> found;
    for (fs::directory_iterator entry(charts, failed), end; !failed && entry != end; entry.increment(failed))
        if (entry->path().filename().string().starts_with(Prefix)) found.push_back(entry->path());
    for (const fs::path& folder : found) {
        const int lock = Locked(folder);
        if (lock < 0) continue;
        std::error_code ignored;
        fs::remove_all(folder, ignored);
        ::close(lock);
    }
}

} // namespace

Imported<ImportFolder> ImportFolder::Make(const fs::path& charts) {
    RemoveLeftBehind(charts);
    std::string name = (fs::absolute(charts) / (std::string(Prefix) + "XXXXXX")).string();
    if (!::mkdtemp(name.data()))
        return ImportFailure{errno == ENOSPC ? ImportFault::DiskFull : ImportFault::CannotWrite,
                             std::strerror(errno)};
    return ImportFolder(name, Locked(name));
}

ImportFolder::~ImportFolder() {
    if (path.empty()) return;
    std::error_code ignored;
    fs::remove_all(path, ignored);
    if (lock >= 0) ::close(lock);
}

ImportFolder::ImportFolder(ImportFolder&& other) noexcept
    : path(std::exchange(other.path, {})), lock(std::exchange(other.lock, -1)) {}

ImportFolder& ImportFolder::operator=(ImportFolder&& other) noexcept {
    std::swap(path, other.path);
    std::swap(lock, other.lock);
    return *this;
}

} // namespace ornivane
