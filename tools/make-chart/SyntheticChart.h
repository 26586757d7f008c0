#pragma once

#include <cstdint>
#include <span>

namespace ornivane {

// The pixels of a made-up chart, row by row and without memory of the whole: shaded ground with the noise of
// a scan, contour lines, a grid of thin lines every 500 pixels, roads, and rows of small glyphs. Every pixel
// is a function of its place, so that a test knows what is where.
class SyntheticChart {
public:
    SyntheticChart(int chartWidth, int chartHeight) : width(chartWidth), height(chartHeight) {}

    // 0xFFRRGGBB, as many as the chart is wide.
    void Row(int y, std::span<std::uint32_t> pixels) const;

private:
    int width, height;
};

} // namespace ornivane
