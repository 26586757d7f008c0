#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tiles/DecodedTiles.h"
#include "tiles/TileGeometry.h"

namespace ornivane {

// What a part of a chart looks like at this moment: rows of one level, put together of the tiles that are
// decoded. Where the level's own tile is not there a coarser one stands in for it, and where there is none
// the pixels are white. It holds its tiles, so it stays as it is, and they stay in memory while it is kept.
class TileView {
public:
    TileView() = default;
    // The tiles from `firstTile` on, `across` of them a row.
    TileView(const ImageExtent& of, const TileKey& firstTile, int across, int down);

    // How much smaller the level is than the chart: its pixel stands for 2^Level of them.
    int Level() const { return first.Level; }
    // Of the whole level, not of the part.
    ImageExtent Extent() const { return image.At(first.Level); }
    // Nothing of the chart is in it.
    bool IsEmpty() const { return pieces.empty(); }
    // All is as it will be; false while something stands in, or the view has another level than it should.
    bool IsSharp() const { return sharp; }

    // Pixels of a row of the level, 0xFFRRGGBB, to be indexed from `from` to before `to`. Good until the call
    // for a row that is eight or more away. One thread at a time.
    const std::uint32_t* Row(int row, int from, int to);

    // While it is put together.
    void Set(int column, int row, TilePixels tile, int coarserBy);
    void SetUnsharp() { sharp = false; }

private:
    static constexpr int KeptRows = 8;
    struct Piece {
        TilePixels Pixels;
        int CoarserBy = 0;
    };
    struct KeptRow {
        int Row = -1, From = 0, To = 0;
        std::vector<std::uint32_t> Pixels;
    };

    const Piece* PieceAt(int tileX, int tileY) const;
    void CopyPart(const Piece* piece, int row, int from, int to, std::uint32_t* pixels) const;

    ImageExtent image;
    TileKey first;
    int columns = 0, rows = 0;
    std::vector<Piece> pieces;
    bool sharp = true;
    std::array<KeptRow, KeptRows> kept;
};

} // namespace ornivane
