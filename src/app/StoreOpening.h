#pragma once

#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "common/Variablen.h"
#include "platform/Dialogs.h"

namespace ornivane {

// Opens the stores of the program folder, in order, when the main window loads. Only the main store is
// indispensable: of the airfields nothing is said, of tracks and airspace the window shows a hint.
class StoreOpening {
public:
    struct Result {
        bool MustEnd = false; // without the main store, of which the user has been told
        // Why there is none of these: empty when the file is simply not there.
        std::optional<std::string> TrackFailure, AirspaceFailure;
    };

    StoreOpening(Variablen& shared, Dialogs& messages);

    Result Run();

private:
    bool OpenData();
    std::optional<std::string> OpenTrack();
    std::optional<std::string> OpenAirspace();
    std::string Reason(const RuntimeError& error) const;

    Variablen& variablen;
    Dialogs& dialogs;
};

} // namespace ornivane
