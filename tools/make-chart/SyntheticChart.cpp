#include "make-chart/SyntheticChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace ornivane {

namespace {

constexpr int Grid = 500;       // pixels between the lines
constexpr int Wave = 4096;      // of the ground's heights, a power of two
constexpr int LineHeight = 120; // between rows of glyphs
constexpr int Glyph = 12;       // its cell

const std::array<std::int16_t, Wave>& Waves() {
    static const auto table = [] {
        std::array<std::int16_t, Wave> made{};
        for (int i = 0; i < Wave; ++i)
            made[i] =
                static_cast<std::int16_t>(std::lround(1000 * std::sin(i * 2 * 3.14159265358979 / Wave)));
        return made;
    }();
    return table;
}

// Of a place, evenly spread over 32 bits.
std::uint32_t Noise(std::uint32_t x, std::uint32_t y) {
    std::uint32_t value = x * 0x9E3779B1U ^ y * 0x85EBCA77U;
    value = (value ^ value >> 15) * 0x2C1B3C6DU;
    return value ^ value >> 13;
}

// A glyph of 5 x 7 dots of two pixels, which ones by its number.
bool InGlyph(int x, int y) {
    const int band = y % LineHeight;
    if (band >= 14) return false;
    const int column = x % Glyph / 2, row = band / 2;
    if (column >= 5) return false;
    const std::uint32_t which =
        Noise(static_cast<std::uint32_t>(x / Glyph), static_cast<std::uint32_t>(y / LineHeight));
    if (which % 3 == 0) return false; // a gap between words
    return (which >> (column + row * 3) % 29 & 1) != 0;
}

} // namespace

void SyntheticChart::Row(int y, std::span<std::uint32_t> pixels) const {
    const auto& waves = Waves();
    for (int x = 0; x < width; ++x) {
        const int ground =
            waves[(x * 2 + y / 3) % Wave] + waves[(y * 3 + x / 5) % Wave] + waves[(x + y) % Wave];
        const int level = (ground + 3000) / 150;
        const int noise =
            static_cast<int>(Noise(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)) & 7);
        int red = 170 + level * 2 + noise, green = 215 - level + noise, blue = 160 + level + noise;
        const bool contour = (ground + 3000) % 150 < 4;
        if (contour) red = 150, green = 110, blue = 60;
        if ((x + y / 2) % 1733 < 5) red = 220, green = 60, blue = 40; // a road
        if (x % Grid == 0 || y % Grid == 0 || InGlyph(x, y)) red = green = blue = 20;
        pixels[x] = 0xFF000000U | static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
    }
    if (y == height - 1) std::fill(pixels.begin(), pixels.end(), 0xFF000000U);
}

} // namespace ornivane
