#pragma once

#include <QImage>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/qt/Resample.h"

namespace ornivane {

// A picture and its reduced levels: level n has one pixel for a square of 2^n picture pixels, their average.
//
// A chart is far larger than the view, and averaging hundreds of millions of bytes in every redraw would take
// a tenth of a second. So what a redraw needs of a level is made by the first redraw that needs it and kept
// until another picture is loaded. All levels together never take more than a third of the picture, and only
// the parts that were looked at take memory at all.
class PictureLevels {
public:
    // Formats RGB32, Grayscale8 and Indexed8. Pixels of 8 bits stay so in memory.
    explicit PictureLevels(QImage picture = {});

    int Width(int level = 0) const;
    int Height(int level = 0) const;
    // The pixels of a row, see RowReader.
    const std::uint32_t* Row(int level, int row, int from, int to);

private:
    struct Level {
        std::unique_ptr<std::uint32_t[]> Pixels; // touched, and so in memory, only where tiles were made
        std::vector<bool> Made;                  // by tile
    };

    const std::uint32_t* PictureRow(int row, int from, int to);
    void MakeTile(int level, PixelPlace at); // which one across and down
    int TilesAcross(int level) const;

    QImage picture;
    std::vector<std::uint32_t> colours;           // of pixels of 8 bits
    std::vector<std::vector<std::uint32_t>> rows; // rows of such, as colours
    struct Kept {
        int Row = -1, From = 0, To = 0;
    };
    std::vector<Kept> kept; // what each of `rows` holds
    std::vector<Level> levels;
};

} // namespace ornivane
