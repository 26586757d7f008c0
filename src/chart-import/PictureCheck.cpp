#include "chart-import/PictureCheck.h"

#include <algorithm>

namespace ornivane {

namespace {

// Pixels of a block's side: more than a thick line is wide, and little enough for a strip or a tile of a
// file.
constexpr int BlockSide = 16;
constexpr std::int64_t FewBlocks = 4; // a symbol that is filled
constexpr std::int64_t MostBlackPart = 100;
constexpr std::uint32_t Black = 0xFF000000U, White = 0xFFFFFFFFU;

} // namespace

PictureCheck::PictureCheck(const ImageExtent& of) : extent(of) {
    const auto across = static_cast<std::size_t>((of.Width + BlockSide - 1) / BlockSide);
    black.assign(across, 1);
    white.assign(across, 1);
}

void PictureCheck::Row(const std::uint32_t* pixels) {
    if (!started) first = pixels[0];
    started = true;
    for (std::size_t block = 0; block < black.size(); ++block) {
        const int begin = static_cast<int>(block) * BlockSide,
                  end = std::min(extent.Width, begin + BlockSide);
        const auto all = [&](std::uint32_t colour) {
            return std::all_of(pixels + begin, pixels + end,
                               [=](std::uint32_t pixel) { return pixel == colour; });
        };
        if (black[block]) black[block] = all(Black);
        if (white[block]) white[block] = all(White);
        if (!differs) differs = !all(first);
    }
    if (++rowsOfBlock == BlockSide) EndBlocks();
}

// The last rows are no whole block, and are not needed for a share.
void PictureCheck::EndBlocks() {
    blocks += static_cast<std::int64_t>(black.size());
    blackBlocks += std::count(black.begin(), black.end(), 1);
    whiteBlocks += std::count(white.begin(), white.end(), 1);
    std::fill(black.begin(), black.end(), 1);
    std::fill(white.begin(), white.end(), 1);
    rowsOfBlock = 0;
}

bool PictureCheck::HasBlackHoles() const {
    return blackBlocks > FewBlocks && blackBlocks * MostBlackPart > blocks;
}

double PictureCheck::WhiteShare() const {
    return blocks == 0 ? 0 : static_cast<double>(whiteBlocks) / static_cast<double>(blocks);
}

} // namespace ornivane
