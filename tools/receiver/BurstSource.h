#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ornivane::receiver {

// What a receiver says at once.
struct Burst {
    double Seconds = 0;                 // since the start
    std::vector<std::string> Sentences; // each with its line end
};

class BurstSource {
public:
    virtual ~BurstSource() = default;
    // In the order of time; empty at the end.
    virtual std::optional<Burst> Next() = 0;
};

} // namespace ornivane::receiver
