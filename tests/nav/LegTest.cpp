#include "nav/Leg.h"

#include <gtest/gtest.h>

#include "support/MapFakes.h"
#include "support/Positions.h"
#include "support/Readouts.h"

namespace ornivane {
namespace {

class LegTest : public testing::Test {
protected:
    LegTest() {
        State.NoFix = false;
        State.HadPosition = true;
    }
    // Along the meridian 7° E, the given number of miles north of 50° N, towards 51° N.
    bool FlyAt(double miles, bool direct = false) {
        return Leg.UpdateLeg(At(51, 7), At(50 + miles / 60, 7), direct).Passed;
    }
    FlightState State;
    SetClock Clock;
    ornivane::Leg Leg{State, Clock};
};

TEST_F(LegTest, ShowsDistanceCourseAndTime) {
    State.lblSpeed = Showing("120");
    FlyAt(30);
    EXPECT_EQ(State.lblDistanz, "30.0 NM");
    EXPECT_EQ(State.lblTrueBearing, "360 °");
    EXPECT_EQ(State.lblTime, "00:15");
    State.ShowETE = false;
    FlyAt(30);
    EXPECT_EQ(State.lblTime, "14:05"); // 13:50 and a quarter of an hour
    State.SpeedInKnots = false;
    State.ShowETE = true;
    FlyAt(30); // 55.56 km at 120 km/h
    EXPECT_EQ(State.lblTime, "00:27");
    FlyAt(29.5);
    EXPECT_EQ(State.lblDistanz.TextWithUnit({',', {}}), "30,5 NM");
}

TEST_F(LegTest, AlongAMeridianTheCourseIs360Or180) {
    for (int minute = 0; minute < 60; ++minute) {
        const double south = 50 + minute / 60.0, north = 51 + minute * 7 % 60 / 60.0 + 0.5;
        Leg.UpdateLeg(At(north, 7.5), At(south, 7.5), false);
        EXPECT_EQ(State.lblTrueBearing, "360 °") << minute;
        Leg.UpdateLeg(At(south, 7.5), At(north, 7.5), false);
        EXPECT_EQ(State.lblTrueBearing, "180 °") << minute;
    }
}

TEST_F(LegTest, TimesBelowAMinuteCountSecondsAndSlowFlightHasNone) {
    State.ShowETE = false;
    State.lblSpeed = Showing("120");
    FlyAt(59);
    EXPECT_EQ(State.lblTime, "00:30");
    for (const char* slow : {"10", "0", "---"}) {
        State.lblSpeed = Showing(slow);
        FlyAt(30);
        EXPECT_EQ(State.lblTime, "00:00") << slow;
    }
    Clock.Time = {2026, 12, 31, 23, 50, 0};
    State.lblSpeed = Showing("120");
    FlyAt(30);
    EXPECT_EQ(State.lblTime, "00:05"); // past midnight
}

TEST_F(LegTest, ALegOfADayAndMoreHasNoTimeAndThatIsToldOnce) {
    int told = 0;
    const auto fly = [&](const char* speed) {
        State.lblSpeed = Showing(speed);
        told += Leg.UpdateLeg(At(55, 7), At(50, 7), false).IsADayAway; // 300 NM
        return State.lblTime;
    };
    EXPECT_EQ(fly("12.501"), "23:59");
    EXPECT_EQ(fly("12.5"), "---"); // to the minute
    EXPECT_EQ(State.lblDistanz, "300.0 NM");
    EXPECT_EQ(State.lblTrueBearing, "360 °");
    EXPECT_NEAR(Leg.LastDistance, 300, 0.01);
    State.ShowETE = false;
    EXPECT_EQ(fly("11"), "---");
    // A taxiing aircraft that stops and goes on: that was told already.
    EXPECT_EQ(fly("5"), "00:00");
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(fly("100"), "16:50");
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(told, 2);
    Leg.TargetChosen(); // another one, as far away
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(told, 3);
}

TEST_F(LegTest, APointIsPassedWhenTheDistanceFirstGrowsNearIt) {
    struct Step {
        double Miles;
        bool Passed;
    };
    const struct {
        const char* What;
        bool Direct;
        std::vector<Step> Steps;
    } cases[] = {
        {"flown over", false, {{58, false}, {59.8, false}, {60.5, true}}},
        {"turned away within five miles", false, {{56, false}, {55.9, true}}},
        {"turned away outside", false, {{54, false}, {53.9, false}}},
        {"a jump of a mile and more", false, {{58, false}, {56.9, false}}},
        {"a direct target", true, {{58, false}, {59.8, false}, {60.5, false}}},
    };
    for (const auto& c : cases) {
        Leg.LastDistance = 100;
        for (const Step& step : c.Steps)
            EXPECT_EQ(FlyAt(step.Miles, c.Direct), step.Passed) << c.What << " at " << step.Miles;
    }
}

TEST_F(LegTest, EqualAndUnsetPositionsChangeNothing) {
    FlyAt(60);
    Leg.UpdateLeg(At(51, 0), At(50, 7), false);
    Leg.UpdateLeg(At(51, 7), At(0, 7), false);
    EXPECT_EQ(State.lblDistanz, "---");
    EXPECT_EQ(Leg.LastDistance, 0);
}

} // namespace
} // namespace ornivane
