#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "tiles/ReadOnlyFile.h"
#include "tiles/SourceKey.h"
#include "tiles/TileCodec.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

// What a cache file says of itself.
struct TileFileHeader {
    static constexpr std::uint32_t Version = 1;

    ImageExtent Image;
    TileCodec Codec = TileCodec::Jpeg;
    SourceKey Source; // the time of it is in the file's name: a copy of the same chart has another one
    std::uint64_t WholeHash = 0;
    std::uint64_t IndexAt = 0, IndexHash = 0;
};

// A cache file, read tile by tile:
//
//   header of 128 bytes: "ORNTILES", version, tile side, width, height, levels, codec (32 bits each), bytes,
//     sampled and whole hash of the source, where the index is, its hash (64 bits), the header's hash
//   tiles in the order in which they were made
//   index: level by level, row by row, for each tile 64 bits where it is, 32 bits length, 32 bits hash
//
// in the byte order of the machine: a cache is never carried to another one. The hash of a tile takes in
// which tile it is and of which chart, so that no damage can show another place. A tile that is not there is
// no error: while the file is made, they come one by one.
class TileStore {
public:
    enum class Reading { Good, Missing, Damaged };
    static constexpr std::size_t HeaderBytes = 128;

    // A finished file. Failure Damaged also for another version; CannotRead.
    static Result<std::shared_ptr<TileStore>> Open(ReadOnlyFile file);
    // A file that is being made; Add tells what is in it.
    TileStore(ReadOnlyFile from, const TileFileHeader& of);

    const TileFileHeader& Header() const { return header; }
    // From any thread.
    Reading Read(const TileKey& key, TileUnpacker& unpacker, Tile& tile) const;
    bool Has(const TileKey& key) const;
    // Where a tile has been written to.
    void Add(const TileKey& key, std::uint64_t at, PackedTile packed);
    // The index as it stands in a file.
    std::vector<unsigned char> Index() const;
    static std::vector<unsigned char> Bytes(const TileFileHeader& header);
    // The device and inode, to tell two files of one name apart.
    const ReadOnlyFile& File() const { return file; }

private:
    struct Entry {
        std::uint64_t At = 0;
        std::uint32_t Length = 0, Hash = 0;
    };
    static_assert(sizeof(Entry) == 16);

    std::optional<std::size_t> Slot(const TileKey& key) const;
    Entry At(const TileKey& key) const;
    std::uint32_t HashOf(const TileKey& key, PackedTile packed) const;
    Outcome ReadIndex();

    ReadOnlyFile file;
    TileFileHeader header;
    std::vector<std::size_t> levelStarts; // in the entries, and the end
    mutable std::mutex guard;             // of the entries
    std::vector<Entry> entries;
};

} // namespace ornivane
