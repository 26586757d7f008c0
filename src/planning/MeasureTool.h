#pragma once

#include <string>

#include "base/LocaleText.h"
#include "geo/Position.h"

namespace ornivane {

// Distance and bearing between two positions; members carry the names of the readouts.
class MeasureTool {
public:
    explicit MeasureTool(const LocaleText& textLocale) : locale(textLocale) {}

    // The bearing is the course at the start for a line to the east, at the end for any other.
    // RuntimeError when start and end are the same: the distance is that of this line then, the bearing that
    // of the one before.
    void Measure(const DegMin& from, const DegMin& to);

    bool MeasureOn = false;
    std::string lblDistanz = "---"; // "12.3 NM"
    std::string lblKurs = "---";    // "45 °"

private:
    const LocaleText& locale;
};

} // namespace ornivane
