#include <gmock/gmock.h>

#include <numeric>
#include <sstream>

#include "receiver/Faults.h"
#include "receiver/Playback.h"
#include "receiver/SentenceMaker.h"

namespace ornivane::receiver {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using testing::SizeIs;
using testing::StartsWith;

Fix SomeFix() {
    using namespace std::chrono;
    return {sys_days(2024y / May / 1) + hours(9) + minutes(5) + seconds(7),
            -0.9999999,
            -8.5083333,
            96.44,
            5.0,
            302.16};
}

TEST(Sentences, SayTheFixInTheFormOfAReceiver) {
    const auto sentences = SentencesOf(SomeFix());
    // The minutes round up to the next degree, and never to 60.
    EXPECT_THAT(sentences,
                Contains(StartsWith("$GPGGA,090507.00,0100.0000,S,00830.5000,W,1,09,0.9,302.2,M,47.0,M,,*")));
    EXPECT_THAT(sentences,
                Contains(StartsWith("$GPRMC,090507.00,A,0100.0000,S,00830.5000,W,96.4,005.0,010524,1.2,E*")));
    EXPECT_THAT(sentences, Contains(StartsWith("$GPGLL,0100.0000,S,00830.5000,W,090507.00,A*")));
    EXPECT_EQ(Sentence("GPGLL,4916.45,N,12311.12,W,225444,A"), "$GPGLL,4916.45,N,12311.12,W,225444,A*31\r\n");
    for (const std::string& sentence : sentences) EXPECT_LE(sentence.size(), 82u) << sentence;
}

TEST(Sentences, LoseOnlyWhatAReceiverDoesNotKnowWithoutAFix) {
    EXPECT_EQ(WithoutFix(Sentence("GPRMC,090507,A,0100.0,S,00830.5,W,96.4,005.0,010524,1.2,E")),
              Sentence("GPRMC,090507,V,,,,,,,010524,1.2,E"));
    EXPECT_EQ(WithoutFix(Sentence("GPGGA,090507,0100.0,S,00830.5,W,1,09,0.9,302.2,M,47.0,M,,")),
              Sentence("GPGGA,090507,,,,,0,00,0.9,,M,47.0,M,,"));
    EXPECT_EQ(WithoutFix(Sentence("GNGLL,0100.0,S,00830.5,W,090507,A")), Sentence("GNGLL,,,,,090507,V"));
    for (const std::string& same : {Sentence("GPGSV,3,1,10,02,45,120,42"), Sentence("GPRMC"),
                                    std::string("$"), std::string("!AIVDM,1*00")})
        EXPECT_EQ(WithoutFix(same), same);
}

std::vector<std::pair<double, std::size_t>> Played(const std::string& text, bool loop = false,
                                                   std::size_t most = 10) {
    std::istringstream in(text);
    Playback playback(in, loop);
    std::vector<std::pair<double, std::size_t>> bursts;
    for (auto burst = playback.Next(); burst && bursts.size() < most; burst = playback.Next())
        bursts.emplace_back(burst->Seconds, burst->Sentences.size());
    return bursts;
}

TEST(Playback, PacesBurstsByTheirTimesPastMidnightAndOverJumps) {
    using Due = std::pair<double, std::size_t>;
    const std::string flight = "# header\n$GPGGA,235958.00,1*00\n$GPGSV,1*00\n$GPRMC,235958,A*00\r\n\n"
                               "$GPGGA,000000.50,1*00\n$GPRMC,,V*00\n$GPRMC,120000,A*00\n";
    EXPECT_THAT(Played(flight), ElementsAre(Due{0, 3}, Due{2.5, 2}, Due{3.5, 1}));
    EXPECT_THAT(Played(flight, true, 4), ElementsAre(Due{0, 3}, Due{2.5, 2}, Due{3.5, 1}, Due{4.5, 3}));
    EXPECT_THAT(Played("$GPTXT,1*00\n$GPGSA,*00\n$GPTXT,2*00\n"), ElementsAre(Due{0, 2}, Due{1, 1}));
    EXPECT_THAT(Played("# only a header\n"), IsEmpty());
    EXPECT_THAT(Played("", true), IsEmpty());
}

TEST(Faults, HoldForTheirSpanAndEndWithResume) {
    Faults faults;
    std::mt19937 chance(1);
    const std::vector<std::string> burst{Sentence("GPGLL,0100.0,S,00830.5,W,090507,A")};
    for (const char* wrong : {"hangup", "silence x", "noise -1", "chunk", "chunk random:0", "fly", ""})
        EXPECT_FALSE(faults.Command(wrong, 0)) << wrong;

    ASSERT_TRUE(faults.At(30, "silence 10") && faults.At(10, "nofix 5"));
    EXPECT_FALSE(faults.At(5, "sing"));
    for (const auto& [now, sent] :
         std::vector<std::pair<double, std::vector<std::string>>>{{9, burst},
                                                                  {10, {WithoutFix(burst[0])}},
                                                                  {14.9, {WithoutFix(burst[0])}},
                                                                  {15, burst},
                                                                  {31, {}},
                                                                  {40, burst}}) {
        faults.Advance(now);
        EXPECT_EQ(faults.Apply(burst, now, chance), sent) << now;
    }
    faults.Command("cut", 50);
    EXPECT_LT(faults.Apply(burst, 50, chance)[0].size(), burst[0].size());
    faults.Command("hangup 60", 50);
    EXPECT_TRUE(faults.HungUp(51));
    faults.Command("resume", 52);
    EXPECT_FALSE(faults.HungUp(52));
    EXPECT_EQ(faults.Apply(burst, 52, chance), burst);
}

TEST(Chunks, KeepEveryByteInOrderHoweverTheyAreCut) {
    const auto sentences = SentencesOf(SomeFix());
    const std::string all = std::accumulate(sentences.begin(), sentences.end(), std::string());
    std::mt19937 chance(1);
    const std::vector<std::pair<std::string, std::size_t>> modes{
        {"burst", 1}, {"sentence", sentences.size()}, {"lines", sentences.size() + 1}, {"byte", all.size()}};
    for (const auto& [name, count] : modes) {
        ChunkMode mode;
        ASSERT_TRUE(mode.Read(name));
        const auto chunks = ChunksOf(sentences, mode, chance);
        EXPECT_EQ(std::accumulate(chunks.begin(), chunks.end(), std::string()), all) << name;
        EXPECT_EQ(chunks.size(), count) << name;
    }
    ChunkMode mode;
    mode.Read("random:7");
    const auto pieces = ChunksOf(sentences, mode, chance);
    EXPECT_EQ(std::accumulate(pieces.begin(), pieces.end(), std::string()), all);
    EXPECT_THAT(pieces, Each(SizeIs(AllOf(Ge(1u), Le(7u)))));
    mode.Read("lines");
    const auto lines = ChunksOf(sentences, mode, chance);
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 1, lines.end()), Each(StartsWith("\r\n")));
}

} // namespace
} // namespace ornivane::receiver
