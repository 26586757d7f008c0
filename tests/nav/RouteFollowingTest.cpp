#include <algorithm>
#include <functional>
#include <random>

#include "common/SettingsFiles.h"
#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

class RouteFollowingTest : public FlyingScreenTest {
protected:
    // Stands at 50.5° N and this longitude, in decimal degrees, and redraws.
    void StandAt(double longitude, double lat = 50.5) {
        Screen->State.HadPosition = true;
        Screen->State.NoFix = false;
        Screen->State.CurLat = Latitude(lat);
        Screen->State.CurLong = Longitude(longitude);
        Screen->UpdateMap();
    }
    int Row() { return Screen->Route.RoutePointsSet.AbsolutePosition(); }
    // A click on a row of the list, counted from 1.
    void Choose(int row) { Screen->Route.RoutePointsSet.SetAbsolutePosition(row); }
    void LeaveAndComeBack(const std::string& meanwhile) {
        Screen->Form_Deactivate();
        if (!meanwhile.empty()) Sql(meanwhile);
        Screen->Form_Activate();
    }
    // A target of Direct Fly that is this far to the east of where one is, in degrees.
    void DirectTo(double east) {
        Screen->Do(Screen->Route.SetDirectTarget(
            {Screen->State.CurLat, Longitude(Screen->State.CurLong.Degrees() + east)}));
    }
};

TEST_F(RouteFollowingTest, TheFirstCalculationForATargetChosenByHandNeverPassesIt) {
    AddRoute("R", {6.30, 6.36, 6.42});
    AddRoute("S", {6.36});
    RouteFollowing& route = Start().Route;
    const auto nothing = [] {};
    const struct {
        const char* What;
        std::function<void()> Before, Hand;
        int Row;
    } cases[] = {
        {"Direct Fly off", [&] { Screen->cmdDirectFly_Click(); }, [&] { Screen->picDF_Click(); }, 1},
        {"its target set anew, then off", [&] { Screen->cmdDirectFly_Click(); },
         [&] {
             DirectTo(-0.04); // 1.5 NM
             Screen->picDF_Click();
         },
         1},
        {"a row clicked", nothing, [&] { Choose(2); }, 2},
        {"the next one", nothing, [&] { Screen->cmdNext_Click(); }, 2},
        {"the one before", [&] { Choose(2); }, [&] { Screen->cmdPrev_Click(); }, 1},
        {"another route", nothing, [&] { Screen->cmbRoute_Click("S"); }, 1},
        {"the route switched on", [&] { Screen->picActivateGoto_Click(); },
         [&] { Screen->cmdActivateGoto_Click(); }, 1},
        {"its point moved in planning", nothing,
         [&] { LeaveAndComeBack("UPDATE GpsPoints SET Long = 6.36 WHERE Nummer = 1"); }, 1},
    };
    for (const auto& c : cases) {
        Screen->cmbRoute_Click("R");
        Screen->cmdActivateGoto_Click();
        StandAt(6.55); // P1 and P2, and that of S, are 1.9 NM away, P3 5.7 NM
        c.Before();
        Screen->ActiveLeg.LastDistance = 1.6; // from before
        c.Hand();
        EXPECT_EQ(Row(), c.Row) << c.What;
        EXPECT_TRUE(route.RouteActive) << c.What;
        EXPECT_EQ(Screen->State.lblDistanz, "1.9 NM") << c.What;
    }
}

TEST_F(RouteFollowingTest, APositionThatIsNotTheAircraftsSaysNothingOfPassing) {
    AddRoute("R", {6.30, 6.34, 6.42});
    Start(); // the map opens at P1
    Screen->cmdActivateGoto_Click();
    Screen->cmdNext_Click(); // P2, 2.5 NM from there
    Fly(50.5, 6.49);         // on the apron, 0.4 NM further away
    EXPECT_EQ(Row(), 2);
    EXPECT_EQ(Screen->State.lblDistanz, "2.9 NM");

    Screen->Readouts.gps_FixLost();
    Screen->cmdNext_Click(); // P3 is chosen while nobody knows where the aircraft is
    Screen->cmdPrev_Click();
    Screen->Readouts.gps_FixObtained();
    StandAt(6.48);
    EXPECT_EQ(Row(), 2);
    StandAt(6.47); // now it has grown from one position to the next
    EXPECT_EQ(Row(), 3);
}

TEST_F(RouteFollowingTest, WhateverTheHandDoesAndWhereverTheRowIsTheOneThatWasChosen) {
    AddRoute("R", {6.30, 6.32, 6.34, 6.36});
    RouteFollowing& route = Start().Route;
    std::mt19937 random(3);
    const auto between = [&](double a, double b) {
        return std::uniform_real_distribution<double>(a, b)(random);
    };
    Screen->cmdActivateGoto_Click();
    for (int i = 0; i < 400; ++i) {
        StandAt(between(6.45, 6.65), between(50.45, 50.55)); // within 5 NM of all points
        Screen->cmdActivateGoto_Click();                     // also when that step was the end of the route
        Screen->ActiveLeg.LastDistance = between(0, 6);
        const int before = Row();
        int wanted = before;
        switch (random() % 5) {
        case 0:
            wanted = 1 + static_cast<int>(random() % 4);
            if (wanted != before) Choose(wanted); // the same one again is no choice
            break;
        case 1:
            wanted = std::min(before + 1, 4);
            if (before < 4) Screen->cmdNext_Click();
            break;
        case 2:
            wanted = std::max(before - 1, 1);
            Screen->cmdPrev_Click();
            break;
        case 3:
            Screen->cmdDirectFly_Click();
            DirectTo(between(-0.1, 0.1));
            Screen->ActiveLeg.LastDistance = between(0, 6);
            Screen->picDF_Click();
            break;
        default:
            Screen->picActivateGoto_Click();
            StandAt(between(6.45, 6.65));
            Screen->cmdActivateGoto_Click();
        }
        ASSERT_EQ(Row(), wanted) << i;
        ASSERT_TRUE(route.RouteActive) << i;
    }
}

TEST_F(RouteFollowingTest, ARouteIsFlownPointByPointWithoutAnyHand) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> leg(0.10, 0.40), step(0.002, 0.010);
    for (int round = 0; round < 8; ++round) {
        std::vector<double> stored;
        double longitude = 6.05;
        for (; longitude < 7.9; longitude += leg(random))
            stored.push_back(ToDegMinValue(Longitude(longitude)).Value());
        AddRoute("R" + std::to_string(round), stored);
        FlyingScreen& screen = Start();
        screen.cmbRoute_Click("R" + std::to_string(round));
        screen.State.CurLat = Latitude(50.49); // beside the route
        screen.State.CurLong = Longitude(6.0);
        screen.cmdActivateGoto_Click();
        for (double at = 6.0; at < longitude && screen.Route.RouteActive; at += step(random)) {
            const int before = Row();
            StandAt(at, 50.49);
            const double active =
                ToDecimalDegrees(StoredLongitude(stored[static_cast<std::size_t>(before - 1)])).Degrees();
            const bool passed = Row() != before || !screen.Route.RouteActive;
            EXPECT_LE(Row(), before + 1);
            // At the first or second redraw behind the point, never ahead of it.
            EXPECT_TRUE(passed ? at > active : at < active + 0.021) << round << " point " << before;
        }
        EXPECT_EQ(Row(), stored.size());
        EXPECT_FALSE(screen.Route.RouteActive) << round;
    }
}

TEST_F(RouteFollowingTest, ComesBackToTheSameRowThoughItsPointStandsSeveralTimes) {
    std::mt19937 random(7);
    const auto upTo = [&](int n) { return std::uniform_int_distribution<int>(1, n)(random); };
    std::vector<int> counts(25);
    Sql("BEGIN");
    for (std::size_t round = 0; round < counts.size(); ++round) {
        counts[round] = upTo(9);
        AddRoute("R" + std::to_string(round),
                 std::vector<double>(static_cast<std::size_t>(counts[round]), 7.0));
        for (int row = 1; row <= counts[round]; ++row) // round trips over three places
            Sql("UPDATE GpsPoints SET PointID = " + std::to_string(upTo(3)) +
                " WHERE Nummer = " + std::to_string(row) + " AND RouteID = (SELECT max(RouteID) FROM Route)");
    }
    Sql("COMMIT");
    FlyingScreen& screen = Start();
    for (std::size_t round = 0; round < counts.size(); ++round) {
        const std::string name = "R" + std::to_string(round);
        screen.cmbRoute_Click(name);
        Choose(upTo(counts[round]));
        const int row = Row();
        LeaveAndComeBack("");
        EXPECT_EQ(Row(), row) << round;
        EXPECT_EQ(screen.Route.cmbRoute, name);
    }
}

TEST_F(RouteFollowingTest, APointThatHasMovedInTheRouteIsFoundByItsWaypoint) {
    AddRoute("R", {6.3, 7.0, 6.3});
    Sql("UPDATE GpsPoints SET PointID = 1 WHERE Nummer = 3"); // A-B-A
    FlyingScreen& screen = Start();
    Choose(3);
    LeaveAndComeBack("UPDATE GpsPoints SET Nummer = 5 WHERE Nummer = 3"); // number 3 is gone
    EXPECT_EQ(Row(), 1);
    Choose(2);
    LeaveAndComeBack("UPDATE GpsPoints SET Nummer = 3 - Nummer WHERE Nummer < 3"); // B is the first now
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(screen.Route.RoutePointsSet.Text("Name"), "P2");
    LeaveAndComeBack("DELETE FROM GpsPoints WHERE Name = 'P2'");
    EXPECT_EQ(Row(), 1);
}

TEST_F(RouteFollowingTest, APointThatWasDamagedIsReadAnewOnceItIsMended) {
    AddRoute("R", {6.3, 7.0});
    FlyingScreen& screen = Start();
    screen.State.HadPosition = true;
    EXPECT_THROW(LeaveAndComeBack("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 1"), RuntimeError);
    AddRoute("S", {6.4});
    LeaveAndComeBack("UPDATE GpsPoints SET Lat = 50.3 WHERE Nummer = 1");
    EXPECT_EQ(screen.Route.RoutePointsSet.Number("Lat"), 50.3);
    EXPECT_EQ(screen.Route.RouteNames.size(), 2u);
}

TEST_F(RouteFollowingTest, ARouteWithADamagedPointShowsNoLengthOfAnotherAndStaysChosen) {
    AddRoute("R", {6.3, 7.0});
    AddRoute("S", {6.4, 6.5, 7.0});
    Sql("UPDATE GpsPoints SET Long = 'east' WHERE Nummer = 3");
    RouteFollowing& route = Start().Route;
    Screen->cmbRoute_Click("R");
    Screen->cmdActivateGoto_Click();
    StandAt(6.4);
    EXPECT_TRUE(route.lblRoute.HasNumber() && route.lblRemDist.HasNumber());
    const Readout distance = Screen->State.lblDistanz;
    EXPECT_THROW(Screen->cmbRoute_Click("S"), RuntimeError);
    EXPECT_EQ(route.lblRoute, "");
    EXPECT_EQ(route.lblRemDist, "");
    EXPECT_NE(Screen->State.lblDistanz, distance); // the target is that of S
    EXPECT_EQ(ReadLastChoice(Folder.Path()).Route, "S");
}

TEST_F(RouteFollowingTest, AFlownRouteThatIsGoneIsNotFlownOnAndThatIsTold) {
    const char* const deeds[] = {
        "UPDATE Route SET Name = 'Renamed' WHERE Name = 'R'",
        "DELETE FROM Route WHERE Name = 'R'",
        // another one under its name
        "UPDATE Route SET Name = CASE Name WHEN 'R' THEN 'Renamed' ELSE 'R' END",
        "DELETE FROM Route",
    };
    for (const char* deed : deeds) {
        Sql("DELETE FROM Route");
        AddRoute("First", {7.3, 7.4});
        AddRoute("R", {6.3, 7.0});
        Notices.Shown.clear();
        RouteFollowing& route = Start().Route;
        Screen->cmbRoute_Click("R");
        LeaveAndComeBack("");
        Screen->cmdActivateGoto_Click();
        LeaveAndComeBack("UPDATE Route SET Nummer = Nummer + 1"); // still there
        EXPECT_TRUE(route.RouteActive && Notices.Shown.empty()) << deed;
        LeaveAndComeBack(deed);
        EXPECT_FALSE(route.RouteActive || route.Frame1()) << deed;
        ASSERT_EQ(Notices.Shown.size(), 1u) << deed;
        EXPECT_NE(Notices.Shown[0].find("\"R\""), std::string::npos) << Notices.Shown[0];
        LeaveAndComeBack("");
        EXPECT_EQ(Notices.Shown.size(), 1u) << "said once";
    }
    // What was not flown may go without a word; a Direct Fly goes on.
    Sql("DELETE FROM Route");
    AddRoute("R", {6.3, 7.0});
    AddRoute("S", {6.3, 7.0});
    Notices.Shown.clear();
    Shared.EnglishUI = 1;
    RouteFollowing& route = Start().Route;
    Screen->cmbRoute_Click("S");
    LeaveAndComeBack("DELETE FROM Route WHERE Name = 'S'");
    EXPECT_TRUE(Notices.Shown.empty());
    Screen->cmdActivateGoto_Click();
    Screen->cmdDirectFly_Click();
    LeaveAndComeBack("UPDATE Route SET Name = 'T'");
    EXPECT_TRUE(!route.RouteActive && route.GotoActive && route.Frame1());
    EXPECT_EQ(Notices.Shown.at(0), "The route \"R\" was renamed or deleted. It is no longer flown.");
}

TEST_F(RouteFollowingTest, AStepButtonAtAnEndWorksAgainAfterAnyChangeOfRow) {
    AddRoute("R", {6.3, 7.0, 7.3});
    AddRoute("S", {6.4});
    RouteFollowing& route = Start().Route;
    const auto enabled = [&] { return route.cmdPrevEnabled && route.cmdNextEnabled; };
    Screen->cmdPrev_Click();
    EXPECT_FALSE(route.cmdPrevEnabled);
    Choose(2);
    EXPECT_TRUE(enabled());
    Choose(3);
    Screen->cmdNext_Click();
    EXPECT_FALSE(route.cmdNextEnabled);
    Screen->cmdNext_Click(); // the last row stays
    EXPECT_FALSE(route.cmdNextEnabled);
    Choose(1);
    EXPECT_TRUE(enabled());
    Screen->cmdPrev_Click();
    Screen->cmbRoute_Click("S");
    EXPECT_TRUE(enabled());
    Screen->cmdPrev_Click();
    Screen->cmdNext_Click();
    LeaveAndComeBack(""); // the same row, still at both ends
    EXPECT_FALSE(route.cmdPrevEnabled || route.cmdNextEnabled);
    LeaveAndComeBack(
        "INSERT INTO GpsPoints SELECT 2, RouteID, 9, 'P9', 50.3, 6.5 FROM Route WHERE Name = 'S'");
    EXPECT_TRUE(enabled()); // behind the same row stands another one now
    LeaveAndComeBack("DELETE FROM Route WHERE Name = 'S'");
    EXPECT_TRUE(enabled());
}

} // namespace
} // namespace ornivane
