#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "common/Variablen.h"
#include "gps/GpsLink.h"
#include "gps/NmeaSink.h"
#include "gps/PortSource.h"
#include "platform/PortList.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {

// A body with its "$", "*" and checksum around it.
inline std::string Sentence(const std::string& body) {
    return "$" + body + "*" + NmeaInterpreter::GetChecksum(body);
}

struct FakePort : SerialPort {
    void SetSettings(const std::string& settings) override { Settings = settings; }
    void Open(int number) override {
        Attempts.push_back(number);
        IsOpened = false;
        if (Failure) throw RuntimeError(*Failure, FailureDetail);
        IsOpened = true;
    }
    void Close() override { IsOpened = false; }
    bool IsOpen() const override { return IsOpened; }
    std::string ReadAll() override { return std::exchange(Waiting, {}); }
    void OnEvent(std::function<void(SerialEvent)> callback) override { Callback = std::move(callback); }

    void Receive(const std::string& bytes) {
        Waiting += bytes;
        Callback(SerialEvent::Receive);
    }
    // The line closes the port by itself, as a pulled plug does.
    void HangUp() {
        IsOpened = false;
        Callback(SerialEvent::Other);
    }

    std::string Settings, Waiting, FailureDetail;
    std::vector<int> Attempts;
    bool IsOpened = false;
    std::optional<ErrorNumber> Failure;
    std::function<void(SerialEvent)> Callback;
};

struct FakeTimer : Timer {
    void SetInterval(int milliseconds) override { interval = milliseconds; }
    int Interval() const override { return interval; }
    void OnTimer(std::function<void()> callback) override { Callback = std::move(callback); }
    void Fire(int times = 1) {
        for (; times > 0; --times) Callback();
    }

    int interval = 0;
    std::function<void()> Callback;
};

struct FakePortList : PortList {
    bool Exists(int number) const override {
        return std::find(Numbers.begin(), Numbers.end(), number) != Numbers.end();
    }
    std::string Description(int) const override { return {}; }
    std::vector<int> Numbers;
};

// Writes every event down as one text.
struct EventLog : NmeaListener {
    void Add(const std::string& name, const std::string& value = {}) {
        Events.push_back(value.empty() ? name : name + " " + value);
    }
    static std::string Text(double value) {
        std::string text = std::to_string(value);
        text.erase(text.find_last_not_of('0') + 1);
        return text;
    }

    void PositionReceived(const PositionTexts& position) override {
        std::string all;
        for (const auto text : {position.Latitude, position.Longitude, position.LatRaw, position.LongRaw})
            all.append(all.empty() ? "" : "|").append(text);
        Add("Position", all);
    }
    void TimeChanged(const std::string& time) override { Add("Time", time); }
    void DateChanged(const std::string& date) override { Add("Date", date); }
    void BearingReceived(const std::string& bearing) override { Add("Bearing", bearing); }
    void SpeedReceived(const std::string& speed) override { Add("Speed", speed); }
    void FixObtained() override { Add("FixObtained"); }
    void FixLost() override { Add("FixLost"); }
    void SatelliteReceived(std::int16_t number, std::int16_t prn, std::int16_t azimuth,
                           std::int16_t elevation, std::int16_t snr) override {
        std::string text;
        for (const int value : {number, prn, azimuth, elevation, snr})
            text += (text.empty() ? "" : ",") + std::to_string(value);
        Add("Satellite", text);
    }
    void HDOPReceived(double value) override { Add("HDOP", Text(value)); }
    void VDOPReceived(double value) override { Add("VDOP", Text(value)); }
    void PDOPReceived(double value) override { Add("PDOP", Text(value)); }
    void PositionFixReceived(const std::string& fix) override { Add("PositionFix", fix); }
    void SatellitesUsedReceived(std::int16_t used) override { Add("Used", std::to_string(used)); }
    void AltitudeReceived(const std::string& altitude) override { Add("Altitude", altitude); }
    void AltitudeUnitsReceived(const std::string& units) override { Add("AltitudeUnits", units); }
    void GeoidSeparationReceived(double separation) override { Add("Geoid", Text(separation)); }
    void GeoidSeparationUnitsReceived(const std::string& units) override { Add("GeoidUnits", units); }
    void DGPSageReceived(std::int16_t age) override { Add("DGPSage", std::to_string(age)); }
    void DGPSstationIDReceived(const std::string& id) override { Add("DGPSstation", id); }
    void AutoManModeReceived(const std::string& mode) override { Add("AutoMan", mode); }
    void Mode3DReceived(const std::string& mode) override { Add("Mode3D", mode); }
    void ChSatReceived(int channel, std::int16_t satellite) override {
        Add("Ch" + std::to_string(channel), std::to_string(satellite));
    }
    void SatellitesInViewReceived(std::int16_t inView) override { Add("InView", std::to_string(inView)); }

    std::vector<std::string> Events;
};

} // namespace ornivane
