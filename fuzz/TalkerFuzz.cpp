// Whatever the bytes and the borders of the chunks: the same whole sentences come out, lines of other talkers
// pass untouched, and of the GN ones the interpreter accepts exactly those of the four types whose checksum
// was right.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "gps/NmeaInterpreter.h"
#include "gps/TalkerTwins.h"
#include "gps/WholeLines.h"

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

// The sentences of a stream, and the bytes that are none.
struct Stream {
    void Take(std::string_view chunk) {
        for (const WholeLines::Piece& piece : lines.Take(chunk)) {
            Require(!piece.Bytes.empty());
            if (!piece.IsSentences) {
                Others += piece.Bytes;
                continue;
            }
            Require(piece.Bytes.starts_with('$') && piece.Bytes.ends_with("\r\n"));
            Sentences += piece.Bytes;
        }
    }
    WholeLines lines;
    std::string Sentences, Others;
};

// Whether a sentence is one to be turned and its checksum is right.
bool IsRightSentence(std::string_view line) {
    const auto star = line.find('*');
    if (line.size() < 10 || star == std::string_view::npos || line.size() != star + 3) return false;
    bool isTurned = false;
    for (const char* type : {"RMC,", "GGA,", "GLL,", "GSA,"}) isTurned |= line.substr(3, 4) == type;
    return isTurned && line.substr(star + 1) == NmeaInterpreter::GetChecksum(line);
}

// Each through a stage that has heard nothing yet.
void CheckSentences(const std::string& sentences) {
    for (const std::string& line : Split(sentences, "\r\n")) {
        if (line.empty()) continue;
        const std::string_view sentence = Trim(line);
        const std::string turned = TalkerTwins().Turn(line + "\r\n", 0);
        Require(turned.size() == sentence.size() + 2);
        if (sentence.starts_with("$GN"))
            Require(IsAccepted(turned.substr(0, sentence.size())) == IsRightSentence(sentence));
        else
            Require(turned == std::string(sentence) + "\r\n");
    }
}

} // namespace

// A byte 0x00 in the input is a border between chunks. Each chunk is followed by GN sentences of it with the
// right checksum, which chance would seldom find.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Stream cut, whole;
    std::string all;
    std::string_view input(reinterpret_cast<const char*>(data), size);
    while (!input.empty()) {
        const auto border = input.find('\0');
        std::string chunk(input.substr(0, border));
        input.remove_prefix(border == std::string_view::npos ? input.size() : border + 1);
        const std::string body = chunk.substr(0, chunk.find('*'));
        for (const char* head : {"GNRMC,", "GNGSV,", "GN"})
            chunk += "\n$" + (head + body) + "*" + NmeaInterpreter::GetChecksum(head + body) + "\r\n";
        cut.Take(chunk.substr(0, chunk.size() / 2));
        cut.Take(chunk.substr(chunk.size() / 2));
        all += chunk;
    }
    whole.Take(all);
    // What both hold back comes out with the end of its line.
    for (Stream* stream : {&cut, &whole}) stream->Take("\n");
    Require(cut.Sentences == whole.Sentences && cut.Others == whole.Others);
    CheckSentences(whole.Sentences);
    return 0;
}
