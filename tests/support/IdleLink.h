#pragma once

#include <functional>
#include <string>

#include "platform/SerialPort.h"
#include "platform/Timer.h"

namespace ornivane {

// A port from which nothing comes.
class IdlePort : public SerialPort {
public:
    void SetSettings(const std::string&) override {}
    void Open(int) override { open = true; }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string ReadAll() override { return {}; }
    void OnEvent(std::function<void(SerialEvent)>) override {}

private:
    bool open = false;
};

// A timer that the test fires.
class IdleTimer : public Timer {
public:
    void SetInterval(int milliseconds) override { interval = milliseconds; }
    int Interval() const override { return interval; }
    void OnTimer(std::function<void()> callback) override { Fire = std::move(callback); }
    std::function<void()> Fire;

private:
    int interval = 0;
};

} // namespace ornivane
