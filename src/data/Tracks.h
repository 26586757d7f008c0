#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "geo/Position.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

// A logged sample as it is stored.
struct TrackPoint {
    std::int64_t Index = 0, Number = 0;
    Position At;
    std::optional<double> Height; // metres
    std::string Date, Time;
};

// The recorded tracks: all SQL on the tables List (a row for a track) and Track (a row for a point) of
// track.ovd. Every routine throws RuntimeError StoreError or DiskFull when the store refuses.
class Tracks {
public:
    // The connection may be opened later; it outlives this.
    explicit Tracks(Connection& of) : connection(of) {}

    void OpenList(Recordset& list) const; // Index and Name, by Index
    bool Exists(std::int64_t index) const;
    std::int64_t Add(const std::string& name) const; // a track without points; returns its Index
    void AddPoint(const TrackPoint& point) const;

    int PointsOf(std::int64_t index);
    // In the order of their numbers: all of a track, or `count` of them from the place `first` (from 0) on.
    using Visitor = std::function<void(const TrackPoint&)>;
    void ForEachPoint(std::int64_t index, const Visitor& visit);
    struct Block {
        int First, Count;
    };
    void ForEachPoint(std::int64_t index, const Block& block, const Visitor& visit);

    // In a transaction of the caller's. What goes or comes is counted.
    struct Counts {
        std::int64_t Tracks = 0, Points = 0;
        bool operator==(const Counts&) const = default;
        Counts& operator+=(const Counts& more);
    };
    Counts Delete(std::int64_t index) const;
    // A deleted track from another store, without keeping its points in memory.
    Counts CopyFrom(Connection& other, std::int64_t index) const;

private:
    Connection& connection;
    Statement counting, all, part;
};

} // namespace ornivane
