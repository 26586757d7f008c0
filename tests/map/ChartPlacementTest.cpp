#include "map/ChartPlacement.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

ChartPlacement Placed(const FrameEdges& edges, double width = 2000, double height = 1000) {
    return ChartPlacement().WithEdges(edges).WithSize({width, height});
}

TEST(ChartPlacement, AFrameWithoutExtentHasNoScale) {
    const auto error = [](const ChartPlacement& placement) {
        const auto thrown = ErrorOf([&] { static_cast<void>(placement.Scale()); });
        return thrown ? thrown->Number() : ErrorNumber{};
    };
    const MapScale scale = Placed({50, 51, 6, 8}).Scale();
    EXPECT_EQ(scale.PixPerTenthLat, 100);
    EXPECT_EQ(scale.PixPerTenthLong, 100);
    EXPECT_EQ(error(Placed({50, 51, 6, 6})), ErrorNumber::DivisionByZero);
    EXPECT_EQ(error(Placed({50, 51, 6, 8}, 2000, 0)), ErrorNumber::Overflow);
    EXPECT_EQ(error(Placed({-1e308, 1e308, 6, 8})), ErrorNumber::Overflow);
}

TEST(ChartPlacement, PixelsAndPositionsBelongTogetherAlsoSouthAndWest) {
    // 8.30 W is -9 + 0.7 * 10 / 6: the floor of the stored form.
    const MapScale scale = Placed({-34, -33.3, -8.3, -7}, 400, 100).Scale();
    EXPECT_NEAR(scale.Links.Degrees(), -9 + 0.7 / 0.6, 1e-12);
    const Point corner = scale.ImageOf(At(-34 + 0.7 / 0.6, -7));
    EXPECT_NEAR(corner.X, 400, 1e-9);
    EXPECT_NEAR(corner.Y, 0, 1e-9);
    const Position lowerLeft = scale.PositionOf({0, 100});
    EXPECT_EQ(lowerLeft.Lat.Degrees(), -34);
    EXPECT_EQ(lowerLeft.Long, scale.Links);
}

TEST(ChartPlacement, ASideFileHasTheEdgesAndNoSize) {
    const ChartPlacement placement = Placed({-33.5, 32.3, 8, -0.3});
    EXPECT_EQ(placement.Lines(), (std::vector<std::string>{"-33.5", "32.3", "8", "-0.3"}));
    const auto read = ChartPlacement::FromLines({"-33.5", "32.3 N", "x", "-.3", "more"});
    EXPECT_EQ(read, ChartPlacement().WithEdges({-33.5, 32.3, 0, -0.3}));
    EXPECT_FALSE(read->HasSize());
    EXPECT_FALSE(ChartPlacement::FromLines({"1", "2", "3"}));
}

} // namespace
} // namespace ornivane
