#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

#include "tiles/SourceKey.h"
#include "tiles/TileFileWriter.h"

namespace ornivane {

struct CacheLimits {
    std::uint64_t MostBytes = 8ULL << 30; // of all caches together
    // Nor more than this part of what would be free without them: a cache must not fill a small disk.
    double MostOfFree = 0.25;
    // What stays free in any case, for the stores and tracks that are written in flight.
    std::uint64_t LeftFree = 256ULL << 20;
};

// The caches of all charts, for any number of programs at once: a file is only ever added under a name of its
// own, renamed and removed as a whole, and who has it open keeps it. The name is made of what was hashed, how
// long the chart is and when it was changed; the time of the cache file itself is when it was last used.
class CacheFolder {
public:
    CacheFolder(std::filesystem::path folderPath, const CacheLimits& bounds);

    // The cache of exactly this key, or nothing.
    std::shared_ptr<TileStore> Find(const SourceKey& key) const;
    // The same chart at another time, as after a copy, is the same by its whole hash; its cache gets the name
    // of this key. Reads all of the file when there is a candidate.
    std::shared_ptr<TileStore> FindAtOtherTime(const SourceKey& key, const ReadOnlyFile& source,
                                               const std::stop_token& stop) const;
    // The folder is made when it is missing; what killed passes have left is removed.
    Result<std::unique_ptr<TileFileWriter>> NewPart(const TileFileHeader& header) const;
    // Makes room for a pass that has written so much: the caches used longest ago go. False: there is none.
    bool HasRoomFor(std::uint64_t partBytes) const;
    std::filesystem::path NameOf(const SourceKey& key) const;
    // A cache that turned out to be damaged, if that name still means this file.
    void Remove(const SourceKey& key, const TileStore& store) const;

private:
    void RemoveLeftParts() const;
    std::shared_ptr<TileStore> OpenAs(const std::filesystem::path& name, const SourceKey& key) const;

    std::filesystem::path folder;
    CacheLimits limits;
};

} // namespace ornivane
