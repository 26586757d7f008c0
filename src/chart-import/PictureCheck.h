#pragma once

#include <cstdint>
#include <vector>

#include "tiles/TileGeometry.h"

namespace ornivane {

// Looks at the rows of a picture for what nothing was written to. A reader that gives up without saying so
// leaves black behind, which charts have in lines only; what lies beside the chart is white.
class PictureCheck {
public:
    explicit PictureCheck(const ImageExtent& of);

    void Row(const std::uint32_t* pixels); // 0xFFRRGGBB, each row once, from the top
    // More than a hundredth of the picture is wholly black.
    bool HasBlackHoles() const;
    // Of one colour from edge to edge.
    bool IsBlank() const { return !differs; }
    double WhiteShare() const; // 0 to 1

private:
    void EndBlocks();

    ImageExtent extent;
    std::vector<char> black, white; // blocks of the present rows: so far
    int rowsOfBlock = 0;
    std::int64_t blocks = 0, blackBlocks = 0, whiteBlocks = 0;
    std::uint32_t first = 0;
    bool started = false, differs = false;
};

} // namespace ornivane
