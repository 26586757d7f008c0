#pragma once

#include <cstdint>
#include <string>

#include "base/Numbers.h"

namespace ornivane {

// What every value without a source shows.
inline const std::string NoValue = "---";

// The number in a display, or 0 where it shows none: "---", or the empty text that a picture of optional
// digits makes of an altitude of 0.
inline double ShownNumber(const std::string& text) {
    return text.empty() || text == NoValue ? 0 : NumberIn(text);
}

// What the receiver last said, in the texts that the labels show. Several values are computed from these
// texts and not from the numbers behind them, so a text and its unit always belong together.
struct FlightState {
    double CurLat = 49.0;     // decimal degrees, negative south
    double CurLong = 9.0;     // decimal degrees, negative west
    bool NoFix = true;        // no valid fix is held
    bool HadPosition = false; // the position is one of the receiver

    bool SpeedInKnots = true;
    bool AltInFeet = true;
    bool ShowETE = true; // lblTime shows the time to go, otherwise the time of arrival

    std::string lblLat = NoValue, lblLong = NoValue;
    std::string lblSpeed = NoValue, lblSpeedmode = "kts";
    std::string lblBearing = NoValue;
    std::string lblAlt = NoValue, lblAltmode = "ft";
    std::string lblDistanz = NoValue, lblTrueBearing = NoValue, lblTime = NoValue;
    std::string Label7;          // satellites used
    std::string LabelTime;       // time of the receiver's last sentence, hh:mm:ss
    double HeadingIndicator = 0; // degrees by which the compass card is turned

    bool operator==(const FlightState&) const = default;
};

} // namespace ornivane
