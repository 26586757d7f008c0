#pragma once

#include <functional>

#include "base/Language.h"
#include "gps/HeardSentences.h"
#include "gps/SentenceFraming.h"
#include "gps/SentenceSink.h"
#include "gps/TalkerTwins.h"
#include "gps/WholeLines.h"

namespace ornivane {

// The way from a receiver's bytes to the interpreter: whole sentences, those of GN made ones of GP, each
// interpreted once. The interpreter must outlive it.
class NmeaSink : public SentenceSink {
public:
    NmeaSink(NmeaInterpreter& gps, const Clock& systemClock, const Language& uiLanguage);
    NmeaSink(const NmeaSink&) = delete;
    NmeaSink& operator=(const NmeaSink&) = delete;

    void HandleInput(std::string_view chunk) override;
    void Reset() override;
    // "Talkers: GN, GL\nlast minute: 180 sentences, 0 bad checksums", and when there are any "\nunreadable
    // since the start: 2", which are right and yet too short or no numbers.
    std::string ToolTip() const override;

    // Sentences that could not be read since the start.
    unsigned long long FailedSentences() const { return framing.FailedSentences(); }

    // Told each piece of the stream as it was sent, before it is interpreted. May be left out.
    std::function<void(std::string_view)> OnPiece;

private:
    const Clock& clock;
    const Language& language;
    HeardSentences heard;
    WholeLines lines;
    TalkerTwins twins;
    SentenceFraming framing;
};

} // namespace ornivane
