#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Numbers.h"
#include "gps/NmeaListener.h"

namespace ornivane {

// Turns one NMEA 0183 sentence into the events of its listener, which run before Parse returns. It
// understands GGA, GLL, GSA, GSV and RMC of the talker GP; all others are ignored.
class NmeaInterpreter {
public:
    explicit NmeaInterpreter(NmeaListener& nmeaListener) : listener(nmeaListener) {}

    // The sentence without its line end. True when it passed the checksum, has one of the five ids and was
    // handled to its end; false for a bad checksum and for an unknown id.
    // RuntimeError: SubscriptOutOfRange when the sentence has fewer fields than its id needs, TypeMismatch
    // when a field is no number, Overflow when one does not fit 16 bits, and whatever the listener throws.
    // The events raised before it stand.
    bool Parse(std::string_view sentence);

    // The exclusive-or of the sentence's bytes up to the "*", every "$" left out, as two upper-case digits.
    static std::string GetChecksum(std::string_view sentence);

    struct SatelliteRecord {
        std::int16_t Number = 0;
        std::int16_t PseudoRandomCode = 0;
        std::int16_t Azimuth = 0;   // degrees
        std::int16_t Elevation = 0; // degrees
        std::int16_t SignalToNoiseRatio = 0;
    };

    // What was received last. Nothing is reset by a sentence; a field that is empty leaves the value before
    // it.
    std::vector<std::string> Words;
    std::string Latitude, Longitude, Time, SatDate;
    SatelliteRecord Satellite;
    std::string PositionFix, AutoManMode, Mode3D;
    std::int16_t TotalMessages = 0, MessageNumber = 0, SatellitesInView = 0;

private:
    static bool IsValid(std::string_view sentence);
    void GetWords(std::string_view body);
    const std::string& Word(std::size_t index) const;
    double DoubleIn(std::size_t index) const;
    std::int16_t IntegerIn(std::size_t index) const { return ToInt16(DoubleIn(index)); }

    void ParseGPGGA();
    void ParseGPGLL();
    void ParseGPGSA();
    void ParseGPGSV();
    void ParseGPRMC();
    void ParseSatellite(std::int16_t count);

    void SetTime(const std::string& value);
    void SetDate(const std::string& value);
    void SetPosition(std::size_t firstField);
    void SetPositionFix(const std::string& value);
    void SetFixStatus(const std::string& value);
    void SetAutoManMode(const std::string& value);
    void SetMode3D(const std::string& value);

    // Raise the event with the field unless the field is empty.
    template <typename Value>
    using Event = void (NmeaListener::*)(Value);
    void Raise(std::size_t index, Event<const std::string&> event) {
        if (!Word(index).empty()) (listener.*event)(Word(index));
    }
    void Raise(std::size_t index, Event<double> event) {
        if (!Word(index).empty()) (listener.*event)(DoubleIn(index));
    }
    void Raise(std::size_t index, Event<std::int16_t> event) {
        if (!Word(index).empty()) (listener.*event)(IntegerIn(index));
    }

    NmeaListener& listener;
};

} // namespace ornivane
