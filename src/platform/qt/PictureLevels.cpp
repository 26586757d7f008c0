#include "platform/qt/PictureLevels.h"

#include <algorithm>

namespace ornivane {

namespace {

constexpr int HighestLevel = 8;
// A level is averaged from the picture itself, so that nothing is rounded twice; beyond four steps at once
// the sums would not fit in 16 bits.
constexpr int StepsAtOnce = 4;
constexpr int TileWidth = 512; // pixels of the level
constexpr int TileHeight = 32;
constexpr int KeptRows = 8;

int Reduced(int size, int level) { return (size + (1 << level) - 1) >> level; }

} // namespace

PictureLevels::PictureLevels(QImage pictureOf) : picture(std::move(pictureOf)), levels(HighestLevel + 1) {
    if (picture.depth() != 8) return;
    for (int i = 0; i < 256; ++i) {
        const auto grey = static_cast<std::uint32_t>(i) * 0x010101U;
        const bool indexed = picture.format() == QImage::Format_Indexed8;
        const std::uint32_t colour = !indexed ? grey : i < picture.colorCount() ? picture.color(i) : 0;
        colours.push_back(colour | 0xFF000000U);
    }
    rows.resize(KeptRows);
    kept.resize(KeptRows);
}

int PictureLevels::Width(int level) const { return Reduced(picture.width(), level); }

int PictureLevels::Height(int level) const { return Reduced(picture.height(), level); }

int PictureLevels::TilesAcross(int level) const { return (Width(level) + TileWidth - 1) / TileWidth; }

const std::uint32_t* PictureLevels::PictureRow(int row, int from, int to) {
    const uchar* line = picture.constScanLine(row);
    if (colours.empty()) return reinterpret_cast<const std::uint32_t*>(line);
    std::vector<std::uint32_t>& pixels = rows[row % KeptRows];
    Kept& holds = kept[row % KeptRows];
    if (holds.Row != row || holds.From > from || holds.To < to) {
        pixels.resize(picture.width());
        for (int x = from; x < to; ++x) pixels[x] = colours[line[x]];
        holds = {row, from, to};
    }
    return pixels.data();
}

const std::uint32_t* PictureLevels::Row(int level, int row, int from, int to) {
    if (level == 0) return PictureRow(row, from, to);
    Level& reduced = levels[level];
    const int across = TilesAcross(level);
    if (!reduced.Pixels) {
        const std::size_t width = Width(level), height = Height(level);
        reduced.Pixels = std::make_unique_for_overwrite<std::uint32_t[]>(width * height);
        reduced.Made.assign(across * ((height + TileHeight - 1) / TileHeight), false);
    }
    const int tileY = row / TileHeight;
    for (int tileX = from / TileWidth; tileX <= (to - 1) / TileWidth; ++tileX) {
        if (reduced.Made[tileY * across + tileX]) continue;
        MakeTile(level, {tileX, tileY});
        reduced.Made[tileY * across + tileX] = true;
    }
    return reduced.Pixels.get() + static_cast<std::size_t>(row) * Width(level);
}

void PictureLevels::MakeTile(int level, PixelPlace at) {
    const int x = at.X * TileWidth, y = at.Y * TileHeight;
    const int width = Width(level);
    const PixelBlock tile{levels[level].Pixels.get() + static_cast<std::size_t>(y) * width + x,
                          std::min(TileWidth, width - x), std::min(TileHeight, Height(level) - y), width};
    const int steps = std::min(level, StepsAtOnce);
    const int below = level - steps;
    ReduceToLevel(tile, steps, {x << steps, y << steps, Width(below), Height(below)},
                  [this, below](int row, int from, int to) { return Row(below, row, from, to); });
}

} // namespace ornivane
