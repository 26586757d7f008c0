#include "tiles/CacheFolder.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ornivane {

namespace fs = std::filesystem;

namespace {

constexpr const char* Ending = ".tiles1"; // with the version: programs of two versions keep a cache each
constexpr const char* PartEnding = ".part";

// Of a chart at any time.
std::string Prefix(const SourceKey& key) {
    char text[64];
    std::snprintf(text, sizeof text, "%016" PRIx64 "-%" PRIx64 "-", key.Sampled, key.State.Bytes);
    return text;
}

struct Cached {
    fs::path Name;
    std::uint64_t Bytes = 0;
    fs::file_time_type Used;
};

std::vector<Cached> CachesIn(const fs::path& folder) {
    std::vector<Cached> found;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const std::string ending = at->path().extension().string();
        if (!ending.starts_with(".tiles")) continue; // of any version
        std::error_code gone;
        Cached cached{at->path(), at->file_size(gone), {}};
        if (!gone) cached.Used = at->last_write_time(gone);
        if (!gone) found.push_back(std::move(cached));
    }
    return found;
}

bool IsSameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

CacheFolder::CacheFolder(fs::path folderPath, const CacheLimits& bounds)
    : folder(std::move(folderPath)), limits(bounds) {}

fs::path CacheFolder::NameOf(const SourceKey& key) const {
    char text[32];
    std::snprintf(text, sizeof text, "%" PRIx64, static_cast<std::uint64_t>(key.State.ModifiedNs));
    return folder / (Prefix(key) + text + Ending);
}

std::shared_ptr<TileStore> CacheFolder::OpenAs(const fs::path& name, const SourceKey& key) const {
    auto file = ReadOnlyFile::Open(name);
    if (!file) return nullptr;
    auto store = TileStore::Open(std::move(*file));
    if (!store) return nullptr;
    const SourceKey& source = (*store)->Header().Source;
    if (source.Sampled != key.Sampled || source.State.Bytes != key.State.Bytes) return nullptr;
    return *store;
}

std::shared_ptr<TileStore> CacheFolder::Find(const SourceKey& key) const {
    const fs::path name = NameOf(key);
    auto store = OpenAs(name, key);
    if (store)
        ::utimensat(AT_FDCWD, name.c_str(), nullptr, 0); // used now; on a read-only disk it is not noted
    return store;
}

std::shared_ptr<TileStore> CacheFolder::FindAtOtherTime(const SourceKey& key, const ReadOnlyFile& source,
                                                        const std::stop_token& stop) const {
    const std::string prefix = Prefix(key);
    std::optional<std::uint64_t> whole;
    for (const Cached& cached : CachesIn(folder)) {
        const std::string name = cached.Name.filename().string();
        if (!name.starts_with(prefix) || !name.ends_with(Ending)) continue;
        auto store = OpenAs(cached.Name, key);
        if (!store) continue;
        if (!whole) whole = WholeHash(source, stop);
        if (!whole) return nullptr;
        if (store->Header().WholeHash != *whole) continue;
        ::rename(cached.Name.c_str(), NameOf(key).c_str());
        return store;
    }
    return nullptr;
}

Result<std::unique_ptr<TileFileWriter>> CacheFolder::NewPart(const TileFileHeader& header) const {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        const bool full = error == std::errc::no_space_on_device;
        return Failure{full ? Fault::DiskFull : Fault::CannotWrite, error.message()};
    }
    RemoveLeftParts();
    static std::atomic<unsigned> count = 0;
    const std::string own = std::to_string(::getpid()) + '-' + std::to_string(++count);
    return TileFileWriter::Create(folder / (Prefix(header.Source) + own + PartEnding), header);
}

void CacheFolder::RemoveLeftParts() const {
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (at->path().extension() != PartEnding) continue;
        const int descriptor = ::open(at->path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor < 0) continue;
        if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) ::unlink(at->path().c_str());
        ::close(descriptor);
    }
}

bool CacheFolder::HasRoomFor(std::uint64_t partBytes) const {
    std::error_code error;
    const std::uint64_t free = fs::space(folder, error).available;
    if (error) return true; // writing will tell
    std::vector<Cached> caches = CachesIn(folder);
    std::uint64_t used = 0;
    for (const Cached& cached : caches) used += cached.Bytes;
    const auto ofDisk =
        static_cast<std::uint64_t>(static_cast<double>(free + used + partBytes) * limits.MostOfFree);
    const std::uint64_t most = std::min(limits.MostBytes, ofDisk);
    if (partBytes > most) return false; // it would not fit alone
    std::sort(caches.begin(), caches.end(), [](const Cached& a, const Cached& b) { return a.Used < b.Used; });
    std::uint64_t freed = 0;
    for (const Cached& cached : caches) {
        if (used - freed + partBytes <= most && free + freed >= limits.LeftFree) break;
        if (::unlink(cached.Name.c_str()) == 0) freed += cached.Bytes;
    }
    return used - freed + partBytes <= most && free + freed >= limits.LeftFree;
}

void CacheFolder::Remove(const SourceKey& key, const TileStore& store) const {
    const fs::path name = NameOf(key);
    struct stat named {
    }, opened{};
    if (::stat(name.c_str(), &named) == 0 && ::fstat(store.File().Descriptor(), &opened) == 0 &&
        IsSameFile(named, opened))
        ::unlink(name.c_str());
}

} // namespace ornivane
