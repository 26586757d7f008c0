#pragma once

#include <functional>

#include "platform/qt/PixelBlock.h"
#include "platform/qt/ResampleAxis.h"

namespace ornivane {

// Pixels of a source row, so that the result can be indexed from `from` to before `to`. Good until the call
// for a row that is eight or more away.
using RowReader = std::function<const std::uint32_t*(int row, int from, int to)>;

// Mixes the target pixels that both axes reach from the rows of the source; the others stay as they are.
void Resample(const PixelBlock& target, const ResampleAxis& x, const ResampleAxis& y, const RowReader& rows);

} // namespace ornivane
