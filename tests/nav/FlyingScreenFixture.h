#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "geo/NavigationMaths.h"
#include "gps/GpsFakes.h"
#include "nav/FlyingScreen.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/Readouts.h"

namespace ornivane {

// The flying screen on a real store, with a view of 800 x 400 pixels.
class FlyingScreenTest : public testing::Test, protected FlightFolder {
protected:
    FlyingScreen& Start() {
        Screen = std::make_unique<FlyingScreen>(
            FlyingScreenWorld{Shared, Port, CheckTimer, TrackTimer, Clock, Storage, Surface, Card, Gyro,
                              WindRose, ProgressBar, Boxes, Notices},
            [] {}, [](FocusBy) {});
        Screen->Form_Load();
        Screen->Form_Activate();
        return *Screen;
    }
    // A position as the interpreter tells it, from decimal degrees north and east.
    void Fly(double lat, double longitude, bool fix = true) {
        if (fix) Screen->Readouts.FixObtained();
        const auto raw = [](double degrees, const char* picture) {
            return Format(ToDegMinValue(Latitude(degrees)).Value() * 100, picture, LocaleText());
        };
        Screen->Readouts.PositionReceived(
            {"N lat", "E long", raw(lat, "0000.0000"), raw(longitude, "00000.0000")});
    }

    FakePort Port;
    FakeTimer CheckTimer, TrackTimer;
    SetClock Clock;
    FakePicture Storage, Card;
    DrawnSurface Surface, Gyro, WindRose;
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlyingScreen> Screen;
};

} // namespace ornivane
