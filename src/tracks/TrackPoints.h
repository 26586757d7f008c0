#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "store/Connection.h"
#include "store/Statement.h"

namespace ornivane {

// A logged sample as it is stored.
struct TrackPoint {
    std::int64_t Index = 0, Number = 0;
    double Lat = 0, Long = 0;     // decimal degrees
    std::optional<double> Height; // metres
    std::string Date, Time;
};

// The points of some tracks, by track and number. A track of a long flight has tens of thousands of them and
// a year of flights a million: only those that are looked at are read, a block at a time.
class TrackPoints {
public:
    // RuntimeError StoreError.
    void Open(Connection& connection, std::vector<std::int64_t> indexes);
    void Close();
    int Count() const { return count; }
    // From 0. RuntimeError SubscriptOutOfRange.
    const TrackPoint& At(int row);
    // All of them in order, without keeping any.
    void ForEach(const std::function<void(const TrackPoint&)>& visit);

private:
    struct Track {
        std::int64_t Index;
        int First, Count; // rows
    };
    void ReadBlock(int row);

    std::vector<Track> tracks;
    Statement block, all;
    std::vector<TrackPoint> read;
    int firstRead = 0;
    int count = 0;
};

} // namespace ornivane
