#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "tiles/TileGeometry.h"

namespace ornivane {

// Makes the tiles of all levels from the rows of an image. It holds one row of tiles for each level and
// nothing else of the image. Every pixel of a level is the rounded average of the image's own pixels, not of
// the level below, so that nothing is rounded twice; the sums, not the averages, go up from level to level.
class Pyramid {
public:
    // Called for each tile as soon as it is complete; its pixels are good until the call returns. False ends
    // the work.
    using Sink = std::function<bool(const TileKey& key, const PixelPart& pixels)>;

    // `rowsLevel`: of the rows that will be given; level 0 when they are those of the image. Tiles above it
    // are averages of these rows.
    Pyramid(const ImageExtent& image, int rowsLevel, Sink sink);

    // Where the next row is to be written.
    std::uint32_t* NextRow();
    // It was. False when the sink has ended the work.
    bool RowDone();
    int RowsDone() const { return rows; }

    // The row of tiles that level is working on: which it is, and the pixels of all its rows so far.
    int BandOf(int level) const { return levels[level - first].Band; }
    PixelPart Unfinished(int level) const;

private:
    struct Level {
        ImageExtent Extent;
        std::vector<std::uint32_t> Pixels; // of one row of tiles
        int Band = 0, Rows = 0;            // which one, and how many of its rows are there
        // Sums of two rows of the level below, four channels a pixel: narrow as long as they fit.
        std::vector<std::uint16_t> Narrow;
        std::vector<std::uint32_t> Wide;
        int Pending = 0; // rows of the level below in them
    };

    // Depth: levels above the rows that are given.
    template <class In>
    bool AddSums(int depth, const In* sums);
    template <class In, class Sum>
    bool AddSumsAs(int depth, std::vector<Sum>& own, const In* sums);
    template <class Sum>
    void WriteAverages(int depth, const Sum* sums);
    bool FinishRow(int depth);

    ImageExtent given; // of the rows
    int first;
    Sink sink;
    std::vector<Level> levels;
    int rows = 0;
};

} // namespace ornivane
