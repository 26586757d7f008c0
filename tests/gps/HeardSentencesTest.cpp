#include "gps/HeardSentences.h"

#include <gmock/gmock.h>

#include <limits>

#include "support/SetClock.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Heard {
    SetClock Clock;
    HeardSentences heard{Clock};

    std::string LastMinute() const {
        const auto count = heard.LastMinute();
        return std::to_string(count.Sentences) + "/" + std::to_string(count.Bad);
    }
};

TEST(HeardSentences, CountsTheLastSixtySeconds) {
    Heard at;
    at.Clock.Milliseconds = 500;
    at.heard.Add("GN", true);
    for (int second = 0; second < 150; ++second) {
        at.Clock.Milliseconds = 1000 * second + 999;
        at.heard.Add("GN", second % 2 == 0);
    }
    EXPECT_EQ(at.LastMinute(), "60/30");
    at.Clock.Milliseconds += 58'000;
    EXPECT_EQ(at.LastMinute(), "2/1");
    at.Clock.Milliseconds += 2000;
    EXPECT_EQ(at.LastMinute(), "0/0");
}

TEST(HeardSentences, SurvivesAClockThatStandsStillOrJumps) {
    Heard at;
    for (int i = 0; i < 1000; ++i) at.heard.Add("GN", true);
    EXPECT_EQ(at.LastMinute(), "1000/0");
    for (const long long moment : {86'400'000LL, -3'600'000LL, std::numeric_limits<long long>::max(),
                                   std::numeric_limits<long long>::min(), 5000LL}) {
        at.Clock.Milliseconds = moment;
        at.heard.Forget();
        at.heard.Add("GN", false);
        EXPECT_EQ(at.LastMinute(), "1/1") << moment;
        at.Clock.Milliseconds = -60'000;
        EXPECT_EQ(at.LastMinute(), "0/0") << moment;
    }
}

TEST(HeardSentences, NamesTheTalkersOfRightSentencesOnce) {
    Heard at;
    for (const char* talker : {"GN", "GL", "", "GN", "P"}) at.heard.Add(talker, true);
    at.heard.Add("GA", false);
    EXPECT_THAT(at.heard.Talkers(), ElementsAre("GN", "GL", "P"));
    for (char c = 'A'; c <= 'Z'; ++c) at.heard.Add(std::string("X") + c, true);
    EXPECT_EQ(at.heard.Talkers().size(), HeardSentences::MostTalkers);
    at.heard.Forget();
    EXPECT_THAT(at.heard.Talkers(), IsEmpty());
    EXPECT_EQ(at.LastMinute(), "0/0");
}

} // namespace
} // namespace ornivane
