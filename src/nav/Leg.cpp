#include "nav/Leg.h"

#include <utility>

#include "common/Date.h"
#include "geo/GreatCircle.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr double HoursOfADay = 24;

} // namespace

Leg::Leg(FlightState& flightState, const Clock& systemClock) : state(flightState), clock(systemClock) {}

void Leg::TargetChosen() {
    isNewTarget = true;
    toldADay = false;
}

// The first growth of the distance within 5 NM means that the point was passed. A growth of 1 NM and more is
// the jump to a new, farther target and must not pass that one as well.
bool Leg::IsPassed(double distanceNM, bool isDirect) const {
    const double change = LastDistance - distanceNM;
    return !isNewTarget && !isDirect && distanceNM < 5 && change < 0 && change > -1;
}

LegStep Leg::UpdateLeg(const Position& target, const Position& current, bool isDirect) {
    const auto flown = FlownLeg(current, target);
    if (!flown) return {};
    const double distance = flown->DistanceNM;
    LegStep step;
    step.Passed = IsPassed(distance, isDirect);
    if (step.Passed) TargetChosen();
    // Also behind a step of the route, which is no choice of the pilot: the next point is compared with this
    // distance. A position that is not the aircraft's now is no first one: the step to the real one may look
    // like a passing.
    if (HasPosition()) isNewTarget = false;
    state.lblDistanz = Readout(distance, Formats::Miles);
    LastDistance = distance;

    const double speed = state.lblSpeed.Number(); // in the unit shown
    const double way = state.SpeedInKnots ? distance : distance * KilometresPerNauticalMile;
    const double hours = speed > 10 ? way / speed : 0;
    state.lblTime = TimeAt(hours);
    // An aircraft that taxis stops and goes on: a leg without a time to go is no news about the long one.
    if (hours >= HoursOfADay)
        step.IsADayAway = !std::exchange(toldADay, true);
    else if (hours > 0)
        toldADay = false;
    state.lblTrueBearing = Readout(flown->TrueCourse, Formats::Course);
    return step;
}

std::string Leg::TimeAt(double hours) const {
    if (hours >= HoursOfADay) return NoValue;
    const int h = static_cast<int>(hours);
    const int m = static_cast<int>((hours - h) * 60);
    if (h == 0 && m == 0) return ShortTime(0, static_cast<int>(NumberAsShown(hours * 3600, "00")));
    if (state.ShowETE) return ShortTime(h, m);
    const LocalTime now = clock.Now();
    const int minutes = (now.Hour + h) * 60 + now.Minute + m;
    return ShortTime(minutes / 60 % 24, minutes % 60);
}

} // namespace ornivane
