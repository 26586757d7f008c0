#pragma once

#include <istream>

#include "receiver/BurstSource.h"

namespace ornivane::receiver {

// A recorded receiver. Sentences with the same time make a burst, and the times tell when it is due. A
// recording without times has a burst each second: from one sentence of the kind it begins with to the next.
class Playback : public BurstSource {
public:
    // Lines that begin with "$" or "!" are sentences; all others (headers, comments) are left out. Each gets
    // the line end of a receiver, whatever the file has. With `again` it never ends.
    Playback(std::istream& in, bool again);
    std::optional<Burst> Next() override;

private:
    void AddByTime(const std::string& sentence);
    void AddByKind(const std::string& sentence);
    void NewBurst(double secondsLater);

    std::vector<Burst> bursts;
    std::size_t at = 0;
    bool loop;
    double loopStart = 0;           // seconds of the loops before this one
    std::optional<double> lastTime; // second of the day
};

// The time in a GGA, GLL, RMC or ZDA sentence of any talker, as second of the day; empty when there is none.
std::optional<double> TimeIn(const std::string& sentence);

} // namespace ornivane::receiver
