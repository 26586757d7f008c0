#pragma once

#include <functional>

#include "base/LocaleText.h"
#include "map/MapTransform.h"
#include "nav/FlightState.h"
#include "platform/Clock.h"

namespace ornivane {

// Distance, course and time to the active target, computed in each redraw.
class Leg {
public:
    // `aDayAway`: the target cannot be reached within 24 hours, so there is no time. Told once until a time
    // shows again or another target is chosen.
    Leg(FlightState& state, const LocaleText& locale, const Clock& clock, std::function<void()> aDayAway);

    // Decimal degrees. Nothing changes when the two are equal or one of the four is exactly 0. `isDirect`:
    // the target is one of Direct Fly, which is never passed; `pass` moves on to the next route point, the
    // rest of this run still shows the old one.
    void UpdateLeg(const Position& target, const Position& current, bool isDirect,
                   const std::function<void()>& pass);

    // The pilot has chosen a target. LastDistance is that of another one then, and tells nothing of passing.
    void TargetChosen();

    double LastDistance = 0; // NM, to the active target at the last calculation

private:
    bool IsPassed(double distance, bool isDirect) const;
    void ShowTime(double hours);
    void ShowNoTime();

    FlightState& state;
    const LocaleText& locale;
    const Clock& clock;
    std::function<void()> aDayAway;
    bool isNewTarget = true; // chosen since the last calculation with a fix
    bool toldADay = false;
};

} // namespace ornivane
