#include <numeric>
#include <random>

#include "nav/FlyingScreenFixture.h"
#include "receiver/FlightSource.h"
#include "support/Rows.h"

namespace ornivane {
namespace {

// A flight along a route as the stream of its receiver, which one driver or another cuts.
class StreamFlightTest : public FlyingScreenTest {
protected:
    using Chunks = std::vector<std::string>;

    StreamFlightTest() {
        AddRoute("Tour", {6.30, 6.42, 6.54, 7.06});
        OpenTracks();
        Shared.TrackEnabled = Shared.TrackAuto = true;

        receiver::FlightSettings settings;
        settings.SpeedKnots = 140;
        settings.DescentFeetPerMinute = 1000;
        receiver::FlightSource source(
            receiver::Flight({{"", 50.5, 6.5}, {"", 50.5, 6.7}, {"", 50.5, 6.9}, {"", 50.5, 7.1}}, settings),
            std::chrono::sys_days(std::chrono::year(2024) / 5 / 1));
        while (const auto burst = source.Next())
            Bursts.push_back(
                std::accumulate(burst->Sentences.begin(), burst->Sentences.end(), std::string()));
    }

    template <typename Size>
    Chunks Cut(bool withPauses, Size size) const {
        const Chunks whole{std::accumulate(Bursts.begin(), Bursts.end(), std::string())};
        Chunks chunks;
        for (const std::string& text : withPauses ? Bursts : whole)
            for (std::size_t at = 0; at < text.size(); at += chunks.back().size())
                chunks.push_back(text.substr(at, size()));
        return chunks;
    }

    // What the flight does: each redraw with the active point and the distance to it, then the recordings
    // with the number of their samples. A sample falls due behind every thirtieth burst.
    std::vector<std::string> Fly(const Chunks& chunks) {
        Shared.TrackConn.Execute("DELETE FROM List");
        Shared.TrackConn.Execute("DELETE FROM Track");
        FlyingScreen& screen = Start();
        screen.cmbRoute_Click("Tour");
        screen.cmdActivateGoto_Click();
        screen.Link.cmdGPS_Click();
        std::vector<std::string> done;
        int redraws = Surface.Refreshes;
        std::size_t received = 0, burst = 0, due = Bursts[0].size();
        for (const std::string& chunk : chunks) {
            Port.Receive(chunk);
            for (; redraws < Surface.Refreshes; ++redraws)
                done.push_back(std::to_string(screen.Route.RoutePointsSet.AbsolutePosition()) +
                               (screen.Route.RouteActive ? " active " : " passed ") +
                               std::to_string(screen.ActiveLeg.LastDistance));
            for (received += chunk.size(); received >= due; due += Bursts[burst].size()) {
                if (burst % 30 == 0 && TrackTimer.Interval() > 0) TrackTimer.Fire();
                if (++burst == Bursts.size()) break;
            }
        }
        for (const std::string& count :
             RowsOf(Shared.TrackConn, "SELECT count(*) FROM Track GROUP BY \"Index\""))
            done.push_back("recorded " + count);
        return done;
    }

    Chunks Bursts;
};

TEST_F(StreamFlightTest, PassesAndRecordsTheSameHoweverTheStreamIsCut) {
    const auto whole = Fly(Bursts);
    ASSERT_EQ(whole.back(), "recorded 22");
    EXPECT_EQ(whole[whole.size() - 2].substr(0, 8), "4 passed") << "one recording, the route to its end";
    EXPECT_GT(whole.size(), 90u);
    const auto expectTheSame = [&](const Chunks& chunks, const std::string& how) {
        EXPECT_EQ(Fly(chunks), whole) << how;
    };
    for (const bool withPauses : {true, false}) {
        for (const std::size_t size : {7U, 300U})
            expectTheSame(Cut(withPauses, [&] { return size; }), std::to_string(size) + " bytes");
        for (unsigned seed = 1; seed <= 2; ++seed) {
            std::mt19937 chance(seed);
            std::uniform_int_distribution<std::size_t> length(1, 300);
            expectTheSame(Cut(withPauses, [&] { return length(chance); }), "seed " + std::to_string(seed));
        }
    }
}

} // namespace
} // namespace ornivane
