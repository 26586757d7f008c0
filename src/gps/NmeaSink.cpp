#include "gps/NmeaSink.h"

namespace ornivane {

NmeaSink::NmeaSink(NmeaInterpreter& gps, const Clock& systemClock, const Language& uiLanguage)
    : clock(systemClock), language(uiLanguage), heard(systemClock), framing(gps) {
    twins.OnSentence = [this](std::string_view talker, bool isRight) { heard.Add(talker, isRight); };
}

void NmeaSink::HandleInput(std::string_view chunk) {
    for (const WholeLines::Piece& piece : lines.Take(chunk)) {
        if (OnPiece) OnPiece(piece.Bytes);
        // All else says nothing to the interpreter.
        if (piece.IsSentences) framing.HandleInput(twins.Turn(piece.Bytes, clock.Ticks()));
    }
}

void NmeaSink::Reset() {
    lines.Reset();
    framing.Reset();
    twins.Reset();
    heard.Forget();
}

std::string NmeaSink::ToolTip() const {
    const auto count = heard.LastMinute();
    if (heard.Talkers().empty() && count.Sentences == 0) return {};
    std::string talkers;
    for (const std::string& talker : heard.Talkers()) talkers += (talkers.empty() ? "" : ", ") + talker;
    std::string text = language.Text(
        "Talker: %1\nletzte Minute: %2 %3, %4 %5", "Talkers: %1\nlast minute: %2 %3, %4 %5",
        {talkers.empty() ? "-" : talkers, std::to_string(count.Sentences),
         count.Sentences == 1 ? language.Text("Satz", "sentence") : language.Text("Sätze", "sentences"),
         std::to_string(count.Bad),
         count.Bad == 1 ? language.Text("falsche Prüfsumme", "bad checksum")
                        : language.Text("falsche Prüfsummen", "bad checksums")});
    if (FailedSentences() > 0)
        text += language.Text("\nunlesbar seit dem Start: %1", "\nunreadable since the start: %1",
                              {std::to_string(FailedSentences())});
    return text;
}

} // namespace ornivane
