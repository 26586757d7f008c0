#pragma once

#include "common/Variablen.h"
#include "platform/Dialogs.h"

namespace ornivane {

class frmPlanung;

// Takes a route from a file into the lists of the planning screen. Nothing of it is seen but the file dialog
// and messages.
class frmImport {
public:
    frmImport(Variablen& variablen, Dialogs& dialogs, frmPlanung& screen);

    // The whole import. Afterwards the imported route is selected, and what was being typed on the screen is
    // still there. Errors are told as those of any event of that screen.
    void GetRoute();

private:
    Variablen& shared;
    Dialogs& boxes;
    frmPlanung& planning;
};

} // namespace ornivane
