#include "gps/SentenceFraming.h"

#include "base/RuntimeError.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr std::string_view LineEnd = "\r\n";

// Where the line begins that has no end yet.
std::size_t TailOf(std::string_view text) {
    const auto end = text.rfind(LineEnd);
    return end == std::string_view::npos ? 0 : end + LineEnd.size();
}

} // namespace

void SentenceFraming::HandleInput(std::string_view input) {
    if (input.starts_with('$')) serialBuffer.clear();
    Append(input);
    // The sentences are taken from a copy: a handler may lead to the next chunk before it returns.
    const std::string text = serialBuffer;
    DropOldSentences();

    std::string_view rest = text;
    if (OnFirstPiece) OnFirstPiece(rest.substr(0, rest.find(LineEnd)));
    for (auto end = rest.find(LineEnd); end != std::string_view::npos; end = rest.find(LineEnd)) {
        ParseLine(Trim(rest.substr(0, end)));
        rest.remove_prefix(end + LineEnd.size());
    }
}

void SentenceFraming::Append(std::string_view input) {
    const std::size_t tail = TailOf(serialBuffer);
    const std::size_t length = serialBuffer.size() - tail;
    if (length >= LongestLine) {
        // Overlong: nothing of it is wanted but its end, of which the first half may be here already.
        auto end = input.find(LineEnd);
        if (serialBuffer.back() == '\r' && input.starts_with('\n')) end = 0;
        if (end == std::string_view::npos) {
            if (!input.empty() && (serialBuffer.back() == '\r') != (input.back() == '\r'))
                serialBuffer.back() = input.back() == '\r' ? '\r' : ' ';
            return;
        }
        input.remove_prefix(end);
    }
    serialBuffer += input;
}

void SentenceFraming::DropOldSentences() {
    const std::size_t tail = TailOf(serialBuffer);
    if (serialBuffer.size() - tail > LongestLine) {
        const char last = serialBuffer.back();
        serialBuffer.resize(tail + LongestLine);
        serialBuffer.back() = last == '\r' ? '\r' : ' ';
    }
    std::size_t keepFrom = tail;
    for (std::size_t sentences = 0; sentences < MostSentences && keepFrom >= LineEnd.size(); ++sentences) {
        const std::size_t begin = TailOf(std::string_view(serialBuffer).substr(0, keepFrom - LineEnd.size()));
        if (serialBuffer.size() - begin > MostBytes) break;
        keepFrom = begin;
    }
    serialBuffer.erase(0, keepFrom);
}

void SentenceFraming::ParseLine(std::string_view line) {
    if (line.empty()) return;
    try {
        gps->Parse(line);
    } catch (const RuntimeError&) {
        ++failedSentences;
    }
}

} // namespace ornivane
