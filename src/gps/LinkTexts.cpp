#include "gps/LinkTexts.h"

namespace ornivane {

std::string OpenFailureText(const RuntimeError& error, const std::string& port, const Variablen& shared) {
    const std::string name = "COM " + port;
    if (error.Number() == ErrorNumber::FileAlreadyOpen)
        return name +
               shared.Text(" wird von einem anderen Programm benutzt", " is in use by another program");
    if (error.Number() != ErrorNumber::PermissionDenied)
        return name + shared.Text(" existiert nicht", " does not exist");
    std::string text = name + shared.Text(": Zugriff verweigert", ": permission denied");
    if (!error.Detail().empty())
        text += shared.Text(" - Gruppe beitreten: ", " - join the group ") + error.Detail();
    return text;
}

std::string HeardText(const HeardSentences& heard, unsigned long long failed, const Variablen& shared) {
    const auto count = heard.LastMinute();
    if (heard.Talkers().empty() && count.Sentences == 0) return {};
    std::string talkers;
    for (const std::string& talker : heard.Talkers()) talkers += (talkers.empty() ? "" : ", ") + talker;
    if (talkers.empty()) talkers = "-";
    const std::string unreadable =
        failed == 0 ? std::string()
                    : shared.Text("\nunlesbar seit dem Start: ", "\nunreadable since the start: ") +
                          std::to_string(failed);
    return shared.Text("Talker: ", "Talkers: ") + talkers +
           shared.Text("\nletzte Minute: ", "\nlast minute: ") + std::to_string(count.Sentences) +
           (count.Sentences == 1 ? shared.Text(" Satz, ", " sentence, ")
                                 : shared.Text(" Sätze, ", " sentences, ")) +
           std::to_string(count.Bad) +
           (count.Bad == 1 ? shared.Text(" falsche Prüfsumme", " bad checksum")
                           : shared.Text(" falsche Prüfsummen", " bad checksums")) +
           unreadable;
}

} // namespace ornivane
