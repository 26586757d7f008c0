#include "gps/TalkerTwins.h"

#include <algorithm>

namespace ornivane {

namespace {

constexpr unsigned TwinBits = 'N' ^ 'P';

// -1 for what the interpreter does not take as a digit of a checksum: it knows capital letters only.
int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool IsHexOf(unsigned sum, char high, char low) {
    return HexValue(high) == static_cast<int>(sum >> 4) && HexValue(low) == static_cast<int>(sum & 0xF);
}

char FlipHex(char digit, unsigned bits) {
    const int value = HexValue(digit);
    return value < 0 ? digit : "0123456789ABCDEF"[static_cast<unsigned>(value) ^ bits];
}

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

} // namespace

std::string TalkerTwins::Turn(std::string_view chunk, long long now) {
    ticks = now;
    if (chunk.starts_with('$')) line = {};
    std::string turned(chunk);
    for (std::size_t i = 0; i < chunk.size(); ++i) {
        const char c = chunk[i];
        const bool followsReturn = line.EndsInReturn;
        if (c == '\n' && followsReturn) {
            EndLine();
            continue;
        }
        if (c == '\r' && WouldPassWithoutStar()) {
            line.Made = Change::Spoilt;
            // Behind a border only the line end itself is left to spoil. That costs the next line as well,
            // unless it begins a chunk.
            turned[i == 0 ? 0 : i - 1] = '?';
            line.EndsInReturn = i != 0;
            continue;
        }
        Read(c);
        turned[i] = Changed(c, followsReturn, chunk.substr(i + 1));
    }
    return turned;
}

void TalkerTwins::Read(char c) {
    line.EndsInReturn = c == '\r';
    ++line.Length;
    if (!line.IsSentence) {
        line.IsSentence = c == '$' && !line.IsNoise;
        line.IsNoise = line.IsNoise || (!line.IsSentence && c != ' ');
        return;
    }
    if (line.HeadLength < line.Head.size()) line.Head[line.HeadLength++] = c;
    if (line.SinceStar > 0 || c == '*') return ReadFromStar(c);
    if (c != '$') line.Sum ^= static_cast<unsigned char>(c);
    if (c != ' ') {
        line.LastButOne = line.Previous;
        line.Last = c;
        line.SumWithoutTail = line.Sum;
    }
    line.Previous = c;
}

void TalkerTwins::ReadFromStar(char c) {
    line.SinceStar = std::min(line.SinceStar + 1, 4);
    if (line.SinceStar == 2) line.Digits[0] = c;
    if (line.SinceStar == 3) line.Digits[1] = c;
    if (line.SinceStar == 4 && c != ' ' && c != '\r') line.HasTrailer = true;
}

char TalkerTwins::Changed(char c, bool followsReturn, std::string_view rest) {
    switch (line.Made) {
    case Change::None:
        if (c != 'N' || Head() != "GN" || !MayBeTurned(rest.substr(0, Types[0].size()))) return c;
        line.Made = Change::Begun;
        return 'P';
    case Change::Begun:
        // A type that no interpreter knows makes the line one that is ignored whatever its checksum says.
        if (!MayBeTurned(Head().substr(2)))
            line.Made = Change::Spoilt;
        else if (line.HeadLength == line.Head.size())
            line.Made = Change::Turned;
        break;
    case Change::Turned:
        return ChangedTurned(c, followsReturn);
    case Change::Spoilt:
        break;
    }
    return line.Made == Change::Spoilt && c != '\r' ? '?' : c;
}

// The interpreter takes the last two characters of a line as its checksum, so what stands behind the real one
// must not come out right by chance. No sentence has a "\r" inside either.
char TalkerTwins::ChangedTurned(char c, bool followsReturn) {
    const bool isOverlong = line.SinceStar == 0 && line.Length > LongestSentence;
    if (followsReturn || isOverlong || line.HasTrailer) {
        line.Made = Change::Spoilt;
        return c == '\r' ? c : '?';
    }
    if (line.SinceStar == 2) return FlipHex(c, TwinBits >> 4);
    if (line.SinceStar == 3) return FlipHex(c, TwinBits & 0xF);
    return c;
}

bool TalkerTwins::MayBeTurned(std::string_view type) const {
    for (std::size_t i = 0; i < Types.size(); ++i)
        if (!twins[i].IsHeard && Types[i].starts_with(type)) return true;
    return false;
}

bool TalkerTwins::WouldPassWithoutStar() const {
    return line.Made == Change::Turned && line.SinceStar == 0 &&
           IsHexOf(line.SumWithoutTail ^ TwinBits, line.LastButOne, line.Last);
}

void TalkerTwins::EndLine() {
    if (line.IsSentence) {
        const bool isRight = !line.HasTrailer && IsHexOf(line.Sum, line.Digits[0], line.Digits[1]);
        const std::string_view talker = Head().substr(0, 2);
        const bool isOfMaker = talker.starts_with('P');
        const bool isKnown =
            isOfMaker || (talker.size() == 2 && IsCapital(talker[0]) && IsCapital(talker[1]));
        if (isRight) NoteTwin();
        if (OnSentence)
            OnSentence(isKnown ? talker.substr(0, isOfMaker ? 1 : 2) : std::string_view(), isRight);
    }
    line = {};
}

void TalkerTwins::NoteTwin() {
    for (std::size_t i = 0; i < Types.size(); ++i) {
        if (Head().substr(2) != Types[i]) continue;
        if (Head().starts_with("GP"))
            twins[i] = {true, 0, ticks};
        else if (Head().starts_with("GN") && twins[i].IsHeard && ++twins[i].Since > MostBeforeTwinIsGone &&
                 ticks - twins[i].LastHeard >= TicksBeforeTwinIsGone)
            twins[i] = {};
    }
}

} // namespace ornivane
