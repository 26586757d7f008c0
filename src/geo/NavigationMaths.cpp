#include "geo/NavigationMaths.h"

#include <cmath>

namespace ornivane {

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

} // namespace ornivane
