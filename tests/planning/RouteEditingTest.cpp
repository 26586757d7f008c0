#include "planning/RouteEditing.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "planning/ListsFixture.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RouteEditingTest : public testing::Test, protected PlanningLists {
protected:
    void NewRoute(const std::string& name) {
        Boxes.Inputs.push_back(name);
        Act(Routes.cmdNewRoute());
    }
    void Add(const std::string& waypoint) {
        Points.tquickfind = waypoint;
        Points.QuickFind();
        AddCurrent();
    }
    std::string Selected() const { return Routes.RoutesSet.Text("Name"); }
    std::string PlaceInRoute() const {
        return std::to_string(Routes.RoutePointsSet.AbsolutePosition()) + Routes.RoutePointsSet.Text("Name");
    }
};

TEST_F(RouteEditingTest, ANewRouteComesBehindTheSelectedOneAlsoBesideAGap) {
    Load();
    NewRoute("A");
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(Asked[PlanEffect::FocusRoutes], 0); // the only one needs no choosing
    EXPECT_TRUE(Routes.RoutePointsSet.IsOpen());
    NewRoute("D");
    EXPECT_EQ(Asked[PlanEffect::FocusRoutes], 1);
    Routes.RoutesSet.MoveFirst();
    NewRoute("B");
    NewRoute("O'C");
    EXPECT_THAT(Numbers("Route"), ElementsAre("1 A", "2 B", "3 O'C", "4 D"));
    EXPECT_EQ(Selected(), "O'C");
    Boxes.Answer = true;
    Routes.RoutesSet.SetAbsolutePosition(2);
    Act(Routes.cmdRouteDelete());
    EXPECT_THAT(Numbers("Route"), ElementsAre("1 A", "3 O'C", "4 D"));
    EXPECT_EQ(Selected(), "O'C");
    NewRoute("E");
    EXPECT_THAT(Numbers("Route"), ElementsAre("1 A", "2 O'C", "3 E", "4 D"));
    EXPECT_EQ(Selected(), "E");
}

TEST_F(RouteEditingTest, AnImportedRouteShowsBeforeItsPoints) {
    Load();
    NewRoute("A");
    Add("Bonn");
    Act(Routes.cmdshowRoute());
    Routes.lblRouteDistanz = "5 NM";
    Asked.clear();
    Routes.RouteAdded(ornivane::Routes(Shared.DataConn).Append("B"));
    EXPECT_EQ(Selected(), "B");
    EXPECT_GT(Asked[PlanEffect::Redraw], 0);
    EXPECT_EQ(Routes.RoutePointsSet.RecordCount(), 0);
    EXPECT_EQ(Routes.lblRouteDistanz, "");
}

TEST_F(RouteEditingTest, ARouteWithoutANameIsNone) {
    Load();
    Act(Routes.cmdNewRoute()); // cancelled
    Shared.EnglishUI = 0;
    Act(Routes.cmdNewRoute());
    EXPECT_THAT(Boxes.Shown,
                ElementsAre("|New Route", "Data error|Please enter a route name !", "|Neue Strecke",
                            "Eingabefehler|Bitte eine Streckenbezeichnung eingeben !"));
    EXPECT_THAT(Numbers("Route"), IsEmpty());
}

TEST_F(RouteEditingTest, PointsAreInsertedBehindTheCurrentOneAndBecomeCurrent) {
    Load();
    Add("bonn"); // there is no route
    NewRoute("A");
    Routes.ShowRouteOn = true;
    for (const char* name : {"Bonn", "Zug", "Cork"}) Add(name);
    EXPECT_THAT(Numbers("GpsPoints"), ElementsAre("1 Bonn", "2 Zug", "3 Cork"));
    EXPECT_EQ(PlaceInRoute(), "3Cork");
    Routes.RoutePointsSet.MoveFirst();
    Add("aachen");
    Add("aachen");
    EXPECT_THAT(
        Rows("SELECT CAST(Nummer AS INTEGER), RouteID, PointID, Name, Lat, Long FROM GpsPoints ORDER BY 1"),
        ElementsAre("1 1 1 Bonn 50.44 7.06", "2 1 3 aachen 50.4633 6.0512", "3 1 3 aachen 50.4633 6.0512",
                    "4 1 2 Zug 47.1 8.31", "5 1 4 Cork -33.5 -8.3"));
    EXPECT_EQ(PlaceInRoute(), "3aachen");
    EXPECT_EQ(Asked[PlanEffect::Redraw], 5);
    Points.tWaypoint = {"", "Moved", "1", "1"};
    Act(Points.cmdChange());
    EXPECT_EQ(Numbers("GpsPoints")[1], "2 aachen"); // a route keeps its copies
}

TEST_F(RouteEditingTest, APointComesBehindTheCurrentOneAlsoBesideAGap) {
    AddRoute("A", {6.3, 7.0, 7.3});
    Sql("UPDATE GpsPoints SET Nummer = Nummer * 3"); // as imports have left it
    Load();
    Routes.RoutePointsSet.MoveNext();
    Add("Bonn");
    EXPECT_THAT(Numbers("GpsPoints"), ElementsAre("1 P1", "2 P2", "3 Bonn", "4 P3"));
    EXPECT_EQ(PlaceInRoute(), "3Bonn");
}

TEST_F(RouteEditingTest, AfterAPointWasPutInOrTakenOutTheKeysAreWithTheWaypoints) {
    Load();
    NewRoute("A");
    NewRoute("B");
    EXPECT_EQ(Asked[PlanEffect::FocusRoutes], 1);
    EXPECT_EQ(Asked[PlanEffect::FocusWaypoints], 0); // a new route is named, not yet filled
    for (const char* name : {"Bonn", "Zug"}) Add(name);
    EXPECT_EQ(Asked[PlanEffect::FocusWaypoints], 2);
    for (int i = 0; i < 3; ++i) Act(Routes.cmdDeleteWaypoint());
    EXPECT_EQ(Asked[PlanEffect::FocusWaypoints], 4); // the third had nothing to delete
}

TEST_F(RouteEditingTest, ARouteWithoutPointsShowsNoLengthOfAnother) {
    AddRoute("A", {6.3, 7.0});
    Load();
    Routes.lblRouteDistanz = "107 NM";
    NewRoute("B");
    EXPECT_EQ(Routes.lblRouteDistanz, "");
    Routes.lblRouteDistanz = "107 NM";
    Routes.RoutesSet.MoveFirst(); // has points: drawing writes it
    EXPECT_EQ(Routes.lblRouteDistanz, "107 NM");
    Routes.RoutesSet.MoveNext();
    EXPECT_EQ(Routes.lblRouteDistanz, "");
    Routes.RoutesSet.MoveFirst();
    Routes.lblRouteDistanz = "107 NM";
    Boxes.Answer = true;
    Act(Routes.cmdRouteDelete());
    Act(Routes.cmdRouteDelete());
    EXPECT_EQ(Routes.lblRouteDistanz, ""); // there is no route any more
}

TEST_F(RouteEditingTest, DeletingAPointLeavesTheNextOneCurrentAndTheLastOneItsForerunner) {
    AddRoute("A", {6.3, 7.0, 7.3});
    Load();
    Routes.RoutePointsSet.MoveNext();
    Act(Routes.cmdDeleteWaypoint());
    EXPECT_THAT(Numbers("GpsPoints"), ElementsAre("1 P1", "2 P3"));
    EXPECT_EQ(PlaceInRoute(), "2P3");
    Act(Routes.cmdDeleteWaypoint());
    EXPECT_EQ(PlaceInRoute(), "1P1");
    EXPECT_EQ(Asked[PlanEffect::Redraw], 2);
    Act(Routes.cmdDeleteWaypoint());
    Act(Routes.cmdDeleteWaypoint());
    EXPECT_THAT(Numbers("GpsPoints"), IsEmpty());
    EXPECT_EQ(Asked[PlanEffect::Redraw], 2); // the line stays until the next redraw
}

TEST_F(RouteEditingTest, TheSelectedRouteShowsItsPointsAndOnlyThoseGoWithIt) {
    AddRoute("A", {6.3, 7.0});
    AddRoute("B", {7.3});
    Load();
    EXPECT_EQ(PlaceInRoute(), "1P1");
    EXPECT_EQ(Asked[PlanEffect::Redraw], 0);
    Act(Routes.cmdshowRoute());
    Routes.RoutesSet.MoveNext(); // as a click in the grid does
    EXPECT_EQ(Routes.RoutePointsSet.RecordCount(), 1);
    EXPECT_EQ(Asked[PlanEffect::Redraw], 2);
    Act(Routes.cmdRouteDelete()); // answered with No
    EXPECT_EQ(Routes.RoutesSet.RecordCount(), 2);
    Boxes.Answer = true;
    Act(Routes.cmdRouteDelete());
    EXPECT_EQ(Boxes.Shown.back(), "|The Route - B - will be deleted ?");
    EXPECT_EQ(Selected() + std::to_string(Routes.RoutePointsSet.RecordCount()), "A2");
    Shared.EnglishUI = 0;
    Act(Routes.cmdRouteDelete());
    EXPECT_EQ(Boxes.Shown.back(), "|Soll die Strecke - A - gelöscht werden ?");
    EXPECT_EQ(Routes.RoutePointsSet.RecordCount(), 0);
    EXPECT_THAT(Numbers("GpsPoints"), IsEmpty());
    const std::size_t asked = Boxes.Shown.size();
    AddCurrent();
    for (const auto deed : {&RouteEditing::cmdRouteDelete, &RouteEditing::cmdDeleteWaypoint})
        EXPECT_THAT((Routes.*deed)(), IsEmpty());
    EXPECT_EQ(Boxes.Shown.size(), asked);
}

TEST_F(RouteEditingTest, ANumberHeadSortsAndKeepsTheRow) {
    AddRoute("A", {6.3, 7.0, 7.3});
    AddRoute("B", {7.3});
    Load();
    Routes.PointsHeadClick(1);
    Routes.RoutePointsSet.Sort("Name");
    Routes.RoutePointsSet.MoveLast();
    Routes.PointsHeadClick(0);
    EXPECT_EQ(PlaceInRoute(), "3P3");
    Routes.RoutesSet.MoveLast();
    Routes.RoutesHeadClick(0);
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(Routes.RoutePointsSet.RecordCount(), 1);
}

TEST_F(RouteEditingTest, WhatTheStoreRefusesLeavesListsAsTheyWere) {
    AddRoute("A", {6.3, 7.0, 7.3});
    Load();
    Routes.RoutePointsSet.MoveNext();
    Sql("DELETE FROM Waypoints");
    Points.WaypointsSet.Requery();
    EXPECT_THROW(AddCurrent(), RuntimeError); // no waypoint to copy
    EXPECT_EQ(PlaceInRoute(), "2P2");
    Sql("CREATE TRIGGER Full BEFORE UPDATE ON GpsPoints BEGIN SELECT RAISE(ABORT, 'full'); END");
    EXPECT_THROW(Routes.cmdDeleteWaypoint(), RuntimeError);
    EXPECT_EQ(PlaceInRoute(), "2P2");
    Sql("CREATE TRIGGER Held BEFORE DELETE ON Route BEGIN SELECT RAISE(ABORT, 'held'); END");
    Boxes.Answer = true;
    EXPECT_THROW(Routes.cmdRouteDelete(), RuntimeError);
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(PlaceInRoute(), "2P2");
    EXPECT_THAT(Numbers("GpsPoints"), ElementsAre("1 P1", "2 P2", "3 P3"));
}

} // namespace
} // namespace ornivane
