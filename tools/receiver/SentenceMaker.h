#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace ornivane::receiver {

// What the receiver knows at one moment.
struct Fix {
    std::chrono::sys_seconds Time; // UTC
    double Lat = 0, Long = 0;      // decimal degrees, north and east positive
    double SpeedKnots = 0;
    double TrackDegrees = 0;
    double AltitudeMetres = 0;
};

// "$", the body, "*", the checksum and the line end.
std::string Sentence(std::string_view body);

// The sentences of one second: GGA, GSA, three GSV, RMC and GLL.
std::vector<std::string> SentencesOf(const Fix& fix);

// The sentence as the same receiver would say it without a fix: status and quality tell so, position, speed,
// track and altitude are empty. A sentence that says nothing of a fix is returned as it is.
std::string WithoutFix(const std::string& sentence);

} // namespace ornivane::receiver
