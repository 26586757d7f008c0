#include "geo/NavigationMaths.h"

#include <cmath>

namespace ornivane {

namespace {

// The angle at one point between the meridian to the north and the way to the other, in degrees; arguments in
// radians. On a meridian rounding carries the cosine to -1 and beyond in about half of all pairs. Arccos says
// 0 there; a course must not turn round.
double AngleAt(double lat, double otherLat, double d) {
    // With d = 0 the quotient is infinite or no number: hence no checked division.
    const double cosine = (std::sin(otherLat) - std::cos(d) * std::sin(lat)) / (std::sin(d) * std::cos(lat));
    return cosine <= -1 ? 180 : RadToDeg(Arccos(cosine));
}

} // namespace

double ToDecimalDegrees(double degMinValue) {
    const double whole = std::floor(degMinValue);
    return whole + (degMinValue - whole) * 10 / 6;
}

double ToDegMinValue(double decimalDegrees) {
    const double whole = std::floor(decimalDegrees);
    return whole + (decimalDegrees - whole) * 6 / 10;
}

double DegToRad(double degrees) { return degrees * Pi / 180; }

double RadToDeg(double radians) { return radians * 180 / Pi; }

double Arccos(double x) {
    if (!(std::fabs(x) < 1)) return 0;
    return std::atan(-x / std::sqrt(-x * x + 1)) + 2 * std::atan(1.0);
}

double ASin(double x) {
    if (std::fabs(x) == 1) return x * 1.5707963267949;
    return std::atan(x / std::sqrt(1 - x * x));
}

double AngleBetween(double lat1, double long1, double lat2, double long2) {
    return Arccos(std::sin(lat1) * std::sin(lat2) +
                  std::cos(lat2) * std::cos(lat1) * std::cos(long2 - long1));
}

double CalcRouteDist(double lat2, double long2, double lat1, double long1) {
    if (lat1 == lat2 && long1 == long2) return 0;
    if (lat1 == 0 || lat2 == 0 || long1 == 0 || long2 == 0) return 0;
    return AngleBetween(DegToRad(lat1), DegToRad(long1), DegToRad(lat2), DegToRad(long2)) * 60 * 180 / Pi;
}

double TrueCourse(double latA, double longA, double latB, double longB, double d) {
    if (longA < longB) return AngleAt(latA, latB, d);
    return AngleAt(latB, latA, d) + 180;
}

} // namespace ornivane
