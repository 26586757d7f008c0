#pragma once

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>

namespace ornivane {

inline constexpr int TileSide = 256; // pixels
// What 13 levels bring down to one tile; the sums of the highest level just fit in 32 bits.
inline constexpr int LargestSide = 1 << 20;

// The length of a level: one pixel for 2^level, the last may stand for fewer.
constexpr int Reduced(int length, int level) { return ((length - 1) >> level) + 1; }
constexpr int TilesIn(int length) { return (length + TileSide - 1) / TileSide; }

struct ImageExtent {
    int Width = 0, Height = 0;
    bool operator==(const ImageExtent&) const = default;

    bool IsPossible() const {
        return Width > 0 && Height > 0 && Width <= LargestSide && Height <= LargestSide;
    }
    ImageExtent At(int level) const { return {Reduced(Width, level), Reduced(Height, level)}; }
    // Level 0 is the image itself, the last one is a single tile.
    int Levels() const {
        int levels = 1;
        while (std::max(Reduced(Width, levels - 1), Reduced(Height, levels - 1)) > TileSide) ++levels;
        return levels;
    }
    std::int64_t Pixels() const { return static_cast<std::int64_t>(Width) * Height; }
};

// Which tile: its level, and how many tiles lie to the left of it and above it.
struct TileKey {
    int Level = 0, X = 0, Y = 0;
    auto operator<=>(const TileKey&) const = default;

    TileKey Above(int levels) const { return {Level + levels, X >> levels, Y >> levels}; }
};

// The pixels that a tile has: less than the side at the right and lower border.
inline ImageExtent ExtentOf(const TileKey& key, const ImageExtent& image) {
    const ImageExtent level = image.At(key.Level);
    return {std::min(TileSide, level.Width - key.X * TileSide),
            std::min(TileSide, level.Height - key.Y * TileSide)};
}

// Decoded: 0xFFRRGGBB, rows TileSide apart whatever the extent.
struct Tile {
    std::array<std::uint32_t, static_cast<std::size_t>(TileSide) * TileSide> Pixels;

    std::uint32_t* Row(int y) { return Pixels.data() + static_cast<std::ptrdiff_t>(y) * TileSide; }
    const std::uint32_t* Row(int y) const {
        return Pixels.data() + static_cast<std::ptrdiff_t>(y) * TileSide;
    }
};

// A rectangle of pixels somewhere in memory, rows Stride pixels apart.
struct PixelPart {
    const std::uint32_t* Bits = nullptr;
    std::ptrdiff_t Stride = 0;
    ImageExtent Extent;

    const std::uint32_t* Row(int y) const { return Bits + y * Stride; }
};

} // namespace ornivane
