#include "map/Viewport.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "map/MapTransform.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

ViewSizes Sizes() {
    ViewSizes sizes;
    sizes.StoreWidth = 2000;
    sizes.StoreHeight = 1600;
    sizes.ViewWidth = 800;
    sizes.ViewHeight = 400;
    sizes.AspectFactor = AspectFactorOf(sizes, 2000, 1600);
    sizes.HalfWidth = 1000;
    return sizes;
}

TEST(Viewport, ZoomsFromTheWholeWidthToEightTimesMagnification) {
    const ViewSizes sizes = Sizes();
    EXPECT_FLOAT_EQ(sizes.AspectFactor, 0.5f);
    EXPECT_EQ(OpenedView(sizes), (SourceRect{0, 0, 1000, 500}));
    EXPECT_EQ(Zoomed({0, 0, 1000, 500}, sizes, 100), (SourceRect{0, 0, 2000, 1000}));
    EXPECT_EQ(Zoomed({0, 0, 1000, 500}, sizes, -100), (SourceRect{0, 0, 100, 50}));
    // At the right and lower edge the rectangle moves back into the picture.
    EXPECT_EQ(Zoomed({1500, 1400, 400, 200}, sizes, 0), (SourceRect{1000, 1100, 1000, 500}));
    EXPECT_EQ(ZoomWidth(-100), 8);
    EXPECT_EQ(ZoomWidth(0), 6);
    EXPECT_EQ(ZoomWidth(100), 4);
    EXPECT_EQ(ZoomWidth(25), 6); // 5.5 to even
    EXPECT_EQ(ZoomWidth(75), 4); // 4.5 to even
}

TEST(Viewport, CutsAPictureThatIsLessTallThanTheView) {
    ViewSizes sizes = Sizes();
    sizes.StoreHeight = 600;
    EXPECT_EQ(Zoomed({0, 0, 1000, 500}, sizes, 100), (SourceRect{0, 0, 2000, 600}));
    EXPECT_EQ(Resized({0, 300, 1600, 1}, sizes), (SourceRect{0, 0, 1600, 600}));
}

TEST(Viewport, CentresAsFarAsThePictureReaches) {
    const ViewSizes sizes = Sizes();
    const SourceRect view{500, 500, 400, 200};
    EXPECT_EQ(CentredOn(view, sizes, {700, 600}), view);
    EXPECT_EQ(CentredOn(view, sizes, {800, 650}), (SourceRect{600, 550, 400, 200}));
    EXPECT_EQ(CentredOn(view, sizes, {-2000, -2000}), (SourceRect{0, 0, 400, 200}));
    EXPECT_EQ(CentredOn(view, sizes, {45500, 45500}), (SourceRect{1600, 1400, 400, 200}));
}

TEST(Viewport, DragsOneImagePixelForOneViewPixelAndStopsAtTheEdges) {
    const ViewSizes sizes = Sizes();
    const SourceRect view{500, 500, 400, 200};
    EXPECT_EQ(Dragged(view, sizes, {10, -20}), (SourceRect{490, 520, 400, 200}));
    EXPECT_EQ(Dragged(view, sizes, {9999, 9999}), (SourceRect{0, 0, 400, 200}));
    EXPECT_EQ(Dragged(view, sizes, {-9999, -9999}), (SourceRect{1600, 1400, 400, 200}));
}

TEST(MapTransform, GoesThereAndBack) {
    // 6 to 7.4 degrees east, 50.6 to 51.4 degrees north on 2800 x 2540 pixels.
    const MapScale scale{Longitude(6), Latitude(50.6), 2540, 2540 / 8.0, 2800 / 14.0};
    const MapTransform transform(scale, {100, 50, 700, 350}, {1400, 700});
    const Point corner = transform.ImageOf(At(51.4, 7.4));
    EXPECT_NEAR(corner.X, 2800, 1e-9);
    EXPECT_NEAR(corner.Y, 0, 1e-9);
    for (const Position& position : {At(50.9, 6.9), At(51.3999, 6.0001), At(49, 9), At(-33.5, -70.25)}) {
        const Position back = transform.PositionOfView(transform.ViewOf(position));
        EXPECT_NEAR(back.Lat.Degrees(), position.Lat.Degrees(), 1e-9);
        EXPECT_NEAR(back.Long.Degrees(), position.Long.Degrees(), 1e-9);
    }
    const PictureSection section = transform.Section();
    EXPECT_EQ((PixelRect{section.X, section.Y, section.AcrossX, section.DownY}),
              (PixelRect{100, 50, 700, 350}));
    EXPECT_TRUE(section.AcrossY == 0 && section.DownX == 0);
    const ViewBounds all = MapTransform(scale, {0, 0, 2800, 2540}, {1400, 700}).GetViewBounds();
    EXPECT_DOUBLE_EQ(all.ViewNorth.Value(), 51.24);
    EXPECT_DOUBLE_EQ(all.ViewWest.Value(), 6.00);
    EXPECT_DOUBLE_EQ(all.ViewSouth.Value(), 50.36);
    EXPECT_DOUBLE_EQ(all.ViewEast.Value(), 7.24);
    EXPECT_THROW(MapTransform(scale, {0, 0, 0, 0}, {1400, 700}), RuntimeError);
    EXPECT_THROW(MapTransform(scale, {0, 0, 10, 10}, {0, 700}).GetViewBounds(), RuntimeError);
}

} // namespace
} // namespace ornivane
