#pragma once

#include "gps/GpsFakes.h"
#include "support/SetClock.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

// What a serial link stands on, with a program folder for its settings.
struct PortWorld {
    PortWorld() { Shared.ProgramFolder = Folder.Path(); }

    TemporaryFolder Folder;
    FakePort Port;
    FakeTimer Timer;
    FakePortList Ports;
    ScriptedDialogs Dialogs;
    SetClock Clock;
    Variablen Shared;
};

} // namespace ornivane
