// The whole redraw of the flying screen, chart and 10,000 waypoints, at the two ends and the middle of the
// slider, beside the bare stretching of the chart in the same run. Loading beside the bare decoder. The chart
// is 12,000 x 9,000 pixels, the view 1640 x 980. Needs QT_QPA_PLATFORM=offscreen where there is no display.

#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <benchmark/benchmark.h>

#include "nav/FlyingScreen.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtPictureSurface.h"
#include "store/Schema.h"
#include "support/MapFakes.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace ornivane;

constexpr int ChartWidth = 12000, ChartHeight = 9000;

class NoPort : public SerialPort {
public:
    void SetSettings(const std::string&) override {}
    void Open(int) override {}
    void Close() override {}
    bool IsOpen() const override { return false; }
    std::string ReadAll() override { return {}; }
    void OnEvent(std::function<void(SerialEvent)>) override {}
};

class NoTimer : public Timer {
public:
    void SetInterval(int) override {}
    int Interval() const override { return 0; }
    void OnTimer(std::function<void()>) override {}
};

// A chart with fine lines and areas, as scans have them.
void DrawChart(const std::filesystem::path& file) {
    QImage chart(ChartWidth, ChartHeight, QImage::Format_RGB32);
    for (int y = 0; y < ChartHeight; ++y) {
        auto* line = reinterpret_cast<QRgb*>(chart.scanLine(y));
        for (int x = 0; x < ChartWidth; ++x)
            line[x] = x % 200 == 0 || y % 200 == 0
                          ? qRgb(20, 20, 20)
                          : qRgb(200 + x / 40 % 50, 220 + y / 60 % 30, (x + y) / 30 % 200);
    }
    chart.save(QString::fromStdString(file.string()), "JPG", 85);
}

struct Flight {
    Flight() {
        Shared.ProgramFolder = Folder.Path();
        CreateStore(Folder.Path() / "data.ovd", StoreKind::Data);
        Shared.DataConn.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        std::filesystem::create_directory(Folder.Path() / "Karten");
        DrawChart(Folder.Path() / "Karten" / "large.jpg");
        Shared.DataConn.Execute(
            "INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) "
            "VALUES ('large.jpg', 53, 47, 5, 13, ?, ?, 1)",
            {ChartWidth, ChartHeight});
        Shared.DataConn.Execute("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) WITH RECURSIVE n(i) AS "
                                "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 10000) "
                                "SELECT 'Punkt ' || (i * 7919 % 10007), 47 + i * 37 % 600 / 100.0, 5 + i * "
                                "91 % 800 / 100.0, '' FROM n");
        Screen = std::make_unique<FlyingScreen>(
            FlyingScreenWorld{Shared, Port, CheckTimer, Clock, Chart, Surface, ProgressBar, Boxes, Notices},
            [] {}, [] {});
        Screen->Form_Load();
        Screen->Form_Activate();
        Screen->Readouts.FixObtained();
        Screen->State.CurLat = 50;
        Screen->State.CurLong = 9;
        Screen->Map.cmdKartezentrieren_Click();
    }

    TemporaryFolder Folder;
    Variablen Shared;
    NoPort Port;
    NoTimer CheckTimer;
    SetClock Clock;
    QtPicture Chart;
    QtPictureSurface Surface{1640, 980};
    FakeProgress ProgressBar;
    RecordedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlyingScreen> Screen;
};

Flight& TheFlight() {
    static int count = 1;
    static char name[] = "bench";
    static char* names[] = {name, nullptr};
    static QGuiApplication application(count, names);
    static Flight flight;
    return flight;
}

void Zoom(Flight& flight, int slider, bool names) {
    flight.Screen->Map.SlideMap = slider;
    flight.Screen->Map.ApplyZoom();
    flight.Screen->SetShowNames(names);
}

// Arguments: slider, names on.
void Redraw(benchmark::State& state) {
    Flight& flight = TheFlight();
    Zoom(flight, static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        flight.Screen->State.CurLong += 0.00001; // the aircraft moves, and the view with it
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
        QtPicture picture;
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

// The first redraw after a load, which makes what it needs for its zoom.
void FirstRedraw(benchmark::State& state) {
    Flight& flight = TheFlight();
    const auto file = ChartFile();
    Zoom(flight, static_cast<int>(state.range(0)), false);
    for (auto _ : state) {
        state.PauseTiming();
        flight.Chart.Load(file);
        state.ResumeTiming();
        flight.Screen->UpdateMap();
    }
}

BENCHMARK(BareDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadChart)->Unit(benchmark::kMillisecond);
BENCHMARK(FirstRedraw)
    ->ArgName("slider")
    ->Arg(-100)
    ->Arg(0)
    ->Arg(100)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BareStretch)->ArgName("slider")->Arg(-100)->Arg(0)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Redraw)
    ->ArgNames({"slider", "names"})
    ->ArgsProduct({{-100, 0, 100}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly();

} // namespace
