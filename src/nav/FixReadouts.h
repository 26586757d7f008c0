#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "gps/NmeaListener.h"
#include "nav/FlightState.h"

namespace ornivane {

// What an event of the receiver asks of the flying screen, in the order in which it is done.
struct FixEffects {
    struct SatelliteCount {
        std::string Used;
        std::optional<int> InView; // none without a fix
    };
    std::optional<bool> HasFix{}; // for the lamps of the link
    std::optional<SatelliteCount> Satellites{};
    bool MapIsDue = false;             // UpdateMap
    bool OverlaysAreDue = false;       // DrawOverlays: over the picture that stands
    std::optional<double> CardAngle{}; // degrees by which the compass card is turned
    std::optional<double> Knots{};     // ground speed with a fix, whatever unit is displayed
    std::optional<double> Feet{};      // altitude with a fix, likewise
};

// Turns the receiver's events into the flight state and its displays, and tells when the map redraws: at the
// first position with a fix and then at every 21st.
class FixReadouts : public NmeaListener {
public:
    // `doEffects` does what an event asks for, before the next event comes.
    FixReadouts(FlightState& flightState, std::function<void(const FixEffects&)> doEffects);

    // What each event of the receiver does. RuntimeError TypeMismatch for a field that is no number.
    void PositionReceived(const PositionTexts& position) override;
    void TimeChanged(const std::string& time) override;
    void BearingReceived(const std::string& bearing) override;
    void SpeedReceived(const std::string& speed) override;
    void FixObtained() override;
    void FixLost() override;
    void AltitudeReceived(const std::string& altitude) override;
    void SatellitesUsedReceived(std::int16_t satellitesUsed) override;
    void SatellitesInViewReceived(std::int16_t satellitesInView) override;

    // Show the value that stands in the unit that is chosen now.
    void ShowSpeed();
    void ShowAltitude();
    // The link is lost: its eight displays go to "---", and the compass card to 0.
    void ClearDisplays();

private:
    FlightState& state;
    std::function<void(const FixEffects&)> act;
    std::int16_t PositionCount = -1;     // positions since the last redraw
    std::optional<double> knots, metres; // as received; none behind "---"
};

} // namespace ornivane
