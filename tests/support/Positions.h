#pragma once

#include "geo/Position.h"

namespace ornivane {

// In decimal degrees and in the stored form, in short.
constexpr Position At(double lat, double longitude) { return {Latitude(lat), Longitude(longitude)}; }
constexpr DegMin Stored(double lat, double longitude) {
    return {StoredLatitude(lat), StoredLongitude(longitude)};
}

} // namespace ornivane
