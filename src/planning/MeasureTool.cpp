#include "planning/MeasureTool.h"

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "geo/GreatCircle.h"

namespace ornivane {

void MeasureTool::Measure(const DegMin& from, const DegMin& to) {
    const auto line = GreatCircle::Between(ToDecimalDegrees(from), ToDecimalDegrees(to));
    lblDistanz = Format(line.DistanceNM, "##0.0", locale) + " NM";
    if (line.AngleRadians == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    lblKurs = Format(line.TrueCourse, "##0", locale) + " °";
}

} // namespace ornivane
