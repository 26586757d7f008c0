#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/Strings.h"
#include "gps/NmeaInterpreter.h"
#include "gps/SentenceFraming.h"

namespace {

using namespace ornivane;

void Require(bool condition) {
    if (!condition) std::abort();
}

struct Listener : NmeaListener {
    void PositionReceived(const PositionTexts& position) override {
        Require(IsValidUtf8(position.Latitude) && IsValidUtf8(position.Longitude));
    }
    void TimeChanged(const std::string& time) override { Require(IsValidUtf8(time)); }
    void DateChanged(const std::string& date) override { Require(IsValidUtf8(date)); }
};

} // namespace

// A byte 0x00 in the input is a border between chunks. Each complete chunk is also given as one sentence with
// the right checksum, which chance would seldom find.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Listener listener;
    NmeaInterpreter gps(listener);
    SentenceFraming framing(gps);
    std::string_view input(reinterpret_cast<const char*>(data), size);
    while (!input.empty()) {
        const auto border = input.find('\0');
        const std::string chunk(input.substr(0, border));
        input.remove_prefix(border == std::string_view::npos ? input.size() : border + 1);
        framing.HandleInput(chunk);
        const std::string body = chunk.substr(0, chunk.find('*'));
        framing.HandleInput(body + "*" + NmeaInterpreter::GetChecksum(body) + "\r\n");
        Require(framing.SerialBuffer().size() <= SentenceFraming::MostBytes);
    }
    return 0;
}
