#include "nav/Leg.h"

#include <gtest/gtest.h>

#include "support/MapFakes.h"

namespace ornivane {
namespace {

class LegTest : public testing::Test {
protected:
    LegTest() {
        State.NoFix = false;
        State.HadPosition = true;
    }
    // Along the meridian 7° E, the given number of miles north of 50° N, towards 51° N.
    void FlyAt(double miles, bool direct = false) {
        Leg.UpdateLeg({51, 7}, {50 + miles / 60, 7}, direct, [this] { ++Passed; });
    }
    FlightState State;
    LocaleText Locale;
    SetClock Clock;
    ornivane::Leg Leg{State, Locale, Clock, [this] { ++Told; }};
    int Passed = 0, Told = 0;
};

TEST_F(LegTest, ShowsDistanceCourseAndTime) {
    State.lblSpeed = "120";
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
    Locale.DecimalSeparator = ',';
    FlyAt(29.5);
    EXPECT_EQ(State.lblDistanz, "30,5 NM");
}

TEST_F(LegTest, AlongAMeridianTheCourseIs360Or180) {
    for (int minute = 0; minute < 60; ++minute) {
        const double south = 50 + minute / 60.0, north = 51 + minute * 7 % 60 / 60.0 + 0.5;
        Leg.UpdateLeg({north, 7.5}, {south, 7.5}, false, [] {});
        EXPECT_EQ(State.lblTrueBearing, "360 °") << minute;
        Leg.UpdateLeg({south, 7.5}, {north, 7.5}, false, [] {});
        EXPECT_EQ(State.lblTrueBearing, "180 °") << minute;
    }
}

TEST_F(LegTest, TimesBelowAMinuteCountSecondsAndSlowFlightHasNone) {
    State.ShowETE = false;
    State.lblSpeed = "120";
    FlyAt(59);
    EXPECT_EQ(State.lblTime, "00:30");
    for (const char* slow : {"10", "0", "---"}) {
        State.lblSpeed = slow;
        FlyAt(30);
        EXPECT_EQ(State.lblTime, "00:00") << slow;
    }
    Clock.Time = {2026, 12, 31, 23, 50, 0};
    State.lblSpeed = "120";
    FlyAt(30);
    EXPECT_EQ(State.lblTime, "00:05"); // past midnight
}

TEST_F(LegTest, ALegOfADayAndMoreHasNoTimeAndThatIsToldOnce) {
    const auto fly = [this](const char* speed) {
        State.lblSpeed = speed;
        Leg.UpdateLeg({55, 7}, {50, 7}, false, [] {}); // 300 NM
        return State.lblTime;
    };
    EXPECT_EQ(fly("12.501"), "23:59");
    EXPECT_EQ(fly("12.5"), "---"); // to the minute
    EXPECT_EQ(State.lblDistanz + " " + State.lblTrueBearing, "300.0 NM 360 °");
    EXPECT_NEAR(Leg.LastDistance, 300, 0.01);
    State.ShowETE = false;
    EXPECT_EQ(fly("11"), "---");
    // A taxiing aircraft that stops and goes on: that was told already.
    EXPECT_EQ(fly("5"), "00:00");
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(Told, 1);
    EXPECT_EQ(fly("100"), "16:50");
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(Told, 2);
    Leg.TargetChosen(); // another one, as far away
    EXPECT_EQ(fly("11"), "---");
    EXPECT_EQ(Told, 3);
}

TEST_F(LegTest, APointIsPassedWhenTheDistanceFirstGrowsNearIt) {
    struct Step {
        double Miles;
        int Passed;
    };
    const struct {
        const char* What;
        bool Direct;
        std::vector<Step> Steps;
    } cases[] = {
        {"flown over", false, {{58, 0}, {59.8, 0}, {60.5, 1}}},
        {"turned away within five miles", false, {{56, 0}, {55.9, 1}}},
        {"turned away outside", false, {{54, 0}, {53.9, 0}}},
        {"a jump of a mile and more", false, {{58, 0}, {56.9, 0}}},
        {"a direct target", true, {{58, 0}, {59.8, 0}, {60.5, 0}}},
    };
    for (const auto& c : cases) {
        Leg.LastDistance = 100;
        Passed = 0;
        for (const Step& step : c.Steps) {
            FlyAt(step.Miles, c.Direct);
            EXPECT_EQ(Passed, step.Passed) << c.What << " at " << step.Miles;
        }
    }
}

TEST_F(LegTest, EqualAndUnsetPositionsChangeNothing) {
    FlyAt(60);
    Leg.UpdateLeg({51, 0}, {50, 7}, false, [] {});
    Leg.UpdateLeg({51, 7}, {0, 7}, false, [] {});
    EXPECT_EQ(State.lblDistanz, "---");
    EXPECT_EQ(Leg.LastDistance, 0);
}

} // namespace
} // namespace ornivane
