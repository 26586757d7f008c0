// The whole planning screen, form and all, at 1920 x 1033: dragging the chart, measuring, stepping through
// the waypoints and zooming, each until it is painted. With 20,000 waypoints, airspace off, a route of 2,000
// points and a chart of 12,000 x 9,000 pixels; ORNIVANE_FOLDER names a portable folder (a copy of the demo's)
// to be used instead, with airspace at 4500 ft. Needs QT_QPA_PLATFORM=offscreen where there is no display.

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <benchmark/benchmark.h>
#include <cstdlib>

#include "BenchFlight.h"
#include "planning/frmPlanung.h"
#include "platform/qt/Events.h"
#include "platform/qt/QtNotice.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Theme.h"

namespace {

using namespace ornivane;

struct Desk {
    Desk() {
        if (const char* own = std::getenv("ORNIVANE_FOLDER"))
            OpenOwn(own);
        else
            Made = std::make_unique<ChartFolder>(20000, 2000);
        Form = std::make_unique<frmPlanung>(Shared(), Boxes, Guard, Charts);
        Form->resize(1920, 1033);
        Form->show();
        Form->Form_Activate();
        if (!Made) Form->Logic().Airspace.tLRHoehe = "4500";
        Map = Form->findChild<SurfaceWidget*>("picMap");
        QApplication::processEvents();
    }
    Variablen& Shared() { return Made ? Made->Shared : Own; }
    void OpenOwn(const std::filesystem::path& folder) {
        Own.ProgramFolder = folder;
        Own.DataConn.Open(folder / "data.ovd", Connection::Mode::ReadWrite);
        Own.LuftraumConn.Open(folder / "Luftraum.ovd", Connection::Mode::ReadOnly);
        Own.AirfieldConn.Open(folder / "ovdata.ovd", Connection::Mode::ReadOnly);
        Own.AirfieldStoreOpen = true;
    }
    void Zoom(const benchmark::State& state) {
        Form->Logic().Map.SetSlide(static_cast<int>(state.range(0)));
        Form->Logic().CenterOnWaypoint();
        BecomesSharp(*Map);
    }
    void Mouse(QEvent::Type type, double x, double y, Qt::MouseButton button) {
        const QPointF at(x, y);
        QMouseEvent event(type, at, Map->mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(Map, &event);
        QApplication::processEvents(); // until it is on the screen
    }

    Variablen Own;
    std::unique_ptr<ChartFolder> Made;
    ScriptedDialogs Boxes;
    QtNotice Notices;
    EventGuard Guard{Notices, Own};
    TestCharts Charts;
    std::unique_ptr<frmPlanung> Form;
    SurfaceWidget* Map = nullptr;
};

Desk& TheDesk() {
    static int count = 1;
    static char name[] = "bench";
    static char* names[] = {name, nullptr};
    static QApplication& application = *new QApplication(count, names);
    static Desk& desk = (Theme::Apply(application, false), *new Desk);
    return desk;
}

// Each movement there and back, so that the chart never reaches its end.
void Drag(benchmark::State& state) {
    Desk& desk = TheDesk();
    desk.Zoom(state);
    desk.Mouse(QEvent::MouseButtonPress, 500, 500, Qt::LeftButton);
    double by = 8;
    for (auto _ : state) {
        desk.Mouse(QEvent::MouseMove, 500 + by, 500 + by, Qt::LeftButton);
        by = -by;
    }
    desk.Mouse(QEvent::MouseButtonRelease, 500, 500, Qt::LeftButton);
}

void MoveWhileMeasuring(benchmark::State& state) {
    Desk& desk = TheDesk();
    desk.Zoom(state);
    PlanningScreen& screen = desk.Form->Logic();
    screen.Act(screen.Map.cmdMessen_Click());
    double x = 100;
    for (auto _ : state) desk.Mouse(QEvent::MouseMove, x = x < 900 ? x + 7 : 100, 400, Qt::NoButton);
    screen.Act(screen.Map.picMessen_Click());
}

void StepToTheNextWaypoint(benchmark::State& state) {
    Desk& desk = TheDesk();
    desk.Zoom(state);
    for (auto _ : state) {
        QTest::keyClick(desk.Map, Qt::Key_Down);
        QApplication::processEvents();
    }
}

void LetterOfTheQuickFind(benchmark::State& state) {
    Desk& desk = TheDesk();
    desk.Zoom(state);
    auto* field = desk.Form->findChild<QLineEdit*>("tquickfind");
    bool first = true;
    for (auto _ : state) {
        emit field->textEdited(first ? "Punkt 5" : "Punkt 7");
        first = !first;
        QApplication::processEvents();
    }
}

void Redraw(benchmark::State& state) {
    Desk& desk = TheDesk();
    desk.Zoom(state);
    for (auto _ : state) desk.Form->Logic().RedrawPlan();
}

void EachSlider(benchmark::internal::Benchmark* b) {
    b->ArgName("slider")
        ->Arg(-100)
        ->Arg(0)
        ->Arg(99)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(5)
        ->ReportAggregatesOnly();
}
BENCHMARK(Redraw)->Apply(EachSlider);
BENCHMARK(Drag)->Apply(EachSlider);
BENCHMARK(MoveWhileMeasuring)->Apply(EachSlider);
BENCHMARK(StepToTheNextWaypoint)->Apply(EachSlider);
BENCHMARK(LetterOfTheQuickFind)->Apply(EachSlider);

} // namespace
