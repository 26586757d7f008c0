#pragma once

#include <cstdint>

#include "platform/qt/LineClip.h"
#include "platform/qt/PixelBlock.h"

namespace ornivane {

// An antialiased line with round ends. Positions and width are device pixels, positions counted from the
// borders of pixels; what lies outside of the block is left out. A general painter takes ten times as long
// for what a redraw draws by the thousand.
void DrawThickLine(const PixelBlock& target, const LineEnds& ends, double width, std::uint32_t colour);

} // namespace ornivane
