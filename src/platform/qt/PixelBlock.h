#pragma once

#include <cstddef>
#include <cstdint>

namespace ornivane {

// Pixels in memory as 0xFFRRGGBB, rows `Stride` pixels apart. Owns nothing.
struct PixelBlock {
    std::uint32_t* Bits = nullptr;
    int Width = 0, Height = 0;
    std::ptrdiff_t Stride = 0;

    std::uint32_t* Row(int y) const { return Bits + y * Stride; }
};

struct PixelPlace {
    int X, Y;
};

// A colour that covers a part of a pixel: 0 to 255.
struct Tint {
    std::uint32_t Colour, Coverage;
};

// `over` laid on `under`. Two channels at a time in one multiplication.
inline std::uint32_t Blend(std::uint32_t under, Tint over) {
    const std::uint32_t weight = over.Coverage + (over.Coverage >> 7); // 0 to 256
    const std::uint32_t redBlue = under & 0xFF00FFU;
    const std::uint32_t green = under & 0x00FF00U;
    const std::uint32_t mixedRedBlue = redBlue + ((((over.Colour & 0xFF00FFU) - redBlue) * weight) >> 8);
    const std::uint32_t mixedGreen = green + ((((over.Colour & 0x00FF00U) - green) * weight) >> 8);
    return 0xFF000000U | (mixedRedBlue & 0xFF00FFU) | (mixedGreen & 0x00FF00U);
}

} // namespace ornivane
