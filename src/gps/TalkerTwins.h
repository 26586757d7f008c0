#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace ornivane {

// Stands between WholeLines and SentenceFraming, for receivers of several satellite systems: those speak with
// the talker GN, and the interpreter knows GP only. Makes $GNRMC, $GNGGA, $GNGLL and $GNGSA whose checksum is
// right their GP twins, with the checksum of those; every other line passes as it is, and the interpreter
// ignores what speaks with another talker.
class TalkerTwins {
public:
    // So many right GN sentences of a type without a GP one, and so long since that, and the GP twin counts
    // as gone: the receiver has changed its talker, and what it says must not stand still for longer. A burst
    // has several GNGSA, one per satellite system, and GN may come ten times as often as GP.
    static constexpr int MostBeforeTwinIsGone = 2;
    static constexpr int MostOfSatellitesBeforeTwinIsGone = 8; // GSA
    static constexpr long long TicksBeforeTwinIsGone = 3000;   // milliseconds

    // Sentences as WholeLines hands them on, as the interpreter shall get them. `now`: milliseconds of a
    // clock that never goes backwards.
    std::string Turn(std::string_view lines, long long now);

    // For a new connection: forgets which twins the receiver sends.
    void Reset() { twins = {}; }

    // Told each sentence: the two letters behind its "$" as the receiver sent them, "P" for the sentences of
    // a maker; and whether its checksum was right. May be left out.
    std::function<void(std::string_view talker, bool isRight)> OnSentence;

private:
    // Whether the receiver says a type as GP, and the GN sentences since.
    struct Twin {
        bool IsHeard = false;
        int Since = 0;
        long long LastHeard = 0;
    };
    static constexpr std::array<std::string_view, 4> Types{"RMC,", "GGA,", "GLL,", "GSA,"};

    std::string TurnedLine(std::string_view line, long long now);
    bool IsToBeTurned(std::string_view head, long long now);

    std::array<Twin, Types.size()> twins{};
};

} // namespace ornivane
