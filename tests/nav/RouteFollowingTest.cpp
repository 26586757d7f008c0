#include <random>

#include "common/SettingsFiles.h"
#include "geo/GreatCircle.h"
#include "nav/FlyingScreenFixture.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

// The route by itself: no leg, no chart, no screen.
class RouteFollowingTest : public testing::Test, protected FlightFolder {
protected:
    void Begin() {
        Route.OpenRoutes();
        EXPECT_FALSE(Route.Activate().Gone);
    }
    RouteReturn ComeBack(const std::string& meanwhile = "SELECT 1") {
        Sql(meanwhile);
        return Route.Activate();
    }
    int Row() const { return Route.RoutePointsSet.AbsolutePosition(); }
    // A click on a row of the list, counted from 1.
    void Choose(int row) { Route.RoutePointsSet.SetAbsolutePosition(row); }

    FlightState State;
    int Chosen = 0;
    RouteFollowing Route{Shared.DataConn, State, [this] { ++Chosen; }};
};

// Which point is passed, through all buttons of the screen.
class RoutePassingTest : public FlyingScreenTest {
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

TEST_F(RoutePassingTest, TheFirstCalculationForATargetChosenByHandNeverPassesIt) {
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

TEST_F(RoutePassingTest, APositionThatIsNotTheAircraftsSaysNothingOfPassing) {
    AddRoute("R", {6.30, 6.34, 6.42});
    Start(); // the map opens at P1
    Screen->cmdActivateGoto_Click();
    Screen->cmdNext_Click(); // P2, 2.5 NM from there
    Fly(50.5, 6.49);         // on the apron, 0.4 NM further away
    EXPECT_EQ(Row(), 2);
    EXPECT_EQ(Screen->State.lblDistanz, "2.9 NM");

    Screen->Readouts.FixLost();
    Screen->cmdNext_Click(); // P3 is chosen while nobody knows where the aircraft is
    Screen->cmdPrev_Click();
    Screen->Readouts.FixObtained();
    StandAt(6.48);
    EXPECT_EQ(Row(), 2);
    StandAt(6.47); // now it has grown from one position to the next
    EXPECT_EQ(Row(), 3);
}

TEST_F(RoutePassingTest, ARouteIsFlownPointByPointWithoutAnyHand) {
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
        AddRoute("R'" + std::to_string(round),
                 std::vector<double>(static_cast<std::size_t>(counts[round]), 7.0));
        for (int row = 1; row <= counts[round]; ++row) // round trips over three places
            Sql("UPDATE GpsPoints SET PointID = " + std::to_string(upTo(3)) +
                " WHERE Nummer = " + std::to_string(row) + " AND RouteID = (SELECT max(RouteID) FROM Route)");
    }
    Sql("COMMIT");
    Begin();
    for (std::size_t round = 0; round < counts.size(); ++round) {
        const std::string name = "R'" + std::to_string(round);
        EXPECT_TRUE(Route.cmbRoute_Click(name));
        Choose(upTo(counts[round]));
        const int row = Row();
        EXPECT_FALSE(ComeBack().IsAnotherTarget);
        EXPECT_EQ(Row(), row) << round;
        EXPECT_EQ(Route.cmbRoute, name);
    }
}

TEST_F(RouteFollowingTest, APointThatHasMovedInTheRouteIsFoundByItsWaypoint) {
    AddRoute("R", {6.3, 7.0, 6.3});
    Sql("UPDATE GpsPoints SET PointID = 1 WHERE Nummer = 3"); // A-B-A
    Begin();
    Choose(3);
    ComeBack("UPDATE GpsPoints SET Nummer = 5 WHERE Nummer = 3"); // number 3 is gone
    EXPECT_EQ(Row(), 1);
    Choose(2);
    ComeBack("UPDATE GpsPoints SET Nummer = 3 - Nummer WHERE Nummer < 3"); // B is the first now
    EXPECT_EQ(Row(), 1);
    EXPECT_EQ(Route.RoutePointsSet.Text("Name"), "P2");
    EXPECT_TRUE(ComeBack("DELETE FROM GpsPoints WHERE Name = 'P2'").IsAnotherTarget);
    EXPECT_EQ(Row(), 1);
}

TEST_F(RouteFollowingTest, APointThatWasDamagedIsReadAnewOnceItIsMended) {
    AddRoute("R", {6.3, 7.0});
    Begin();
    const RouteReturn damaged = ComeBack("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 1");
    ASSERT_TRUE(damaged.Damage); // at the point where the map would open
    EXPECT_EQ(damaged.Damage->Number(), ErrorNumber::TypeMismatch);
    EXPECT_THROW(static_cast<void>(Route.ActiveTarget()), RuntimeError);
    State.HadPosition = true;
    AddRoute("S", {6.4});
    EXPECT_FALSE(ComeBack("UPDATE GpsPoints SET Lat = 50.3 WHERE Nummer = 1").Damage);
    EXPECT_EQ(Route.RoutePointsSet.Number("Lat"), 50.3);
    EXPECT_EQ(Route.RouteNames, (std::vector<std::string>{"R", "S"}));
}

// Rows, lengths and switches beside a model of them, whatever is done in whatever order.
TEST_F(RouteFollowingTest, AnySequenceOfStepsLeavesRowTargetAndLengthsAsASimpleModelHasThem) {
    const std::vector<double> stored{6.30, 6.42, 7.00, 7.12, 7.12};
    AddRoute("O'Hara", stored);
    State.HadPosition = true;
    Begin();
    std::mt19937 random(6);
    int row = 1, chosen = 0;
    bool isActive = false;
    const auto next = [&](bool byHand) {
        if (row == 5) {
            isActive = false;
        } else {
            ++row;
            chosen += byHand;
        }
    };
    const std::function<void()> deeds[] = {[&] {
                                               EXPECT_FALSE(Route.cmdNext_Click().TargetChosen);
                                               next(true);
                                           },
                                           [&] {
                                               Route.PassPoint();
                                               next(false);
                                           },
                                           [&] {
                                               EXPECT_TRUE(Route.cmdPrev_Click().FocusMap);
                                               chosen += row > 1;
                                               row = std::max(1, row - 1);
                                           },
                                           [&] {
                                               const int click = 1 + static_cast<int>(random() % 5);
                                               if (click != row)
                                                   Choose(click), ++chosen; // the same one again is no choice
                                               row = click;
                                           },
                                           [&] { isActive = Route.cmdActivateGoto_Click().TargetChosen; },
                                           [&] { isActive = Route.picActivateGoto_Click().TargetChosen; },
                                           [&] { EXPECT_FALSE(ComeBack().Gone); }};
    for (int step = 0; step < 500; ++step) {
        deeds[random() % std::size(deeds)]();
        ASSERT_EQ(Row(), row) << step;
        ASSERT_EQ(Chosen, chosen) << step;
        ASSERT_TRUE(Route.RouteActive == isActive && Route.Frame1() == isActive) << step;
        const auto place = [&](int of) {
            return ToDecimalDegrees(Stored(50.3, stored[static_cast<std::size_t>(of) - 1]));
        };
        ASSERT_EQ(Route.ActiveTarget(), place(row)) << step;
        double rest = 1.5, total = 0;
        for (int point = 1; point < 5; ++point) {
            const double leg = CalcRouteDist(place(point + 1), place(point));
            total += leg;
            if (point >= row) rest += leg;
        }
        Route.RefreshRouteList(1.5);
        ASSERT_EQ(Route.lblRoute, Readout(total, {"#####", "NM"})) << step;
        ASSERT_EQ(Route.lblRemDist, Readout(rest, Formats::Miles)) << step;
    }
}

TEST_F(RouteFollowingTest, DirectFlyHasATargetOfItsOwnAndLeavesTheRouteAsItIs) {
    AddRoute("R", {6.3, 7.0});
    Begin();
    static_cast<void>(Route.cmdActivateGoto_Click());
    EXPECT_FALSE(Route.SetDirectTarget(At(50.5, 6.5)).TargetChosen) << "it is off";
    EXPECT_EQ(Route.DirectTarget(), std::nullopt);
    State.lblDistanz = Showing("12.3");
    EXPECT_TRUE(Route.cmdDirectFly_Click().Redraw);
    EXPECT_EQ(State.lblDistanz, "");
    EXPECT_EQ(Route.ActiveTarget(), std::nullopt);
    EXPECT_TRUE(Route.SetDirectTarget(At(-33.5, 6.5)).TargetChosen);
    EXPECT_EQ(Route.DirectTarget(), Stored(-33.7, 6.3));
    State.lblDistanz = Showing("45.6");
    Route.RefreshRouteList(1.5);
    EXPECT_EQ(Route.lblRemDist, State.lblDistanz);
    static_cast<void>(Route.picActivateGoto_Click());
    EXPECT_TRUE(Route.Frame1()) << "of Direct Fly";
    static_cast<void>(Route.picDF_Click());
    EXPECT_FALSE(Route.Frame1() || Route.RouteActive);
    EXPECT_EQ(Route.ActiveTarget(), ToDecimalDegrees(Stored(50.3, 6.3)));
}

TEST_F(RoutePassingTest, ARouteWithADamagedPointShowsNoLengthOfAnotherAndStaysChosen) {
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

TEST_F(RouteFollowingTest, AFlownRouteThatIsGoneIsNotFlownOn) {
    const char* const deeds[] = {
        "UPDATE Route SET Name = 'Renamed' WHERE Name = 'R'",
        "DELETE FROM Route WHERE Name = 'R'",
        // another one under its name
        "UPDATE Route SET Name = CASE Name WHEN 'R' THEN 'Renamed' ELSE 'R' END",
        "DELETE FROM Route",
    };
    State.HadPosition = true;
    Route.OpenRoutes();
    for (const char* deed : deeds) {
        Sql("DELETE FROM Route");
        AddRoute("First", {7.3, 7.4});
        AddRoute("R", {6.3, 7.0});
        static_cast<void>(ComeBack());
        EXPECT_TRUE(Route.cmbRoute_Click("R"));
        static_cast<void>(Route.cmdActivateGoto_Click());
        EXPECT_FALSE(ComeBack("UPDATE Route SET Nummer = Nummer + 1").Gone) << "still there";
        EXPECT_TRUE(Route.RouteActive);
        EXPECT_EQ(ComeBack(deed).Gone, "R") << deed;
        EXPECT_FALSE(Route.RouteActive || Route.Frame1()) << deed;
        EXPECT_FALSE(ComeBack().Gone) << "said once";
    }
}

TEST_F(RoutePassingTest, AFlownRouteThatIsGoneIsToldInTheNotice) {
    // What was not flown may go without a word; a Direct Fly goes on.
    AddRoute("R", {6.3, 7.0});
    AddRoute("S", {6.3, 7.0});
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
    Begin();
    const auto enabled = [&] { return Route.cmdPrevEnabled && Route.cmdNextEnabled; };
    static_cast<void>(Route.cmdPrev_Click());
    EXPECT_FALSE(Route.cmdPrevEnabled);
    Choose(2);
    EXPECT_TRUE(enabled());
    Choose(3);
    static_cast<void>(Route.cmdNext_Click());
    EXPECT_FALSE(Route.cmdNextEnabled);
    static_cast<void>(Route.cmdNext_Click()); // the last row stays
    EXPECT_FALSE(Route.cmdNextEnabled);
    Choose(1);
    EXPECT_TRUE(enabled());
    static_cast<void>(Route.cmdPrev_Click());
    EXPECT_TRUE(Route.cmbRoute_Click("S"));
    EXPECT_TRUE(enabled());
    static_cast<void>(Route.cmdPrev_Click());
    static_cast<void>(Route.cmdNext_Click());
    static_cast<void>(ComeBack()); // the same row, still at both ends
    EXPECT_FALSE(Route.cmdPrevEnabled || Route.cmdNextEnabled);
    static_cast<void>(
        ComeBack("INSERT INTO GpsPoints SELECT 2, RouteID, 9, 'P9', 50.3, 6.5 FROM Route WHERE Name = 'S'"));
    EXPECT_TRUE(enabled()); // behind the same row stands another one now
    static_cast<void>(ComeBack("DELETE FROM Route WHERE Name = 'S'"));
    EXPECT_TRUE(enabled());
}

} // namespace
} // namespace ornivane
