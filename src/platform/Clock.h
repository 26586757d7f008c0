#pragma once

namespace ornivane {

// A moment of the wall clock in the system's zone.
struct LocalTime {
    int Year = 2000, Month = 1, Day = 1; // month and day from 1
    int Hour = 0, Minute = 0, Second = 0;
    bool operator==(const LocalTime&) const = default;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual LocalTime Now() const = 0;
    // Milliseconds from some fixed moment, never backwards: for measuring spans.
    virtual long long Ticks() const = 0;
};

} // namespace ornivane
