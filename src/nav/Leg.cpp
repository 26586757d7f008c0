#include "nav/Leg.h"

#include <cmath>

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/Date.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

Leg::Leg(FlightState& flightState, const LocaleText& localeText, const Clock& systemClock)
    : state(flightState), locale(localeText), clock(systemClock) {}

void Leg::UpdateLeg(const Position& target, const Position& current, bool isDirect,
                    const std::function<void()>& pass) {
    const double targetLat = DegToRad(target.Lat), targetLong = DegToRad(target.Long);
    const double currentLat = DegToRad(current.Lat), currentLong = DegToRad(current.Long);
    if (targetLat == currentLat && targetLong == currentLong) return;
    if (targetLat == 0 || targetLong == 0 || currentLat == 0 || currentLong == 0) return;
    const double d = AngleBetween(currentLat, currentLong, targetLat, targetLong);
    const double distance = d * 60 * 180 / Pi;
    const double change = LastDistance - distance;
    // The first growth of the distance within 5 NM means that the point was passed. A growth of 1 NM and more
    // is the jump to a new, farther target and must not pass that one as well.
    if (distance < 5 && change < 0 && change > -1 && !isDirect) pass();
    state.lblDistanz = Format(distance, "###0.0", locale) + " NM";
    LastDistance = distance;

    const double speed = ShownNumber(state.lblSpeed); // in the unit shown
    const double way = state.SpeedInKnots ? distance : distance * KilometresPerNauticalMile;
    ShowTime(speed > 10 ? way / speed : 0);
    state.lblTrueBearing =
        Format(TrueCourse(currentLat, currentLong, targetLat, targetLong, d), "##0", locale) + " °";
}

void Leg::ShowTime(double hours) {
    const int h = static_cast<int>(hours);
    const int m = static_cast<int>((hours - h) * 60);
    if (h > 23) throw RuntimeError(ErrorNumber::TypeMismatch, std::to_string(h) + ":" + std::to_string(m));
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
