#include "nav/FixReadouts.h"

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

// A receiver writes a decimal point, whatever the locale of the system is.
double WireNumber(const std::string& text) {
    const auto number = ParsePlainNumber(text);
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch, text.substr(0, 20));
    return *number;
}

double Feet(double metres) { return CutToFifteenDigits(metres * FeetPerMetre); }

} // namespace

FixReadouts::FixReadouts(FlightState& flightState, const LocaleText& localeText,
                         FixReadoutsOwner& readoutsOwner)
    : state(flightState), locale(localeText), owner(readoutsOwner) {}

void FixReadouts::gps_FixObtained() {
    owner.ShowFix(true);
    state.NoFix = false;
}

void FixReadouts::gps_FixLost() {
    owner.ShowFix(false);
    state.NoFix = true;
    owner.DrawOverlays();
}

void FixReadouts::gps_PositionReceived(const std::string& latitude, const std::string& longitude,
                                       const std::string& latraw, const std::string& longraw) {
    if (state.NoFix) {
        state.lblLat = NoValue;
        state.lblLong = NoValue;
        return;
    }
    state.CurLat = ToDecimalDegrees(WireNumber(latraw) / 100);
    // The hemisphere of the latitude is looked for in the longitude's text, where an S never stands: in
    // flight mode a southern latitude stays positive. Charts and data of the south are laid out for that.
    if (longitude.starts_with('S')) state.CurLat = -state.CurLat;
    state.CurLong = ToDecimalDegrees(WireNumber(longraw) / 100);
    if (longitude.starts_with('W')) state.CurLong = -state.CurLong;
    state.HadPosition = true;
    PositionCount = ToInt16(PositionCount + 1.0);
    if (PositionCount == 0) owner.UpdateMap();
    if (PositionCount > 20) {
        owner.UpdateMap();
        PositionCount = 0;
    }
    state.lblLat = latitude;
    state.lblLong = longitude;
}

void FixReadouts::gps_TimeChanged(const std::string& time) { state.LabelTime = time; }

void FixReadouts::gps_BearingReceived(const std::string& bearing) {
    if (state.NoFix) {
        const bool hadTrack = state.lblBearing != NoValue;
        state.lblBearing = NoValue;
        if (hadTrack) owner.UpdateInstrument(0); // parks the needle
        return;
    }
    state.lblBearing = Format(WireNumber(bearing), "000", locale);
    state.HeadingIndicator = -NumberIn(state.lblBearing);
    owner.UpdateInstrument(state.HeadingIndicator);
}

void FixReadouts::gps_SpeedReceived(const std::string& speed) {
    if (state.NoFix)
        knots.reset();
    else
        knots = WireNumber(speed);
    ShowSpeed();
    if (knots) owner.SpeedChanged(*knots);
}

void FixReadouts::ShowSpeed() {
    const double factor = state.SpeedInKnots ? 1 : KilometresPerNauticalMile;
    state.lblSpeed = knots ? Format(*knots * factor, "##0", locale) : NoValue;
    state.lblSpeedmode = state.SpeedInKnots ? "kts" : "km/h";
}

void FixReadouts::gps_AltitudeReceived(const std::string& altitude) {
    if (state.NoFix)
        metres.reset();
    else
        metres = WireNumber(altitude);
    ShowAltitude();
    if (metres) owner.AltitudeChanged(Feet(*metres));
}

void FixReadouts::ShowAltitude() {
    if (!metres)
        state.lblAlt = NoValue;
    else
        state.lblAlt =
            state.AltInFeet ? Format(Feet(*metres), "######", locale) : Format(*metres, "#####", locale);
    state.lblAltmode = state.AltInFeet ? "ft" : "m";
}

void FixReadouts::gps_SatellitesUsedReceived(std::int16_t satellitesUsed) {
    state.Label7 = std::to_string(satellitesUsed);
}

void FixReadouts::gps_SatellitesInViewReceived(std::int16_t satellitesInView) {
    owner.ShowSatellites(state.Label7, state.NoFix ? std::optional<int>() : satellitesInView);
}

void FixReadouts::ClearDisplays() {
    for (std::string* label : {&state.lblSpeed, &state.lblBearing, &state.lblAlt, &state.lblLat,
                               &state.lblLong, &state.lblTrueBearing, &state.lblDistanz, &state.lblTime})
        *label = NoValue;
    knots.reset();
    metres.reset();
    state.HeadingIndicator = 0;
    owner.UpdateInstrument(0);
}

} // namespace ornivane
