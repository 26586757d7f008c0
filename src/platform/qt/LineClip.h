#pragma once

namespace ornivane {

// Cuts the line to the rectangle from (left, top) to (right, bottom). False when nothing of it is inside, or
// when a coordinate is no finite number. Good for ends at any distance: a painter's own arithmetic is not.
bool ClipLine(double& x1, double& y1, double& x2, double& y2, double left, double top, double right,
              double bottom);

} // namespace ornivane
