#include "app/Program.h"

#include "app/frmPlaceholder.h"
#include "nav/frmGPSmain.h"
#include "platform/qt/Theme.h"
#include "settings/frmSettings.h"

namespace ornivane {

namespace {

constexpr int FailedToStart = 1; // exit status

} // namespace

Program::Program(GuardedApplication& applicationOf, const std::filesystem::path& folder)
    : application(applicationOf), notices(new QtNotice),
      guard(*notices, [this] { return variablen.EnglishUI == 1; }), ports(PortDevices(folder)),
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
    services.SetNight = [this](bool night) { Theme::Apply(application, night); };
    services.Ended = [this] { application.exit(0); };
    return services;
}

Screen* Program::MakeScreen(Mode mode) {
    switch (mode) {
    case Mode::Flight:
        return new frmGPSmain(
            {variablen, MSComm1, timerCheck, timeTrack, ports, clock, dialogs, *notices, guard});
    case Mode::Settings:
        return new frmSettings({{variablen, settingsPort, settingsTimer, ports, clock, dialogs},
                                guard,
                                [this] { main->ApplyLanguage(); },
                                {}});
    case Mode::Planning:
        return new frmPlaceholder(variablen, "frmPlanung", ModeCaption(mode),
                                  {"Hier werden Wegpunkte verwaltet und Strecken auf der Karte gebaut.",
                                   "Here waypoints are kept and routes are built on the chart."});
    case Mode::MapData:
        return new frmPlaceholder(
            variablen, "frmCalibrate", ModeCaption(mode),
            {"Hier werden Karten angemeldet und kalibriert.", "Here charts are registered and calibrated."});
    case Mode::FlightPlan:
        break;
    }
    return new frmPlaceholder(variablen, "frmFlugPlan", ModeCaption(Mode::FlightPlan),
                              {"Hier wird aus einer Strecke ein Flugplan mit Wind, Zeiten und Kraftstoff.",
                               "Here a route becomes a flight plan with wind, times and fuel."});
}

} // namespace ornivane
