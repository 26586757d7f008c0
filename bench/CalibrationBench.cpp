// The catalogue with a folder of 500 charts, and the preview of a large one (12,000 x 9,000; ORNIVANE_CHART
// names another). Needs QT_QPA_PLATFORM=offscreen where there is no display.

#include <QGuiApplication>
#include <QImage>
#include <benchmark/benchmark.h>
#include <cstdlib>

#include "calibration/MapData.h"
#include "platform/qt/QtPicture.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/ScriptedDialogs.h"
#include "support/TestCharts.h"

namespace {

using namespace ornivane;

void EnsureApplication() {
    static int count = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    static QGuiApplication application(count, arguments);
}

struct Folder500 : FlightFolder {
    Folder500() {
        QImage chart(600, 400, QImage::Format_RGB32);
        chart.fill(Qt::white);
        const auto first = Folder.Path() / "Karten" / "chart000.jpg";
        chart.save(QString::fromStdString(first.string()), "JPG");
        for (int i = 1; i < 500; ++i) {
            char name[32];
            std::snprintf(name, sizeof name, "chart%03d.jpg", i);
            std::filesystem::copy_file(first, Folder.Path() / "Karten" / name);
            Shared.DataConn.Execute("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", "
                                    "Active) VALUES (?, 51, 50, 6, 8, 600, 400, 1)",
                                    {name});
        }
    }
    FakePicture Storage;
    DrawnSurface Surface;
    ScriptedDialogs Boxes;
    MapData Catalogue{Shared, Storage, Surface, Boxes};
};

void OpenCatalogue(benchmark::State& state) {
    Folder500 folder;
    for (auto _ : state) folder.Catalogue.Form_Load();
}
BENCHMARK(OpenCatalogue)->Unit(benchmark::kMillisecond);

void SelectChart(benchmark::State& state) {
    Folder500 folder;
    folder.Catalogue.Form_Load();
    int next = 0;
    for (auto _ : state) folder.Catalogue.listKarten_Click(next++ % 500);
}
BENCHMARK(SelectChart)->Unit(benchmark::kMillisecond);

void LoadPreview(benchmark::State& state) {
    EnsureApplication();
    const TemporaryFolder folder;
    std::filesystem::path chart = folder.Path() / "large.jpg";
    if (const char* own = std::getenv("ORNIVANE_CHART")) {
        chart = own;
    } else {
        QImage image(12000, 9000, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x / 47, y / 36, (x ^ y) & 0xFF));
        image.save(QString::fromStdString(chart.string()), "JPG");
    }
    TestCharts charts;
    QtPicture picture(charts);
    for (auto _ : state)
        if (!picture.Load(chart)) return state.SkipWithError("not loaded");
}
BENCHMARK(LoadPreview)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace
