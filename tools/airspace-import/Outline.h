#pragma once

#include <vector>

#include "airspace-import/Airspace.h"

namespace ornivane {

// The rows from which the drawing makes one closed line. It joins points to points and arcs to the points
// behind them, but neither a point nor an arc to the arc behind it: a point is put in wherever a file leaves
// such a side to the reader, and points that repeat their neighbour are left out. Raises Unusable for what
// has no outline: fewer than three points, an arc around nothing, a circle beside other elements.
std::vector<OutlineRow> OutlineRows(const std::vector<Element>& elements);

// The DegMinValue of a latitude or longitude for the store, at nine decimals: far below a metre, and short to
// read.
double StoredNumber(Latitude latitude);
double StoredNumber(Longitude longitude);

} // namespace ornivane
