// The whole redraw of the flying screen, chart and 10,000 waypoints, at the two ends and the middle of the
// slider, beside the scaling of the chart alone in the same run. Loading beside the decoder alone. The chart
// is 12,000 x 9,000 pixels, the view 1640 x 980. Needs QT_QPA_PLATFORM=offscreen where there is no display.

#include <QGuiApplication>
#include <QImageReader>
#include <benchmark/benchmark.h>

#include "BenchFlight.h"

namespace {

using namespace ornivane;

Flight& TheFlight() {
    static int count = 1;
    static char name[] = "bench";
    static char* names[] = {name, nullptr};
    static QGuiApplication application(count, names);
    static Flight flight(10000);
    return flight;
}

void Zoom(Flight& flight, int slider, bool names) {
    flight.Screen->Map.SlideMap = slider;
    flight.Screen->ApplyZoom();
    flight.Screen->SetFlag(&DisplayFlags::ShowNames, names);
    flight.MakeSharp();
}

// Arguments: slider, names on.
void Redraw(benchmark::State& state) {
    Flight& flight = TheFlight();
    Zoom(flight, static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        flight.Screen->State.CurLong = Longitude(flight.Screen->State.CurLong.Degrees() +
                                                 0.00001); // the aircraft moves, and the view with it
        flight.Screen->UpdateMap();
    }
}

void BareStretch(benchmark::State& state) {
    Flight& flight = TheFlight();
    Zoom(flight, static_cast<int>(state.range(0)), false);
    SourceRect view = flight.Screen->Map.View;
    for (auto _ : state) {
        view.SX += 0.1f;
        flight.Surface.PaintPicture(flight.Chart, {0, 0, 1640, 980}, {view.SX, view.SY, view.SW, view.SH});
        flight.Surface.Refresh();
    }
}

std::filesystem::path ChartFile() { return TheFlight().Folder.Path() / "Karten" / "large.jpg"; }

void LoadChart(benchmark::State& state) {
    const auto file = ChartFile();
    for (auto _ : state) {
        QtPicture picture(TheFlight().Charts);
        if (!picture.Load(file)) state.SkipWithError("the chart cannot be read");
    }
}

void BareDecode(benchmark::State& state) {
    QImageReader::setAllocationLimit(0);
    const QString file = QString::fromStdString(ChartFile().string());
    for (auto _ : state) {
        QImageReader reader(file);
        if (reader.read().isNull()) state.SkipWithError("the chart cannot be read");
    }
}

// The first redraw of a chart that has its cache: from coarse tiles, the sharp ones come later.
void ChangeChart(benchmark::State& state) {
    Flight& flight = TheFlight();
    const auto file = ChartFile();
    Zoom(flight, static_cast<int>(state.range(0)), false);
    for (auto _ : state) {
        state.PauseTiming();
        auto charts = std::make_unique<SharedCharts>(flight.Charts.Folder());
        auto picture = std::make_unique<QtPicture>(*charts);
        state.ResumeTiming();
        picture->Load(file);
        const SourceRect& view = flight.Screen->Map.View;
        flight.Surface.PaintPicture(*picture, {0, 0, 1640, 980}, {view.SX, view.SY, view.SW, view.SH});
        state.PauseTiming();
        picture.reset();
        charts.reset();
        state.ResumeTiming();
    }
}

BENCHMARK(BareDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadChart)->Unit(benchmark::kMillisecond);
BENCHMARK(ChangeChart)
    ->ArgName("slider")
    ->Arg(-100)
    ->Arg(0)
    ->Arg(100)
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BareStretch)->ArgName("slider")->Arg(-100)->Arg(0)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Redraw)
    ->ArgNames({"slider", "names"})
    ->ArgsProduct({{-100, 0, 100}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();

} // namespace
