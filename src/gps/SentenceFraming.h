#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "gps/NmeaInterpreter.h"

namespace ornivane {

// Cuts the receiver's stream into sentences and has them interpreted.
//
// The buffer is kept after it was interpreted, on purpose. A chunk that begins with "$" starts it anew, and a
// line that was unfinished then is lost; any other chunk is appended, and every complete sentence since the
// last "$" chunk is interpreted once more. So events repeat; whoever wants each sentence once puts WholeLines
// ahead of it, as the link and the port test do.
//
// What is kept has bounds, because a stream without a "$" at the head of a chunk (noise, or a receiver that
// never pauses) would otherwise cost more with every chunk until the program stood still:
// - Of the complete sentences the last 24 are kept (fewer when they and the line behind them are longer than
//   4,096 bytes, which no sentences are). That is more than a receiver says in one burst, so a burst
//   is repeated however its chunks fall; older ones were interpreted when they came, most of them many times,
//   and what they said has been said anew by those behind them.
// - Of a line without its end the first 1,024 bytes are kept, the rest of it is dropped up to its line end. A
//   sentence has at most 82 bytes; what is longer is noise, and the port test needs 200 of it.
class SentenceFraming {
public:
    static constexpr std::size_t MostSentences = 24;
    static constexpr std::size_t MostBytes = 4096;
    static constexpr std::size_t LongestLine = 1024;

    explicit SentenceFraming(NmeaInterpreter& interpreter) : gps(&interpreter) {}

    // A chunk of any size and with any bytes. A sentence that raises a RuntimeError (it is too short, or what
    // it says leads to one further on) is counted, and the next one goes on. Other exceptions pass. An event
    // handler may let the next chunk come in before it returns.
    void HandleInput(std::string_view input);

    // Another port is listened to: what the last one said is forgotten.
    void Reset() { serialBuffer.clear(); }

    // Told the first line of the buffer, complete or not, before the sentences are interpreted. May be left
    // out.
    std::function<void(std::string_view)> OnFirstPiece;

    const std::string& SerialBuffer() const { return serialBuffer; }
    // Sentences that ended in a RuntimeError since the start.
    unsigned long long FailedSentences() const { return failedSentences; }

private:
    void Append(std::string_view input);
    void DropOldSentences();
    void ParseLine(std::string_view line);

    NmeaInterpreter* gps;
    std::string serialBuffer;
    unsigned long long failedSentences = 0;
};

} // namespace ornivane
