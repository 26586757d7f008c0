// Whatever the bytes and the borders of the chunks: lengths stay, lines of other talkers pass untouched, and
// of the GN ones the interpreter accepts exactly those of the four types whose checksum was right.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "gps/NmeaInterpreter.h"
#include "gps/TalkerTwins.h"

namespace {

using namespace ornivane;

void Require(bool condition) {
    if (!condition) std::abort();
}

bool IsAccepted(std::string_view line) {
    NmeaListener nobody;
    NmeaInterpreter gps(nobody);
    try {
        return gps.Parse(line);
    } catch (const RuntimeError&) {
        return true;
    }
}

// Whether the line behind its leading blanks is a sentence to be turned and its checksum is right.
bool IsRightSentence(std::string_view line, std::size_t blanks) {
    const auto star = line.find('*');
    if (line.size() < 10 || star == std::string_view::npos || line.size() != star + 3) return false;
    bool isTurned = false;
    for (const char* type : {"RMC,", "GGA,", "GLL,", "GSA,"}) isTurned |= line.substr(3, 4) == type;
    return isTurned && line.find('\r') == std::string_view::npos &&
           blanks + star <= TalkerTwins::LongestSentence &&
           line.substr(star + 1) == NmeaInterpreter::GetChecksum(line);
}

// The line in two chunks, through a stage that has heard nothing yet.
void CheckLine(const std::string& text, std::size_t cut) {
    const std::string_view line = Trim(text);
    if (text.find("\r\n") != std::string::npos || text.ends_with('\r')) return;
    if (cut > 0 && text[cut] == '$') return;
    TalkerTwins twins;
    const std::string sent = text + "\r\n";
    std::string turned = twins.Turn(sent.substr(0, cut), 0) + twins.Turn(sent.substr(cut), 0);
    Require(turned.size() == sent.size());
    if (!line.starts_with("$GN")) return Require(turned == sent);
    // A line end that was spoilt, so that the line goes on.
    if (!turned.ends_with("\r\n")) return Require(line.find('*') == std::string_view::npos);
    turned.resize(text.size());
    Require(IsAccepted(Trim(turned)) == IsRightSentence(line, text.find('$')));
}

} // namespace

// A byte 0x00 in the input is a border between chunks. Each chunk is also taken as a line of its own, as it
// is and as a GN sentence with the right checksum, which chance would seldom find; its length tells where it
// is cut.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TalkerTwins stream;
    std::size_t sentences = 0, ends = 0;
    stream.OnSentence = [&](std::string_view talker, bool) {
        Require(talker.size() <= 2);
        ++sentences;
    };
    std::string_view input(reinterpret_cast<const char*>(data), size);
    while (!input.empty()) {
        const auto border = input.find('\0');
        const std::string chunk(input.substr(0, border));
        input.remove_prefix(border == std::string_view::npos ? input.size() : border + 1);
        Require(stream.Turn(chunk, 0).size() == chunk.size());
        for (const char c : chunk) ends += c == '\n';
        Require(sentences <= ends);

        const std::string body = chunk.substr(0, chunk.find('*'));
        for (const char* head : {"GNRMC,", "GNGSV,", "GN"}) {
            const std::string right = "$" + (head + body) + "*" + NmeaInterpreter::GetChecksum(head + body);
            CheckLine(right, (size + chunk.size()) % right.size());
        }
        if (!chunk.empty()) CheckLine(chunk, size % chunk.size());
    }
    return 0;
}
