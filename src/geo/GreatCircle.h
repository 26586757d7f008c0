#pragma once

#include <optional>

#include "geo/Position.h"

namespace ornivane {

// The great circle from A to B, on a sphere on which one minute of arc is one nautical mile. The order of
// operations and the asymmetry of the course are part of what stored plans and displays were computed with.
struct GreatCircle {
    double AngleRadians = 0; // between A and B; 0 also for points too close to have a course
    double DistanceNM = 0;
    // Degrees, 0 to 360. Eastbound it is the initial course at A, westbound and on the same meridian the
    // final one at B, so that due north is 360 and due south 180. Points so close that the angle comes out as
    // 0 give 0, 180 or 360.
    double TrueCourse = 0;

    static GreatCircle Between(const Position& a, const Position& b);
};

// The great-circle angle between two points in radians, by the spherical law of cosines.
double AngleBetween(const Position& a, const Position& b);

// Great-circle distance in nautical miles, the second point first. 0 for equal points, and for any coordinate
// that is exactly 0: that marks one that was never set.
double CalcRouteDist(const Position& b, const Position& a);

// A leg of a planned route, with that distance: none where it is 0 for one of these reasons.
std::optional<GreatCircle> PlannedLeg(const Position& from, const Position& to);

// The way from the aircraft: none for the same reasons, but compared in radians, in which neighbouring
// numbers of degrees are equal.
std::optional<GreatCircle> FlownLeg(const Position& aircraft, const Position& to);

} // namespace ornivane
