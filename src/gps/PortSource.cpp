#include "gps/PortSource.h"

#include "base/Numbers.h"
#include "common/SettingsFiles.h"

namespace ornivane {

void PortSource::TakeSettings() {
    if (const auto saved = ReadComSettings(settings.ProgramFolder)) {
        ComPort = ToInt16(NumberIn(saved->Port));
        LineSettings = saved->Baud + ",n,8,1";
        return;
    }
    ComPort = 1;
    // In a folder that cannot be written the same values simply come back at the next start; the screen must
    // come forward all the same.
    IgnoreErrors([this] { WriteComSettings(settings.ProgramFolder, ComSettings()); });
}

bool PortSource::Open() {
    failure = ErrorOf([this] {
        port.SetSettings(LineSettings);
        port.Open(ComPort);
    });
    return !failure;
}

std::string PortSource::OpenFailure() const {
    if (!failure) return {};
    if (failure->Number() == ErrorNumber::FileAlreadyOpen)
        return language.Text("%1 wird von einem anderen Programm benutzt", "%1 is in use by another program",
                             {Name()});
    if (failure->Number() != ErrorNumber::PermissionDenied)
        return language.Text("%1 existiert nicht", "%1 does not exist", {Name()});
    if (failure->Detail().empty())
        return language.Text("%1: Zugriff verweigert", "%1: permission denied", {Name()});
    return language.Text("%1: Zugriff verweigert - Gruppe beitreten: %2",
                         "%1: permission denied - join the group %2", {Name(), failure->Detail()});
}

} // namespace ornivane
