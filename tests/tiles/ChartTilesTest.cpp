#include "tiles/ChartTiles.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;
using Phase = TiledChart::Phase;

class ChartTilesTest : public testing::Test {
protected:
    ChartTilesTest() { options.CacheFolder = folder.Path() / "cache"; }

    std::shared_ptr<TiledChart> Open(ChartTiles& tiles) {
        auto chart = tiles.Open(image);
        return chart ? *chart : nullptr;
    }
    // When its pass is over.
    TiledChart::Status Finished(ChartTiles& tiles, const std::shared_ptr<TiledChart>& chart) {
        auto viewer = tiles.View(chart, [] {});
        viewer->SharpView({0, 0, 10, 10, 10, 10}, seconds(60));
        return chart->Now();
    }
    void MakeCache() {
        ChartTiles tiles(options);
        ASSERT_EQ(Finished(tiles, Open(tiles)).At, Phase::Ready);
    }
    std::vector<fs::path> CacheFiles() {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(options.CacheFolder)) files.push_back(entry.path());
        return files;
    }
    // What the view shows of its level, and what the level really is there.
    static int DifferenceIn(TileView& view, const ViewRequest& request, const Pixels& level) {
        const double scale = 1.0 / (1 << view.Level());
        const auto bound = [scale](double at, int most) {
            return std::clamp(static_cast<int>(at * scale), 0, most);
        };
        const int from = bound(request.X, level.Extent.Width),
                  to = bound(request.X + request.Width, level.Extent.Width);
        int largest = 0;
        for (int y = bound(request.Y, level.Extent.Height);
             y < bound(request.Y + request.Height, level.Extent.Height); ++y) {
            const std::uint32_t* row = view.Row(y, from, to);
            for (int x = from; x < to; ++x)
                for (int shift = 0; shift < 24; shift += 8)
                    largest = std::max(largest, std::abs(static_cast<int>(row[x] >> shift & 255) -
                                                         static_cast<int>(level.At(x, y) >> shift & 255)));
        }
        return largest;
    }
    static ViewRequest RandomView(std::minstd_rand& random, const ImageExtent& extent) {
        const double zoom = 0.5 + static_cast<double>(random() % 60) / 10;
        const auto place = [&](int length) { return static_cast<double>(random() % length) - 100; };
        return {place(extent.Width), place(extent.Height), 200 * zoom, 150 * zoom, 200, 150};
    }
    int LargestOfRandomViews(ChartTiles& tiles, const Pixels& picture, int views, unsigned seed = 1) {
        std::vector<Pixels> levels;
        for (int level = 0; level < picture.Extent.Levels(); ++level)
            levels.push_back(LevelOf(picture, level));
        auto viewer = tiles.View(Open(tiles), [] {});
        std::minstd_rand random(seed);
        int largest = 0;
        for (int i = 0; i < views; ++i) {
            const ViewRequest request = RandomView(random, picture.Extent);
            TileView view = viewer->SharpView(request, seconds(60));
            if (!view.IsSharp()) return 256;
            if (!view.IsEmpty())
                largest = std::max(largest, DifferenceIn(view, request, levels[view.Level()]));
        }
        return largest;
    }

    TemporaryFolder folder;
    TileOptions options;
    const fs::path image = folder.Path() / "chart";
};

TEST_F(ChartTilesTest, ViewsShowThePixelsOfTheImage) {
    const Pixels picture = MadeUp({1300, 900});
    WriteFile(image, BmpOf(picture));
    for (int made = 0; made < 2; ++made) { // by the pass, and from its cache
        ChartTiles tiles(options);
        EXPECT_EQ(LargestOfRandomViews(tiles, picture, 40), 0);
    }
    for (const auto kind : {JpegKind::Full, JpegKind::Grey}) {
        WriteFile(image, JpegOf(picture, kind));
        const Pixels decoded = DecodedByRows(image);
        for (int made = 0; made < 2; ++made) {
            ChartTiles tiles(options);
            EXPECT_LE(LargestOfRandomViews(tiles, decoded, 20), 64); // beside black lines
        }
    }
    EXPECT_EQ(CacheFiles().size(), 3U);
}

TEST_F(ChartTilesTest, ManyReadersAndSmallMemoryChangeNothing) {
    const Pixels picture = MadeUp({1300, 900});
    WriteFile(image, BmpOf(picture));
    options.DecodedBytes = 4 * sizeof(Tile);
    ChartTiles tiles(options);
    std::vector<std::thread> readers;
    std::atomic<int> wrong = 0;
    for (unsigned i = 1; i <= 3; ++i)
        readers.emplace_back([&, i] { wrong += LargestOfRandomViews(tiles, picture, 15, i) != 0; });
    for (auto& reader : readers) reader.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_LE(tiles.DecodedBytes(), 64 * sizeof(Tile)); // those in view are held
}

TEST_F(ChartTilesTest, ACacheGoesByTheContentAndNotByNameOrTime) {
    WriteFile(image, JpegOf(MadeUp({600, 500}), JpegKind::Colour));
    MakeCache();
    const auto modified = fs::last_write_time(CacheFiles().front());
    // Copied: another name and time.
    fs::copy_file(image, folder.Path() / "copy");
    fs::last_write_time(folder.Path() / "copy", fs::last_write_time(image) + seconds(7));
    {
        ChartTiles tiles(options);
        auto chart = tiles.Open(folder.Path() / "copy");
        EXPECT_EQ(Finished(tiles, *chart).At, Phase::Ready);
    }
    ASSERT_EQ(CacheFiles().size(), 1U);
    EXPECT_EQ(fs::last_write_time(CacheFiles().front()), modified); // not made anew
    // One byte differs between the samples, the time does not.
    std::string bytes = ReadFile(image);
    const std::size_t between = (16 << 10) + 50;
    ASSERT_GT(bytes.size(), between + (17 << 10));
    bytes[between] ^= 1;
    const auto time = fs::last_write_time(image);
    WriteFile(image, bytes);
    fs::last_write_time(image, time + seconds(1));
    MakeCache();
    EXPECT_EQ(CacheFiles().size(), 2U);
}

TEST_F(ChartTilesTest, ADamagedCacheIsMadeAnewAndNeverShowsAnythingElse) {
    const Pixels picture = MadeUp({900, 700});
    WriteFile(image, BmpOf(picture));
    MakeCache();
    const fs::path cache = CacheFiles().front();
    const std::string good = ReadFile(cache);
    std::minstd_rand random(9);
    for (int i = 0; i < 25; ++i) {
        std::string bad = good;
        if (i % 5 == 0) {
            bad.resize(random() % good.size());
        } else if (i % 5 == 1) { // another version
            Put(bad, 8, 2, 4);
        } else {
            for (int flips = 0; flips < 5; ++flips)
                bad[random() % bad.size()] ^= static_cast<char>(1 + random() % 255);
        }
        WriteFile(cache, bad);
        ChartTiles tiles(options);
        ASSERT_EQ(LargestOfRandomViews(tiles, picture, 6, static_cast<unsigned>(i + 1)), 0) << i;
    }
    EXPECT_EQ(CacheFiles().size(), 1U);
    MakeCache();
}

TEST_F(ChartTilesTest, TilesOfADamagedFileAreRightOrMissing) {
    const Pixels picture = MadeUp({600, 300});
    WriteFile(image, BmpOf(picture));
    MakeCache();
    const fs::path cache = CacheFiles().front();
    const std::string good = ReadFile(cache);
    TileUnpacker unpacker;
    for (std::size_t at = 0; at < good.size(); at += 1 + at / 100) {
        std::string bad = good;
        bad[at] ^= 0x40;
        WriteFile(cache, bad);
        const auto store = TileStore::Open(std::move(*ReadOnlyFile::Open(cache)));
        ASSERT_TRUE(at >= 128 || !store) << at;
        if (!store) continue;
        auto tile = std::make_unique<Tile>();
        for (const TileKey& key : {TileKey{0, 0, 0}, TileKey{0, 2, 1}}) {
            const bool read = (*store)->Read(key, unpacker, *tile) == TileStore::Reading::Good;
            ASSERT_TRUE(!read || tile->Row(3)[7] == picture.At(key.X * 256 + 7, key.Y * 256 + 3)) << at;
        }
        EXPECT_EQ((*store)->Read({0, 3, 0}, unpacker, *tile), TileStore::Reading::Missing);
        EXPECT_EQ((*store)->Read({9, 0, 0}, unpacker, *tile), TileStore::Reading::Missing);
    }
    for (std::size_t bytes = 0; bytes < good.size(); bytes += 1 + bytes / 50) {
        WriteFile(cache, good.substr(0, bytes));
        EXPECT_FALSE(TileStore::Open(std::move(*ReadOnlyFile::Open(cache)))) << bytes;
    }
}

TEST_F(ChartTilesTest, AKilledPassLeavesAPartThatTheNextOneRemoves) {
    WriteFile(image, BmpOf(MadeUp({2500, 2500})));
    const pid_t child = ::fork();
    if (child == 0) {
        ChartTiles tiles(options);
        auto chart = tiles.Open(image);
        while (true) {
            std::error_code none;
            for (const auto& entry : fs::directory_iterator(options.CacheFolder, none))
                if (entry.file_size() > 0 || chart->get()->Now().At == Phase::Ready) ::raise(SIGKILL);
        }
    }
    ::waitpid(child, nullptr, 0);
    ASSERT_EQ(CacheFiles().size(), 1U);
    EXPECT_EQ(CacheFiles().front().extension(), ".part");
    MakeCache();
    ASSERT_EQ(CacheFiles().size(), 1U);
    EXPECT_EQ(CacheFiles().front().extension(), ".tiles1");
}

TEST_F(ChartTilesTest, APassThatIsLeftEndsAndLeavesNothing) {
    WriteFile(image, BmpOf(MadeUp({2500, 2500})));
    {
        ChartTiles tiles(options);
        auto viewer = tiles.View(Open(tiles), [] {});
        EXPECT_FALSE(viewer->View({0, 0, 2500, 2500, 100, 100}).IsSharp());
    }
    EXPECT_TRUE(!fs::exists(options.CacheFolder) || CacheFiles().empty());
}

TEST_F(ChartTilesTest, TwoProgramsMakeTheSameCacheAtOnce) {
    const Pixels picture = MadeUp({1000, 800});
    WriteFile(image, BmpOf(picture));
    ChartTiles one(options), other(options);
    auto first = Open(one), second = Open(other);
    EXPECT_EQ(LargestOfRandomViews(one, picture, 10), 0);
    EXPECT_EQ(LargestOfRandomViews(other, picture, 10), 0);
    EXPECT_EQ(CacheFiles().size(), 1U);
}

TEST_F(ChartTilesTest, WithoutRoomForACacheAReducedChartIsShownAndTold) {
    const Pixels picture = MadeUp({1300, 900});
    options.Limits.MostBytes = 20'000;
    options.WithoutCacheBytes = 2 << 20;
    WriteFile(image, BmpOf(picture));
    ChartTiles tiles(options);
    auto chart = Open(tiles);
    const auto status = Finished(tiles, chart);
    EXPECT_EQ(status.At, Phase::WithoutCache);
    ASSERT_TRUE(status.Why);
    EXPECT_EQ(FailureText(Language::English(), *status.Why),
              "No space for the cache of the chart: it is shown coarser.");
    EXPECT_EQ(chart->FinestLevel(), 1);
    EXPECT_TRUE(CacheFiles().empty());
    const ViewRequest request{300, 200, 400, 300, 400, 300};
    TileView view = tiles.View(chart, [] {})->SharpView(request, seconds(60));
    EXPECT_EQ(view.Level(), 1);
    EXPECT_EQ(DifferenceIn(view, request, LevelOf(picture, 1)), 0);
    // A folder that cannot be made, too.
    options.CacheFolder = image / "below a file";
    options.Limits = {};
    ChartTiles nowhere(options);
    EXPECT_EQ(Finished(nowhere, Open(nowhere)).Why->Kind, Fault::CannotWrite);
}

TEST_F(ChartTilesTest, TheCacheUsedLongestAgoGoesFirst) {
    std::vector<fs::path> made;
    for (int i = 0; i < 3; ++i) {
        WriteFile(image, BmpOf(MadeUp({700 + i, 600})));
        MakeCache();
        for (const auto& file : CacheFiles())
            if (std::find(made.begin(), made.end(), file) == made.end()) made.push_back(file);
        if (i == 0) options.Limits.MostBytes = fs::file_size(made.front()) * 5 / 2;
        // The first one is used again before the third is made.
        if (i == 1) fs::last_write_time(made[1], fs::last_write_time(made[0]) - seconds(60));
    }
    ASSERT_EQ(made.size(), 3U);
    EXPECT_TRUE(fs::exists(made[0]));
    EXPECT_FALSE(fs::exists(made[1]));
    EXPECT_TRUE(fs::exists(made[2]));
}

TEST_F(ChartTilesTest, AFileThatIsGoneOrCutStaysAsItWasSeen) {
    const Pixels picture = MadeUp({1300, 900});
    WriteFile(image, BmpOf(picture));
    ChartTiles tiles(options);
    auto chart = Open(tiles);
    ASSERT_EQ(Finished(tiles, chart).At, Phase::Ready);
    fs::remove(image);
    auto viewer = tiles.View(chart, [] {});
    const ViewRequest all{0, 0, 1300, 900, 1300, 900};
    TileView view = viewer->SharpView(all, seconds(60));
    EXPECT_EQ(DifferenceIn(view, all, picture), 0);
    EXPECT_EQ(tiles.Open(image).Why().Kind, Fault::NotThere);
    // Emptied while it is read: no cache is made of what is left.
    WriteFile(image, BmpOf(MadeUp({2500, 2500})));
    auto cut = Open(tiles);
    fs::resize_file(image, 100'000);
    const auto status = Finished(tiles, cut);
    EXPECT_EQ(status.At, Phase::Failed);
    EXPECT_EQ(status.Why->Kind, Fault::Changed);
    EXPECT_EQ(CacheFiles().size(), 1U);
}

TEST_F(ChartTilesTest, CallsBackUntilAllIsThereAndNotAfterTheEnd) {
    WriteFile(image, JpegOf(MadeUp({1500, 1500}), JpegKind::Colour));
    ChartTiles tiles(options);
    std::atomic<int> calls = 0;
    auto viewer = tiles.View(Open(tiles), [&calls] { ++calls; });
    TileView view = viewer->SharpView({0, 0, 1500, 1500, 750, 750}, seconds(60));
    EXPECT_EQ(view.Level(), 1);
    EXPECT_GT(calls, 0);
    viewer->View({0, 0, 1500, 1500, 1500, 1500}); // and leave
    viewer.reset();
    const int before = calls;
    Finished(tiles, Open(tiles));
    EXPECT_EQ(calls, before);
    EXPECT_TRUE(tiles.View(Open(tiles), [] {})->View({2000, 0, 10, 10, 10, 10}).IsEmpty());
    EXPECT_TRUE(tiles.View(Open(tiles), [] {})->View({0, 0, 0, 10, 10, 10}).IsEmpty());
}

} // namespace
} // namespace ornivane
