#pragma once

#include <string>
#include <string_view>

namespace ornivane {

// Who makes something of a receiver's bytes. The link only hands them on, so what is spoken on a line is its
// sink's matter alone.
class SentenceSink {
public:
    virtual ~SentenceSink() = default;
    // A chunk of any size and with any bytes, as it was read.
    virtual void HandleInput(std::string_view chunk) = 0;
    // The source was opened anew. Another receiver may be behind it now, and what the last one left
    // unfinished never gets its end.
    virtual void Reset() = 0;
    // What was heard since then, for the tooltip of the lamps; empty when nothing was.
    virtual std::string ToolTip() const = 0;
};

} // namespace ornivane
