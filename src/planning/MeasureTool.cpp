#include "planning/MeasureTool.h"

#include <cmath>

#include "base/Format.h"
#include "base/Numbers.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

void MeasureTool::Measure(double lat1, double long1, double lat2, double long2) {
    const auto radians = [](double stored) { return DegToRad(ToDecimalDegrees(stored)); };
    const double latA = radians(lat1), longA = radians(long1), latB = radians(lat2), longB = radians(long2);
    const double d = AngleBetween(latA, longA, latB, longB);
    lblDistanz = Format(d * 60 * 180 / Pi, "##0.0", locale) + " NM";
    CheckedDivide(1, std::sin(d));
    lblKurs = Format(TrueCourse(latA, longA, latB, longB, d), "##0", locale) + " °";
}

} // namespace ornivane
