#pragma once

#include "platform/Clock.h"
#include "platform/SerialPort.h"
#include "platform/Timer.h"

namespace ornivane {

// The devices that the flying screen works with, real or faked. The form only hands them on.
struct FlightDevices {
    SerialPort& MSComm1;
    Timer& timerCheck;
    Timer& timeTrack;
    const Clock& SystemClock;
};

} // namespace ornivane
