#pragma once

#include <cstdint>
#include <vector>

#include "map/Viewport.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// Tells which symbols and labels of a crowded map are worth drawing: a later text overwrites an earlier one,
// and what shines through its plate only makes both harder to read where thousands lie upon each other. Asked
// from the label that is drawn last to the one that is drawn first.
class LabelCover {
public:
    explicit LabelCover(const PictureSurface& view);

    // Whether anything of this rectangle is still to be seen, but for its margin of up to 4 pixels: there a
    // label has no letters.
    bool Shows(const PixelRect& label) const;
    // A plate that will lie here.
    void Add(const PixelRect& plate);
    // Whether no symbol was asked for on this pixel yet; false outside of the view.
    bool IsFirstAt(const Point& viewPixel);

private:
    struct Cells {
        int Left, Top, Right, Bottom; // right and bottom are no longer part of it
    };
    Cells CellsWithin(const PixelRect& area) const; // those that it covers wholly

    int columns, rows;
    std::vector<std::uint8_t> covered; // by cell, 0 or 1
    int pixelColumns, pixelRows;
    std::vector<bool> symbols; // by pixel, with a margin for those that reach in from outside
};

} // namespace ornivane
