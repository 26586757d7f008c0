#pragma once

#include <string>

#include "base/LocaleText.h"
#include "geo/Position.h"

namespace ornivane {

// What the measuring tool shows; members carry the names of the readouts.
struct MeasureReadouts {
    bool MeasureOn = false;
    std::string lblDistanz = "---"; // "12.3 NM"
    std::string lblKurs = "---";    // "45 °"
    bool operator==(const MeasureReadouts&) const = default;
};

// Distance and bearing between two positions.
class MeasureTool : public MeasureReadouts {
public:
    explicit MeasureTool(const LocaleText& textLocale) : locale(textLocale) {}

    // The bearing is the course at the start for a line to the east, at the end for any other.
    // RuntimeError when start and end are the same: the distance is that of this line then, the bearing that
    // of the one before.
    void Measure(const DegMin& from, const DegMin& to);

private:
    const LocaleText& locale;
};

} // namespace ornivane
