#include <gmock/gmock.h>

#include "planning/PlanningScreenFixture.h"

namespace ornivane {
namespace {

using testing::ElementsAre;

class PlanDrawingTest : public PlanningScreenTest {
protected:
    // A circle in the view; its label tells it apart.
    void AddCircle(int number, const char* type, int low, int high, double lat = 50.45) {
        Shared.LuftraumConn.Execute("INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, LowType, "
                                    "HighType, Drawtype, Lat, Long, arcRad) "
                                    "VALUES (?, 1, ?, ?, ?, '', '', 'DC', ?, 6.30, 3)",
                                    {number, type, low, high, lat});
    }
    void OpenAirfields() {
        FlightFolder::OpenAirfields();
        Shared.AirfieldConn.Execute("INSERT INTO ARPT (ICAO, RWYALen, RWYGLen) VALUES ('EDKB', 1799, 0)");
        Shared.AirfieldConn.Execute("INSERT INTO RWY (ICAO, LENGTH, Surface, rwy, RWYHdg) "
                                    "VALUES ('EDKB', 1799, '0', '11/29', '090')");
        Shared.AirfieldConn.Execute("INSERT INTO ACOM (ICAO, Name, Freq) VALUES ('EDKB', 'INFO', '135.15')");
    }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const std::string& step : Surface.Drawn)
            if (step.starts_with("text")) texts.push_back(step.substr(step.find('[')));
        return texts;
    }
};

TEST_F(PlanDrawingTest, PaintsAirspaceBelowTheRouteAndTheRouteBelowWaypoints) {
    OpenAirspace();
    AddCircle(1, "D", 0, 9000);
    AddWaypoint("Alpha", 50.45, 6.30);
    AddRoute("R", {6.3, 6.4});
    Start().Airspace.tLRHoehe = "4500";
    Screen->RedrawPlan();
    const auto first = [&](const std::string& part) {
        const auto found = std::find_if(Surface.Drawn.begin(), Surface.Drawn.end(),
                                        [&](const auto& step) { return step.find(part) != step.npos; });
        return found - Surface.Drawn.begin();
    };
    EXPECT_LT(first("[ D 0 - 9000 ]"), first("#000080"));
    EXPECT_LT(first("#000080"), first("r4"));
    EXPECT_EQ(Surface.Count("circle"), 2);
    EXPECT_EQ(Surface.Drawn[static_cast<std::size_t>(first("r4")) + 2], "text 410,192 [ Alpha ]");
}

TEST_F(PlanDrawingTest, DrawsAllWaypointsInViewAndMarksTheCurrentRoutePoint) {
    AddWaypoint("Inside", 50.45, 6.30);
    AddWaypoint("Route point", 50.45, 6.36);
    AddWaypoint("At the edge", 50.30, 6.0);
    AddWaypoint("Outside", 50.28, 6.0); // the view ends at 50.30
    AddRoute("R", {6.3, 6.36, 6.4});
    Start();
    Screen->Routes.RoutePointsSet.MoveNext(); // PointID 2
    Screen->RedrawPlan();
    EXPECT_EQ(Surface.Count("circle 400,200 r4 w4 #FF0000"), 1);
    EXPECT_EQ(Surface.Count("circle 400,200 r6 w3 #000000"), 1);
    EXPECT_EQ(Surface.Count("circle 480,200 r4 w4 #FFFF00"), 1);
    EXPECT_EQ(Surface.Count("#FFFF00"), 1);
    EXPECT_EQ(Texts().size(), 3U);
    Screen->Act(Screen->Waypoints.ChooseCategory("none of these")); // a filter of the list, not of the map
    Screen->RedrawPlan();
    EXPECT_EQ(Texts().size(), 3U);
}

TEST_F(PlanDrawingTest, AnAirfieldHasItsRunwayUnderThePointAndNoRadio) {
    OpenAirfields();
    AddWaypoint("EDKB", 50.45, 6.30);
    AddWaypoint("HOME", 50.45, 6.36); // four letters, but no airfield: the rest of the map stays all the same
    AddWaypoint("Zulu", 50.45, 6.42);
    Start();
    EXPECT_THAT(Texts(), ElementsAre("[ EDKB ]", "[ 11/29 - 1799 m  ]", "[ HOME ]", "[ Zulu ]"));
    EXPECT_EQ(Surface.Count("line 400,200 410,200 w6 #C0C0C0"), 1);
    EXPECT_EQ(Surface.Count("circle 400,200 r4 w4 #FF0000"), 1);
    EXPECT_EQ(Surface.Count("text 410,210 [ 11/29"), 1);
}

TEST_F(PlanDrawingTest, DrawsTheSelectedRouteAndAddsUpItsLength) {
    AddRoute("R", {6.3, 7.0, 7.3}); // 30 minutes of the parallel of 50.5° each
    AddRoute("One point", {6.4});
    AddRoute("None", {});
    RouteEditing& routes = Start().Routes;
    EXPECT_EQ(Surface.Count("w6 #000080"), 2);
    EXPECT_EQ(Surface.Count("line 800,400 400,400 w6 #000080"), 1);
    EXPECT_EQ(routes.lblRouteDistanz, "38 NM");
    Screen->Map.SetSlide(-100);
    EXPECT_EQ(Surface.Count("w8 #000080"), 2); // also those that leave the picture
    routes.RoutesSet.MoveNext();
    EXPECT_EQ(Surface.Count("#000080"), 0);
    EXPECT_EQ(routes.lblRouteDistanz, " NM");
    routes.RoutesSet.MoveFirst();
    routes.RoutesSet.MoveLast();
    EXPECT_EQ(routes.lblRouteDistanz, "");
    routes.lblRouteDistanz = "38 NM";
    Screen->RedrawPlan(); // drawing a route without points leaves the length as it was
    EXPECT_EQ(routes.lblRouteDistanz, "38 NM");
    Screen->Act(routes.picShowRoute());
    routes.RoutesSet.MoveFirst();
    EXPECT_EQ(Surface.Count("#000080"), 0);
}

TEST_F(PlanDrawingTest, ShowsAirspaceThatEnclosesTheHeight) {
    OpenAirspace();
    AddCircle(1, "D", 0, 2500);
    AddCircle(2, "C", 2500, 6500);
    AddCircle(3, "A", 0, 1500);        // a traffic pattern
    AddCircle(4, "A", 0, 1500, 51.05); // found only in a widened window
    Sql("DELETE FROM Maps WHERE Name <> 'alpha.jpg'");
    Start();
    struct {
        const char* Height;
        bool Patterns;
        const char* Caption;
        int Labels, Lines;
    } const cases[] = {
        {"-10", true, "", 0, 0},
        {"", true, "", 0, 0}, // no number: like none
        {"-99", false, "Alle Lufträume", 2, 24},
        {"-99", true, "Alle Lufträume", 2, 36},
        {"0", false, "Luftraum in 0 ft", 1, 12},
        {"2500", false, "Luftraum in 2500 ft", 2, 24}, // limits included
        {"2501", false, "Luftraum in 2501 ft", 1, 12}, // and no band around them
        {"6500", true, "Luftraum in 6500 ft", 1, 24},  // patterns have no upper limit
        {"6501", false, "Luftraum in 6501 ft", 0, 0},
        {"2500,5", false, "Luftraum in 2500.5 ft", 1, 12},
    };
    for (const auto& c : cases) {
        Screen->Airspace.tLRHoehe = c.Height;
        Screen->Airspace.tPR = c.Patterns;
        Screen->RedrawPlan();
        EXPECT_EQ(Screen->Airspace.tLR(Shared.Locale), c.Caption);
        EXPECT_EQ(Surface.Count("text"), c.Labels) << c.Height;
        // A circle of 3 NM: twelve sides, and one of no length that closes it.
        EXPECT_EQ(Surface.Count("line "), c.Lines + c.Lines / 12) << c.Height << " " << c.Patterns;
    }
}

TEST_F(PlanDrawingTest, AnArcWithoutDirectionGoesClockwise) {
    OpenAirspace();
    Shared.LuftraumConn.Execute(
        "INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, LowType, HighType, Drawtype, Lat, "
        "Long, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir) VALUES "
        "(1, 1, 'D', 0, 5000, ' GND', '', 'DB', 50.45, 6.30, 50.40, 6.30, 50.45, 6.30001, 50.40, 6.38, "
        "NULL)");
    Start().Airspace.tLRHoehe = "1000";
    Screen->RedrawPlan();
    EXPECT_GE(Surface.Count("line "), 9); // a quarter of a circle and the side that closes it
    EXPECT_THAT(Texts(), ElementsAre("[ D GND - 5000 ]"));
}

TEST_F(PlanDrawingTest, ADamagedLayerLeavesTheOthers) {
    AddWaypoint("Alpha", 50.45, 6.30);
    AddRoute("R", {6.3, 7.0});
    Sql("UPDATE GpsPoints SET Long = NULL WHERE Nummer = 2");
    Start().Airspace.tLRHoehe = "-99"; // and there is no store
    Screen->RedrawPlan();
    EXPECT_THAT(Texts(), ElementsAre("[ Alpha ]"));
    for (int i = 0; i < 20; ++i) Screen->RedrawPlan();
    const std::string route = "Die Strecke ist nicht ganz gezeichnet: es fehlt ein Wert (data.ovd, R, P2).";
    EXPECT_THAT(Notices.Shown, ElementsAre(route)); // that there is no store was told at the start
    OpenAirspace();
    AddCircle(1, "D", 0, 9000);
    Shared.LuftraumConn.Execute("UPDATE Luftraum SET arcRad = NULL");
    for (int i = 0; i < 20; ++i) Screen->RedrawPlan();
    EXPECT_THAT(Notices.Shown,
                ElementsAre(route, "Nicht alle Lufträume sind auf der Karte: es fehlt ein Wert "
                                   "(Luftraum.ovd, Index 1: PNumber 1)."));
    EXPECT_THAT(Texts(), ElementsAre("[ Alpha ]"));
    OpenAirfields();
    AddWaypoint("EDKB", 50.45, 6.36);
    Shared.AirfieldConn.Execute("UPDATE ARPT SET RWYALen = 'x'");
    Screen->RedrawPlan();
    ASSERT_EQ(Notices.Shown.size(), 3U);
    EXPECT_EQ(Notices.Shown[2],
              "Nicht alle Wegpunkte sind gezeichnet: ein Text steht, wo eine Zahl hingehört "
              "(ovdata.ovd, EDKB: x).");
}

} // namespace
} // namespace ornivane
