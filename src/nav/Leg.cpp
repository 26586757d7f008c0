#include "nav/Leg.h"

#include <utility>

#include "base/Format.h"
#include "base/Numbers.h"
#include "common/Date.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr double HoursOfADay = 24;

} // namespace

Leg::Leg(FlightState& flightState, const LocaleText& localeText, const Clock& systemClock,
         std::function<void()> tellADayAway)
    : state(flightState), locale(localeText), clock(systemClock), aDayAway(std::move(tellADayAway)) {}

void Leg::TargetChosen() {
    isNewTarget = true;
    toldADay = false;
}

// The first growth of the distance within 5 NM means that the point was passed. A growth of 1 NM and more is
// the jump to a new, farther target and must not pass that one as well.
bool Leg::IsPassed(double distance, bool isDirect) const {
    const double change = LastDistance - distance;
    return !isNewTarget && !isDirect && distance < 5 && change < 0 && change > -1;
}

void Leg::UpdateLeg(const Position& target, const Position& current, bool isDirect,
                    const std::function<void()>& pass) {
    const double targetLat = DegToRad(target.Lat), targetLong = DegToRad(target.Long);
    const double currentLat = DegToRad(current.Lat), currentLong = DegToRad(current.Long);
    if (targetLat == currentLat && targetLong == currentLong) return;
    if (targetLat == 0 || targetLong == 0 || currentLat == 0 || currentLong == 0) return;
    const double d = AngleBetween(currentLat, currentLong, targetLat, targetLong);
    const double distance = d * 60 * 180 / Pi;
    if (IsPassed(distance, isDirect)) pass();
    // Also behind a step of the route, which is no choice of the pilot: the next point is compared with this
    // distance. A position that is not the aircraft's now is no first one: the step to the real one may look
    // like a passing.
    if (state.HadPosition && !state.NoFix) isNewTarget = false;
    state.lblDistanz = Format(distance, "###0.0", locale) + " NM";
    LastDistance = distance;

    const double speed = ShownNumber(state.lblSpeed); // in the unit shown
    const double way = state.SpeedInKnots ? distance : distance * KilometresPerNauticalMile;
    ShowTime(speed > 10 ? way / speed : 0);
    state.lblTrueBearing =
        Format(TrueCourse(currentLat, currentLong, targetLat, targetLong, d), "##0", locale) + " °";
}

void Leg::ShowNoTime() {
    state.lblTime = NoValue;
    if (!std::exchange(toldADay, true)) aDayAway();
}

void Leg::ShowTime(double hours) {
    if (hours >= HoursOfADay) {
        ShowNoTime();
        return;
    }
    // An aircraft that taxis stops and goes on: a leg without a time to go is no news about the long one.
    if (hours > 0) toldADay = false;
    const int h = static_cast<int>(hours);
    const int m = static_cast<int>((hours - h) * 60);
    if (h == 0 && m == 0) {
        state.lblTime = "00:" + Format(hours * 3600, "00", locale);
    } else if (state.ShowETE) {
        state.lblTime = ShortTime(h, m);
    } else {
        const LocalTime now = clock.Now();
        const int minutes = (now.Hour + h) * 60 + now.Minute + m;
        state.lblTime = ShortTime(minutes / 60 % 24, minutes % 60);
    }
}

} // namespace ornivane
