#pragma once

#include "platform/Clock.h"

namespace ornivane {

class SetClock : public Clock {
public:
    LocalTime Now() const override { return Time; }
    long long Ticks() const override { return Milliseconds; }
    LocalTime Time{2026, 11, 22, 13, 50, 30};
    long long Milliseconds = 0;
};

} // namespace ornivane
