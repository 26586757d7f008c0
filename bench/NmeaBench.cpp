#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "gps/NmeaSink.h"
#include "support/SetClock.h"

namespace ornivane {
namespace {

// Takes every event, so that no work is left out.
struct Counter : NmeaListener {
    void PositionReceived(const PositionTexts& position) override { Count += position.Latitude.size(); }
    void TimeChanged(const std::string& time) override { Count += time.size(); }
    void DateChanged(const std::string& date) override { Count += date.size(); }
    void BearingReceived(const std::string& bearing) override { Count += bearing.size(); }
    void SpeedReceived(const std::string& speed) override { Count += speed.size(); }
    void FixObtained() override { ++Count; }
    void SatelliteReceived(std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t) override {
        ++Count;
    }
    void HDOPReceived(double) override { ++Count; }
    void VDOPReceived(double) override { ++Count; }
    void PDOPReceived(double) override { ++Count; }
    void PositionFixReceived(const std::string& fix) override { Count += fix.size(); }
    void SatellitesUsedReceived(std::int16_t) override { ++Count; }
    void AltitudeReceived(const std::string& altitude) override { Count += altitude.size(); }
    void AltitudeUnitsReceived(const std::string& units) override { Count += units.size(); }
    void GeoidSeparationReceived(double) override { ++Count; }
    void GeoidSeparationUnitsReceived(const std::string& units) override { Count += units.size(); }
    void AutoManModeReceived(const std::string& mode) override { Count += mode.size(); }
    void Mode3DReceived(const std::string& mode) override { Count += mode.size(); }
    void ChSatReceived(int, std::int16_t) override { ++Count; }
    void SatellitesInViewReceived(std::int16_t) override { ++Count; }
    std::size_t Count = 0;
};

std::string Line(const std::string& body) {
    return "$" + body + "*" + NmeaInterpreter::GetChecksum(body) + "\r\n";
}

// What a receiver says in one second.
std::string Burst() {
    return Line("GPGGA,123519.00,4807.0380,N,01131.0000,E,1,09,0.9,545.4,M,46.9,M,,") +
           Line("GPGSA,A,3,02,05,07,09,12,15,18,21,24,,,,1.8,0.9,1.5") +
           Line("GPGSV,3,1,10,02,45,120,42,05,70,210,45,07,22,300,36,09,15,045,31") +
           Line("GPGSV,3,2,10,12,60,080,44,15,33,160,38,18,50,260,41,21,10,330,28") +
           Line("GPGSV,3,3,10,24,28,020,35,26,08,190,") +
           Line("GPRMC,123519.00,A,4807.0380,N,01131.0000,E,96.4,084.4,230394,1.2,E") +
           Line("GPGLL,4807.0380,N,01131.0000,E,123519.00,A");
}
constexpr std::int64_t SentencesInBurst = 7;

// The stages behind the port.
struct Stream {
    Counter Heard;
    NmeaInterpreter gps{Heard};
    SetClock Clock;
    Language German;
    NmeaSink Sink{gps, Clock, German};

    void Receive(std::string_view chunk) { Sink.HandleInput(chunk); }
};

void BurstDeliveredWhole(benchmark::State& state) {
    Stream stream;
    const std::string burst = Burst();
    for (auto _ : state) stream.Receive(burst);
    benchmark::DoNotOptimize(stream.Heard.Count);
    state.SetItemsProcessed(state.iterations() * SentencesInBurst);
}
BENCHMARK(BurstDeliveredWhole);

// Chunks as a serial driver makes them.
void BurstInPieces(benchmark::State& state) {
    Stream stream;
    const std::string burst = Burst();
    const auto size = static_cast<std::size_t>(state.range(0));
    for (auto _ : state)
        for (std::size_t at = 0; at < burst.size(); at += size)
            stream.Receive(std::string_view(burst).substr(at, size));
    benchmark::DoNotOptimize(stream.Heard.Count);
    state.SetItemsProcessed(state.iterations() * SentencesInBurst);
}
BENCHMARK(BurstInPieces)->Arg(8)->Arg(62);

// A second of noise at 57,600 baud in small chunks.
void SecondOfNoise(benchmark::State& state) {
    Stream stream;
    const std::string chunk = "\x80\xF8\x1E"
                              "a,*9\r\xFF";
    for (auto _ : state)
        for (int i = 0; i < 640; ++i) stream.Receive(chunk);
}
BENCHMARK(SecondOfNoise)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ornivane
