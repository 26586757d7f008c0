#pragma once

#include <functional>

namespace ornivane {

// A repeating timer. An interval of 0 is its off state; setting an interval starts the wait anew.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void SetInterval(int milliseconds) = 0;
    virtual int Interval() const = 0;
    virtual void OnTimer(std::function<void()> callback) = 0;
};

} // namespace ornivane
