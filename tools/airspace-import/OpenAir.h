#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "airspace-import/Airspace.h"

namespace ornivane {

// Something in a file that was not taken.
struct Refusal {
    int Line = 0;
    std::string Reason; // with the airspace's name in front
};

struct OpenAirContent {
    int Records = 0; // airspaces that the file has, good and bad
    std::vector<Airspace> Airspaces;
    std::vector<Refusal> Refusals; // in the order of the file
};

constexpr std::size_t MostElements = 10000; // of one airspace; what has more is damaged
constexpr std::size_t LongestLine = 10000;  // bytes

// The airspaces of an OpenAir file's bytes: any line ends, UTF-8 or Windows-1252. An airspace of which
// anything cannot be read is refused as a whole: half an outline would be a wrong one. Other lines that are
// not understood are reported and left out. Never raises an error.
OpenAirContent ReadOpenAir(std::string_view bytes);

} // namespace ornivane
