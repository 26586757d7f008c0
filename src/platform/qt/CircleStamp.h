#pragma once

#include <cstdint>
#include <vector>

#include "platform/qt/PixelBlock.h"

namespace ornivane {

// A circle outline ready to be stamped, for the thousands of small symbols of a redraw: a general painter
// takes longer for one of them than a stamp for twenty.
class CircleStamp {
public:
    // In device pixels, radius to the middle of the pen. At least a dot of one pixel.
    CircleStamp(double radius, double penWidth);

    // With its middle in the pixel (x, y); what lies outside of the target is left away.
    void Draw(const PixelBlock& target, int x, int y, std::uint32_t colour) const;

private:
    struct Run { // full cover
        int X, Y, Length;
    };
    struct Edge {
        int X, Y;
        std::uint32_t Coverage;
    };

    void DrawInside(const PixelBlock& target, PixelPlace middle, std::uint32_t colour) const;
    void DrawClipped(const PixelBlock& target, PixelPlace middle, std::uint32_t colour) const;

    int reach; // pixels from the middle to the farthest one
    std::vector<Run> runs;
    std::vector<Edge> edges;
};

} // namespace ornivane
