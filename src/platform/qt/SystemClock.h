#pragma once

#include <QDateTime>
#include <QElapsedTimer>

#include "platform/Clock.h"

namespace ornivane {

class SystemClock : public Clock {
public:
    SystemClock() { since.start(); }
    LocalTime Now() const override {
        const QDateTime now = QDateTime::currentDateTime();
        return {now.date().year(), now.date().month(),  now.date().day(),
                now.time().hour(), now.time().minute(), now.time().second()};
    }
    long long Ticks() const override { return since.elapsed(); }

private:
    QElapsedTimer since;
};

} // namespace ornivane
