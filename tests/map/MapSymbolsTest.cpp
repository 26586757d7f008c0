#include "map/MapSymbols.h"

#include <gtest/gtest.h>

#include "support/MapFakes.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

using testing::Test;
using Steps = std::vector<std::string>;

class MapSymbolsTest : public Test {
protected:
    // One degree is 1000 pixels, 50° N 6° E at the lower left of a view of 1:1.
    const MapTransform Transform{{Longitude(6), Latitude(50), 400, 100, 100}, {0, 0, 800, 400}, {800, 400}};
    DrawnSurface Surface;
};

TEST_F(MapSymbolsTest, PointsShowTheirModeAndNameAtFixedOffsets) {
    MapSymbols named(Surface, Transform, 100, {true});
    named.DrawPoint(Stored(50.12, 6.30), PointMode::Plain, "O'Hara");
    EXPECT_EQ(Surface.Drawn, (Steps{"circle 500,200 r2 w4 #000000", "circle 500,200 r5 w4 #FF0000",
                                    "text 510,193 [ O'Hara ]"}));
    EXPECT_EQ(Surface.Pen, 1);
    Surface.Drawn.clear();
    MapSymbols plain(Surface, Transform, -100, {});
    plain.DrawPoint(Stored(50.12, 6.30), PointMode::ActiveRoutePoint, "A");
    plain.DrawPoint(Stored(50.12, 6.30), PointMode::DirectTarget, "DF");
    EXPECT_EQ(Surface.Drawn, (Steps{"circle 500,200 r2 w8 #000000", "circle 500,200 r5 w8 #0000FF",
                                    "circle 500,200 r2 w8 #000000", "circle 500,200 r5 w8 #FFFF00"}));
}

TEST_F(MapSymbolsTest, LegsRunBackwardsInTheWidthOfTheZoom) {
    MapSymbols symbols(Surface, Transform, 0, {});
    symbols.DrawLeg(At(50.1, 6.1), At(50.2, 6.2), RouteColour);
    EXPECT_EQ(Surface.Drawn, Steps{"line 200,200 100,300 w6 #000080"});
    EXPECT_EQ(Surface.Pen, 1);
}

TEST_F(MapSymbolsTest, TheArrowPointsInTheDirectionOfFlight) {
    DrawAircraft(Surface, {100, 100}, 90, true, 1);
    EXPECT_EQ(Surface.Drawn, (Steps{"line 100,100 115,100 w9 #0000FF", "line 100,100 115,100 w3 #FFFFFF",
                                    "circle 100,100 r1 w5 #00FF00", "circle 100,100 r6 w5 #151200"}));
    EXPECT_EQ(Surface.Pen, 1);
}

TEST_F(MapSymbolsTest, TheAeroplaneHasItsNoseOnThePositionAndTurnsRedWithoutAFix) {
    DrawAircraft(Surface, {100, 100}, 0, false, 2);
    ASSERT_EQ(Surface.Drawn.size(), 11u);
    EXPECT_EQ(Steps(Surface.Drawn.begin(), Surface.Drawn.begin() + 6),
              (Steps{"line 100,100 100,120 w10 #000000", "line 100,105 117,105 w10 #000000",
                     "line 100,105 83,105 w10 #000000", "line 100,117 107,117 w8 #000000",
                     "line 100,117 93,117 w8 #000000", "line 100,100 100,120 w2 #FF0000"}));
    EXPECT_EQ(Surface.Drawn[10], "circle 100,100 r1 w3 #80FFFF");
    EXPECT_EQ(Surface.Pen, 3);
}

TEST_F(MapSymbolsTest, LeavesOutOnlyWhatIsBuriedUnderLaterLabels) {
    MapSymbols named(Surface, Transform, 100, {true});
    // Two thousand points at one place and one alone beside them.
    std::vector<MapSymbols::StoredPoint> points(2000, {Stored(50.10, 6.12), "crowd"});
    points[5] = {Stored(50.10, 6.36), "alone"};
    named.DrawPoints(points);
    EXPECT_EQ(Surface.Count("[ alone ]"), 1);
    const int crowd = Surface.Count("[ crowd ]");
    EXPECT_GE(crowd, 1);
    EXPECT_LT(crowd, 20);
    EXPECT_NE(Surface.Drawn.back().find("[ crowd ]"), std::string::npos); // the last one lies on top
    Surface.Drawn.clear();
    points.resize(900);
    named.DrawPoints(points);
    EXPECT_EQ(Surface.Count("[ crowd ]"), 899);
}

} // namespace
} // namespace ornivane
