#include "common/SettingsFiles.h"
#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

class MapChoiceTest : public FlyingScreenTest {};

TEST_F(MapChoiceTest, AFirstStartTakesTheFirstMapInNameOrder) {
    FlyingScreen& screen = Start();
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    EXPECT_EQ(screen.Map.cmbMaps, "alpha.jpg");
    EXPECT_EQ(screen.Map.MapNames, (std::vector<std::string>{"alpha.jpg", "Zulu.JPG"}));
    EXPECT_EQ(ReadLastChoice(Folder.Path()), (LastChoice{"demo.bmp", std::nullopt}));
    EXPECT_EQ(Surface.Source, (PixelRect{0, 0, 1000, 500}));
    EXPECT_FALSE(ProgressBar.Visible);
}

TEST_F(MapChoiceTest, EveryMapKeepsItsViewOverSwitchesAndRestarts) {
    FlyingScreen& screen = Start();
    screen.Map.CenterMap = false;
    screen.SetSlide(-50);
    screen.Pan(-120, -60);
    screen.cmbMaps_Click("zulu.jpg"); // the store's case differs, the file's too
    EXPECT_EQ(screen.Map.Name(), "Zulu.JPG");
    EXPECT_EQ(Storage.Asked.back(), "zulu.jpg");
    EXPECT_EQ(screen.Map.SlideMap, 0);
    screen.SetSlide(100);
    screen.Form_Deactivate();
    EXPECT_EQ(ReadLastChoice(Folder.Path()).Map, "Zulu.JPG");

    FlyingScreen& again = Start();
    EXPECT_EQ(again.Map.Name(), "Zulu.JPG");
    EXPECT_EQ(again.Map.SlideMap, 100);
    again.cmbMaps_Click("alpha.jpg");
    EXPECT_EQ(again.Map.View, (SourceRect{120, 60, 500, 250}));
    EXPECT_EQ(again.Map.SlideMap, -50);
    EXPECT_FALSE(again.Map.CenterMap);
}

TEST_F(MapChoiceTest, AFrameWithoutScaleIsToldAndAMissingImageIsNot) {
    for (const char* frame : {"Rechts = 6", "Rechts = 8, Oben = 1e308, Unten = -1e308"}) {
        Sql(std::string("UPDATE Maps SET ") + frame + " WHERE Name = 'Zulu.JPG'");
        Start();
        Boxes.Shown.clear(); // of the chart of the last run
        Screen->cmbMaps_Click("Zulu.JPG");
        EXPECT_EQ(Boxes.Shown,
                  (std::vector<std::string>{
                      "Fehler in Karte|Fehler in Karte: Zulu.JPG - Bitte Koordinaten üperprüfen."}));
        EXPECT_FALSE(Screen->Map.HasMap());
        EXPECT_TRUE(ProgressBar.Visible);
    }
    Boxes.Shown.clear();
    FlyingScreen& screen = *Screen;
    std::filesystem::remove(Folder.Path() / "Karten" / "alpha.jpg");
    screen.cmbMaps_Click("alpha.jpg");
    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_EQ(screen.Map.Sizes.StoreWidth, 2000); // the picture that was there stays
}

// What is drawn or chosen on the geometry of the chart before would be another place than the one it shows.
TEST_F(MapChoiceTest, AChartThatCannotBeShownIsABlankSheetUntilAnotherOneIsChosen) {
    Sql("UPDATE Maps SET \"Höhe\" = NULL WHERE Name = 'Zulu.JPG'");
    AddRoute("R", {6.3, 7.3});
    FlyingScreen& screen = Start();
    Fly(50.5, 7);
    screen.cmdActivateGoto_Click();
    const Readout before = screen.State.lblDistanz;
    screen.Map.CenterMap = false;
    screen.cmbMaps_Click("Zulu.JPG");
    ASSERT_EQ(Boxes.Shown.size(), 1u);
    const std::vector<std::string> blank{"cls"};
    EXPECT_EQ(Surface.Drawn, blank);
    EXPECT_FALSE(screen.Map.HasMap());
    screen.Pan(-50, -50);
    screen.StepZoom(10);
    screen.SetSlide(-20);
    screen.Form_Resize();
    screen.cmdDirectFly_Click();
    screen.SetDirectTarget({10, 10});
    EXPECT_EQ(screen.Route.lblLatx, "");
    screen.picDF_Click();
    screen.State.CurLong = Longitude(7.2);
    screen.UpdateMap();
    EXPECT_EQ(Surface.Drawn, blank);
    EXPECT_NE(screen.State.lblDistanz, before); // the flight goes on
    screen.Form_Deactivate();
    EXPECT_EQ(ReadLastChoice(Folder.Path()).Map, "Zulu.JPG");
    screen.Form_Activate();
    EXPECT_EQ(Surface.Drawn, blank);
    EXPECT_EQ(screen.Map.cmbMaps, "Zulu.JPG");
    screen.cmbMaps_Click("alpha.jpg");
    EXPECT_TRUE(screen.Map.HasMap());
    EXPECT_EQ(Surface.Count("#80FFFF"), 1);
    Sql("UPDATE Maps SET \"Höhe\" = 1000 WHERE Name = 'Zulu.JPG'");
    screen.Form_Activate();
    screen.cmbMaps_Click("Zulu.JPG");
    EXPECT_EQ(screen.Map.View, (SourceRect{0, 0, 1000, 500})); // nothing was remembered of the other's view
}

TEST_F(MapChoiceTest, AChartWithoutANameKeepsNoOtherAway) {
    Sql("INSERT INTO Maps VALUES (NULL, 51, 50, 6, 8, 2000, 1000, 1)");
    FlyingScreen& screen = Start();
    EXPECT_EQ(screen.Map.MapNames.size(), 3u);
    screen.cmbMaps_Click("alpha.jpg");
    EXPECT_EQ(screen.Map.Name(), "alpha.jpg");
    EXPECT_TRUE(screen.Map.HasMap());
}

TEST_F(MapChoiceTest, ADamagedRouteKeepsNeitherTheChartNorTheReceiverAway) {
    AddRoute("R", {6.3, 7.3});
    FlyingScreen& screen = Start();
    screen.cmbRoute_Click("R");
    screen.SetFlag(&DisplayFlags::ShowRoute, true);
    screen.Form_Unload();
    Sql("UPDATE GpsPoints SET Lat = 'north' WHERE Nummer = 2");
    EXPECT_THROW(Start(), RuntimeError); // shown by the form
    EXPECT_TRUE(Screen->Map.HasMap());
    EXPECT_EQ(Screen->Map.MapNames.size(), 2u);
    EXPECT_GT(Surface.Source.Width, 0);
    EXPECT_NE(Notices.Shown.back().find("(data.ovd, R, P2: north)"), std::string::npos);
}

TEST_F(MapChoiceTest, DamagedMemoriesAreReplacedAndLongNamesForgone) {
    WriteFileAtomically(Folder.Path() / "position.crm", "<xml><broken");
    const std::string longName(31, 'x');
    Shared.DataConn.Execute("UPDATE Maps SET Name = ? WHERE Name = 'Zulu.JPG'", {longName});
    FlyingScreen& screen = Start();
    screen.SetSlide(30);
    screen.cmbMaps_Click(longName);
    screen.SetSlide(-30);
    screen.cmbMaps_Click("alpha.jpg");
    EXPECT_EQ(screen.Map.SlideMap, 30);
    screen.cmbMaps_Click(longName);
    EXPECT_EQ(screen.Map.SlideMap, 0);
}

TEST_F(MapChoiceTest, OpensAtTheRouteUntilThereWasAPositionAndKeepsThatOneAfterwards) {
    AddRoute("R", {7.0});
    FlyingScreen& screen = Start();
    EXPECT_NEAR(screen.State.CurLong.Degrees(), 7, 1e-9);
    EXPECT_TRUE(screen.Map.CenterMap); // on the chart from the first redraw on
    EXPECT_EQ(screen.Map.View.SX, 500);
    Fly(50.5, 6.5);
    screen.Readouts.FixLost();
    screen.Form_Deactivate();
    screen.Form_Activate();
    EXPECT_NEAR(screen.State.CurLong.Degrees(), 6.5, 1e-6);
    AddRoute("empty", {});
    screen.Form_Activate();
    screen.cmdActivateGoto_Click();
    screen.cmbRoute_Click("empty"); // an active route without points would end every drawing pass
    EXPECT_FALSE(screen.Route.RouteActive);
    EXPECT_EQ(Surface.Count("w2 #FF0000"), 5);
}

TEST_F(MapChoiceTest, WithoutMapsNothingIsDrawnAndNothingFails) {
    Sql("DELETE FROM Maps");
    FlyingScreen& screen = Start();
    Fly(50.5, 7);
    screen.StepZoom(10);
    screen.Pan(5, 5);
    screen.SetDirectTarget({10, 10});
    screen.Form_Resize();
    screen.Form_Deactivate();
    EXPECT_EQ(Surface.Paints, 0);
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(MapChoiceTest, AnApostropheInANameIsALetterLikeAnyOther) {
    Sql("UPDATE Maps SET Name = 'O''Hara.jpg' WHERE Name = 'Zulu.JPG'");
    AddRoute("D'Artagnan", {6.3, 7.0});
    FlyingScreen& screen = Start();
    screen.cmbRoute_Click("D'Artagnan");
    screen.cmbMaps_Click("O'Hara.jpg");
    FlyingScreen& again = Start();
    EXPECT_EQ(again.Map.Name(), "O'Hara.jpg");
    EXPECT_EQ(again.Route.cmbRoute, "D'Artagnan");
    EXPECT_EQ(again.Route.lblRoute, "19 NM");
}

} // namespace
} // namespace ornivane
