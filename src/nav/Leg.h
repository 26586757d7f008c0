#pragma once

#include <string>

#include "nav/FlightState.h"
#include "platform/Clock.h"

namespace ornivane {

// What a calculation of the leg found besides its values.
struct LegStep {
    bool Passed = false; // the route goes on to its next point; the values are still those of this one
    // The target cannot be reached within 24 hours, so there is no time. Told once until a time shows again
    // or another target is chosen.
    bool IsADayAway = false;
};

// Distance, course and time to the active target, computed in each redraw.
class Leg {
public:
    Leg(FlightState& flightState, const Clock& systemClock);

    // Nothing changes when the two are equal or one of their coordinates is exactly 0. `isDirect`: the target
    // is one of Direct Fly, which is never passed. RuntimeError Overflow for a position that is no number.
    LegStep UpdateLeg(const Position& target, const Position& current, bool isDirect);

    // Another target is active now. LastDistance is that of the one before, and tells nothing of passing.
    void TargetChosen();

    double LastDistance = 0; // NM, to the active target at the last calculation

private:
    bool HasPosition() const { return state.HadPosition && !state.NoFix; }
    bool IsPassed(double distanceNM, bool isDirect) const;
    std::string TimeAt(double hours) const;

    FlightState& state;
    const Clock& clock;
    bool isNewTarget = true; // chosen since the last calculation with a fix
    bool toldADay = false;
};

} // namespace ornivane
