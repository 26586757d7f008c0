#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <gtest/gtest.h>

#include "GpsFakes.h"
#include "base/Strings.h"
#include "support/SetClock.h"

namespace ornivane {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The whole way of a receiver's bytes, one sentence a chunk, to the list of events.
std::string EventsOf(const std::string& recording) {
    EventLog log;
    NmeaInterpreter gps(log);
    const SetClock clock;
    const Language language;
    NmeaSink sink(gps, clock, language);
    for (const std::string& line : Split(recording, "\n")) sink.HandleInput(line + "\n");
    std::string list;
    for (const std::string& event : log.Events) list += event + "\n";
    return list + "failed " + std::to_string(sink.FailedSentences()) + "\n";
}

// Every recording in golden/ beside its list of events. With ORNIVANE_REBUILD_GOLDEN set the lists are
// written anew, to be read before they are committed; ORNIVANE_RECORDING names a further recording whose list
// is then printed.
TEST(GoldenEvents, ARecordedReceiverSaysWhatItSaidBefore) {
    const fs::path folder = fs::path(SOURCE_DIR) / "tests/gps/golden";
    int compared = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".nmea") continue;
        fs::path list = entry.path();
        list.replace_extension(".events");
        const std::string events = EventsOf(BytesOf(entry.path()));
        if (std::getenv("ORNIVANE_REBUILD_GOLDEN")) std::ofstream(list, std::ios::binary) << events;
        EXPECT_EQ(events, BytesOf(list)) << entry.path();
        ++compared;
    }
    EXPECT_EQ(compared, 2);
    if (const char* further = std::getenv("ORNIVANE_RECORDING")) std::cout << EventsOf(BytesOf(further));
}

} // namespace
} // namespace ornivane
