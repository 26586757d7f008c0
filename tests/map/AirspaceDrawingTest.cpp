#include "map/AirspaceDrawing.h"

#include <cmath>
#include <cstdio>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "store/Connection.h"
#include "support/MapFakes.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

class AirspaceDrawingTest : public testing::Test {
protected:
    // One degree is 400 pixels, 49° N 6° E at the lower left.
    const MapTransform Transform{{Longitude(6), Latitude(49), 800, 40, 40}, {0, 0, 800, 800}, {800, 800}};
    void Draw(const std::vector<AirspaceElement>& elements, bool texts = true) {
        Surface.Drawn.clear();
        Drawing.Draw({Surface, Transform, 0, texts}, elements);
    }
    static AirspaceElement Base(const char* type, const char* drawtype, long number) {
        AirspaceElement element;
        element.AspType = type;
        element.Drawtype = drawtype;
        element.PNumber = number;
        element.Low = 2500;
        element.High = 6500;
        element.HighType = "FL";
        return element;
    }
    static AirspaceElement Point(const char* type, long number, double lat, double longitude) {
        AirspaceElement element = Base(type, "DP", number);
        element.Place = Stored(lat, longitude);
        return element;
    }
    static AirspaceElement Circle(const char* type, double radius) {
        AirspaceElement element = Base(type, "DC", 1);
        element.Place = Stored(50.0, 7.0);
        element.arcRad = radius;
        return element;
    }
    // Around 50° N 7° E, from due north (50.30) to due east or the other way round.
    static AirspaceElement Arc(long number, const char* direction, bool fromNorth) {
        AirspaceElement element = Base("D", "DB", number);
        element.ArcCentre = Stored(50.0, 7.0);
        element.arcDir = direction;
        const DegMin north = Stored(50.30, 7.00001), east = Stored(50.0, 7.28);
        element.ArcStart = fromNorth ? north : east;
        element.ArcEnd = fromNorth ? east : north;
        return element;
    }
    int Lines() const { return Surface.Count("line "); }

    DrawnSurface Surface;
    Connection None;
    AirspaceDrawing Drawing{None};
};

TEST_F(AirspaceDrawingTest, LabelsTellKindAndLimits) {
    const struct {
        const char *Type, *LowType, *HighType;
        double Low, High;
        const char* Label;
    } cases[] = {{"D", " GND", "", 0, 2500, " D GND - 2500 "},
                 {"C", "FL", "FL", 6500, 10000, " C FL 65 - FL 100 "},
                 {"CTR", "GND", "FL", 1000.5, 9750, " CTR 1000.5 - FL 97.5 "},
                 {"A", " GND", "", 0, 1000, ""}};
    for (const auto& c : cases) {
        AirspaceElement element = Base(c.Type, "DP", 1);
        element.LowType = c.LowType;
        element.HighType = c.HighType;
        element.Low = c.Low;
        element.High = c.High;
        EXPECT_EQ(AirspaceLabel(element), c.Label);
    }
}

TEST_F(AirspaceDrawingTest, CirclesHaveFewSegmentsAndTheirLabelInTheNorth) {
    for (const auto& [radius, segments] :
         {std::pair{3.0, 13}, {4.0, 13}, {4.1, 25}, {10.0, 25}, {20.0, 73}}) {
        Draw({Circle("D", radius)});
        EXPECT_EQ(Lines(), segments) << radius;
        // Every end of a segment lies on the circle: 400 pixels a degree north, 400 x cos(lat) east.
        for (const std::string& step : Surface.Drawn) {
            double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
            if (std::sscanf(step.c_str(), "line %lf,%lf %lf,%lf", &x1, &y1, &x2, &y2) != 4) continue;
            const double north = (800 - y2) / 400 + 49 - 50, east = x2 / 400 + 6 - 7;
            const double c = std::acos(std::sin(50 * Pi / 180) * std::sin((50 + north) * Pi / 180) +
                                       std::cos(50 * Pi / 180) * std::cos((50 + north) * Pi / 180) *
                                           std::cos(east * Pi / 180));
            EXPECT_NEAR(c * 180 / Pi * 60, radius, 0.02);
        }
        EXPECT_EQ(Surface.Count("text "), 1);
        EXPECT_GT(Surface.Count("text 410,"), 0) << "straight north of the middle";
    }
    Draw({Circle("Q", 3)});
    EXPECT_EQ(Surface.Count("w6 #FF8000"), 13);
    Draw({Circle("D", 3)}, false);
    EXPECT_EQ(Surface.Count("text"), 0);
    EXPECT_GT(Surface.Count("w7 #FF0000"), 5); // by turns
    EXPECT_GT(Surface.Count("w7 #000000"), 5);
}

TEST_F(AirspaceDrawingTest, PolygonsAreClosedAndSegmentsAlternateBetweenAirspaces) {
    const std::vector<AirspaceElement> square{Point("D", 1, 50.0, 7.0), Point("D", 2, 50.0, 7.30),
                                              Point("D", 3, 50.30, 7.30)};
    Draw(square);
    EXPECT_EQ(Surface.Drawn, (std::vector<std::string>{
                                 "line 400,400 600,400 w7 #FF0000", "text 510,390 [ D 2500 - FL 65 ]",
                                 "line 600,400 600,200 w7 #000000", "line 600,200 400,400 w7 #FF0000"}));
    Draw(square, false);
    EXPECT_EQ(Surface.Count("#000000"), 2); // goes on where the last one ended
    const std::pair<const char*, const char*> colours[] = {
        {"A", "w6 #8F35D9"}, {"TMZ", "w6 #00FFFF"}, {"Q", "w6 #FF8000"}};
    for (const auto& [type, pen] : colours) {
        Draw({Point(type, 1, 50.0, 7.0), Point(type, 2, 50.0, 7.30)}, false);
        EXPECT_EQ(Surface.Count(pen), 2) << type;
    }
    Draw({Point("D", 1, 50.0, 7.0)}); // one point: the way back to itself
    EXPECT_EQ(Lines(), 1);
}

TEST_F(AirspaceDrawingTest, ArcsRunInTheirDirectionAndMeetTheirNeighbours) {
    Draw({Arc(1, "+", true)}, false); // a quarter by the east
    EXPECT_GE(Lines(), 10);
    EXPECT_LE(Lines(), 12);                                    // and the closing line back to the start
    EXPECT_EQ(Surface.Drawn.back().substr(0, 9), "line 586."); // from the arc's end
    Draw({Arc(1, "-", true)}, false);                          // three quarters by the west
    EXPECT_GE(Lines(), 28);
    // A point behind an arc is joined to its end, and a point before an arc is left to the arc.
    Draw({Point("D", 1, 50.30, 7.0), Arc(2, "+", true), Point("D", 3, 49.50, 7.0)}, false);
    EXPECT_EQ(Surface.Drawn[Surface.Drawn.size() - 2], "line 586.7,400 400,466.7 w7 #FF0000");
    // In the south no point counts as a previous one.
    AirspaceElement south = Circle("D", 3);
    south.Place = Stored(-20.30, 7.0);
    Draw({south}, false);
    EXPECT_EQ(Lines(), 0);
}

TEST_F(AirspaceDrawingTest, ArcsThatBeginOrEndDueNorthOrSouthRunOnTheirOwnSide) {
    for (int minute = 1; minute < 30; ++minute) {
        const double north = 50 + minute / 100.0, south = 49.60 - minute / 100.0;
        EXPECT_NEAR(ArcDimension(Stored(50.0, 7.0), Stored(north, 7.0)), 360, 0.05) << minute;
        EXPECT_NEAR(ArcDimension(Stored(50.0, 7.0), Stored(south, 7.0)), 180, 0.05) << minute;
        AirspaceElement arc = Base("D", "DB", 1);
        arc.ArcCentre = Stored(50.0, 7.0);
        arc.arcDir = "-"; // from the south by the east to the north
        arc.ArcStart = Stored(south, 7.0);
        arc.ArcEnd = Stored(north, 7.0);
        Draw({arc}, false);
        EXPECT_NEAR(Lines(), 20, 1) << minute; // half a circle and the closing line
        int east = 0;
        for (const std::string& step : Surface.Drawn) east += std::stod(step.substr(step.find(' '))) > 400.5;
        EXPECT_GE(east, 16) << minute;
    }
}

TEST_F(AirspaceDrawingTest, ADamagedElementEndsItsAirspaceAndNothingElse) {
    AirspaceElement noCentre = Arc(1, "+", true);
    noCentre.ArcCentre.reset();
    EXPECT_THROW(Draw({noCentre}), RuntimeError);
    AirspaceElement together = Arc(1, "+", true);
    together.ArcStart = Stored(50.0, 7.0);
    EXPECT_THROW(Draw({together}), RuntimeError);
    AirspaceElement noRadius = Circle("D", 3);
    noRadius.arcRad.reset();
    EXPECT_THROW(Draw({noRadius}), RuntimeError);
    AirspaceElement noLimit = Point("D", 1, 50, 7);
    noLimit.Low.reset();
    EXPECT_THROW(Draw({noLimit}), RuntimeError);
    Draw(
        {Base("D", "XX", 1), Point("D", 2, 50, 7), Point("D", 3, 50, 7.3)}); // an unknown kind is passed over
    EXPECT_EQ(Lines(), 1); // without a first point, no closing
    Draw({});
    EXPECT_EQ(Lines(), 0);
}

} // namespace
} // namespace ornivane
