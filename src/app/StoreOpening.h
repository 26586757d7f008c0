#pragma once

#include "app/Hints.h"
#include "common/Variablen.h"
#include "platform/Dialogs.h"

namespace ornivane {

// Opens the stores of the program folder, in order, when the main window loads. Only the main store is
// indispensable: without the airfields nothing is said, without tracks or airspace a hint tells what to do.
class StoreOpening {
public:
    StoreOpening(Variablen& variablen, Dialogs& dialogs, Hints& hints);

    // False when the program must end; the user has been told then.
    bool Run();

private:
    void OpenAirfields();
    bool OpenData();
    void OpenTrack();
    void OpenAirspace();

    Variablen& variablen;
    Dialogs& dialogs;
    Hints& hints;
};

} // namespace ornivane
