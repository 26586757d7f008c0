#include "geo/NavigationMaths.h"

#include <cmath>
#include <random>
#include <type_traits>

#include <gtest/gtest.h>

#include "geo/GreatCircle.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

double CourseOf(double latA, double longA, double latB, double longB) {
    return GreatCircle::Between(At(latA, longA), At(latB, longB)).TrueCourse;
}

double Decimal(double latitude) { return ToDecimalDegrees(StoredLatitude(latitude)).Degrees(); }

// Neither a swapped pair nor bare numbers nor the other form take the place of a position.
static_assert(std::is_constructible_v<Position, Latitude, Longitude>);
static_assert(!std::is_constructible_v<Position, Longitude, Latitude>);
static_assert(!std::is_constructible_v<Position, double, double>);
static_assert(!std::is_constructible_v<Position, StoredLatitude, StoredLongitude>);
static_assert(!std::is_constructible_v<DegMin, StoredLongitude, StoredLatitude>);
static_assert(!std::is_constructible_v<DegMin, Latitude, Longitude>);
static_assert(!std::is_convertible_v<double, Latitude> && !std::is_convertible_v<Latitude, double>);
static_assert(!std::is_constructible_v<Latitude, Longitude> &&
              !std::is_constructible_v<Latitude, StoredLatitude>);
static_assert(!std::is_invocable_v<decltype(CalcRouteDist), DegMin, DegMin>);
static_assert(sizeof(Position) == 2 * sizeof(double) && std::is_trivially_copyable_v<DegMin>);

TEST(NavigationMaths, ConvertsStoredCoordinatesWithTheFloorOnBothSidesOfZero) {
    EXPECT_DOUBLE_EQ(Decimal(48.30), 48.5);
    EXPECT_DOUBLE_EQ(Decimal(47.75), 47 + 1.25); // minutes beyond 59 are read as written
    EXPECT_NEAR(Decimal(-8.30), -9 + 7.0 / 6, 1e-12);
    EXPECT_NEAR(Decimal(-33.70), -33.5, 1e-12);
    EXPECT_EQ(Decimal(7), 7);
    for (const double degrees : {51.2249, -33.5, -0.25, 0.0, 179.999})
        EXPECT_NEAR(ToDecimalDegrees(ToDegMinValue(Latitude(degrees))).Degrees(), degrees, 1e-12) << degrees;
}

TEST(NavigationMaths, ArcFunctionsKeepTheirBordersForDisplaysOfOldData) {
    EXPECT_EQ(Arccos(1), 0);
    EXPECT_EQ(Arccos(-1), 0); // antipodal points are 0 apart
    EXPECT_EQ(Arccos(1.0000001), 0);
    EXPECT_EQ(Arccos(std::nan("")), 0);
    EXPECT_NEAR(Arccos(0), 1.5707963267948966, 1e-15);
    EXPECT_NEAR(Arccos(-0.5), 2.0943951023931953, 1e-12);
    EXPECT_EQ(ASin(1), 1.5707963267949);
    EXPECT_EQ(ASin(-1), -1.5707963267949);
    EXPECT_NEAR(ASin(0.5), 0.5235987755982989, 1e-15);
}

TEST(NavigationMaths, MeasuresGreatCirclesAndTreatsZeroAsUnset) {
    EXPECT_EQ(CalcRouteDist(At(50.5, 7.5), At(50.5, 7.5)), 0);
    EXPECT_NEAR(CalcRouteDist(At(51, 7), At(50, 7)), 60, 1e-9);
    EXPECT_NEAR(CalcRouteDist(At(50, 8), At(50, 7)), 60 * std::cos(DegToRad(50)), 2e-3);
    // Köln to Düsseldorf; haversine with the same sphere, worked out separately.
    EXPECT_NEAR(CalcRouteDist(At(51.225, 6.7766667), At(50.9383333, 6.9566667)), 18.48977, 1e-4);
    EXPECT_EQ(CalcRouteDist(At(0, 7), At(1.5, 7)), 0);
    EXPECT_EQ(CalcRouteDist(At(50, 7), At(50, 0)), 0);
    for (const auto& leg : {PlannedLeg, FlownLeg}) {
        EXPECT_FALSE(leg(At(50, 7), At(50, 7)));
        EXPECT_FALSE(leg(At(0, 7), At(1.5, 7)));
        EXPECT_FALSE(leg(At(50, 7), At(50, 0)));
    }
    // Neighbouring numbers of degrees: of the same radians, and yet two points of a plan.
    const Position a = At(49, 7), b = At(std::nextafter(49.0, 50), 7);
    ASSERT_EQ(a.Lat.Radians(), b.Lat.Radians());
    EXPECT_FALSE(FlownLeg(a, b));
    EXPECT_TRUE(PlannedLeg(a, b));
}

TEST(NavigationMaths, CoursesEastAreInitialAndWestAreFinal) {
    EXPECT_NEAR(CourseOf(50, 7, 51, 7), 360, 1e-4);
    EXPECT_NEAR(CourseOf(51, 7, 50, 7), 180, 1e-4);
    const double east = CourseOf(50, 7, 50, 27);
    EXPECT_NEAR(east, 82.3074, 1e-3); // initial course at A, well below 90
    // The reverse of the angle at the western end: the final course of the way back, so exactly the opposite.
    EXPECT_NEAR(CourseOf(50, 27, 50, 7), east + 180, 1e-6);
    // So close that the angle between them is lost: north-east by the eastward branch, south-west by the
    // other.
    EXPECT_EQ(CourseOf(50, 7, 50 + 1e-14, 7 + 1e-14), 0);
    EXPECT_EQ(CourseOf(50, 7 + 1e-14, 50, 7), 180);
}

// Positions as people enter them, in whole minutes, on both halves of the Earth.
class Meridians {
public:
    double Minutes(int degrees) {
        return Decimal(std::uniform_int_distribution<int>(-degrees * 60 + 1, degrees * 60 - 1)(engine) / 60 +
                       0.01 * std::uniform_int_distribution<int>(0, 59)(engine));
    }
    // Two latitudes, the southern one first.
    std::pair<double, double> Latitudes() {
        for (;;) {
            const double a = Minutes(85), b = Minutes(85);
            if (a != b) return std::minmax(a, b);
        }
    }
    double Hair() { return std::pow(10.0, std::uniform_real_distribution<double>(-14, -7)(engine)); }

private:
    std::mt19937 engine{20};
};

// A leg reads the same wherever it shows.
TEST(NavigationMaths, EveryWayToTheGreatCircleGivesTheSameNumbers) {
    Meridians meridians;
    for (int i = 0; i < 20000; ++i) {
        const Position a = At(meridians.Minutes(90), meridians.Minutes(180));
        const Position b = At(meridians.Minutes(90), i % 3 ? meridians.Minutes(180) : a.Long.Degrees());
        const auto planned = PlannedLeg(a, b), flown = FlownLeg(a, b);
        ASSERT_EQ(planned.has_value(), flown.has_value());
        if (!planned) continue; // a coordinate is 0
        ASSERT_EQ(planned->DistanceNM, flown->DistanceNM);
        ASSERT_EQ(planned->TrueCourse, flown->TrueCourse);
        ASSERT_EQ(CalcRouteDist(a, b), planned->DistanceNM);
        ASSERT_EQ(CalcRouteDist(b, a), planned->DistanceNM);
        ASSERT_TRUE(planned->TrueCourse >= 0 && planned->TrueCourse <= 360);
    }
}

double OffCourse(double course, double wanted) { return std::fabs(std::remainder(course - wanted, 360)); }

TEST(NavigationMaths, DueNorthIs360AndDueSouth180OnEveryMeridian) {
    Meridians meridians;
    for (int i = 0; i < 200000; ++i) {
        const auto [south, north] = meridians.Latitudes();
        const double meridian = meridians.Minutes(180);
        ASSERT_NEAR(CourseOf(south, meridian, north, meridian), 360, 0.05) << south << " " << north;
        ASSERT_NEAR(CourseOf(north, meridian, south, meridian), 180, 0.05) << south << " " << north;
    }
}

TEST(NavigationMaths, AHairOffTheMeridianTheCourseIsStillNorthOrSouth) {
    Meridians meridians;
    for (int i = 0; i < 200000; ++i) {
        const auto [south, north] = meridians.Latitudes();
        const double west = meridians.Minutes(180), east = west + meridians.Hair();
        ASSERT_LT(OffCourse(CourseOf(south, west, north, east), 0), 0.05) << south << " " << north;
        ASSERT_LT(OffCourse(CourseOf(north, east, south, west), 180), 0.05) << south << " " << north;
        ASSERT_LT(OffCourse(CourseOf(north, west, south, east), 180), 0.05) << south << " " << north;
        ASSERT_LT(OffCourse(CourseOf(south, east, north, west), 0), 0.05) << south << " " << north;
    }
}

} // namespace
} // namespace ornivane
