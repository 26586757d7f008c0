#include "gps/TalkerTwins.h"

#include <algorithm>

#include "base/Strings.h"
#include "gps/NmeaInterpreter.h"

namespace ornivane {

namespace {

constexpr std::string_view LineEnd = "\r\n";

// The interpreter asks for less: it takes the last two characters as the checksum wherever the "*" stands.
bool HasRightChecksum(std::string_view sentence) {
    const auto star = sentence.find('*');
    return star != std::string_view::npos && star + 3 == sentence.size() &&
           sentence.substr(star + 1) == NmeaInterpreter::GetChecksum(sentence);
}

std::string_view TalkerOf(std::string_view sentence) {
    const std::string_view talker = sentence.substr(1, 2);
    return talker.starts_with('P') ? talker.substr(0, 1) : talker;
}

} // namespace

std::string TalkerTwins::Turn(std::string_view lines, long long now) {
    std::string turned;
    while (!lines.empty()) {
        const auto end = std::min(lines.find(LineEnd), lines.size());
        turned += TurnedLine(Trim(lines.substr(0, end)), now);
        turned += LineEnd;
        lines.remove_prefix(std::min(end + LineEnd.size(), lines.size()));
    }
    return turned;
}

std::string TalkerTwins::TurnedLine(std::string_view line, long long now) {
    std::string sentence(line);
    const bool isRight = HasRightChecksum(line);
    if (isRight && IsToBeTurned(line.substr(1, line.find(',')), now)) {
        sentence[2] = 'P';
        sentence.replace(sentence.size() - 2, 2, NmeaInterpreter::GetChecksum(sentence));
    }
    if (OnSentence) OnSentence(TalkerOf(line), isRight);
    return sentence;
}

// The head: talker, type and a comma.
bool TalkerTwins::IsToBeTurned(std::string_view head, long long now) {
    for (std::size_t i = 0; i < Types.size(); ++i) {
        if (head.size() < 2 || head.substr(2) != Types[i]) continue;
        Twin& twin = twins[i];
        if (head.starts_with("GP")) twin = {true, 0, now};
        if (!head.starts_with("GN")) return false;
        const int most = Types[i] == "GSA," ? MostOfSatellitesBeforeTwinIsGone : MostBeforeTwinIsGone;
        if (twin.Since >= most && now - twin.LastHeard >= TicksBeforeTwinIsGone) twin = {};
        ++twin.Since;
        return !twin.IsHeard;
    }
    return false;
}

} // namespace ornivane
