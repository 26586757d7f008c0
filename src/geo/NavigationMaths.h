#pragma once

// Angles, and factors between units. Stored waypoints, printed plans and displays of earlier years were
// computed with exactly these constants; better values would make the same route read differently, so none is
// "improved".

namespace ornivane {

constexpr double Pi = 3.14159265;

double DegToRad(double degrees);
double RadToDeg(double radians);

// In radians, 0 to pi. 0 for any argument of absolute value 1 and above (and for what is no number), so also
// for -1: two antipodal points are 0 apart.
double Arccos(double x);

// In radians. Defined for absolute values up to 1; not a number beyond.
double ASin(double x);

constexpr double FeetPerMetre = 3.2808;
constexpr double KilometresPerNauticalMile = 1.852; // and km/h per knot

} // namespace ornivane
