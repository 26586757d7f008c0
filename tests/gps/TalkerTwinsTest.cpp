#include "gps/TalkerTwins.h"

#include <gmock/gmock.h>

#include <memory>
#include <random>

#include "GpsFakes.h"
#include "base/Strings.h"
#include "support/SetClock.h"

namespace ornivane {
namespace {

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

// A receiver's stream through the stages, the framing and the interpreter.
struct Stream {
    EventLog Log;
    NmeaInterpreter gps{Log};
    SetClock Clock;
    Language German;
    NmeaSink Sink{gps, Clock, German};

    void Receive(const std::string& chunk) { Sink.HandleInput(chunk); }
};

// What became of the text with every border there can be between two chunks, and byte by byte.
std::vector<std::unique_ptr<Stream>> AtEverySplit(const std::string& text, const std::string& before = {}) {
    std::vector<std::unique_ptr<Stream>> streams;
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        auto& stream = *streams.emplace_back(std::make_unique<Stream>());
        stream.Receive(before);
        stream.Log.Events.clear();
        if (cut == 0) {
            for (const char c : text) stream.Receive({c});
        } else {
            stream.Receive(text.substr(0, cut));
            stream.Receive(text.substr(cut));
        }
    }
    return streams;
}

TEST(TalkerTwins, TurnsTheFourTypesByteForByteAcrossAnyBorder) {
    EXPECT_EQ(TalkerTwins().Turn(BurstOf("GN"), 0), BurstOf("GP"));
    Stream twin;
    twin.Receive(BurstOf("GP"));
    ASSERT_GT(twin.Log.Events.size(), 30u);
    for (const auto& stream : AtEverySplit("\r\n  " + BurstOf("GN")))
        EXPECT_EQ(stream->Log.Events, twin.Log.Events);
}

TEST(TalkerTwins, LetsNoOtherSentenceThroughAndLeavesThoseOfGPAlone) {
    const std::string others = Line("GNGSV,1,1,01,04,40,083,46") + Line("GNVTG,054.7,T") +
                               Line("GNRMCX,123519,A") + Line("GNGS") + Line("GLGSV,1,1,01,65,40,083,46") +
                               Line("GAGGA" + Burst[1].substr(3)) + BurstOf("GP") + Line("PUBX,00") +
                               "$GPRMC,\x01\xFF *00\r\n$GN\r\n";
    EXPECT_EQ(TalkerTwins().Turn(others, 0), others);
    const std::string behind = others.substr(0, others.find("$GPRMC")) + " x " + Line("GNGLL,,,,,000001,");
    for (const auto& stream : AtEverySplit(behind)) EXPECT_THAT(stream->Log.Events, IsEmpty());
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
                                 right + " " + sum,
                                 right + "\r" + twinSum,
                                 star + "*" + sum,
                                 "$" + body,
                                 right.substr(1),
                                 "!" + right,
                                 "\t" + right};
    for (const std::string& line : wrong)
        for (const auto& stream : AtEverySplit("\r\n" + line + "\r\n"))
            EXPECT_THAT(stream->Log.Events, IsEmpty()) << line;

    // All 65,536 checksums there can be: the right one passes, in capital letters only.
    Stream any;
    for (unsigned digits = 0; digits < 0x10000; ++digits)
        any.Receive(star + static_cast<char>(digits >> 8) + static_cast<char>(digits) + "\r\n");
    EXPECT_THAT(any.Log.Events, ElementsAre("Time 23:59:59"));
    any.Receive(right + "   \r\n");
    EXPECT_EQ(any.Log.Events.size(), 2u);
}

// Without a "*" the interpreter takes the last two characters all the same.
TEST(TalkerTwins, LeavesALineWithoutAChecksumThatWouldComeOutRightByChance) {
    int chances = 0;
    for (int number = 0; number < 100'000; ++number) {
        const std::string rest = "GLL,,,,,235959," + std::to_string(number);
        const std::string twin = "$GP" + rest;
        if (!twin.ends_with(NmeaInterpreter::GetChecksum(twin))) continue;
        ++chances;
        Stream stream;
        stream.Receive("$GN" + rest + "\r\n" + Line("GNGLL,,,,,000001,"));
        EXPECT_THAT(stream.Log.Events, ElementsAre("Time 00:00:01")) << rest;
    }
    EXPECT_GT(chances, 20);
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
        const std::string turned = twins.Turn(line, 0);
        const bool isAccepted = gps.Parse(Trim(std::string_view(turned).substr(0, turned.size() - 2)));
        EXPECT_EQ(isAccepted, isTurned && isRight) << line;
        passed += isAccepted;
    }
    EXPECT_GT(passed, 3000);
}

TEST(TalkerTwins, LetsTheTwinOfGPWin) {
    const std::string gn = Line("GNGLL,,,,,000001,"), gp = Line("GPGLL,,,,,000002,"),
                      later = Line("GNRMC,000003,A,,,,,,,");
    for (const auto& stream : AtEverySplit(gn + gp + later, gp))
        EXPECT_THAT(stream->Log.Events, ElementsAre("Time 00:00:02", "Time 00:00:03", "FixObtained"));

    Stream at;
    at.Receive("$GPGLL,,,,,000002,*00\r\n" + gn);
    EXPECT_THAT(at.Log.Events, ElementsAre("Time 00:00:01")); // a wrong one wins nothing
}

// A receiver that changes its talker must not freeze the position; one that says both keeps to GP, also when
// GN comes ten times as often.
TEST(TalkerTwins, TakesTheTwinOfGPForGoneAfterThreeSeconds) {
    for (const std::string type : {"RMC", "GGA", "GLL", "GSA"}) {
        const std::string gn = Line("GN" + type + ",,"), gp = Line("GP" + type + ",,");
        TalkerTwins twins;
        long long now = 0;
        const auto isTurned = [&](const std::string& line) { return twins.Turn(line, now) != line; };
        EXPECT_FALSE(isTurned(gp));
        for (; now < 2900; now += 100) EXPECT_FALSE(isTurned(gn)) << type << now;
        EXPECT_FALSE(isTurned(gp));
        // Once a second; of GSA two come in a burst.
        int burst = 0;
        for (bool turned = false; !turned && burst < 20; ++burst) {
            now += 1000;
            turned = isTurned(gn);
            if (type == "GSA") turned = isTurned(gn) || turned;
        }
        EXPECT_EQ(burst, type == "GSA" ? 5 : 3) << type;
        EXPECT_TRUE(isTurned(gn));
        EXPECT_FALSE(isTurned(gp));
        EXPECT_FALSE(isTurned(gn));

        // Three seconds without a word, and then one right sentence and a wrong one, are not enough.
        now += 5000;
        EXPECT_FALSE(isTurned("$GN" + type + ",,*00\r\n"));
        EXPECT_FALSE(isTurned(gn)) << type;
        twins.Reset();
        EXPECT_TRUE(isTurned(gn)) << type;
    }
}

TEST(TalkerTwins, TellsTalkerAndChecksumAsTheReceiverSentThem) {
    const std::string text = "  " + BurstOf("GN") + Line("PUBX,00") + Line("GLGSV,1") +
                             "$GPGLL*00\r\n$\r\n$GNGGA,1\r\nx$\r\n\r\n" + Line("12") + Sentence("GAGSV,") +
                             " \r\n$GNunfinished";
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        std::string told;
        WholeLines lines;
        TalkerTwins twins;
        twins.OnSentence = [&](std::string_view talker, bool isRight) {
            told += std::string(talker) + (isRight ? "+ " : "- ");
        };
        for (const std::string& chunk : {text.substr(0, cut), text.substr(cut)})
            for (const WholeLines::Piece& piece : lines.Take(chunk))
                if (piece.IsSentences) twins.Turn(piece.Bytes, 0);
        EXPECT_EQ(told, "GN+ GN+ GN+ GN+ P+ GL+ GP- GN- GA+ ") << cut;
    }
}

} // namespace
} // namespace ornivane
