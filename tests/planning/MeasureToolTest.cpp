#include "planning/MeasureTool.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

// Distances agree with the haversine formula, courses with the initial course at the start (eastwards) or the
// course on arrival (all others), computed apart from this program.
TEST(MeasureTool, ShowsDistanceAndBearingInAllDirections) {
    struct {
        double Lat1, Long1, Lat2, Long2;
        const char *Distance, *Bearing;
    } const pairs[] = {
        {50.30, 7.00, 51.00, 7.45, "41.4 NM", "43 °"},  // north-east
        {50.30, 7.00, 50.00, 7.45, "41.6 NM", "136 °"}, // south-east
        {50.30, 7.00, 50.00, 6.15, "41.6 NM", "224 °"}, // south-west
        {50.30, 7.00, 51.00, 6.15, "41.4 NM", "316 °"}, // north-west
        {50.30, 7.00, 49.30, 7.00, "60.0 NM", "180 °"}, // the meridian to the south
        {50.30, 7.00, 51.30, 7.00, "60.0 NM", "360 °"}, // and to the north
        {48.00, 9.10, 48.59, 9.10, "59.0 NM", "360 °"},
        {47.21, 11.05, 53.02, 11.05, "341.0 NM", "360 °"},
        {50.30, 7.00, 50.30, 8.00, "38.2 NM", "90 °"},       // the parallel to the east
        {50.30, 7.00, 50.30, 6.00, "38.2 NM", "270 °"},      // and to the west
        {-33.70, -59.40, -34.30, -58.20, "69.5 NM", "107 °"} // south of the equator, west of Greenwich
        ,
        {-0.70, -0.60, 0.30, 0.30, "78.1 NM", "40 °"},       // over both
        {70.15, 25.30, 69.40, 18.57, "139.1 NM", "252 °"},   // where meridians crowd
        {48.21, 11.47, 40.38, -74.13, "3489.3 NM", "231 °"}, // over an ocean
    };
    const LocaleText locale;
    for (const auto& pair : pairs) {
        MeasureTool tool(locale);
        tool.Measure(Stored(pair.Lat1, pair.Long1), Stored(pair.Lat2, pair.Long2));
        EXPECT_EQ(tool.lblDistanz, pair.Distance) << pair.Lat2 << " " << pair.Long2;
        EXPECT_EQ(tool.lblKurs, pair.Bearing) << pair.Lat2 << " " << pair.Long2;
    }
}

TEST(MeasureTool, HasNoBearingFromAPointToItself) {
    const LocaleText locale;
    MeasureTool tool(locale);
    tool.Measure(Stored(50.30, 7.00), Stored(50.30, 8.00));
    EXPECT_THROW(tool.Measure(Stored(50.30, 7.00), Stored(50.30, 7.00)), RuntimeError);
    EXPECT_EQ(tool.lblDistanz, "0.0 NM");
    EXPECT_EQ(tool.lblKurs, "90 °");
}

} // namespace
} // namespace ornivane
