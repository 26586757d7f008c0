#pragma once

#include <string>

#include "base/Language.h"
#include "map/ChartPlacement.h"

namespace ornivane {

// How many metres on the ground a pixel is across and down in the middle of a frame, and by how much the two
// differ: a mistyped edge shows there. Empty for an image without extent and for pixels that no chart has.
std::string FrameCheck(const ChartPlacement& placement, const Language& language);

} // namespace ornivane
