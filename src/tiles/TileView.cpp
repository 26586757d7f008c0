#include "tiles/TileView.h"

#include <algorithm>

namespace ornivane {

namespace {

constexpr std::uint32_t White = 0xFFFFFFFF;

} // namespace

TileView::TileView(const ImageExtent& of, const TileKey& firstTile, int across, int down)
    : image(of), first(firstTile), columns(across), rows(down),
      pieces(static_cast<std::size_t>(across) * down) {}

void TileView::Set(int column, int row, TilePixels tile, int coarserBy) {
    sharp = sharp && tile && coarserBy == 0;
    pieces[static_cast<std::size_t>(row) * columns + column] = {std::move(tile), coarserBy};
}

const TileView::Piece* TileView::PieceAt(int tileX, int tileY) const {
    const int column = tileX - first.X, row = tileY - first.Y;
    if (column < 0 || row < 0 || column >= columns || row >= rows) return nullptr;
    const Piece& piece = pieces[static_cast<std::size_t>(row) * columns + column];
    return piece.Pixels ? &piece : nullptr;
}

const std::uint32_t* TileView::Row(int row, int from, int to) {
    KeptRow& holds = kept[row % KeptRows];
    if (holds.Row == row && holds.From <= from && holds.To >= to) return holds.Pixels.data();
    holds.Pixels.resize(Extent().Width);
    for (int x = from; x < to;) {
        const int tileX = x / TileSide;
        const int end = std::min(to, (tileX + 1) * TileSide);
        CopyPart(PieceAt(tileX, row / TileSide), row, x, end, holds.Pixels.data());
        x = end;
    }
    holds.Row = row;
    holds.From = from;
    holds.To = to;
    return holds.Pixels.data();
}

void TileView::CopyPart(const Piece* piece, int row, int from, int to, std::uint32_t* pixels) const {
    if (!piece) {
        std::fill(pixels + from, pixels + to, White);
        return;
    }
    const int up = piece->CoarserBy;
    const std::uint32_t* tile = piece->Pixels->Row((row >> up) % TileSide);
    if (up == 0) {
        std::copy_n(tile + from % TileSide, to - from, pixels + from);
        return;
    }
    for (int x = from; x < to; ++x) pixels[x] = tile[(x >> up) % TileSide];
}

} // namespace ornivane
