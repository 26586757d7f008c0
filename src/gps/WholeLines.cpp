#include "gps/WholeLines.h"

#include <utility>

namespace ornivane {

namespace {

constexpr std::size_t LettersOfTalker = 2;

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

} // namespace

std::vector<WholeLines::Piece> WholeLines::Take(std::string_view chunk) {
    for (const char c : chunk) Read(c);
    if (state == State::Passing) Pass();
    return std::exchange(pieces, {});
}

void WholeLines::Read(char c) {
    if (state == State::LineStart && c == '$') {
        line.clear();
        state = State::Holding;
    } else if ((state == State::LineStart && c != ' ') ||
               (state == State::Holding && line.size() <= LettersOfTalker && !IsCapital(c))) {
        state = State::Passing;
    }
    line += c;
    if (c == '\n') {
        if (state == State::Holding)
            EndSentence();
        else
            Pass();
        state = State::LineStart;
    } else if (line.size() > LongestLine) {
        state = State::Passing;
        Pass();
    }
}

void WholeLines::EndSentence() {
    line.pop_back();
    while (line.ends_with('\r')) line.pop_back();
    line += "\r\n";
    Add(true, line);
    line.clear();
}

void WholeLines::Pass() {
    Add(false, line);
    line.clear();
}

void WholeLines::Add(bool isSentences, std::string_view bytes) {
    if (bytes.empty()) return;
    if (pieces.empty() || pieces.back().IsSentences != isSentences) pieces.push_back({isSentences, {}});
    pieces.back().Bytes += bytes;
}

} // namespace ornivane
