#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "tiles/ImageRows.h"

namespace ornivane {

// Pixels as 0xFFRRGGBB.
struct Pixels {
    ImageExtent Extent;
    std::vector<std::uint32_t> Bits;

    std::uint32_t At(int x, int y) const { return Bits[static_cast<std::size_t>(y) * Extent.Width + x]; }
    bool operator==(const Pixels&) const = default;
};

// Smooth ground with thin lines and some noise.
Pixels MadeUp(const ImageExtent& extent);
// Averages of squares of 2^level pixels.
Pixels LevelOf(const Pixels& picture, int level);
// The largest difference of a channel.
int LargestDifference(const Pixels& a, const Pixels& b);

// What the image library that the screens use makes of a file; empty when it refuses it.
Pixels DecodedByQt(const std::filesystem::path& file);
// All rows; empty when one fails.
Pixels DecodedByRows(const std::filesystem::path& file, const ImageReading& reading = {});

enum class JpegKind { Colour, Full, Grey, Progressive, Cmyk, PlainCmyk };
std::string JpegOf(const Pixels& picture, JpegKind kind);
// 24 bits, bottom-up.
std::string BmpOf(const Pixels& picture);
// Little-endian.
void Put(std::string& bytes, std::size_t at, std::uint32_t value, int count);

void WriteFile(const std::filesystem::path& file, const std::string& bytes);
std::string ReadFile(const std::filesystem::path& file);

} // namespace ornivane
