#pragma once

#include "geo/Position.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

// Positions where they leave the stores. RuntimeError InvalidNull for a row without one.

// Of two columns, the latitude first.
inline DegMin DegMinOf(const Statement& row, int latitudeColumn) {
    return {StoredLatitude(row.Number(latitudeColumn)), StoredLongitude(row.Number(latitudeColumn + 1))};
}

// Of the fields Lat and Long of the current row.
inline DegMin DegMinOf(const Recordset& row) {
    return {StoredLatitude(row.Number("Lat")), StoredLongitude(row.Number("Long"))};
}

} // namespace ornivane
