#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

// Two charts of 2000 x 1000 pixels that share an edge and do not overlap: alpha 6 to 8° E, east 8 to 10° E.
class CentringTest : public FlyingScreenTest {
protected:
    CentringTest() {
        AddChart("east.jpg", 50, 51, 8, 10);
        WriteFileAtomically(Folder.Path() / "Karten" / "east.jpg", "an image");
    }
    void RedrawAt(double longitude) {
        Screen->State.CurLat = Latitude(50.5);
        Screen->State.CurLong = Longitude(longitude);
        Screen->UpdateMap();
    }
};

TEST_F(CentringTest, AutomaticSwitchingStaysCentredAcrossChartsThatOnlyTouch) {
    FlyingScreen& screen = Start();
    Fly(50.5, 7.5);
    screen.cmdMapScroll_Click();
    for (const auto& [from, to, chart] : {std::tuple{7.9, 8.3, "east.jpg"}, // without a remembered view
                                          {8.3, 7.7, "alpha.jpg"},          // with one
                                          {7.7, 8.3, "east.jpg"}}) {
        RedrawAt(from);
        RedrawAt(to);
        RedrawAt(to); // the next map is announced in one redraw and comes in the next one
        EXPECT_EQ(screen.Map.Name(), chart);
        EXPECT_TRUE(screen.Map.CenterMap) << from << " to " << to;
        EXPECT_EQ(Surface.Count("circle"), 1) << "the aircraft";
    }
    EXPECT_TRUE(Notices.Shown.empty()); // centring never stayed away
    RedrawAt(10.5);                     // there the charts end
    RedrawAt(10.6);
    EXPECT_FALSE(screen.Map.CenterMap);
    EXPECT_EQ(Notices.Shown, (std::vector<std::string>{
                                 "Das Flugzeug ist nicht auf der Karte east.jpg; sie folgt ihm nicht."}));
    RedrawAt(9.5);
    RedrawAt(9.5);
    EXPECT_TRUE(screen.Map.CenterMap);
}

TEST_F(CentringTest, TellsOnceThatTheAircraftLeftTheChartAndAtEachPressOfTheButtonWhyNothingHappens) {
    FlyingScreen& screen = Start();
    EXPECT_TRUE(Notices.Shown.empty()); // the position before the first fix has left nothing
    Fly(50.5, 7.5);
    screen.cmdKartezentrieren_Click();
    EXPECT_TRUE(Notices.Shown.empty());
    RedrawAt(8.5);
    RedrawAt(8.6);
    screen.Readouts.FixLost(); // redraws as well
    const std::string offChart = "Das Flugzeug ist nicht auf der Karte alpha.jpg; sie folgt ihm nicht.";
    EXPECT_EQ(Notices.Shown, std::vector<std::string>{offChart});
    screen.cmdKartezentrieren_Click();
    EXPECT_EQ(Notices.Shown, (std::vector<std::string>{offChart, offChart}));
    Shared.EnglishUI = 1;
    screen.cmdKartezentrieren_Click();
    EXPECT_EQ(Notices.Shown.back(), "The aircraft is off the chart alpha.jpg; the chart does not follow it.");
    EXPECT_FALSE(screen.Map.CenterMap);
}

TEST_F(CentringTest, WithoutAPositionTheButtonSaysThatThereIsNone) {
    FlyingScreen& screen = Start();
    screen.cmdKartezentrieren_Click();
    EXPECT_EQ(Notices.Shown, std::vector<std::string>{
                                 "Noch keine Position vom GPS: die Karte kann nicht zentriert werden."});
    EXPECT_FALSE(screen.Map.CenterMap);
}

TEST_F(CentringTest, TheButtonAlsoSpeaksWhileTheNextChartIsStillToCome) {
    FlyingScreen& screen = Start();
    Fly(50.5, 7.5);
    screen.cmdMapScroll_Click();
    RedrawAt(8.3);
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    EXPECT_TRUE(Notices.Shown.empty());
    screen.Ring.tNextMap.clear(); // the redraw of the press does not change the chart
    screen.cmdKartezentrieren_Click();
    EXPECT_EQ(Notices.Shown.size(), 1u);
}

} // namespace
} // namespace ornivane
