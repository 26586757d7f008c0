#include "tiles/Pyramid.h"

#include <map>

#include <gtest/gtest.h>

#include "Pictures.h"

namespace ornivane {
namespace {

TEST(Pyramid, EveryPixelOfEveryLevelIsTheAverageOfTheImage) {
    for (const ImageExtent extent : {ImageExtent{1, 1},
                                     {256, 256},
                                     {257, 1},
                                     {1, 700},
                                     {600, 515},
                                     {1100, 300},
                                     {530, 1025},
                                     {8300, 40}}) {
        const Pixels picture = MadeUp(extent);
        std::map<int, Pixels> made;
        int tiles = 0;
        Pyramid pyramid(extent, 0, [&](const TileKey& key, const PixelPart& part) {
            ++tiles;
            EXPECT_EQ(part.Extent, ExtentOf(key, extent));
            Pixels& level = made[key.Level];
            level.Extent = extent.At(key.Level);
            level.Bits.resize(level.Extent.Pixels());
            for (int y = 0; y < part.Extent.Height; ++y)
                std::copy_n(part.Row(y), part.Extent.Width,
                            level.Bits.begin() +
                                static_cast<std::ptrdiff_t>(key.Y * TileSide + y) * level.Extent.Width +
                                key.X * TileSide);
            return true;
        });
        for (int y = 0; y < extent.Height; ++y) {
            std::copy_n(picture.Bits.begin() + static_cast<std::ptrdiff_t>(y) * extent.Width, extent.Width,
                        pyramid.NextRow());
            ASSERT_TRUE(pyramid.RowDone());
        }
        int expected = 0;
        ASSERT_EQ(static_cast<int>(made.size()), extent.Levels());
        for (const auto& [level, pixels] : made) {
            expected += TilesIn(pixels.Extent.Width) * TilesIn(pixels.Extent.Height);
            EXPECT_TRUE(pixels == LevelOf(picture, level)) << extent.Width << " level " << level;
        }
        EXPECT_EQ(tiles, expected);
    }
}

TEST(Pyramid, EndsWhenItsTilesAreNotTaken) {
    Pyramid pyramid({600, 600}, 0, [](const TileKey&, const PixelPart&) { return false; });
    for (int y = 0; y < TileSide - 1; ++y) ASSERT_TRUE((pyramid.NextRow(), pyramid.RowDone()));
    EXPECT_FALSE((pyramid.NextRow(), pyramid.RowDone()));
}

} // namespace
} // namespace ornivane
