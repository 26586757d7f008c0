#pragma once

#include "geo/Position.h"

namespace ornivane {

// Nautical miles, on the sphere on which a minute of arc is one; exact also for points close together, which
// the formula of the navigation is not.
double Distance(const Position& from, const Position& to);

// Initial true course in degrees, 0 up to but not including 360.
double Bearing(const Position& from, const Position& to);

// The point at a bearing in degrees and a distance in nautical miles. Its longitude is -180 to 180.
Position Destination(const Position& from, double bearingDegrees, double distanceNM);

} // namespace ornivane
