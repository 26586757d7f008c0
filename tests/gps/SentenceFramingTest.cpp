#include <gmock/gmock.h>

#include "GpsFakes.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string At(const std::string& second) { return Sentence("GPGLL,,,,," + second + ",") + "\r\n"; }

struct Framing {
    EventLog Log;
    NmeaInterpreter gps{Log};
    SentenceFraming framing{gps};

    std::vector<std::string> EventsOf(const std::string& chunk) {
        Log.Events.clear();
        framing.HandleInput(chunk);
        return Log.Events;
    }
};

TEST(SentenceFraming, ParsesAWholeBurstOnceAndTheNextOneAlone) {
    Framing at;
    EXPECT_THAT(at.EventsOf(At("000001") + At("000002")), ElementsAre("Time 00:00:01", "Time 00:00:02"));
    EXPECT_THAT(at.EventsOf(At("000003")), ElementsAre("Time 00:00:03"));
    EXPECT_THAT(at.EventsOf("\n"), ElementsAre("Time 00:00:03"));
}

TEST(SentenceFraming, RepeatsTheSentencesSinceTheLastDollarChunkAndJoinsTheFragment) {
    Framing at;
    const std::string third = At("000003");
    EXPECT_THAT(at.EventsOf(At("000001") + At("000002") + third.substr(0, 9)),
                ElementsAre("Time 00:00:01", "Time 00:00:02"));
    EXPECT_THAT(at.EventsOf(third.substr(9)), ElementsAre("Time 00:00:01", "Time 00:00:02", "Time 00:00:03"));
    EXPECT_EQ(at.EventsOf("!x").size(), 3u);

    // A fragment is lost when the next chunk begins with "$".
    EXPECT_THAT(at.EventsOf(At("000004") + third.substr(0, 9)), ElementsAre("Time 00:00:04"));
    EXPECT_THAT(at.EventsOf("$" + third.substr(9)), IsEmpty());
}

TEST(SentenceFraming, EndsALineOnlyAtCarriageReturnAndLineFeedTogether) {
    Framing at;
    const std::string sentence = Sentence("GPGLL,,,,,000001,");
    EXPECT_THAT(at.EventsOf("$"), IsEmpty());
    EXPECT_THAT(at.EventsOf(sentence.substr(1) + "\r"), IsEmpty());
    EXPECT_THAT(at.EventsOf("\n"), ElementsAre("Time 00:00:01"));
    EXPECT_THAT(at.EventsOf(sentence + "\n" + At("000002")), IsEmpty());
    EXPECT_THAT(at.EventsOf("$\r\n   \r\n  " + sentence + "  \r\n"), ElementsAre("Time 00:00:01"));
    EXPECT_THAT(at.EventsOf("$\r\n\t" + sentence + "\r\n"), IsEmpty()); // only blanks are trimmed
}

TEST(SentenceFraming, CountsASentenceThatFailsAndGoesOnWithTheNext) {
    Framing at;
    EXPECT_THAT(at.EventsOf(Sentence("GPRMC,1") + "\r\n" + At("000002")),
                ElementsAre("Time 1::", "Time 00:00:02"));
    EXPECT_EQ(at.framing.FailedSentences(), 1u);
}

TEST(SentenceFraming, RepeatsOnlyTheLastSentencesOfAStreamThatNeverPauses) {
    Framing at;
    // The line end comes with the next sentence, so no chunk begins with "$".
    std::string sentence = At("000000");
    sentence.insert(0, "\r\n").resize(sentence.size() - 2);
    std::size_t most = 0;
    for (int i = 0; i < 10'000; ++i) most = std::max(most, at.EventsOf(sentence).size());
    EXPECT_EQ(most, SentenceFraming::MostSentences + 1);
    EXPECT_LE(at.framing.SerialBuffer().size(), SentenceFraming::MostBytes);

    // One chunk may hold any number of sentences: each is interpreted, and then the last ones are kept.
    std::string stored = "\r\n";
    for (int i = 0; i < 1000; ++i) stored += At("000001");
    EXPECT_EQ(at.EventsOf(stored).size(), SentenceFraming::MostSentences + 1001);
    EXPECT_EQ(at.EventsOf("x").size(), SentenceFraming::MostSentences);
}

TEST(SentenceFraming, StaysSmallInNoiseAndFindsTheFirstSentenceBehindIt) {
    const std::string after = At("000001");
    // The line end behind the noise in one chunk, and cut between its two characters.
    for (const std::size_t cut : {0U, 1U, 2U}) {
        Framing at;
        for (int i = 0; i < 3000; ++i)
            at.framing.HandleInput(std::string("\x80\r$\n\xFFz").substr(i % 3) + (i % 7 ? "" : "\r"));
        EXPECT_LE(at.framing.SerialBuffer().size(), SentenceFraming::LongestLine + 2 * 8);
        const std::string end = "\r\n" + after;
        at.framing.HandleInput("#" + end.substr(0, cut));
        at.framing.HandleInput(end.substr(cut));
        EXPECT_THAT(at.Log.Events, ElementsAre("Time 00:00:01")) << cut;
    }
}

TEST(SentenceFraming, LetsAHandlerBringInTheNextChunk) {
    struct Nested : EventLog {
        void TimeChanged(const std::string& time) override {
            Add("Time", time);
            if (time == "00:00:01") Framing->HandleInput(At("000009"));
        }
        SentenceFraming* Framing = nullptr;
    } log;
    NmeaInterpreter gps(log);
    SentenceFraming framing(gps);
    log.Framing = &framing;
    framing.HandleInput(At("000001") + At("000002"));
    EXPECT_THAT(log.Events, ElementsAre("Time 00:00:01", "Time 00:00:09", "Time 00:00:02"));
}

} // namespace
} // namespace ornivane
