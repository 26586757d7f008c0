#include "gps/LinkTexts.h"

namespace ornivane {

std::string OpenFailureText(const RuntimeError& error, const std::string& port, const Variablen& shared) {
    const std::string name = "COM " + port;
    if (error.Number() != ErrorNumber::PermissionDenied)
        return name + shared.Text(" existiert nicht", " does not exist");
    std::string text = name + shared.Text(": Zugriff verweigert", ": permission denied");
    if (!error.Detail().empty())
        text += shared.Text(" - Gruppe beitreten: ", " - join the group ") + error.Detail();
    return text;
}

} // namespace ornivane
