#pragma once

#include <chrono>

#include "receiver/BurstSource.h"
#include "receiver/Flight.h"

namespace ornivane::receiver {

// A flight as its receiver reports it, once a second.
class FlightSource : public BurstSource {
public:
    FlightSource(Flight theFlight, std::chrono::sys_seconds startTime)
        : flight(std::move(theFlight)), start(startTime) {}
    std::optional<Burst> Next() override;

private:
    Flight flight;
    std::chrono::sys_seconds start;
    int second = 0;
};

} // namespace ornivane::receiver
