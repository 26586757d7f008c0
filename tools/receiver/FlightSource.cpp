#include "receiver/FlightSource.h"

#include "receiver/SentenceMaker.h"

namespace ornivane::receiver {

constexpr double MetresPerFoot = 0.3048;

std::optional<Burst> FlightSource::Next() {
    const Flight::State& now = flight.Now();
    if (now.Ended) return std::nullopt;
    if (second > 0) flight.Step(1);
    const Fix fix{start + std::chrono::seconds(second), now.Lat, now.Long, now.SpeedKnots, now.TrackDegrees,
                  now.AltitudeFeet * MetresPerFoot};
    return Burst{static_cast<double>(second++), SentencesOf(fix)};
}

} // namespace ornivane::receiver
