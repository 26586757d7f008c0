#include "map/ChartView.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"

namespace ornivane {
namespace {

class ChartViewTest : public testing::Test, protected FlightFolder {
protected:
    ChartViewTest() { List.Open(Shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC"); }
    void Show(const std::string& name) {
        Chart.FindMap(name);
        Chart.InitializeData();
    }

    Recordset List;
    FakePicture Storage;
    DrawnSurface Surface;
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    ChartView Chart{{Shared, Shared, Shared.DataConn, List, Storage, Surface, ProgressBar, Boxes}};
};

TEST_F(ChartViewTest, AViewMovesOnlyOnAChartThatShowsAndDrawsNothingItself) {
    EXPECT_FALSE(Chart.ApplyZoom() || Chart.SetSlide(50) || Chart.Pan(10, 10));
    EXPECT_THROW(Chart.Transform(), RuntimeError);
    Show("alpha.jpg");
    EXPECT_EQ(Chart.View, (SourceRect{0, 0, 1000, 500}));
    EXPECT_TRUE(Chart.SetSlide(1000));
    EXPECT_EQ(Chart.SlideMap, SlideMax);
    EXPECT_EQ(Chart.View, (SourceRect{0, 0, 2000, 1000}));
    EXPECT_FALSE(Chart.Pan(10, 10)) << "the whole width is in view";
    EXPECT_TRUE(Chart.SetSlide(0) && Chart.Pan(-30, -20));
    EXPECT_EQ(Chart.View, (SourceRect{30, 20, 1000, 500}));
    EXPECT_TRUE(Surface.Drawn.empty());
}

TEST_F(ChartViewTest, AnImageIsReadAgainOnlyWhenItHasChanged) {
    Show("alpha.jpg");
    Show("alpha.jpg");
    EXPECT_EQ(Storage.Asked.size(), 1u);
    WriteFileAtomically(Folder.Path() / "Karten" / "alpha.jpg", "another image");
    Show("alpha.jpg");
    EXPECT_EQ(Storage.Asked.size(), 2u);
}

TEST_F(ChartViewTest, WhatShowsGoesByTheFrameThatWasTakenIn) {
    Show("Zulu.JPG");
    const MapTransform shown = Chart.Transform();
    Sql("UPDATE Maps SET Links = 7 WHERE Name = 'Zulu.JPG'");
    Chart.ChartsChanged();
    EXPECT_EQ(Chart.Name(), "Zulu.JPG");
    EXPECT_EQ(Chart.Transform(), shown);
    EXPECT_TRUE(Chart.RowHasChanged());
    Chart.InitializeData();
    EXPECT_NE(Chart.Transform(), shown);
    EXPECT_FALSE(Chart.RowHasChanged());
    Sql("UPDATE Maps SET Active = 0 WHERE Name = 'Zulu.JPG'");
    Chart.ChartsChanged();
    EXPECT_EQ(Chart.Name(), "alpha.jpg");
    EXPECT_EQ(Chart.ViewIsOf(), "Zulu.JPG");
    EXPECT_TRUE(Chart.RowHasChanged());
    Sql("UPDATE Maps SET Active = 0");
    Chart.ChartsChanged();
    EXPECT_FALSE(Chart.HasMap());
}

TEST_F(ChartViewTest, AChartThatWasRefusedIsTriedAgainWhenTheListIsMadeAnew) {
    Sql("UPDATE Maps SET Rechts = Links WHERE Name = 'Zulu.JPG'");
    List.Requery();
    Show("Zulu.JPG");
    EXPECT_TRUE(Chart.IsRefused("Zulu.JPG") && !Chart.HasMap());
    EXPECT_EQ(Boxes.Shown.size(), 1u);
    Chart.updateMapInfo();
    EXPECT_TRUE(Chart.IsRefused("Zulu.JPG")) << "it has just been tried";
    Show("alpha.jpg");
    EXPECT_TRUE(Chart.IsRefused("Zulu.JPG") && Chart.HasMap());
    Chart.updateMapInfo();
    EXPECT_FALSE(Chart.IsRefused("Zulu.JPG"));
    EXPECT_EQ(Chart.MapNames, (std::vector<std::string>{"alpha.jpg", "Zulu.JPG"}));
}

} // namespace
} // namespace ornivane
