#include "app/Program.h"

#include "app/frmInfo2.h"
#include "calibration/frmCalibrate.h"
#include "flightplan/frmFlugPlan.h"
#include "nav/frmGPSmain.h"
#include "planning/frmExport.h"
#include "planning/frmPlanung.h"
#include "platform/qt/Theme.h"
#include "settings/frmSettings.h"
#include "tracks/frmTrack.h"

namespace ornivane {

namespace {

constexpr int FailedToStart = 1; // exit status

} // namespace

Program::Program(GuardedApplication& guarded, const std::filesystem::path& folder)
    : application(guarded), notices(new QtNotice), guard(*notices, variablen), ports(PortDevices(folder)),
      MSComm1(PortDevices(folder)), timerCheck(guard), timeTrack(guard), settingsPort(PortDevices(folder)),
      settingsTimer(guard), main(std::make_unique<MainForm>(variablen, MainServices())),
      endSignals([this] { EndAsked(); }) {
    variablen.ProgramFolder = folder;
    variablen.Locale = ReadSystemLocale();
    dialogs.SetWindow(main.get());
    application.SetGuard(&guard);
    application.setQuitOnLastWindowClosed(false);
    Theme::Apply(application, false);
}

Program::~Program() { application.SetGuard(nullptr); }

void Program::Start() {
    splash = std::make_unique<frmSplash>(variablen, web);
    splash->OnEnd([this] { SplashEnded(); });
    splash->show();
}

void Program::SplashEnded() {
    splash->hide();
    splash.release()->deleteLater(); // the call comes from an event of its own
    if (!main->Form_Load()) application.exit(FailedToStart);
}

void Program::EndAsked() {
    if (main->isVisible())
        main->QueryUnload();
    else
        application.exit(0);
}

MainForm::Services Program::MainServices() {
    MainForm::Services services;
    services.Boxes = &dialogs;
    services.Guard = &guard;
    services.NoticeBar = notices;
    services.Programs = &processes;
    services.Links = &shell;
    services.MakeScreen = [this](Mode mode) { return MakeScreen(mode); };
    services.ShowExport = [this](QWidget* window) {
        const Recordset* routes = planning ? &planning->Logic().Routes.RoutesSet : nullptr;
        const bool chosen = routes && routes->IsOpen() && !routes->Eof() && !routes->Bof();
        (new frmExport(variablen, dialogs, guard, chosen ? routes->TextOrEmpty("Name") : std::string(),
                       window))
            ->open();
    };
    services.ImportRoute = [this] {
        if (planning) planning->ImportRoute();
    };
    services.ShowAirspaceSettings = [this] {
        if (planning) planning->ShowAirspaceSettings();
    };
    services.SetNight = [this](bool night) { Theme::Apply(application, night); };
    services.SetLanguage = [this](const Language& language) { qtTexts.SetLanguage(language); };
    services.Ended = [this] { application.exit(0); };
    return services;
}

Screen* Program::MakeScreen(Mode mode) {
    switch (mode) {
    case Mode::Flight:
        return new frmGPSmain(
            {variablen, {MSComm1, timerCheck, timeTrack, clock}, ports, dialogs, *notices, guard, charts});
    case Mode::Settings:
        return new frmSettings({{variablen, settingsPort, settingsTimer, ports, clock, dialogs},
                                guard,
                                [this] { main->ApplyLanguage(); },
                                [this] { (new frmTrack(variablen, guard, dialogs, main.get()))->Start(); }});
    case Mode::Planning:
        planning = new frmPlanung(variablen, dialogs, guard, charts);
        return planning;
    case Mode::MapData:
        return new frmCalibrate(variablen, guard, dialogs, charts);
    case Mode::FlightPlan:
        break;
    }
    return new frmFlugPlan({variablen, guard, dialogs, *notices,
                            [this] { (new frmInfo2(variablen, shell, main.get()))->open(); }});
}

} // namespace ornivane
