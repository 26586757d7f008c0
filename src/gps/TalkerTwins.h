#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace ornivane {

// Stands ahead of SentenceFraming, for receivers of several satellite systems: those speak with the talker
// GN, and the interpreter knows GP only. Turns $GNRMC, $GNGGA, $GNGLL and $GNGSA into their GP twins and
// corrects the checksum; every other line passes as it is.
//
// Nothing is held back and no chunk changes its length, so the framing, which minds the borders of chunks,
// sees those that the receiver made. For that the lines are counted as the framing counts them: one ends at
// "\r\n", and a chunk that begins with "$" begins a new one.
//
// Correcting is a bijection (N and P differ in the bits 0x1E, and so do the two checksums): a sentence that
// was wrong, or had a checksum in small letters or none, stays one that the interpreter refuses.
class TalkerTwins {
public:
    // So many right GN sentences of a type in a row over so long, without a GP one, and the GP twin counts as
    // gone. A burst has several GNGSA, one per satellite system, and GN may come ten times as often as GP.
    static constexpr int MostBeforeTwinIsGone = 8;
    static constexpr long long TicksBeforeTwinIsGone = 3000; // milliseconds
    // A line longer than this without its "*" is noise. Less than what the framing keeps of a line.
    static constexpr std::size_t LongestSentence = 1000;

    // The chunk as the interpreter shall get it. Any size, any bytes. `now`: milliseconds of a clock that
    // never goes backwards.
    std::string Turn(std::string_view chunk, long long now);

    // For a new connection: forgets which twins the receiver sends. The line that is under way goes on, as in
    // the framing, which joins it with what the new connection brings.
    void Reset() { twins = {}; }

    // Told the end of every line that began with "$": the two letters behind it as the receiver sent them,
    // "P" for the sentences of a maker, empty for what is neither; and whether its checksum was right. May be
    // left out.
    std::function<void(std::string_view talker, bool isRight)> OnSentence;

private:
    enum class Change {
        None,   // passes as it is
        Begun,  // the N was turned while the type was still to come
        Turned, // one of the four: the checksum will be corrected
        Spoilt  // must not be accepted: everything up to the line end becomes "?"
    };
    // The line under way, as the receiver sent it.
    struct Line {
        bool IsSentence = false, IsNoise = false; // neither: only blanks so far
        Change Made = Change::None;
        bool EndsInReturn = false;
        std::array<char, 6> Head{}; // what follows the "$": talker, type and a comma
        std::size_t HeadLength = 0;
        std::size_t Length = 0;
        unsigned Sum = 0;              // the checksum up to here or to the "*"
        unsigned SumWithoutTail = 0;   // without the blanks that it ends in
        char Last = 0, LastButOne = 0; // likewise
        char Previous = 0;
        int SinceStar = 0; // 1 the "*", 2 and 3 the digits, 4 any further
        std::array<char, 2> Digits{};
        bool HasTrailer = false; // more than blanks behind the digits
    };
    // One of the four types: whether the receiver says it as GP, and the GN sentences since.
    struct Twin {
        bool IsHeard = false;
        int Since = 0;
        long long LastHeard = 0;
    };
    static constexpr std::array<std::string_view, 4> Types{"RMC,", "GGA,", "GLL,", "GSA,"};

    void Read(char c);
    void ReadFromStar(char c);
    char Changed(char c, bool followsReturn, std::string_view rest);
    char ChangedTurned(char c, bool followsReturn);
    bool MayBeTurned(std::string_view type) const;
    bool WouldPassWithoutStar() const;
    void EndLine();
    void NoteTwin();
    std::string_view Head() const { return {line.Head.data(), line.HeadLength}; }

    Line line;
    std::array<Twin, 4> twins{};
    long long ticks = 0;
};

} // namespace ornivane
