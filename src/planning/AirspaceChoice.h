#pragma once

#include <string>

#include "base/Numbers.h"

namespace ornivane {

// Which airspace the planning map shows, as the pilot chose it. Belongs to the screen.
struct AirspaceChoice {
    enum class Which { None, All, AtHeight };
    // Values of tLRHoehe apart from heights, as planung.crm keeps them.
    static constexpr double All = -99, None = -10;

    // A height that is no number shows nothing.
    double Height() const { return ParseNumber(tLRHoehe).value_or(None); }
    Which Shown() const {
        return Height() == None ? Which::None : Height() == All ? Which::All : Which::AtHeight;
    }
    // Over the map; empty when nothing shows. In German only.
    std::string tLR(const LocaleText& locale) const {
        if (Shown() == Which::None) return {};
        return Shown() == Which::All ? "Alle Lufträume"
                                     : "Luftraum in " + NumberText(Height(), locale) + " ft";
    }

    std::string tLRHoehe = NumberText(None); // feet as typed, or one of the two values above
    bool tPR = false;                        // with traffic patterns
};

} // namespace ornivane
