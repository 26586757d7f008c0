#pragma once

#include <string>

#include "map/MapTransform.h"
#include "store/Statement.h"

namespace ornivane {

// The place of a route's point as stored, DegMinValue.
struct StoredPlace {
    double Lat = 0, Long = 0;

    // From a row that begins with Lat, Long and Name. RuntimeError for one without a place, with the names of
    // route and point.
    static StoredPlace Of(const Statement& row, const std::string& route);
    Position Decimal() const;
};

} // namespace ornivane
