#include "map/LabelCover.h"

#include <algorithm>
#include <cmath>

namespace ornivane {

namespace {

constexpr int Margin = 16;                      // pixels
constexpr double CellWidth = 4, CellHeight = 4; // view pixels; a plate is 17 high

} // namespace

LabelCover::LabelCover(double width, double height)
    : columns(static_cast<int>(std::ceil(width / CellWidth))),
      rows(static_cast<int>(std::ceil(height / CellHeight))),
      layers(static_cast<std::size_t>(std::max(columns, 0)) * static_cast<std::size_t>(std::max(rows, 0))),
      pixelColumns(static_cast<int>(width) + 2 * Margin), pixelRows(static_cast<int>(height) + 2 * Margin),
      symbols(static_cast<std::size_t>(pixelColumns) * static_cast<std::size_t>(pixelRows)) {}

bool LabelCover::IsFirstAt(double x, double y) {
    const double column = std::floor(x) + Margin, row = std::floor(y) + Margin;
    if (!(column >= 0 && row >= 0 && column < pixelColumns && row < pixelRows)) return false;
    const auto pixel = static_cast<std::size_t>(row) * pixelColumns + static_cast<std::size_t>(column);
    if (symbols[pixel]) return false;
    symbols[pixel] = true;
    return true;
}

LabelCover::Cells LabelCover::CellsOf(double x, double y, double width, double height, bool wholly) const {
    const auto cell = [&](double at, double size, bool up, int limit) {
        const double cells = at / size;
        return static_cast<int>(
            std::clamp(up ? std::ceil(cells) : std::floor(cells), 0.0, static_cast<double>(limit)));
    };
    return {cell(x, CellWidth, wholly, columns), cell(y, CellHeight, wholly, rows),
            cell(x + width, CellWidth, !wholly, columns), cell(y + height, CellHeight, !wholly, rows)};
}

bool LabelCover::Shows(double x, double y, double width, double height) const {
    const Cells cells = CellsOf(x, y, width, height, true);
    for (int row = cells.Top; row < cells.Bottom; ++row) {
        const auto* line = layers.data() + static_cast<std::ptrdiff_t>(row) * columns;
        if (std::any_of(line + cells.Left, line + std::max(cells.Left, cells.Right),
                        [](std::uint8_t count) { return count < LayersThatHide; }))
            return true;
    }
    return false;
}

void LabelCover::Add(double x, double y, double width, double height) {
    const Cells cells = CellsOf(x, y, width, height, true);
    for (int row = cells.Top; row < cells.Bottom; ++row)
        for (int column = cells.Left; column < cells.Right; ++column) {
            std::uint8_t& count = layers[static_cast<std::size_t>(row) * columns + column];
            count = static_cast<std::uint8_t>(std::min(count + 1, LayersThatHide));
        }
}

} // namespace ornivane
