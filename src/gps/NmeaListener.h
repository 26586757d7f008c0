#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ornivane {

// A position as the receiver says it, valid during the call.
struct PositionTexts {
    std::string_view Latitude, Longitude; // "N 48° 07.038'"
    std::string_view LatRaw, LongRaw;     // as sent, 4807.038, without the hemisphere
};

// What NmeaInterpreter tells of a sentence, each at the moment its field is read. A listener overrides what
// it wants to know. Text parameters are the field exactly as received, which may hold any byte when a damaged
// sentence passes its checksum; only the texts made for showing (latitude, longitude, time, satDate) are
// certain to be UTF-8. Who shows another one passes it through DecodeText.
class NmeaListener {
public:
    virtual ~NmeaListener() = default;

    virtual void PositionReceived(const PositionTexts& /*position*/) {}
    virtual void TimeChanged(const std::string& /*time*/) {} // hh:mm:ss, with every sentence that has a time
    virtual void DateChanged(const std::string& /*satDate*/) {} // dd/mm/yy
    virtual void BearingReceived(const std::string& /*bearing*/) {}
    virtual void SpeedReceived(const std::string& /*speed*/) {} // knots
    // The state of this sentence, not a change of state: from every RMC and GLL.
    virtual void FixObtained() {}
    virtual void FixLost() {}
    virtual void SatelliteReceived(std::int16_t /*satelliteNumber*/, std::int16_t /*pseudoRandomCode*/,
                                   std::int16_t /*azimuth*/, std::int16_t /*elevation*/,
                                   std::int16_t /*signalToNoiseRatio*/) {}
    virtual void HDOPReceived(double /*value*/) {}
    virtual void VDOPReceived(double /*value*/) {}
    virtual void PDOPReceived(double /*value*/) {}
    virtual void PositionFixReceived(const std::string& /*positionFix*/) {}
    virtual void SatellitesUsedReceived(std::int16_t /*satellitesUsed*/) {}
    virtual void AltitudeReceived(const std::string& /*altitude*/) {} // metres
    virtual void AltitudeUnitsReceived(const std::string& /*altitudeUnits*/) {}
    virtual void GeoidSeparationReceived(double /*geoidSeparation*/) {}
    virtual void GeoidSeparationUnitsReceived(const std::string& /*geoidSeparationUnits*/) {}
    virtual void DGPSageReceived(std::int16_t /*dGPSage*/) {}
    virtual void DGPSstationIDReceived(const std::string& /*dGPSstationID*/) {}
    virtual void AutoManModeReceived(const std::string& /*autoManMode*/) {}
    virtual void Mode3DReceived(const std::string& /*mode3D*/) {}
    // Ch1SatReceived to Ch12SatReceived in one: channel 1 to 12; 0 when the channel has no satellite.
    virtual void ChSatReceived(int /*channel*/, std::int16_t /*chSat*/) {}
    virtual void SatellitesInViewReceived(std::int16_t /*satellitesInView*/) {}
};

} // namespace ornivane
