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
    Leg(FlightState& state, const LocaleText& locale, const Clock& clock);

    // Decimal degrees. Nothing changes when the two are equal or one of the four is exactly 0. `isDirect`:
    // the target is one of Direct Fly, which is never passed; `pass` moves on to the next route point, the
    // rest of this run still shows the old one. RuntimeError TypeMismatch for a leg of 24 hours and more.
    void UpdateLeg(const Position& target, const Position& current, bool isDirect,
                   const std::function<void()>& pass);

    double LastDistance = 0; // NM, to the active target at the last calculation

private:
    void ShowTime(double hours);

    FlightState& state;
    const LocaleText& locale;
    const Clock& clock;
};

} // namespace ornivane
