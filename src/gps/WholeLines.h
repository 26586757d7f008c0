#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ornivane {

// The first stage behind the port. A serial driver cuts the receiver's stream where it likes, and the framing
// depends on where a chunk begins; this makes chunks whose borders mean nothing: whole sentences, each handed
// on once.
//
// A line is a sentence when it begins with "$" and two capital letters, blanks ahead of it aside. It is held
// back until its end comes: a line feed, with as many carriage returns ahead of it as a modem may have added.
// A "$" inside a line begins none: of a torn sentence and the one behind it neither can be trusted.
//
// All else (headers, noise at a wrong baud rate) passes on at once and as it is.
class WholeLines {
public:
    struct Piece {
        bool IsSentences = false; // begins with "$", and each of its lines ends in "\r\n"
        std::string Bytes;
    };
    // A line that is longer is no sentence: those have 82 bytes, and a maker's own may have hundreds.
    static constexpr std::size_t LongestLine = 1024;

    // A chunk of any size and with any bytes, as pieces in the order in which they came.
    std::vector<Piece> Take(std::string_view chunk);

    // The port was opened anew: what was unfinished never gets its end.
    void Reset() {
        state = State::LineStart;
        line.clear();
    }

private:
    enum class State {
        LineStart, // only blanks yet
        Holding,   // a sentence
        Passing    // no sentence
    };
    void Read(char c);
    void EndSentence();
    void Pass();
    void Add(bool isSentences, std::string_view bytes);

    State state = State::LineStart;
    std::string line; // what was not handed on yet
    std::vector<Piece> pieces;
};

} // namespace ornivane
