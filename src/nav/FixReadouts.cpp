#include "nav/FixReadouts.h"

#include <utility>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

// A receiver writes a decimal point, whatever the locale of the system is.
double WireNumber(std::string_view text) {
    const auto number = ParsePlainNumber(text);
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch, std::string(text.substr(0, 20)));
    return *number;
}

double InFeet(double metres) { return CutToFifteenDigits(metres * FeetPerMetre); }

} // namespace

FixReadouts::FixReadouts(FlightState& flightState, std::function<void(const FixEffects&)> doEffects)
    : state(flightState), act(std::move(doEffects)) {}

void FixReadouts::FixObtained() {
    state.NoFix = false;
    act({.HasFix = true});
}

void FixReadouts::FixLost() {
    state.NoFix = true;
    act({.HasFix = false, .OverlaysAreDue = true});
}

void FixReadouts::PositionReceived(const PositionTexts& position) {
    if (state.NoFix) {
        state.lblLat = state.lblLong = NoValue;
        return;
    }
    state.CurLat = ToDecimalDegrees(StoredLatitude(WireNumber(position.LatRaw) / 100));
    // The hemisphere of the latitude is looked for in the longitude's text, where an S never stands: in
    // flight mode a southern latitude stays positive. Charts and data of the south are laid out for that.
    if (position.Longitude.starts_with('S')) state.CurLat = -state.CurLat;
    state.CurLong = ToDecimalDegrees(StoredLongitude(WireNumber(position.LongRaw) / 100));
    if (position.Longitude.starts_with('W')) state.CurLong = -state.CurLong;
    state.HadPosition = true;
    ++PositionCount;
    act({.MapIsDue = PositionCount == 0 || PositionCount > 20});
    if (PositionCount > 20) PositionCount = 0;
    state.lblLat = position.Latitude;
    state.lblLong = position.Longitude;
}

void FixReadouts::TimeChanged(const std::string& time) { state.LabelTime = time; }

void FixReadouts::BearingReceived(const std::string& bearing) {
    if (state.NoFix) {
        const bool hadTrack = state.lblBearing.HasNumber();
        state.lblBearing = Readout(std::nullopt, Formats::Track);
        if (hadTrack) act({.CardAngle = 0}); // parks the needle
        return;
    }
    state.lblBearing = Readout(WireNumber(bearing), Formats::Track);
    state.HeadingIndicator = -state.lblBearing.Number();
    act({.CardAngle = state.HeadingIndicator});
}

void FixReadouts::SpeedReceived(const std::string& speed) {
    knots = state.NoFix ? std::nullopt : std::optional(WireNumber(speed));
    ShowSpeed();
    act({.Knots = knots});
}

void FixReadouts::ShowSpeed() {
    const double factor = state.SpeedInKnots ? 1 : KilometresPerNauticalMile;
    state.lblSpeed = Readout(knots ? std::optional(*knots * factor) : std::nullopt,
                             state.SpeedInKnots ? Formats::Knots : Formats::KilometresPerHour);
}

void FixReadouts::AltitudeReceived(const std::string& altitude) {
    metres = state.NoFix ? std::nullopt : std::optional(WireNumber(altitude));
    ShowAltitude();
    if (metres) act({.Feet = InFeet(*metres)});
}

void FixReadouts::ShowAltitude() {
    state.lblAlt = state.AltInFeet
                       ? Readout(metres ? std::optional(InFeet(*metres)) : std::nullopt, Formats::Feet)
                       : Readout(metres, Formats::Metres);
}

void FixReadouts::SatellitesUsedReceived(std::int16_t satellitesUsed) {
    state.Label7 = std::to_string(satellitesUsed);
}

void FixReadouts::SatellitesInViewReceived(std::int16_t satellitesInView) {
    act({.Satellites = FixEffects::SatelliteCount{state.Label7,
                                                  state.NoFix ? std::optional<int>() : satellitesInView}});
}

void FixReadouts::ClearDisplays() {
    knots.reset();
    metres.reset();
    ShowSpeed();
    ShowAltitude();
    state.lblBearing = Readout(std::nullopt, Formats::Track);
    state.lblLat = state.lblLong = state.lblTime = NoValue;
    state.lblTrueBearing = state.lblDistanz = Readout();
    state.HeadingIndicator = 0;
    act({.CardAngle = 0});
}

} // namespace ornivane
