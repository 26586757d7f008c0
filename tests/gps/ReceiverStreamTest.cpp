#include <gmock/gmock.h>

#include <iostream>
#include <random>

#include "base/Strings.h"
#include "support/PortWorld.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

// A receiver behind a port, and all that the link's listener hears of it.
struct Stream : PortWorld {
    Stream() { Link.cmdGPS_Click(); }

    const std::vector<std::string>& EventsOf(const std::string& chunk) {
        Log.Events.clear();
        Port.Receive(chunk);
        return Log.Events;
    }

    EventLog Log;
    NmeaInterpreter gps{Log};
    NmeaSink Sentences{gps, Clock, Shared};
    PortSource Com{Port, Shared, Shared};
    GpsLink Link{Com, Sentences, Timer, Dialogs, Shared, [](LinkAction) {}};
};

const char* const Recordings[] = {"flight", "flight-gn"};
fs::path Golden(const std::string& name) { return fs::path(SOURCE_DIR) / "tests/gps/golden" / name; }
std::string BytesOf(const fs::path& file) { return ReadWholeFile(file).value_or("none"); }

// What was said at once: from one sentence of the kind that comes first to the next.
std::vector<std::string> BurstsOf(const std::string& recording) {
    std::vector<std::string> bursts;
    std::string first;
    for (const std::string& line : Split(recording, "\n")) {
        const std::string kind = line.substr(0, line.find(','));
        if (first.empty() && line.starts_with('$')) first = kind;
        if (bursts.empty() || kind == first) bursts.emplace_back();
        bursts.back() += line + "\n";
    }
    bursts.back().pop_back(); // what follows the last line end
    return bursts;
}

template <typename Size>
std::string EventsOfCut(const std::vector<std::string>& texts, Size size) {
    Stream stream;
    for (const std::string& text : texts)
        for (std::size_t at = 0, length = 0; at < text.size(); at += length) {
            length = size();
            stream.Port.Receive(text.substr(at, length));
        }
    std::string list;
    for (const std::string& event : stream.Log.Events) list += event + "\n";
    return list + "failed " + std::to_string(stream.Sentences.FailedSentences()) + "\n";
}

// Whole, in chunks of each size, and in chunks of chance; with a pause behind each burst and without.
void ExpectTheSameHoweverItIsCut(const std::string& recording, const std::string& events) {
    const std::vector<std::string> paused = BurstsOf(recording), unpaused{recording};
    ASSERT_GT(paused.size(), 5u);
    EXPECT_EQ(EventsOfCut(paused, [] { return std::string::npos / 2; }), events);
    for (const auto* texts : {&paused, &unpaused}) {
        for (std::size_t size = 1; size <= 300; ++size)
            ASSERT_TRUE(EventsOfCut(*texts, [&] { return size; }) == events)
                << "chunks of " << size << (texts == &paused ? ", with pauses" : ", without pauses");
        for (unsigned seed = 1; seed <= 10; ++seed) {
            std::mt19937 chance(seed);
            std::uniform_int_distribution<std::size_t> length(1, seed % 2 ? 300 : 30);
            ASSERT_TRUE(EventsOfCut(*texts, [&] { return length(chance); }) == events) << "seed " << seed;
        }
    }
}

// Every recording in golden/ beside its list of events. With ORNIVANE_REBUILD_GOLDEN set the lists are
// written anew, to be read before they are committed; ORNIVANE_RECORDING names a further recording, whose
// list is printed.
TEST(ReceiverStream, SaysWhatItSaidBeforeHoweverItIsCut) {
    const auto whole = [](const std::string& recording) {
        return EventsOfCut(BurstsOf(recording), [] { return std::string::npos / 2; });
    };
    for (const std::string name : Recordings) {
        SCOPED_TRACE(name);
        const std::string recording = BytesOf(Golden(name + ".nmea"));
        if (std::getenv("ORNIVANE_REBUILD_GOLDEN"))
            WriteFileAtomically(Golden(name + ".events"), whole(recording));
        ExpectTheSameHoweverItIsCut(recording, BytesOf(Golden(name + ".events")));
    }
    if (const char* further = std::getenv("ORNIVANE_RECORDING")) {
        const std::string recording = BytesOf(further);
        std::cout << whole(recording);
        ExpectTheSameHoweverItIsCut(recording, whole(recording));
    }
}

TEST(ReceiverStream, TakesEachLineEndThatReceiversAndModemsSend) {
    for (const std::string name : Recordings)
        for (const std::string end : {"\n", "\r\r\n", "   \r\r\r\n"}) {
            std::string recording;
            for (const std::string& line : Split(BytesOf(Golden(name + ".nmea")), "\r\n"))
                recording += line + end;
            for (const std::size_t size : {std::size_t{1}, std::size_t{61}, recording.size()})
                EXPECT_TRUE(EventsOfCut({recording}, [&] { return size; }) ==
                            BytesOf(Golden(name + ".events")))
                    << name << testing::PrintToString(end) << size;
        }
    // A carriage return alone ends none: it may be the first half of a line end that is cut.
    Stream at;
    EXPECT_THAT(at.EventsOf(Sentence("GPGLL,,,,,000001,") + "\r"), IsEmpty());
    EXPECT_THAT(at.EventsOf(Sentence("GPGLL,,,,,000002,") + "\r"), IsEmpty());
}

const std::string First = Sentence("GPGLL,,,,,000001,") + "\r\n";
const std::string Second = Sentence("GPGLL,,,,,000002,") + "\r\n";

TEST(ReceiverStream, HoldsAnUnfinishedLineBackAndTellsItOnce) {
    Stream at;
    EXPECT_THAT(at.EventsOf(First + Second.substr(0, 9)), ElementsAre("Time 00:00:01"));
    EXPECT_THAT(at.EventsOf(Second.substr(9, 4)), IsEmpty());
    EXPECT_THAT(at.EventsOf(Second.substr(13)), ElementsAre("Time 00:00:02"));
    EXPECT_THAT(at.EventsOf("\r\n"), IsEmpty());
    EXPECT_THAT(at.EventsOf("!AIVDM,1,1,,A,1,0*00\r\n# a comment\n" + First), ElementsAre("Time 00:00:01"));
    EXPECT_THAT(at.EventsOf("more"), IsEmpty());
}

// The line that noise or a torn sentence shares with the next one is lost; the stream goes on behind it.
TEST(ReceiverStream, GoesOnBehindTornSentencesAndNoise) {
    const std::string torn[] = {First.substr(0, 9),
                                "$",
                                "noise",
                                "\xFF\x80$\x01",
                                std::string(5000, 'x'),
                                "$" + std::string(5000, 'x'),
                                std::string(5000, ' '),
                                "  x " + First.substr(0, 12),
                                "\r\n$GPGLL\r\r,,,,,,*00"};
    for (const std::string& text : torn)
        for (const std::size_t size : {1U, 7U, 300U, 6000U}) {
            const std::string events =
                EventsOfCut({text + Second + First + "  " + Second}, [&] { return size; });
            EXPECT_EQ(events, "Time 00:00:01\nTime 00:00:02\nfailed 0\n") << text.substr(0, 20) << size;
        }
}

TEST(ReceiverStream, OpeningThePortForgetsWhatWasHeardBefore) {
    Stream at;
    const std::string fix = Sentence("GPRMC,123519,A,4807.038,N,01131.000,E,090.0,084.4,230394,,") + "\r\n";
    EXPECT_FALSE(at.EventsOf(fix + fix.substr(0, 30)).empty());
    at.Log.Events.clear();
    at.Link.picGPSCheck_Click(0);
    at.Link.cmdGPS_Click();
    EXPECT_THAT(at.EventsOf("\xF8\x80\x1E"), IsEmpty());
    EXPECT_THAT(at.EventsOf(fix.substr(30)), IsEmpty()); // the beginning of this line came to the port before
    EXPECT_THAT(at.EventsOf(First), ElementsAre("Time 00:00:01"));
}

} // namespace
} // namespace ornivane
