#pragma once

#include <optional>
#include <string>

#include "base/LocaleText.h"
#include "nav/FlightState.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// What the wind panel shows besides its arrow, to be compared with what was shown last.
struct WindShown {
    static constexpr Colour PlainHeading = 0xFFFF80;
    static constexpr Colour WrongHeading = 0xFF0000; // above 360: told by colour, not refused

    std::string lblHeading = NoValue, lblIAS = NoValue; // entries: "-" for a digit that is missing yet
    std::string lblIASToolTip;                          // the TAS result
    std::string lblWind = "--- / ---";
    Colour lblHeadingColour = PlainHeading;
    bool operator==(const WindShown&) const = default;
};

// The pilot types compass heading and indicated airspeed, three digits each; the answer is the true airspeed
// for three temperatures and the wind, from the triangle of heading and TAS against track and ground speed.
// All of it is a rule of thumb computed from the numbers as displayed: no unit is converted, so the IAS is
// meant in the unit in which the ground speed shows.
class WindCalculator : public WindShown {
public:
    static constexpr int Backspace = 8; // key code; digits are 48 to 57

    WindCalculator(const FlightState& flightState, const LocaleText& localeText, PictureSurface& surface);

    // A key that means nothing else on the flying screen. Any key after a complete entry begins a new one.
    void KeyUp(int keyCode);
    // At each altitude, in feet. Only the tooltip changes.
    void UpdateTAS(double altitudeFeet);
    // Of a complete entry. Nothing without a track or a ground speed.
    void UpdateWind();
    // The ground speed shows in the other unit from now on (state.SpeedInKnots): a complete entry and the
    // wind are shown in it, too. The wind is still that of its heading and track. An airspeed of more than
    // three digits goes.
    void SpeedUnitChanged();
    // Draws the arrow of the last result again, after picWind got a new size or palette.
    void RedrawArrow();

    Colour ArrowColour = 0x000000;

private:
    struct TrueAirspeed {
        double Isa, Warmer, Colder; // ISA, ISA + 10, ISA - 10, in the unit of the IAS
    };
    TrueAirspeed TasAt(double altitudeFeet) const;
    std::string TasText(const TrueAirspeed& tas) const;
    bool IsComplete() const;
    void ShowWind();
    void DrawArrow(double relativeDegrees);

    const FlightState& state;
    const LocaleText& locale;
    PictureSurface& picWind;
    double airspeed = 0; // of the complete entry, in the unit shown; unrounded, so that no click changes it
    double windDirection = 0, windSpeed = 0; // in degrees and in the unit shown; 0: none
    std::optional<double> arrow;             // degrees from the nose; none before the first wind
};

} // namespace ornivane
