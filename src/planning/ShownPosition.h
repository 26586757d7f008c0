#pragma once

#include <string>

#include "geo/Position.h"

namespace ornivane {

// The value is the letter that is shown.
enum class NorthSouth : char { North = 'N', South = 'S' };
enum class EastWest : char { East = 'E', West = 'W' };

inline std::string Letter(NorthSouth side) { return {static_cast<char>(side)}; }
inline std::string Letter(EastWest side) { return {static_cast<char>(side)}; }

// A position as the entry fields and the readouts of planning have it: absolute values and hemispheres. What
// is typed may have a minus sign as well.
struct ShownPosition {
    StoredLatitude Lat;
    StoredLongitude Long;
    NorthSouth NS = NorthSouth::North;
    EastWest EW = EastWest::East;

    DegMin Stored() const {
        return {StoredLatitude(NS == NorthSouth::South ? -Lat.Value() : Lat.Value()),
                StoredLongitude(EW == EastWest::West ? -Long.Value() : Long.Value())};
    }
};

} // namespace ornivane
