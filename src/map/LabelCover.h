#pragma once

#include <cstdint>
#include <vector>

namespace ornivane {

// Tells which symbols and labels of a crowded map are worth drawing: a later text overwrites an earlier one,
// and what shines through its plate only makes both harder to read where thousands lie upon each other. Asked
// from the label that is drawn last to the one that is drawn first.
class LabelCover {
public:
    static constexpr int LayersThatHide = 1;

    // View pixels.
    LabelCover(double width, double height);

    // Whether anything of this rectangle is still to be seen, but for its margin of up to 4 pixels: there a
    // label has no letters.
    bool Shows(double x, double y, double width, double height) const;
    // A plate that will lie here.
    void Add(double x, double y, double width, double height);
    // Whether no symbol was asked for on this pixel yet; false outside of the view.
    bool IsFirstAt(double x, double y);

private:
    struct Cells {
        int Left, Top, Right, Bottom; // right and bottom are no longer part of it
    };
    // The cells that the rectangle touches, or only those that it covers wholly.
    Cells CellsOf(double x, double y, double width, double height, bool wholly) const;

    int columns, rows;
    std::vector<std::uint8_t> layers;
    int pixelColumns, pixelRows;
    std::vector<bool> symbols; // by pixel, with a margin for those that reach in from outside
};

} // namespace ornivane
