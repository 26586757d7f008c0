#include "gps/TalkerTwins.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <random>

#include "GpsFakes.h"

namespace ornivane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Burst[] = {"RMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W",
                             "GGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,",
                             "GLL,4916.45,N,12311.12,W,225444,A",
                             "GSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1"};

std::string Line(const std::string& body) { return Sentence(body) + "\r\n"; }

std::string BurstOf(const std::string& talker) {
    std::string burst;
    for (const std::string& body : Burst) burst += Line(talker + body);
    return burst;
}

// A receiver's stream through the stage, the framing and the interpreter.
struct Stream {
    EventLog Log;
    NmeaInterpreter gps{Log};
    SentenceFraming framing{gps};
    TalkerTwins Twins;
    std::string Turned;

    void Receive(const std::string& chunk) {
        const std::string turned = Twins.Turn(chunk, 0);
        EXPECT_EQ(turned.size(), chunk.size());
        Turned += turned;
        framing.HandleInput(turned);
    }
};

// What became of the text with every border there can be between two chunks, and byte by byte.
std::vector<std::unique_ptr<Stream>> AtEverySplit(const std::string& text, const std::string& before = {}) {
    std::vector<std::unique_ptr<Stream>> streams;
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        auto& stream = *streams.emplace_back(std::make_unique<Stream>());
        stream.Receive(before);
        stream.Log.Events.clear();
        stream.Turned.clear();
        if (cut == 0) {
            for (const char c : text) stream.Receive({c});
        } else {
            stream.Receive(text.substr(0, cut));
            stream.Receive(text.substr(cut));
        }
    }
    return streams;
}

// Events repeat with each chunk, in an order of their own; what was told at all is what a test can compare.
std::vector<std::string> Told(const Stream& stream) {
    std::vector<std::string> told = stream.Log.Events;
    std::sort(told.begin(), told.end());
    told.erase(std::unique(told.begin(), told.end()), told.end());
    return told;
}

TEST(TalkerTwins, TurnsTheFourTypesByteForByteAcrossAnyBorder) {
    for (const std::string& body : Burst)
        EXPECT_EQ(TalkerTwins().Turn(Line("GN" + body), 0), Line("GP" + body));
    Stream twin;
    twin.Receive(BurstOf("GP"));
    ASSERT_GT(Told(twin).size(), 30u);
    // The line end of an earlier burst ahead, so that the first "$" does not begin a chunk only.
    for (const auto& stream : AtEverySplit("\r\n  " + BurstOf("GN"))) {
        EXPECT_EQ(stream->Turned, "\r\n  " + BurstOf("GP"));
        EXPECT_EQ(Told(*stream), Told(twin));
    }
}

TEST(TalkerTwins, LetsNoOtherSentenceThroughAndLeavesThoseOfGPAlone) {
    const std::string others = Line("GNGSV,1,1,01,04,40,083,46") + Line("GNVTG,054.7,T") +
                               Line("GNRMCX,123519,A") + Line("GNGS") + Line("GLGSV,1,1,01,65,40,083,46") +
                               Line("GAGGA" + Burst[1].substr(3)) + " x " + Line("GNGLL,,,,,000001,");
    for (const auto& stream : AtEverySplit("\r\n" + others + "\r\n"))
        // A chunk that begins with the last line's "$" makes it a sentence.
        EXPECT_THAT(stream->Log.Events, testing::AnyOf(IsEmpty(), Each("Time 00:00:01")));
    EXPECT_EQ(TalkerTwins().Turn(others, 0), others);
    const std::string known = BurstOf("GP") + Line("PUBX,00") + "noise \x01\xFF *00\r\n$\r\n";
    for (const auto& stream : AtEverySplit(known)) EXPECT_EQ(stream->Turned, known);
}

TEST(TalkerTwins, KeepsWrongSentencesWrongAcrossAnyBorder) {
    const std::string body = "GNGLL,,,,,235959,", right = Sentence(body);
    const std::string star = right.substr(0, right.size() - 2), sum = right.substr(right.size() - 2);
    // Sums of the twin itself, as a receiver with a wrong talker would send, and of the unturned line.
    const std::string twinSum = NmeaInterpreter::GetChecksum("GP" + body.substr(2));
    const std::string wrong[] = {star + twinSum,
                                 star + sum[1] + sum[0],
                                 star,
                                 star + sum[0],
                                 star + " " + sum,
                                 right + twinSum,
                                 right + "?",
                                 right + "\n",
                                 right + " " + sum,
                                 right + "\r" + twinSum,
                                 star + "*" + sum,
                                 "$" + body,
                                 right.substr(1),
                                 "!" + right,
                                 "\t" + right,
                                 Sentence("GNGLL,\r,,,,235959,")};
    for (const std::string& line : wrong)
        for (const auto& stream : AtEverySplit("\r\n" + line + "\r\n")) {
            // A chunk that begins with the "$" behind other bytes makes a right sentence of it.
            if (line.ends_with(right))
                EXPECT_THAT(stream->Log.Events, Each("Time 23:59:59")) << line;
            else
                EXPECT_THAT(stream->Log.Events, IsEmpty()) << line;
        }

    // All 65,536 checksums there can be: the right one passes, in capital letters only.
    Stream any;
    for (unsigned digits = 0; digits < 0x10000; ++digits)
        any.Receive(star + static_cast<char>(digits >> 8) + static_cast<char>(digits) + "\r\n");
    EXPECT_THAT(any.Log.Events, ElementsAre("Time 23:59:59"));
    any.Receive(right + "   \r\n");
    EXPECT_EQ(any.Log.Events.size(), 2u);
}

// Without a "*" the interpreter takes the last two characters all the same.
TEST(TalkerTwins, SpoilsALineWithoutAChecksumThatWouldComeOutRightByChance) {
    int chances = 0;
    for (int number = 0; number < 100'000; ++number) {
        const std::string rest = "GLL,,,,,235959," + std::to_string(number);
        const std::string twin = "$GP" + rest, text = "\r\n$GN" + rest + "\r\n" + Line("GNGLL,,,,,000001,");
        if (!twin.ends_with(NmeaInterpreter::GetChecksum(twin))) continue;
        ++chances;
        for (const auto& stream : AtEverySplit(text))
            EXPECT_THAT(stream->Log.Events, Each("Time 00:00:01")) << rest;
        Stream whole;
        whole.Receive(text);
        EXPECT_THAT(whole.Log.Events, ElementsAre("Time 00:00:01"));
    }
    EXPECT_GT(chances, 20);
}

// The framing cuts an overlong line, which moves its last two characters, too.
TEST(TalkerTwins, SpoilsAnOverlongLineThatWouldComeOutRightWhereItIsCut) {
    std::string rest = "GLL,,,,,235959," + std::string(SentenceFraming::LongestLine - 21, ',');
    const std::string digits = NmeaInterpreter::GetChecksum("$GP" + rest);
    // Two digits change the sum by what they are themselves; a field in front takes that back.
    rest[16] = static_cast<char>(',' ^ digits[0] ^ digits[1]);
    rest += digits;
    const auto isTold = [&](const std::string& talker) {
        Stream stream;
        stream.Receive("$" + talker + rest + "  and more");
        stream.Receive("\r\n");
        return !stream.Log.Events.empty();
    };
    EXPECT_TRUE(isTold("GP"));
    EXPECT_FALSE(isTold("GN"));
}

TEST(TalkerTwins, PassesExactlyTheRightSentencesOfRandomOnes) {
    std::mt19937 random(7);
    const auto below = [&](unsigned most) { return static_cast<unsigned>(random()) % most; };
    const std::string_view letters = "$*, \r\n0123456789ABCDEFabG\xFF";
    int passed = 0;
    for (int round = 0; round < 20'000; ++round) {
        const bool isTurned = below(2) != 0;
        std::string body = "GN" + std::string(isTurned ? "GLL" : "GSV") + ",";
        for (unsigned i = below(12); i > 0; --i)
            body += letters[below(static_cast<unsigned>(letters.size()))];
        std::erase_if(body, [](char c) { return c == '*' || c == '\r' || c == '\n'; });
        body += ",,,,,,,,";
        std::string line = Sentence(body);
        const bool isRight = below(2) != 0;
        if (!isRight) line += letters[below(static_cast<unsigned>(letters.size()) - 6) + 6];
        line += "\r\n";

        NmeaListener nobody;
        NmeaInterpreter gps(nobody);
        TalkerTwins twins;
        const std::size_t cut = below(static_cast<unsigned>(line.size()));
        std::string turned = twins.Turn(line.substr(0, cut), 0);
        turned += twins.Turn(line.substr(cut), 0);
        std::string twin = turned.substr(0, turned.size() - 2);
        twin.erase(twin.find_last_not_of(' ') + 1);
        const bool isAccepted = gps.Parse(twin);
        // A "$" at the head of the second chunk begins a line; the framing sees to that.
        if (line[cut] == '$' && cut > 0) continue;
        EXPECT_EQ(isAccepted, isTurned && isRight) << line << cut;
        passed += isAccepted;
    }
    EXPECT_GT(passed, 3000);
}

TEST(TalkerTwins, LetsTheTwinOfGPWinUntilItIsGone) {
    const std::string gn = Line("GNGLL,,,,,000001,"), gp = Line("GPGLL,,,,,000002,"),
                      later = Line("GNRMC,000003,A,,,,,,,");
    for (const auto& stream : AtEverySplit("\r\n" + gn + gp + later, gp))
        EXPECT_THAT(Told(*stream), ElementsAre("FixObtained", "Time 00:00:02", "Time 00:00:03"));

    Stream at;
    at.Receive("$GPGLL,,,,,000002,*00\r\n" + gn);
    EXPECT_EQ(at.Log.Events.front(), "Time 00:00:01"); // a wrong one wins nothing
    at.Receive(gp);
    long long now = 0;
    const auto isTurned = [&](const std::string& line) { return at.Twins.Turn(line, now) != line; };
    for (int i = 0; i < 5 * TalkerTwins::MostBeforeTwinIsGone; ++i) EXPECT_FALSE(isTurned(gn)); // GN at 10 Hz
    now = 2900;
    EXPECT_FALSE(isTurned(gp));
    now += TalkerTwins::TicksBeforeTwinIsGone;
    for (int i = 0; i < TalkerTwins::MostBeforeTwinIsGone; ++i) EXPECT_FALSE(isTurned(gn));
    EXPECT_FALSE(isTurned(gp));
    now += TalkerTwins::TicksBeforeTwinIsGone;
    for (int i = 0; i < TalkerTwins::MostBeforeTwinIsGone; ++i) EXPECT_FALSE(isTurned(gn));
    EXPECT_FALSE(isTurned("$GNGLL,,,,,000001,*00\r\n"));
    EXPECT_FALSE(isTurned(gn));
    EXPECT_TRUE(isTurned(gn));
    at.Twins.Turn(gp, now);
    EXPECT_FALSE(isTurned(gn));
    at.Twins.Reset();
    EXPECT_TRUE(isTurned(gn));
}

TEST(TalkerTwins, TellsTalkerAndChecksumAsTheReceiverSentThem) {
    const std::string text = "  " + BurstOf("GN") + Line("PUBX,00") + Line("GLGSV,1") +
                             "$GPGLL*00\r\n$\r\n$GNGGA,1\r\nx$\r\n\r\n" + Line("12") + Sentence("GAGSV,") +
                             " \r\n$unfinished";
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        // A chunk that begins with "$" in the middle of a line begins another one.
        if (text.substr(cut).starts_with("$\r\n\r\n")) continue;
        std::string told;
        TalkerTwins twins;
        twins.OnSentence = [&](std::string_view talker, bool isRight) {
            told += std::string(talker) + (isRight ? "+ " : "- ");
        };
        twins.Turn(text.substr(0, cut), 0);
        twins.Turn(text.substr(cut), 0);
        EXPECT_EQ(told, "GN+ GN+ GN+ GN+ P+ GL+ GP- - GN- + GA+ ") << cut;
    }
}

} // namespace
} // namespace ornivane
