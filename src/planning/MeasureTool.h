#pragma once

#include <string>

#include "base/LocaleText.h"

namespace ornivane {

// Distance and bearing between two positions, as the planning map's readouts show them.
class MeasureTool {
public:
    explicit MeasureTool(const LocaleText& textLocale) : locale(textLocale) {}

    // DegMinValue. The bearing is the course at the start for a line to the east, at the end for any other.
    // RuntimeError when start and end are the same: the distance is that of this line then, the bearing that
    // of the one before.
    void Measure(double lat1, double long1, double lat2, double long2);

    bool MeasureOn = false;
    std::string lblDistanz = "---"; // "12.3 NM"
    std::string lblKurs = "---";    // "45 °"

private:
    const LocaleText& locale;
};

} // namespace ornivane
