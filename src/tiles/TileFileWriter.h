#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "tiles/TileStore.h"

namespace ornivane {

// Makes a cache file under the name of a part file, which this object holds a lock on: a part file without a
// lock was left by a pass that was killed, and anybody may remove it. The lock and the file are gone with
// this object, unless it was finished.
class TileFileWriter {
public:
    static Result<std::unique_ptr<TileFileWriter>> Create(const std::filesystem::path& part,
                                                          const TileFileHeader& header);
    ~TileFileWriter();
    TileFileWriter(const TileFileWriter&) = delete;
    TileFileWriter& operator=(const TileFileWriter&) = delete;

    // The same file, to be read while it grows and after it was finished.
    const std::shared_ptr<TileStore>& Store() const { return store; }
    Outcome Append(const TileKey& key, PackedTile packed);
    // Index and header, to the disk, and the final name. A file of that name is replaced.
    Outcome Finish(std::uint64_t wholeHash, const std::filesystem::path& name);
    // Also of what has not reached the file yet.
    std::uint64_t BytesAppended() const { return end + waiting.size(); }

private:
    TileFileWriter(int descriptor, std::filesystem::path part) : file(descriptor), path(std::move(part)) {}
    Outcome Write(const std::vector<unsigned char>& bytes, std::uint64_t at);
    Outcome Flush();

    int file;
    std::filesystem::path path;
    std::shared_ptr<TileStore> store;
    std::vector<unsigned char> waiting;                        // for the file: many tiles in one call
    std::vector<std::pair<TileKey, std::size_t>> waitingTiles; // and their lengths
    std::uint64_t end = TileStore::HeaderBytes;                // of what is in the file
    bool finished = false;
};

} // namespace ornivane
