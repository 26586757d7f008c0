#include "receiver/Flight.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace ornivane::receiver {
namespace {

double MilesBetween(const Flight::State& state, const FlightPoint& point) {
    return std::hypot(state.Lat - point.Lat,
                      std::remainder(state.Long - point.Long, 360) * std::cos(point.Lat * 3.14159 / 180)) *
           60;
}

TEST(Flight, FliesOverEachPointWithinTheLimitsOfAnAeroplaneAndStandsAtTheLast) {
    // A sharp turn, the date line, and both hemispheres.
    const std::vector<FlightPoint> points{
        {"A", -0.1, 179.8}, {"B", 0.1, -179.9}, {"C", 0.0, 179.9}, {"D", 0.4, 179.9}};
    FlightSettings settings;
    settings.AltitudeFeet = 1500;
    Flight flight(points, settings);
    std::vector<double> nearest(points.size(), 1e9);
    Flight::State last = flight.Now();
    double highest = 0;
    int seconds = 0;
    for (; !flight.Now().Ended && seconds < 7200; ++seconds) {
        flight.Step(1);
        const Flight::State& now = flight.Now();
        EXPECT_LE(std::fabs(now.SpeedKnots - last.SpeedKnots), settings.AccelerationKnotsPerSecond + 1e-6);
        EXPECT_LE(std::fabs(std::remainder(now.TrackDegrees - last.TrackDegrees, 360)),
                  settings.TurnDegreesPerSecond + 1e-6);
        EXPECT_LE(now.AltitudeFeet - last.AltitudeFeet, settings.ClimbFeetPerMinute / 60 + 1e-6);
        EXPECT_LE(last.AltitudeFeet - now.AltitudeFeet, settings.DescentFeetPerMinute / 60 + 1e-6);
        EXPECT_TRUE(now.AltitudeFeet == settings.GroundFeet || now.SpeedKnots > 50);
        ASSERT_LE(std::fabs(now.Long), 180);
        highest = std::max(highest, now.AltitudeFeet);
        for (std::size_t i = 0; i < points.size(); ++i)
            nearest[i] = std::min(nearest[i], MilesBetween(now, points[i]));
        last = now;
    }
    EXPECT_TRUE(flight.Now().Ended);
    EXPECT_EQ(highest, 1500);
    EXPECT_EQ(flight.Now().AltitudeFeet, settings.GroundFeet);
    for (const double miles : nearest) EXPECT_LT(miles, 0.7);
    EXPECT_LT(MilesBetween(flight.Now(), points.back()), 2);
}

TEST(Flight, GoesRoundForEverWithoutLandingWhenItLoops) {
    FlightSettings settings;
    settings.Loop = true;
    Flight flight({{"A", 50, 6}, {"B", 50.1, 6}}, settings);
    std::size_t passed = 0, next = flight.NextPoint();
    for (int i = 0; i < 3600; ++i) {
        flight.Step(1);
        passed += flight.NextPoint() != next;
        next = flight.NextPoint();
    }
    EXPECT_GT(passed, 8u);
    EXPECT_EQ(flight.Now().AltitudeFeet, settings.AltitudeFeet);
}

TEST(Flight, ReadsPointsAndTellsTheLineOfAMistake) {
    std::istringstream good("# my flight\nKöln Bonn 50.8659 7.1427  # start\n\n\tEDKB\t50.7689 7.1634\n");
    const auto points = ReadPoints(good);
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points[0].Name, "Köln Bonn");
    EXPECT_EQ(points[1].Long, 7.1634);
    for (const char* bad : {"", "# nothing\n", "A 50 6\nB 50\n", "A 91 6\n", "A north 6\n"}) {
        std::istringstream in(bad);
        EXPECT_THROW(ReadPoints(in), std::runtime_error) << bad;
    }
}

} // namespace
} // namespace ornivane::receiver
