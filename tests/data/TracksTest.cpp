#include "data/Tracks.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "support/FlightFolder.h"
#include "support/Positions.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using Numbers = std::vector<std::int64_t>;

class TracksTest : public testing::Test, protected FlightFolder {
protected:
    TracksTest() { OpenTracks(); }
    std::int64_t AddTrack(const Numbers& numbers) {
        const std::int64_t index = All.Add("L'Été");
        for (const std::int64_t number : numbers)
            All.AddPoint({index, number, At(50.5, -7.25), 300.5, "2026-11-23", "10:00:05"});
        return index;
    }
    Numbers NumbersOf(std::int64_t index) {
        Numbers numbers;
        All.ForEachPoint(index, [&](const TrackPoint& point) { numbers.push_back(point.Number); });
        return numbers;
    }

    Tracks All{Shared.TrackConn};
};

TEST_F(TracksTest, PointsComeBackAsTheyWereAddedInTheOrderOfTheirNumbers) {
    const std::int64_t index = AddTrack({3, 1}), other = AddTrack({9});
    All.AddPoint({index, 2, At(0, 0), std::nullopt, "", "'"});
    std::vector<TrackPoint> points;
    All.ForEachPoint(index, [&](const TrackPoint& point) { points.push_back(point); });
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[0].At, At(50.5, -7.25));
    EXPECT_EQ(points[0].Height, 300.5);
    EXPECT_EQ(points[0].Date, "2026-11-23");
    EXPECT_EQ(points[1].Height, std::nullopt);
    EXPECT_EQ(points[1].Time, "'");
    EXPECT_THAT(NumbersOf(index), ElementsAre(1, 2, 3));
    EXPECT_EQ(All.PointsOf(other), 1);
    EXPECT_EQ(All.PointsOf(77), 0);
    // Every block, also those over an end.
    for (int first = 0; first < 5; ++first)
        for (int count = 0; count < 5; ++count) {
            Numbers part;
            All.ForEachPoint(index, {first, count}, [&](const TrackPoint& p) { part.push_back(p.Number); });
            Numbers expected;
            for (int i = first; i < std::min(3, first + count); ++i) expected.push_back(i + 1);
            EXPECT_EQ(part, expected) << first << " " << count;
        }
}

TEST_F(TracksTest, ADeletedTrackTakesItsPointsAndItsIndexAwayAndComesFromAnotherStoreWithBoth) {
    const std::int64_t kept = AddTrack({1}), gone = AddTrack({1, 2});
    const auto copy = Folder.Path() / "copy.ovd";
    std::filesystem::copy_file(Folder.Path() / "track.ovd", copy);
    EXPECT_EQ(All.Delete(gone), (Tracks::Counts{1, 2}));
    EXPECT_EQ(All.Delete(gone), Tracks::Counts());
    EXPECT_FALSE(All.Exists(gone));
    EXPECT_TRUE(All.Exists(kept));
    EXPECT_GT(All.Add("later"), gone) << "no other recording gets its index";
    Connection before;
    before.Open(copy, Connection::Mode::ReadOnly);
    EXPECT_EQ(All.CopyFrom(before, gone), (Tracks::Counts{1, 2}));
    EXPECT_EQ(All.CopyFrom(before, 77), Tracks::Counts());
    EXPECT_THAT(NumbersOf(gone), ElementsAre(1, 2));
    EXPECT_THROW(All.CopyFrom(before, kept), RuntimeError) << "which is still there";
    EXPECT_THAT(NumbersOf(kept), ElementsAre(1));
}

TEST_F(TracksTest, WhatIsMissingInARowIsZeroAndWhatIsNoNumberIsAnError) {
    const std::int64_t index = AddTrack({1, 2});
    Shared.TrackConn.Execute("UPDATE Track SET Number = NULL, Lat = NULL, Height = NULL WHERE Number = 1");
    EXPECT_THAT(NumbersOf(index), ElementsAre(0, 2));
    Shared.TrackConn.Execute("UPDATE Track SET Long = 'east' WHERE Number = 2");
    for (int run = 0; run < 2; ++run) EXPECT_THROW(NumbersOf(index), RuntimeError);
    EXPECT_EQ(All.PointsOf(index), 2);
    EXPECT_THAT(NumbersOf(AddTrack({5})), ElementsAre(5)) << "the store is free";
}

} // namespace
} // namespace ornivane
