#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "data/Tracks.h"

namespace ornivane {

// The points of some tracks, by track and number. A track of a long flight has tens of thousands of them and
// a year of flights a million: only those that are looked at are read, a block at a time.
class TrackPoints {
public:
    // RuntimeError StoreError. The store outlives its points.
    void Open(Tracks& of, std::vector<std::int64_t> indexes);
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

    Tracks* store = nullptr;
    std::vector<Track> tracks;
    std::vector<TrackPoint> read;
    int firstRead = 0;
    int count = 0;
};

} // namespace ornivane
