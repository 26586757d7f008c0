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
    void gps_PositionReceived(const PositionTexts& position);
    void gps_TimeChanged(const std::string& time);
    void gps_BearingReceived(const std::string& bearing);
    void gps_SpeedReceived(const std::string& speed);
    void gps_FixObtained();
    void gps_FixLost();
    void gps_AltitudeReceived(const std::string& altitude);
    void gps_SatellitesUsedReceived(std::int16_t satellitesUsed);
    void gps_SatellitesInViewReceived(std::int16_t satellitesInView);

    // Show the value that stands in the unit that is chosen now.
    void ShowSpeed();
    void ShowAltitude();
    // The link is lost: its eight displays go to "---", and the compass card to 0.
    void ClearDisplays();

private:
    void PositionReceived(const PositionTexts& position) override { gps_PositionReceived(position); }
    void TimeChanged(const std::string& time) override { gps_TimeChanged(time); }
    void BearingReceived(const std::string& bearing) override { gps_BearingReceived(bearing); }
    void SpeedReceived(const std::string& speed) override { gps_SpeedReceived(speed); }
    void FixObtained() override { gps_FixObtained(); }
    void FixLost() override { gps_FixLost(); }
    void AltitudeReceived(const std::string& altitude) override { gps_AltitudeReceived(altitude); }
    void SatellitesUsedReceived(std::int16_t used) override { gps_SatellitesUsedReceived(used); }
    void SatellitesInViewReceived(std::int16_t inView) override { gps_SatellitesInViewReceived(inView); }

    FlightState& state;
    std::function<void(const FixEffects&)> act;
    std::int16_t PositionCount = -1;     // positions since the last redraw
    std::optional<double> knots, metres; // as received; none behind "---"
};

} // namespace ornivane
