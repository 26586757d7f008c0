#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/LocaleText.h"
#include "gps/NmeaInterpreter.h"
#include "nav/FlightState.h"

namespace ornivane {

// What the readouts ask of the flying screen.
class FixReadoutsOwner {
public:
    virtual ~FixReadoutsOwner() = default;
    virtual void UpdateMap() = 0;
    virtual void ShowFix(bool has) = 0; // the lamps of the link
    virtual void ShowSatellites(const std::string& used, std::optional<int> inView) = 0;
    virtual void DrawOverlays() = 0;                 // over the picture that stands, and shows it
    virtual void UpdateInstrument(double angle) = 0; // degrees by which the card is turned
    virtual void SpeedChanged(double knots) = 0;     // with a fix
    virtual void AltitudeChanged(double feet) = 0;   // with a fix
};

// Turns the receiver's events into the flight state and its displays, and tells when the map redraws: at the
// first position with a fix and then at every 21st.
class FixReadouts : public NmeaListener {
public:
    FixReadouts(FlightState& state, const LocaleText& locale, FixReadoutsOwner& owner);

    // What each event of the receiver does.
    void gps_PositionReceived(const std::string& latitude, const std::string& longitude,
                              const std::string& latraw, const std::string& longraw);
    void gps_TimeChanged(const std::string& time);
    void gps_BearingReceived(const std::string& bearing);
    void gps_SpeedReceived(const std::string& speed);
    void gps_FixObtained();
    void gps_FixLost();
    void gps_AltitudeReceived(const std::string& altitude);
    void gps_SatellitesUsedReceived(std::int16_t satellitesUsed);
    void gps_SatellitesInViewReceived(std::int16_t satellitesInView);

    // Show the value that stands, and its unit, in the unit that is chosen now: text and unit never part.
    void ShowSpeed();
    void ShowAltitude();
    // The link is lost: eight displays go to "---", in their order, and the compass card to 0.
    void ClearDisplays();

private:
    void PositionReceived(const std::string& latitude, const std::string& longitude,
                          const std::string& latraw, const std::string& longraw) override {
        gps_PositionReceived(latitude, longitude, latraw, longraw);
    }
    void TimeChanged(const std::string& time) override { gps_TimeChanged(time); }
    void BearingReceived(const std::string& bearing) override { gps_BearingReceived(bearing); }
    void SpeedReceived(const std::string& speed) override { gps_SpeedReceived(speed); }
    void FixObtained() override { gps_FixObtained(); }
    void FixLost() override { gps_FixLost(); }
    void AltitudeReceived(const std::string& altitude) override { gps_AltitudeReceived(altitude); }
    void SatellitesUsedReceived(std::int16_t used) override { gps_SatellitesUsedReceived(used); }
    void SatellitesInViewReceived(std::int16_t inView) override { gps_SatellitesInViewReceived(inView); }

    FlightState& state;
    const LocaleText& locale;
    FixReadoutsOwner& owner;
    std::int16_t PositionCount = -1;     // positions since the last redraw
    std::optional<double> knots, metres; // as shown; none behind "---"
};

} // namespace ornivane
