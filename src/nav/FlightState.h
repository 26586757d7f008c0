#pragma once

#include <optional>
#include <string>

#include "base/Numbers.h"
#include "base/Readout.h"
#include "geo/NavigationMaths.h"
#include "geo/Position.h"

namespace ornivane {

// How the flying screen's displays write their numbers.
namespace Formats {

inline constexpr ReadoutFormat Knots{"##0", "kts"}, KilometresPerHour{"##0", "km/h"};
inline constexpr ReadoutFormat Feet{"######", "ft"}, Metres{"#####", "m"};
inline constexpr ReadoutFormat Track{"000", "°"}, Course{"##0", "°"}, Miles{"###0.0", "NM"};

} // namespace Formats

// What the receiver last said, as its displays show it. Several values are computed from the numbers shown
// and not from those behind them, so a number and its unit always change together.
struct FlightState {
    Latitude CurLat{49.0};
    Longitude CurLong{9.0};
    Position Current() const { return {CurLat, CurLong}; }
    bool NoFix = true;        // no valid fix is held
    bool HadPosition = false; // the position is one of the receiver

    bool SpeedInKnots = true;
    bool AltInFeet = true;
    bool ShowETE = true; // lblTime shows the time to go, otherwise the time of arrival

    std::string lblLat = NoValue, lblLong = NoValue; // texts of the receiver
    Readout lblSpeed{std::nullopt, Formats::Knots};
    Readout lblBearing{std::nullopt, Formats::Track};
    Readout lblAlt{std::nullopt, Formats::Feet};
    Readout lblDistanz, lblTrueBearing;
    std::string lblTime = NoValue; // "hh:mm": a text, as nothing is computed from it
    std::string Label7;            // satellites used
    std::string LabelTime;         // time of the receiver's last sentence, hh:mm:ss
    double HeadingIndicator = 0;   // degrees by which the compass card is turned

    // The altitude as shown, converted when it shows in metres; 0 without one.
    double ShownFeet() const {
        return AltInFeet ? lblAlt.Number() : CutToFifteenDigits(lblAlt.Number() * FeetPerMetre);
    }

    bool operator==(const FlightState&) const = default;
};

} // namespace ornivane
