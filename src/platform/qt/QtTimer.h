#pragma once

#include <QTimer>

#include "platform/Timer.h"
#include "platform/qt/Events.h"

namespace ornivane {

class QtTimer : public Timer {
public:
    explicit QtTimer(EventGuard& guard) {
        guard.Connect(&timer, &QTimer::timeout, [this] {
            if (callback) callback();
        });
    }
    void SetInterval(int milliseconds) override {
        if (milliseconds > 0)
            timer.start(milliseconds);
        else
            timer.stop();
    }
    int Interval() const override { return timer.isActive() ? timer.interval() : 0; }
    void OnTimer(std::function<void()> handler) override { callback = std::move(handler); }

private:
    QTimer timer;
    std::function<void()> callback;
};

} // namespace ornivane
