// The whole flying screen, form and all, with a route of 2,000 points, 20,000 waypoints and a recording of
// 100,000 samples: what the pilot does and what the receiver makes it do, each until it is painted. Needs
// QT_QPA_PLATFORM=offscreen where there is no display.

#include <QApplication>
#include <QLineEdit>
#include <benchmark/benchmark.h>

#include "BenchFlight.h"
#include "nav/frmGPSmain.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/Theme.h"

namespace {

using namespace ornivane;

class NoPorts : public PortList {
public:
    bool Exists(int) const override { return false; }
    std::string Description(int) const override { return {}; }
};

struct Cockpit : ChartFolder {
    Cockpit() : ChartFolder(20000, 2000) {
        CreateStore(Folder.Path() / "track.ovd", StoreKind::Track);
        Shared.TrackConn.Open(Folder.Path() / "track.ovd", Connection::Mode::ReadWrite);
        Shared.TrackEnabled = true;
        Shared.TrackInterval = 1000;
        Form = std::make_unique<frmGPSmain>(FlyingFormServices{
            Shared, {Port, CheckTimer, TrackTimer, Clock}, Ports, Boxes, Notices, Guard, Charts});
        Form->resize(1920, 1033);
        Form->show();
        Form->Form_Activate();
        FlyingScreen& screen = Form->Logic();
        screen.Readouts.FixObtained();
        screen.Readouts.BearingReceived("090");
        screen.State.CurLat = Latitude(50);
        screen.State.CurLong = Longitude(9);
        screen.State.HadPosition = true;
        screen.cmdKartezentrieren_Click();
        screen.SetFlag(&DisplayFlags::ShowRoute, true);
        screen.cmdActivateGoto_Click();
        screen.Instruments.lblVOR1 = "Punkt 5000";
        QApplication::processEvents();
    }
    // Until it is on the screen.
    void Painted() { QApplication::processEvents(); }

    FakePort Port;
    NoPorts Ports;
    FakeTimer CheckTimer;
    FakeTimer TrackTimer;
    SetClock Clock;
    ScriptedDialogs Boxes;
    QtNotice Notices;
    EventGuard Guard{Notices, Shared};
    TestCharts Charts;
    std::unique_ptr<frmGPSmain> Form;
};

Cockpit& TheCockpit() {
    static int count = 1;
    static char name[] = "bench";
    static char* names[] = {name, nullptr};
    // Never destroyed: at the exit of the process it is too late for both.
    static QApplication& application = *new QApplication(count, names);
    static Cockpit& cockpit = *[] {
        Theme::Apply(application, false);
        return new Cockpit;
    }();
    return cockpit;
}

FlyingScreen& Screen() { return TheCockpit().Form->Logic(); }

// Next and previous point around the middle of the route; each step redraws.
void StepToNextPoint(benchmark::State& state) {
    Screen().Route.RoutePointsSet.SetAbsolutePosition(1000);
    bool forwards = true;
    for (auto _ : state) {
        forwards ? Screen().cmdNext_Click() : Screen().cmdPrev_Click();
        forwards = !forwards;
        TheCockpit().Painted();
    }
}

void RefreshRouteList(benchmark::State& state) {
    for (auto _ : state) Screen().RefreshRouteList();
}

// A letter typed into the search of the VOR.
void IncrementalSearch(benchmark::State& state) {
    TheCockpit();
    Instrument& dial = Screen().Instruments;
    const char* texts[] = {"P", "Punkt 7", "Punkt 77", "Punkt 777", "zz"};
    int i = 0;
    for (auto _ : state) dial.tVOR1_Change(texts[i++ % 5]);
}

// Arguments: slider, names on.
void Redraw(benchmark::State& state) {
    FlyingScreen& screen = Screen();
    screen.Flags.ShowNames = state.range(1) != 0;
    screen.SetSlide(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        screen.State.CurLong = Longitude(screen.State.CurLong.Degrees() + 0.00001);
        screen.UpdateMap();
        TheCockpit().Painted();
    }
}

void TurnInstrument(benchmark::State& state) {
    constexpr DialMode modes[] = {DialMode::Heading, DialMode::Vor, DialMode::Hsi};
    Instrument& dial = Screen().Instruments;
    dial.InstrumentMode = modes[state.range(0)];
    dial.lblKurs = "045";
    double angle = 0;
    for (auto _ : state) {
        dial.UpdateInstrument(angle);
        angle -= 1;
    }
}

// A burst's worth of readouts: track, speed and altitude, shown and painted.
void ReceiveReadouts(benchmark::State& state) {
    FlyingScreen& screen = Screen();
    int track = 0;
    for (auto _ : state) {
        screen.Readouts.BearingReceived(std::to_string(track++ % 360));
        screen.Readouts.SpeedReceived(std::to_string(100 + track % 9));
        screen.Readouts.AltitudeReceived(std::to_string(500 + track % 9));
        screen.RefreshRouteList();
        TheCockpit().Form->ApplyLanguage();
        TheCockpit().Painted();
    }
}

// The 100,000th sample of a recording, written through to the disk.
void LogSample(benchmark::State& state) {
    Cockpit& cockpit = TheCockpit();
    TrackLogger& logger = Screen().Logger;
    if (!logger.IsRunning()) {
        Screen().cmdRecord_Click();
        cockpit.Shared.TrackConn.Execute("PRAGMA synchronous = OFF");
        for (int i = 0; i < 100000; ++i) logger.timeTrack_Timer(true);
        cockpit.Shared.TrackConn.Execute("PRAGMA synchronous = FULL");
    }
    for (auto _ : state) logger.timeTrack_Timer(true);
    state.counters["samples"] = static_cast<double>(logger.TrackSampleCount);
}

BENCHMARK(TurnInstrument)->ArgName("mode")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(IncrementalSearch)->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshRouteList)->Unit(benchmark::kMillisecond);
BENCHMARK(StepToNextPoint)->Unit(benchmark::kMillisecond);
BENCHMARK(ReceiveReadouts)->Unit(benchmark::kMillisecond);
BENCHMARK(Redraw)
    ->ArgNames({"slider", "names"})
    ->ArgsProduct({{-100, 0, 100}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();
BENCHMARK(LogSample)->Unit(benchmark::kMillisecond);
// Again, with the recording of 100,000 samples under way.
void RedrawWhileLogging(benchmark::State& state) { Redraw(state); }
BENCHMARK(RedrawWhileLogging)->Args({0, 0})->Unit(benchmark::kMillisecond);

} // namespace
