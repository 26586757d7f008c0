#pragma once

#include <memory>

#include "app/EndSignals.h"
#include "app/MainForm.h"
#include "app/frmSplash.h"
#include "common/Variablen.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/QtPortList.h"
#include "platform/qt/QtSerialPort.h"
#include "platform/qt/QtSystem.h"
#include "platform/qt/QtTexts.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/SharedCharts.h"
#include "platform/qt/SystemClock.h"

namespace ornivane {

class frmPlanung;

// The running program: the shared state, the implementations of the platform's interfaces, and the windows in
// the order in which they appear. main owns it.
class Program {
public:
    // The folder is where stores, charts and settings are.
    Program(GuardedApplication& guarded, const std::filesystem::path& folder);
    ~Program();

    // Shows the splash; everything else follows from there.
    void Start();

private:
    void SplashEnded();
    void EndAsked();
    Screen* MakeScreen(Mode mode);
    MainForm::Services MainServices();

    GuardedApplication& application;
    Variablen variablen;
    QtNotice* notices; // the main window's, once it is there
    EventGuard guard;
    QtDialogs dialogs;
    QtWeb web;
    QtShell shell;
    QtProcesses processes;
    SystemClock clock;
    QtPortList ports;
    QtSerialPort MSComm1;
    QtTimer timerCheck, timeTrack;
    QtSerialPort settingsPort; // of the port test; no two screens use one port at once
    QtTimer settingsTimer;
    SharedCharts charts{SharedCharts::CacheFolderOfUser()};
    QtTexts qtTexts;
    std::unique_ptr<frmSplash> splash;
    std::unique_ptr<MainForm> main;
    frmPlanung* planning = nullptr; // the main window's, once it was shown
    EndSignals endSignals;
};

} // namespace ornivane
