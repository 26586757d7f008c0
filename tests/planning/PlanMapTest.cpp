#include "common/SettingsFiles.h"
#include "planning/PlanningScreenFixture.h"

namespace ornivane {
namespace {

using enum NorthSouth;
using enum EastWest;

class PlanMapTest : public PlanningScreenTest {
protected:
    void Choose(const char* map) { Screen->Act(Screen->Map.cmbMaps_Change(map)); }
};

TEST_F(PlanMapTest, StartsWithTheMapOfTheLastFlightElseTheFirst) {
    EXPECT_EQ(Start().Map.cmbMaps, "alpha.jpg");
    WriteLastChoice(Folder.Path(), {"Zulu.JPG", "a route"});
    EXPECT_EQ(Start().Map.cmbMaps, "Zulu.JPG");
    EXPECT_EQ(ReadLastChoice(Folder.Path()).Route, "a route"); // only read here
    WriteLastChoice(Folder.Path(), {"gone.jpg", "a route"});
    EXPECT_EQ(Start().Map.cmbMaps, "alpha.jpg");
    EXPECT_EQ(Screen->Map.MapNames, (std::vector<std::string>{"alpha.jpg", "Zulu.JPG"}));
    EXPECT_EQ(EntryFocused, 3);
}

TEST_F(PlanMapTest, TellsThePositionUnderTheCursorInEachQuadrant) {
    AddChart("south.jpg", -34, -33, -60, -58);
    PlanMap& map = Start().Map;
    EXPECT_EQ(map.lblLatx, "---");
    const auto at = [&](const Point& pointer) {
        Screen->MouseMove(pointer, false);
        return std::array{map.lblLatx, map.lblNS, map.lblLongx, map.lblEW};
    };
    using Shown = std::array<std::string, 4>;
    EXPECT_EQ(at({400, 200}), (Shown{"50.45", "N", "6.3", "E"}));
    EXPECT_EQ(at({403.3, 203.3}), (Shown{"50.4475", "N", "6.3025", "E"})) << "to four decimals";
    Choose("south.jpg");
    // 33.25° S 59.5° W: stored values below zero count their minutes from the next whole degree down.
    EXPECT_EQ(at({400, 200}), (Shown{"33.55", "S", "59.7", "W"}));
    EXPECT_EQ(EntryFocused, 1);
}

TEST_F(PlanMapTest, DragsByThePointerUnlessAllOfTheMapShows) {
    PlanMap& map = Start().Map;
    Screen->MouseMove({300, 300}, true); // pressed somewhere else
    EXPECT_EQ(map.View, (SourceRect{0, 0, 1000, 500}));
    map.MouseDown({300, 300});
    Screen->MouseMove({260, 290}, true);
    EXPECT_EQ(map.View, (SourceRect{40, 10, 1000, 500}));
    EXPECT_EQ(Surface.Source, (PixelRect{40, 10, 1000, 500}));
    Screen->MouseMove({250, 290}, true); // from the last place, not from the first
    EXPECT_EQ(map.View.SX, 50);
    Screen->MouseMove({-5000, -5000}, true);
    EXPECT_EQ(map.View, (SourceRect{1000, 500, 1000, 500})); // the image ends there
    Screen->MouseMove({9000, 9000}, true);
    EXPECT_EQ(map.View, (SourceRect{0, 0, 1000, 500}));
    map.MouseUp();
    map.SetSlide(100);
    map.MouseDown({300, 300});
    Screen->MouseMove({200, 200}, true);
    EXPECT_EQ(map.View, (SourceRect{0, 0, 2000, 1000}));
}

TEST_F(PlanMapTest, CentresOnThePositionInTheEntryFields) {
    PlanMap& map = Start().Map;
    struct {
        const char *Lat, *Long;
        NorthSouth NS;
        EastWest EW;
        SourceRect View;
    } const cases[] = {
        {"50.30", "7.00", North, East, {500, 250, 1000, 500}},
        {"50,30", "7,12", North, East, {700, 250, 1000, 500}},  // the other separator
        {"50.00", "8.00", North, East, {1000, 500, 1000, 500}}, // the corner of the image
        {"50.30", "7.00", South, East, {500, 500, 1000, 500}},  // far to the south
        {"50.30", "7.00", North, West, {0, 250, 1000, 500}},
        {"50.30", "", North, East, {0, 250, 1000, 500}}, // no position: where it was
        {"north", "7.00", North, East, {0, 250, 1000, 500}},
    };
    for (const auto& c : cases) {
        Enter(c.Lat, c.Long, c.NS, c.EW);
        const int before = Surface.Paints;
        Screen->CenterOnWaypoint();
        EXPECT_EQ(map.View, c.View) << c.Lat << Letter(c.NS) << c.Long << Letter(c.EW);
        EXPECT_EQ(Surface.Paints, before + 1);
    }
}

TEST_F(PlanMapTest, ADoubleClickBeginsAWaypointAndStoresNothing) {
    AddWaypoint("Alpha", 50.30, 7.0);
    PlanMap& map = Start().Map;
    map.MouseDown({400, 200});
    map.MouseUp();
    Screen->DblClick({400, 200});
    Screen->MouseMove({403, 202}, true); // the second press is no drag
    EXPECT_EQ(map.View.SX, 0);
    const WaypointEditing& entry = Screen->Waypoints;
    EXPECT_EQ(entry.tWaypoint, (std::array<std::string, 4>{"", "", "50.45", "6.3"}));
    EXPECT_EQ(entry.tNS, North);
    EXPECT_EQ(entry.tEW, East);
    EXPECT_EQ(EntryFocused, 2);
    EXPECT_EQ(Surface.Drawn[Surface.Drawn.size() - 2], "circle 400,200 r4 w4 #0000FF");
    EXPECT_EQ(Surface.Drawn.back(), "circle 400,200 r6 w3 #000000");
    EXPECT_EQ(Screen->Waypoints.WaypointsSet.RecordCount(), 1);
}

TEST_F(PlanMapTest, ADoubleClickOnAPlaceThatCannotBeToldIsAnError) {
    Start();
    Surface.Width = 0;
    EXPECT_THROW(Screen->DblClick({400, 200}), RuntimeError);
    EXPECT_EQ(EntryFocused, 1);
}

TEST_F(PlanMapTest, MeasuresFromTheEntryAndLeavesNoTrails) {
    AddWaypoint("Alpha", 50.30, 6.30);
    PlanMap& map = Start().Map;
    Enter("50.45", "6.30", South, West); // the hemispheres do not count for the start
    Screen->Act(map.cmdMessen_Click());
    const std::vector<std::string> plan = Surface.Drawn;
    const int paints = Surface.Paints;
    for (const double x : {500.0, 600.0, 700.0}) Screen->MouseMove({x, 200}, false);
    ASSERT_EQ(Surface.Drawn.size(), plan.size() + 2);
    EXPECT_EQ(Surface.Drawn[plan.size()], "circle 400,200 r1 w3 #000000");
    EXPECT_EQ(Surface.Drawn.back(), "line 400,200 700,200 w3 #000000");
    EXPECT_EQ(Surface.Paints, paints); // no redraw of what has not changed
    EXPECT_EQ(map.Measuring.lblDistanz, "14.2 NM");
    EXPECT_EQ(map.Measuring.lblKurs, "90 °");
    Screen->MouseMove({400, 200}, false); // the start itself
    EXPECT_EQ(map.Measuring.lblDistanz, "0.0 NM");
    EXPECT_EQ(map.Measuring.lblKurs, "90 °");
    Enter("x", "6.30");
    Screen->MouseMove({500, 200}, false); // nothing to measure from
    EXPECT_EQ(Surface.Drawn, plan);
    Enter("50.45", "6.30");
    map.MouseDown({400, 200}); // a drag moves plan and line together
    Screen->MouseMove({390, 200}, true);
    EXPECT_EQ(Surface.Source.X, 10);
    EXPECT_EQ(Surface.Drawn.back(), "line 392,200 390,200 w3 #000000");
    Screen->Act(map.picMessen_Click());
    EXPECT_EQ(Surface.Count("line "), 0);
    Screen->MouseMove({600, 200}, false);
    EXPECT_EQ(Surface.Count("line "), 0);
}

TEST_F(PlanMapTest, TheViewStaysOverAVisitToAnotherScreen) {
    PlanMap& map = Start().Map;
    map.SetSlide(-40);
    map.MouseDown({300, 300});
    Screen->MouseMove({200, 250}, true);
    const SourceRect view = map.View;
    Screen->Airspace.tLRHoehe = "4500";
    const auto visitAnotherScreen = [&](const std::string& change) {
        Screen->Form_Deactivate();
        Sql(change);
        Screen->Form_Activate();
    };
    visitAnotherScreen("UPDATE Maps SET Active = 1 WHERE Name = 'unused.jpg'");
    EXPECT_EQ(map.View, view);
    EXPECT_EQ(map.SlideMap, -40);
    EXPECT_EQ(map.MapNames.size(), 3U);
    EXPECT_EQ(ReadPlanningHeight(Folder.Path()), "4500");
    // The chart was calibrated anew: the same view of it, points on the new frame.
    visitAnotherScreen("UPDATE Maps SET Rechts = 10 WHERE Name = 'alpha.jpg'");
    EXPECT_EQ(map.View, view);
    EXPECT_NEAR(map.Transform().PositionOfView({0, 0}).Long.Degrees(), 6 + view.SX / 500, 1e-6);
    visitAnotherScreen("DELETE FROM Maps WHERE Name = 'alpha.jpg'");
    EXPECT_EQ(map.cmbMaps, "unused.jpg");
    visitAnotherScreen("DELETE FROM Maps");
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    visitAnotherScreen("INSERT INTO Maps VALUES ('new.jpg', 51, 50, 6, 8, 2000, 1000, 1)");
    EXPECT_EQ(map.cmbMaps, "new.jpg");
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(PlanMapTest, WithoutMapsNothingIsDrawnAndNothingFails) {
    Sql("DELETE FROM Maps");
    PlanMap& map = Start().Map;
    map.MouseDown({10, 10});
    Screen->MouseMove({20, 20}, true);
    Screen->DblClick({20, 20});
    Screen->Act(map.cmdMessen_Click());
    Screen->MouseMove({30, 20}, false);
    Choose("alpha.jpg");
    Screen->CenterOnWaypoint();
    Screen->Form_Resize();
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    EXPECT_EQ(map.lblLatx, "---");
    Screen->Form_Deactivate();
}

TEST_F(PlanMapTest, AChartThatCannotBeShownIsToldOnceAndIsABlankSheetUntilAnotherOneIsChosen) {
    AddWaypoint("Alpha", 50.30, 6.30);
    Sql("UPDATE Maps SET Rechts = Links WHERE Name = 'Zulu.JPG'");
    PlanMap& map = Start().Map;
    map.MouseDown({300, 300});
    Screen->MouseMove({260, 290}, true);
    Choose("Zulu.JPG");
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>{
                               "Fehler in Karte|Fehler in Karte: Zulu.JPG - Bitte Koordinaten üperprüfen."});
    const std::vector<std::string> blank{"cls"};
    const auto useTheMouse = [&] {
        map.MouseDown({300, 300});
        Screen->MouseMove({200, 250}, true);
        map.MouseUp();
        Screen->DblClick({200, 250});
        Screen->RedrawPlan();
    };
    useTheMouse();
    EXPECT_EQ(Surface.Drawn, blank);
    EXPECT_EQ(map.lblLatx, "---");
    EXPECT_NE(Screen->Waypoints.tWaypoint[1], ""); // no waypoint was begun
    Screen->Form_Deactivate();
    Screen->Form_Activate();
    useTheMouse();
    EXPECT_EQ(Surface.Drawn, blank);
    EXPECT_EQ(map.cmbMaps, "Zulu.JPG");
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    Screen->Form_Deactivate();
    Sql("UPDATE Maps SET Rechts = 8 WHERE Name = 'Zulu.JPG'");
    Screen->Form_Activate();
    EXPECT_EQ(map.View, (SourceRect{0, 0, 1000, 500})); // not the other one's view
    EXPECT_EQ(Surface.Source, (PixelRect{0, 0, 1000, 500}));
    Choose("alpha.jpg");
    EXPECT_EQ(Surface.Count("[ Alpha ]"), 1);
}

TEST_F(PlanMapTest, AChartThatWasOutOfTheCatalogueForAMomentShowsAgain) {
    Sql("UPDATE Maps SET Active = 0 WHERE Name <> 'alpha.jpg'");
    PlanMap& map = Start().Map;
    map.SetSlide(30);
    const SourceRect view = map.View;
    Screen->Form_Deactivate();
    for (const int active : {0, 1}) { // the tick is taken and set again
        Shared.DataConn.Execute("UPDATE Maps SET Active = ? WHERE Name = 'alpha.jpg'", {active});
        Shared.ChartsChanged.Raise();
    }
    const int paints = Surface.Paints;
    Screen->Form_Activate();
    EXPECT_TRUE(map.HasMap());
    EXPECT_EQ(map.View, view);
    EXPECT_GT(Surface.Paints, paints);
}

} // namespace
} // namespace ornivane
