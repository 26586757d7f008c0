#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "tiles/TileGeometry.h"

namespace ornivane {

// How the tiles of a cache are packed. The numbers stand in files.
enum class TileCodec : std::uint32_t {
    Jpeg = 1,     // 4:4:4, quality 90: of images that were JPEG themselves
    GreyJpeg = 2, // the same for one channel
    Lossless = 3  // differences to the pixel on the left, by channel, packed with zstd
};

using PackedTile = std::span<const unsigned char>;

// Keeps its memory from tile to tile. Not for two threads at once.
class TilePacker {
public:
    explicit TilePacker(TileCodec codec);
    ~TilePacker();
    TilePacker(const TilePacker&) = delete;
    TilePacker& operator=(const TilePacker&) = delete;

    // Good until the next call; empty when there is no memory for it.
    PackedTile Pack(const PixelPart& pixels);

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

// The other way. What cannot be unpacked, or has another extent, is false; the tile is then undefined.
class TileUnpacker {
public:
    TileUnpacker();
    ~TileUnpacker();
    TileUnpacker(const TileUnpacker&) = delete;
    TileUnpacker& operator=(const TileUnpacker&) = delete;

    bool Unpack(TileCodec codec, PackedTile packed, const ImageExtent& extent, Tile& tile);

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ornivane
