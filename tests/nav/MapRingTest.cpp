#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

// Three charts of 2000 x 1000 pixels, from west to east, anna 5 to 7° E,
// alpha 6 to 8° E, Berta 6.5 to 8.5° E.
class MapRingTest : public FlyingScreenTest {
protected:
    MapRingTest() {
        Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
            "('Berta.jpg', 51, 50, 6.30, 8.30, 2000, 1000, 1), ('anna.jpg', 51, 50, 5, 7, 2000, 1000, 1), "
            "('off.jpg', 51, 50, 6, 8, 2000, 1000, 0)");
        for (const char* chart : {"anna.jpg", "Berta.jpg"})
            WriteFileAtomically(Folder.Path() / "Karten" / chart, "an image");
    }
    void Redraw(double longitude) {
        Screen->State.CurLong = Longitude(longitude);
        Screen->State.CurLat = Latitude(50.5);
        Screen->UpdateMap();
    }
    std::string Next() const {
        const MapRing& ring = Screen->Ring;
        return std::string(ring.tNextMapShows ? ring.tNextMap : "-") + " " +
               (ring.LblMapNumberShows ? ring.LblMapNumber : "-");
    }
};

TEST_F(MapRingTest, AnnouncesTheNextMapInTheOrderOfNames) {
    FlyingScreen& screen = Start();
    Redraw(7.0);
    EXPECT_EQ(Next(), "- -"); // off
    screen.Map.CenterMap = false;
    screen.cmdMapScroll_Click();
    EXPECT_TRUE(screen.Map.CenterMap);
    EXPECT_EQ(Next(), "anna.jpg 1 / 3"); // alpha, anna, Berta all hold 7° E
    Redraw(6.2);
    EXPECT_EQ(Next(), "anna.jpg -"); // two
    Redraw(7.5);
    EXPECT_EQ(Next(), "Berta.jpg -");
    screen.Ring.tNextMap_MouseDown();
    EXPECT_EQ(Next(), "- -");
    screen.PicMapScroll_Click();
    EXPECT_FALSE(screen.Map.AutoMapSwitch);
    EXPECT_TRUE(screen.Map.CenterMap); // stays
    Redraw(7.5);
    EXPECT_EQ(Next(), "- -");
}

TEST_F(MapRingTest, ChangesAtTheEdgeOfTheChartToTheMapThatWasAnnounced) {
    FlyingScreen& screen = Start();
    Redraw(7.9);
    screen.cmdMapScroll_Click();
    EXPECT_EQ(Next(), "Berta.jpg -");
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    const int before = Surface.Paints;
    Redraw(7.995); // 5 pixels of the image from the edge, 4 of the view
    EXPECT_EQ(screen.Map.Name(), "Berta.jpg");
    EXPECT_EQ(screen.Map.cmbMaps, "Berta.jpg");
    EXPECT_EQ(Surface.Paints, before + 2); // drawn anew at once: what shows is the map that is active
    EXPECT_EQ(Surface.Source.X, screen.Map.View.SX);
    EXPECT_EQ(Next(), "alpha.jpg -");
    Redraw(8.2); // alone: it still is the next one, and nothing is announced
    EXPECT_EQ(Next(), "- -");
    EXPECT_EQ(screen.Ring.tNextMap, "Berta.jpg");
    Redraw(20); // none covers it: the present map stays
    EXPECT_EQ(screen.Map.Name(), "Berta.jpg");
    EXPECT_TRUE(screen.Ring.listNextMap.empty());
    EXPECT_GT(Surface.Count("line"), 0); // the aircraft is drawn where it is, far outside
}

// The sheet is blank for one redraw, and the chart is not tried again and again at the edge of another one.
TEST_F(MapRingTest, LeavesAChartThatCannotBeShownByItself) {
    Sql("UPDATE Maps SET Breite = 0 WHERE Name = 'Berta.jpg'");
    FlyingScreen& screen = Start();
    Redraw(7.9);
    screen.cmdMapScroll_Click();
    Redraw(7.995);
    EXPECT_EQ(screen.Map.Name(), "Berta.jpg");
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    Redraw(7.995);
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    EXPECT_EQ(Surface.Count("circle"), 1) << "the aircraft";
    EXPECT_TRUE(screen.Map.CenterMap);
    for (int i = 0; i < 3; ++i) Redraw(7.996);
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    EXPECT_EQ(Boxes.Shown.size(), 1u);
    screen.cmbMaps_Click("Berta.jpg"); // by hand it is tried again
    EXPECT_EQ(Boxes.Shown.size(), 2u);
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg"); // and automatic switching goes on
    screen.PicMapScroll_Click();
    screen.cmbMaps_Click("Berta.jpg");
    Redraw(8.2);
    screen.cmdMapScroll_Click(); // no other one covers the aircraft
    EXPECT_EQ(Surface.Drawn, std::vector<std::string>{"cls"});
    EXPECT_EQ(Boxes.Shown.size(), 3u);
    Redraw(7.0);
    EXPECT_NE(screen.Map.Name(), "Berta.jpg");
    EXPECT_EQ(Surface.Count("circle"), 1);
}

TEST_F(MapRingTest, AnnouncesNoChartThatHasLeftTheCatalogue) {
    FlyingScreen& screen = Start();
    Redraw(7.0);
    screen.cmdMapScroll_Click();
    ASSERT_EQ(Next(), "anna.jpg 1 / 3");
    screen.Form_Deactivate();
    Sql("UPDATE Maps SET Active = 0");
    Shared.ChartsChanged.Raise();
    screen.Form_Activate();
    EXPECT_EQ(Next(), "- -");
    screen.StepRing();
    screen.Form_Deactivate();
    Sql("UPDATE Maps SET Active = 1 WHERE Name = 'Berta.jpg'");
    Shared.ChartsChanged.Raise();
    screen.Form_Activate();
    EXPECT_EQ(screen.Map.Name(), "Berta.jpg");
    EXPECT_EQ(Next(), "- -"); // the only one
}

TEST_F(MapRingTest, StepsByHandAroundTheRing) {
    FlyingScreen& screen = Start();
    screen.StepRing(); // off
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    Redraw(6.75);
    screen.cmdMapScroll_Click();
    for (const char* name : {"anna.jpg", "Berta.jpg", "alpha.jpg", "anna.jpg"}) {
        screen.StepRing();
        EXPECT_EQ(screen.Map.Name(), name);
    }
    EXPECT_FALSE(ProgressBar.Visible);
    Redraw(20);
    screen.StepRing(); // nothing covers the aircraft
    EXPECT_EQ(screen.Map.Name(), "anna.jpg");
}

} // namespace
} // namespace ornivane
