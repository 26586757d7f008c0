#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

using Steps = std::vector<std::string>;

class RedrawTest : public FlyingScreenTest {};

TEST_F(RedrawTest, DrawsFromBottomToTop) {
    AddRoute("R", {6.3, 7.0, 7.3});
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('W', 50.3, 7.15, ''), ('far', 55, 7, "
        "''), ('V', 50.15, 7.15, '')");
    Shared.SymbolType = 1;
    FlyingScreen& screen = Start();
    screen.Flags.ShowRoute = screen.Flags.ShowNames = true;
    screen.Map.SlideMap = 100;
    screen.ApplyZoom();
    screen.cmdActivateGoto_Click();
    screen.cmdNext_Click();
    Fly(50.25, 6.75);
    // The whole width is in view: 400 view pixels a degree, the aircraft at x 300; the height is cut
    // to 51..50.
    EXPECT_EQ(Surface.Drawn,
              (Steps{"line 400,200 200,200 w4 #000080", "line 600,200 400,200 w4 #000080",
                     "line 400,200 300,300 w4 #0000FF", "circle 500,300 r2 w4 #000000",
                     "circle 500,300 r5 w4 #FF0000", "text 510,293 [ V ]", "circle 500,200 r2 w4 #000000",
                     "circle 500,200 r5 w4 #FF0000", "text 510,193 [ W ]", "line 300,300 300,285 w9 #0000FF",
                     "line 300,300 300,285 w3 #FFFFFF", "circle 300,300 r1 w5 #00FF00",
                     "circle 300,300 r6 w5 #151200"}));
    EXPECT_EQ(screen.State.lblDistanz, "17.8 NM");
}

TEST_F(RedrawTest, ShowsOnlyRoutePointsWithTheActiveOneByNumberOrName) {
    AddRoute("R", {6.3, 7.0, 7.3});
    Sql("UPDATE GpsPoints SET Name = 'P1' WHERE Nummer = 3");
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('W', 50.3, 7.15, '')");
    FlyingScreen& screen = Start();
    screen.Map.SlideMap = 100;
    screen.cmdShowPoints_Click();
    screen.ApplyZoom();
    EXPECT_TRUE(screen.picShowPoints);
    EXPECT_EQ(Surface.Count("r5 w4 #0000FF"), 2);
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 1);
    EXPECT_EQ(Surface.Count("500,200"), 0);
    Sql("DELETE FROM Route");
    screen.Form_Activate();
    screen.cmdShowPoints_Click();
    EXPECT_FALSE(screen.picShowPoints);
}

TEST_F(RedrawTest, ADamagedRowEndsThePassAndTheNextOneIsWholeAgain) {
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('A', 50.3, 7, ''), ('B', 50.31, 7, '')");
    FlyingScreen& screen = Start();
    screen.Map.SlideMap = 100;
    Fly(50.5, 7);
    ASSERT_EQ(Surface.Count("#00FF00"), 5);
    Sql("PRAGMA ignore_check_constraints = ON");
    Sql("UPDATE Waypoints SET Lat = 'x' WHERE Name = 'B'");
    Sql("UPDATE Waypoints SET Lat = 50.3, Name = 'C' WHERE Name = 'B'");
    screen.UpdateMap();
    EXPECT_EQ(Surface.Count("#00FF00"), 5);
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(RedrawTest, WhatEndsThePassIsToldOnceWithItsPlaceAndItsCause) {
    AddRoute("R", {6.3, 7.0});
    FlyingScreen& screen = Start();
    Fly(50.5, 7);
    ASSERT_EQ(Surface.Count("#00FF00"), 5);
    Sql("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 2");
    screen.Flags.ShowRoute = true;
    for (int i = 0; i < 50; ++i) screen.UpdateMap();
    EXPECT_EQ(Surface.Count("#00FF00"), 0);
    EXPECT_EQ(Notices.Shown,
              std::vector<std::string>{
                  "Die Karte ist nicht zu Ende gezeichnet, das Flugzeug fehlt: ein Text steht, wo "
                  "eine Zahl hingehört (data.ovd, R, P2: north)."});
    Sql("UPDATE GpsPoints SET Lat = NULL WHERE Nummer = 2");
    screen.Flags.ShowRoute = false;
    screen.cmdShowPoints_Click();
    screen.UpdateMap();
    ASSERT_EQ(Notices.Shown.size(), 2u);
    EXPECT_NE(Notices.Shown[1].find("es fehlt ein Wert (data.ovd, R, P2)"), std::string::npos);
    EXPECT_TRUE(Boxes.Shown.empty());
    Surface.Width = 0; // a window without extent is no fault
    screen.UpdateMap();
    EXPECT_EQ(Notices.Shown.size(), 2u);
}

TEST_F(RedrawTest, AnAircraftOffTheChartSwitchesCentringOffAndHasNoSymbol) {
    FlyingScreen& screen = Start();
    EXPECT_FALSE(screen.Map.CenterMap); // the position before the first fix is off this chart
    Fly(50.5, 6.5);
    screen.cmdKartezentrieren_Click();
    EXPECT_TRUE(screen.Map.CenterMap);
    Screen->State.CurLat = Latitude(50.0);
    Screen->State.CurLong = Longitude(6.0);
    screen.UpdateMap(); // on the lower edge: counts as off the chart
    EXPECT_FALSE(screen.Map.CenterMap);
    screen.cmdKartezentrieren_Click();
    EXPECT_FALSE(screen.Map.CenterMap);
    Screen->State.CurLat = Latitude(51.0); // on the upper and left edges it is still on it
    screen.cmdKartezentrieren_Click();
    EXPECT_TRUE(screen.Map.CenterMap);
    Screen->State.CurLong = Longitude(5);
    screen.UpdateMap();
    EXPECT_EQ(Surface.Count("w2"), 0);
}

TEST_F(RedrawTest, SteppingInsideAPassDoesNotStartAnother) {
    AddRoute("R", {6.3, 7.0});
    FlyingScreen& screen = Start();
    screen.cmdActivateGoto_Click();
    Fly(50.5, 6.45); // 1.9 NM from the first point
    const int paints = Surface.Paints;
    screen.State.CurLong = Longitude(6.44); // 0.4 NM farther: passed
    screen.UpdateMap();
    EXPECT_EQ(Surface.Paints, paints + 1);
    EXPECT_EQ(screen.Route.RoutePointsSet.AbsolutePosition(), 2);
    EXPECT_EQ(screen.State.lblDistanz, "2.3 NM"); // this run still shows the old point
    screen.UpdateMap();
    EXPECT_EQ(screen.State.lblDistanz, "21.4 NM");
    EXPECT_EQ(screen.Route.RoutePointsSet.AbsolutePosition(), 2);
}

TEST_F(RedrawTest, ALegOfADayEndsNothingButItsTime) {
    AddRoute("R", {6.3, 7.0});
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('W', 50.3, 7.15, '')");
    Sql("UPDATE GpsPoints SET Lat = 70 WHERE Nummer = 1");
    FlyingScreen& screen = Start();
    screen.Map.SlideMap = 100;
    screen.ApplyZoom();
    Fly(50.5, 7);
    screen.Readouts.SpeedReceived("11");
    screen.cmdActivateGoto_Click();
    for (int redraw = 0; redraw < 3; ++redraw) screen.UpdateMap();
    EXPECT_EQ(screen.State.lblTime, "---");
    EXPECT_NE(screen.State.lblDistanz, "---");
    EXPECT_NE(screen.State.lblTrueBearing, "---");
    EXPECT_NE(screen.Route.lblRemDist, screen.State.lblDistanz) << "the route list is made anew, too";
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 1) << "the waypoint";
    EXPECT_EQ(Surface.Count("#00FF00"), 5) << "the aircraft";
    Shared.EnglishUI = 1;
    screen.cmdDirectFly_Click();
    screen.Do(screen.Route.SetDirectTarget({Latitude(70), Longitude(7)}));
    EXPECT_EQ(Notices.Shown,
              (Steps{"Bei dieser Geschwindigkeit dauert es bis zum Ziel 24 Stunden oder länger. Die Zeit "
                     "bleibt \"---\".",
                     "At this speed the target is 24 hours or more away. The time stays \"---\"."}));
}

} // namespace
} // namespace ornivane
