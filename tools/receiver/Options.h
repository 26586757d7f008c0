#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "receiver/Flight.h"

namespace ornivane::receiver {

struct Options {
    std::filesystem::path Play, Fly; // one of the two
    std::filesystem::path Write;     // a file instead of a line
    std::filesystem::path Link, Fifo;
    double Pace = 1; // times as fast as a real receiver
    int Baud = 0;    // 0: as fast as the line takes it
    double Gap = 10; // ms between the chunks of a burst, at most
    std::string Chunk = "burst";
    std::vector<std::pair<double, std::string>> At; // seconds and command
    std::optional<double> For;                      // seconds of the recording or flight
    std::optional<std::chrono::sys_seconds> Start;  // UTC
    unsigned Seed = 1;
    bool Loop = false, Stay = false, OnceOpen = false, Help = false;
    FlightSettings Flight;
};

// Throws std::runtime_error with what is wrong.
Options ReadOptions(const std::vector<std::string>& arguments);

extern const char* const HelpText;

} // namespace ornivane::receiver
