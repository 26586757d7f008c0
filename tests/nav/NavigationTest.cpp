#include "nav/Navigation.h"

#include <gtest/gtest.h>

#include "nav/SceneDrawing.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/Readouts.h"

namespace ornivane {
namespace {

// The navigation without a screen, on a real store. Of the surface only the size counts: 800 x 400 pixels.
class NavigationTest : public testing::Test, protected FlightFolder {
protected:
    // The chart alpha.jpg in its whole width and a route of three points, flown.
    void Open() {
        MapsSet.Open(Shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
        Map.InitializeData();
        Map.updateMapInfo();
        EXPECT_TRUE(Map.SetSlide(100));
        Map.CenterMap = false;
        Route.OpenRoutes();
        EXPECT_FALSE(Route.Activate().Gone);
        EXPECT_TRUE(Route.cmdActivateGoto_Click().Redraw);
        State.NoFix = false;
        State.HadPosition = true;
        Surface.Drawn.clear();
    }
    NavigationStep StepAt(double longitude, const RedrawOrder& order = {}) {
        State.CurLat = Latitude(50.5);
        State.CurLong = Longitude(longitude);
        return Steps.Step(order);
    }
    std::vector<std::string> Draw(const Scene& scene) {
        Drawing.Draw(scene);
        return Surface.Drawn;
    }

    FlightState State;
    DisplayFlags Flags;
    Recordset MapsSet;
    FakePicture Storage;
    DrawnSurface Surface;
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    SetClock Clock;
    int Chosen = 0;
    ActiveMap Map{{Shared, Shared, Shared.DataConn, MapsSet, Storage, Surface, ProgressBar, Boxes}};
    MapRing Ring{Shared.DataConn, Map, ProgressBar};
    RouteFollowing Route{Shared.DataConn, State, [this] { ++Chosen; }};
    Leg ActiveLeg{State, Clock};
    AirspaceView Airspace{Shared.LuftraumConn, Shared, State, Flags, [] {}};
    DrawingFaults Faults{Shared, [](const std::string&) {}};
    Navigation Steps{{Shared, Shared, State, Flags, Map, Ring, Route, ActiveLeg, Airspace, Faults}};
    SceneDrawing Drawing{Surface, Storage, Shared.LuftraumConn, Faults};
};

TEST_F(NavigationTest, EqualInputsGiveEqualScenesWithoutAnyDrawing) {
    AddRoute("R", {6.30, 7.0, 7.30});
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('W', 50.3, 7.15, ''), ('far', 55, 7, "
        "'')");
    Flags.ShowRoute = true;
    Open();
    const Scene scene = StepAt(7).Picture;
    EXPECT_EQ(StepAt(7).Picture, scene);
    EXPECT_NE(StepAt(7.1).Picture, scene);
    EXPECT_EQ(scene.Route.size(), 3u);
    EXPECT_EQ(scene.ActiveLeg, (Scene::LegLine{{Latitude(50.5), Longitude(7)}, scene.Route[0]}));
    ASSERT_EQ(scene.Waypoints.size(), 1u);
    EXPECT_EQ(scene.Waypoints[0].Name, "W");
    ASSERT_TRUE(scene.Aircraft);
    EXPECT_EQ(scene.Aircraft->At, (Point{400, 200}));
    EXPECT_EQ(Surface.Paints, 0);
    EXPECT_TRUE(Surface.Drawn.empty());
}

TEST_F(NavigationTest, AScenesDrawingIsAlwaysTheSameAndChangesNothing) {
    AddRoute("R", {6.30, 7.0});
    Flags.ShowRoute = Flags.ShowNames = true;
    Open();
    const Scene scene = StepAt(6.45).Picture; // 1.9 NM from the first point
    const FlightState state = State;
    const RouteShown controls = Route;
    const SourceRect view = Map.View;
    const auto drawn = Draw(scene);
    EXPECT_FALSE(drawn.empty());
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Draw(scene), drawn);
    EXPECT_EQ(State, state);
    EXPECT_TRUE(static_cast<const RouteShown&>(Route) == controls);
    EXPECT_EQ(Map.View, view);
    EXPECT_TRUE(StepAt(6.44).Passed);
    EXPECT_EQ(Draw(scene), drawn) << "a scene stays what it was";
}

TEST_F(NavigationTest, APassedPointIsTheReceiversStepAndNoChoiceOfThePilot) {
    AddRoute("R", {6.30, 7.0});
    Open();
    EXPECT_FALSE(StepAt(6.45).Passed);
    EXPECT_TRUE(StepAt(6.44).Passed);
    EXPECT_EQ(Route.RoutePointsSet.AbsolutePosition(), 2);
    EXPECT_TRUE(Route.RowSelected);
    EXPECT_EQ(State.lblDistanz, "2.3 NM") << "of the point that was passed";
    EXPECT_EQ(Route.lblRemDist, "0.0 NM") << "the list stands on the last point already";
    EXPECT_EQ(Chosen, 0);
    EXPECT_TRUE(Route.cmdPrev_Click().FocusMap);
    EXPECT_EQ(Chosen, 1);
}

TEST_F(NavigationTest, AnErrorLeavesOutWhatWouldLieAboveItAndTheSearch) {
    AddRoute("R", {6.30, 7.0, 7.30});
    Open();
    Flags.ShowRoute = true;
    Map.AutoMapSwitch = true;
    EXPECT_TRUE(StepAt(7).Picture.Aircraft);
    const Readout leg = State.lblDistanz;
    Ring.listNextMap.clear();
    Sql("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 3");
    const Scene scene = StepAt(6.8).Picture;
    EXPECT_EQ(scene.Route.size(), 2u);
    EXPECT_FALSE(scene.ActiveLeg || scene.Aircraft);
    EXPECT_NE(scene.Fault.find("(data.ovd, R, P3: north)"), std::string::npos) << scene.Fault;
    EXPECT_EQ(State.lblDistanz, leg) << "the route comes before the leg";
    EXPECT_TRUE(Ring.listNextMap.empty());
}

TEST_F(NavigationTest, AfterAChangeOfChartsTheSceneIsThatOfTheNewOne) {
    Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
        "('Berta.jpg', 51, 50, 7, 9, 2000, 1000, 1)");
    AddRoute("R", {6.30});
    Open();
    Map.AutoMapSwitch = true;
    EXPECT_FALSE(StepAt(7.5).ChangesChart) << "announces it";
    const NavigationStep before = StepAt(7.995);
    EXPECT_TRUE(before.ChangesChart && before.Picture.Aircraft);
    EXPECT_EQ(before.Picture.Transform, Map.Transform());
    EXPECT_EQ(Map.Name(), "alpha.jpg");
    const Scene scene = Steps.ChangeChart({.PaintsChart = false}).Picture;
    EXPECT_EQ(Map.Name(), "Berta.jpg");
    EXPECT_EQ(scene.Transform, Map.Transform());
    EXPECT_TRUE(scene.PaintsChart && scene.Aircraft);
    Sql("UPDATE Maps SET Breite = 0 WHERE Name = 'Berta.jpg'");
    MapsSet.Requery();
    Map.FindMap("Berta.jpg");
    Map.InitializeData();
    EXPECT_FALSE(StepAt(20).Picture.Transform) << "no chart: the leg alone";
    EXPECT_TRUE(State.lblDistanz.HasNumber());
}

TEST_F(NavigationTest, OverlaysPaintTheChartOnlyWhenTheViewHasMoved) {
    AddRoute("R", {6.30});
    Open();
    EXPECT_TRUE(Map.SetSlide(0));
    const RedrawOrder overlays{.PaintsChart = false};
    EXPECT_FALSE(StepAt(7, overlays).Picture.PaintsChart);
    Map.CenterMap = true;
    EXPECT_TRUE(StepAt(7, overlays).Picture.PaintsChart);
    EXPECT_FALSE(StepAt(7, overlays).Picture.PaintsChart);
    EXPECT_TRUE(Map.CenterMap);
    StepAt(5.9, overlays);
    EXPECT_FALSE(Map.CenterMap) << "off the chart";
}

} // namespace
} // namespace ornivane
