#include "map/LabelCover.h"

#include <algorithm>
#include <cmath>

namespace ornivane {

constexpr int Margin = 16;                      // pixels
constexpr double CellWidth = 4, CellHeight = 4; // view pixels; a plate is 17 high

LabelCover::LabelCover(const PictureSurface& view)
    : columns(static_cast<int>(std::ceil(view.ScaleWidth() / CellWidth))),
      rows(static_cast<int>(std::ceil(view.ScaleHeight() / CellHeight))),
      covered(static_cast<std::size_t>(std::max(columns, 0)) * static_cast<std::size_t>(std::max(rows, 0))),
      pixelColumns(static_cast<int>(view.ScaleWidth()) + 2 * Margin),
      pixelRows(static_cast<int>(view.ScaleHeight()) + 2 * Margin),
      symbols(static_cast<std::size_t>(pixelColumns) * static_cast<std::size_t>(pixelRows)) {}

bool LabelCover::IsFirstAt(const Point& viewPixel) {
    const double column = std::floor(viewPixel.X) + Margin, row = std::floor(viewPixel.Y) + Margin;
    if (!(column >= 0 && row >= 0 && column < pixelColumns && row < pixelRows)) return false;
    const auto pixel = static_cast<std::size_t>(row) * pixelColumns + static_cast<std::size_t>(column);
    if (symbols[pixel]) return false;
    symbols[pixel] = true;
    return true;
}

LabelCover::Cells LabelCover::CellsWithin(const PixelRect& area) const {
    const auto cell = [](double at, int limit) {
        return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(limit)));
    };
    return {cell(std::ceil(area.X / CellWidth), columns), cell(std::ceil(area.Y / CellHeight), rows),
            cell(std::floor((area.X + area.Width) / CellWidth), columns),
            cell(std::floor((area.Y + area.Height) / CellHeight), rows)};
}

bool LabelCover::Shows(const PixelRect& label) const {
    const Cells cells = CellsWithin(label);
    for (int row = cells.Top; row < cells.Bottom; ++row) {
        const auto* line = covered.data() + static_cast<std::ptrdiff_t>(row) * columns;
        if (std::any_of(line + cells.Left, line + std::max(cells.Left, cells.Right),
                        [](std::uint8_t isCovered) { return isCovered == 0; }))
            return true;
    }
    return false;
}

void LabelCover::Add(const PixelRect& plate) {
    const Cells cells = CellsWithin(plate);
    for (int row = cells.Top; row < cells.Bottom; ++row)
        for (int column = cells.Left; column < cells.Right; ++column)
            covered[static_cast<std::size_t>(row) * columns + column] = 1;
}

} // namespace ornivane
