#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "planning/PlanningScreen.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/PressedNotice.h"

namespace ornivane {

// The planning screen on a real store, with a view of 800 x 400 pixels: of alpha.jpg, the first map, it shows
// the north-western quarter at first, 0.8 view pixels for one of the image, which has 1000 pixels a degree.
class PlanningScreenTest : public testing::Test, protected FlightFolder {
protected:
    PlanningScreen& Start() {
        Screen = std::make_unique<PlanningScreen>(
            PlanningScreenWorld{Shared, Storage, Surface, ProgressBar, Boxes, Notices},
            PlanningScreen::Form{
                [] {}, [] {}, [this](PlanEffect focus) { EntryFocused += focus == PlanEffect::FocusName; }});
        Screen->Form_Load();
        Screen->Form_Activate();
        return *Screen;
    }
    void Enter(const std::string& lat, const std::string& longitude, NorthSouth ns = NorthSouth::North,
               EastWest ew = EastWest::East) {
        Screen->Waypoints.tWaypoint = {"", "Name", lat, longitude};
        Screen->Waypoints.tNS = ns;
        Screen->Waypoints.tEW = ew;
    }

    FakePicture Storage;
    DrawnSurface Surface;
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    PressedNotice Notices;
    std::unique_ptr<PlanningScreen> Screen;
    int EntryFocused = 0;
};

} // namespace ornivane
