#pragma once

#include <array>
#include <cstdint>

#include "tiles/ReadOnlyFile.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

// What stands before the pixels of a BMP.
struct BmpHeader {
    enum class Coding { Plain, Runs4, Runs8 };
    // One colour within a pixel of 16 or 32 bits.
    struct Channel {
        std::uint32_t Mask = 0;
        int Shift = 0; // brings its highest eight bits, or all of them, to the lowest
        int Bits = 8;  // how many there are then

        static Channel OfMask(std::uint32_t mask);
        // The highest of eight bits; the others stay 0, as the screens have always shown it.
        std::uint32_t Of(std::uint32_t pixel) const;
    };

    ImageExtent Extent;
    bool TopDown = false;
    int BitsPerPixel = 0;
    Coding Pixels = Coding::Plain;
    Channel Red, Green, Blue;
    std::array<std::uint32_t, 256> Palette{}; // black beyond its colours
    std::uint64_t PixelsAt = 0;               // in the file

    // Bytes of a row of plain coding; rows begin at multiples of four.
    std::uint64_t RowBytes() const {
        return (static_cast<std::uint64_t>(Extent.Width) * static_cast<unsigned>(BitsPerPixel) + 31) / 32 * 4;
    }

    static Result<BmpHeader> Read(const ReadOnlyFile& file);
};

} // namespace ornivane
