// Charts as tiles: making the cache, opening it, views from decoded tiles, panning. The chart is the file
// that ORNIVANE_CHART names (tools/make-chart makes one of any size). Each step is told with the memory that
// the process holds; this is no Google benchmark, because a pass over two gigapixels is run once.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <time.h>
#include <unistd.h>

#include "platform/qt/Resample.h"
#include "support/TemporaryFolder.h"
#include "tiles/ChartTiles.h"

namespace {

using namespace ornivane;
using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::time_point since) {
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

long MemoryMb(const char* field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(field)) return std::stol(line.substr(std::string(field).size() + 1)) / 1024;
    return 0;
}

// Of all threads: on a busy machine the figure that can be compared.
double CpuMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1000 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Of a redraw: of its thread alone.
double ThreadMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1000 + static_cast<double>(now.tv_nsec) / 1e6;
}

void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

void Tell(const char* what, double milliseconds) {
    std::printf("%-44s %10.2f ms   resident %4ld MB, peak %4ld MB\n", what, milliseconds, MemoryMb("VmRSS"),
                MemoryMb("VmHWM"));
    std::fflush(stdout);
}

struct Screen {
    int Width = 1920, Height = 1080;
    std::vector<std::uint32_t> Pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(Width) * Height);

    // As the surface of the program stretches a chart.
    TileView Paint(ChartViewer& viewer, double x, double y, double scale) {
        const double width = Width * scale, height = Height * scale;
        TileView view =
            viewer.View({x, y, width, height, static_cast<double>(Width), static_cast<double>(Height)});
        if (view.IsEmpty()) return view;
        const double by = 1.0 / (1 << view.Level());
        const ImageExtent level = view.Extent(), whole = viewer.Chart().Extent();
        const ResampleAxis across({0, static_cast<double>(Width), Width}, {x * by, width * by, level.Width},
                                  whole.Width * by);
        const ResampleAxis down({0, static_cast<double>(Height), Height}, {y * by, height * by, level.Height},
                                whole.Height * by);
        Resample({Pixels.data(), Width, Height, Width}, across, down,
                 [&view](int row, int from, int to) { return view.Row(row, from, to); });
        return view;
    }
};

void Wait(const TiledChart& chart) {
    while (chart.Now().At == TiledChart::Phase::Building)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    if (const Outcome why = chart.Now().Why)
        std::printf("%s\n", FailureText(Language::English(), *why).c_str());
}

void Pan(ChartTiles& tiles, const std::shared_ptr<TiledChart>& chart, double scale, const char* what) {
    Screen screen;
    auto viewer = tiles.View(chart, [] {});
    const double x = 0, y = chart->Extent().Height / 5.0;
    viewer->SharpView({x, y, 1920 * scale, 1080 * scale, 1920, 1080}, std::chrono::seconds(10));
    auto start = Clock::now();
    double cpu = ThreadMilliseconds();
    for (int i = 0; i < 20; ++i) screen.Paint(*viewer, x + i * 0.1, y, scale);
    Tell((std::string(what) + ", standing").c_str(), Milliseconds(start) / 20);
    Tell("  processor time", (ThreadMilliseconds() - cpu) / 20);
    std::vector<double> frames, cpuFrames;
    int unsharp = 0;
    for (int i = 0; i < 200; ++i) {
        start = Clock::now();
        cpu = ThreadMilliseconds();
        const TileView view = screen.Paint(*viewer, x + i * 15 * scale, y + i * 5 * scale, scale);
        frames.push_back(Milliseconds(start));
        cpuFrames.push_back(ThreadMilliseconds() - cpu);
        unsharp += !view.IsSharp();
        std::this_thread::sleep_until(start + std::chrono::milliseconds(33));
    }
    std::sort(frames.begin(), frames.end());
    Tell((std::string(what) + ", panning, median").c_str(), frames[100]);
    Tell((std::string(what) + ", panning, worst").c_str(), frames.back());
    std::sort(cpuFrames.begin(), cpuFrames.end());
    Tell("  processor time, median", cpuFrames[100]);
    Tell("  processor time, worst", cpuFrames.back());
    std::printf("%-44s %10d of 200\n", "  frames with a coarser tile in them", unsharp);
}

} // namespace

int main() {
    const char* file = std::getenv("ORNIVANE_CHART");
    if (!file) return std::puts("ORNIVANE_CHART names no chart"), 2;
    const char* in = std::getenv("ORNIVANE_CACHE");
    const TemporaryFolder folder;
    TileOptions options;
    options.CacheFolder = in ? std::filesystem::path(in) : folder.Path();
    Tell("at start", 0);
    for (const bool first : {true, false}) {
        ChartTiles tiles(options);
        const double cpu = CpuMilliseconds();
        auto start = Clock::now();
        auto chart = tiles.Open(file);
        if (!chart) return std::puts(FailureText(Language::English(), chart.Why()).c_str()), 1;
        Tell(first ? "opened, without a cache" : "opened, with its cache", Milliseconds(start));
        if (first) {
            Wait(**chart);
            Tell("cache made", Milliseconds(start));
            Tell("  processor time", CpuMilliseconds() - cpu);
            std::uintmax_t bytes = 0;
            for (const auto& entry : std::filesystem::directory_iterator(options.CacheFolder))
                bytes += entry.file_size();
            std::printf("%-44s %10ju MB\n", "cache on disk", bytes >> 20);
            ForgetPeak();
            continue;
        }
        auto viewer = tiles.View(*chart, [] {});
        Screen screen;
        start = Clock::now();
        screen.Paint(*viewer, 0, 0, 1);
        Tell("first view, what there is", Milliseconds(start));
        viewer->SharpView({0, 0, 1920, 1080, 1920, 1080}, std::chrono::seconds(10));
        Tell("first view, sharp", Milliseconds(start));
        const double whole = (*chart)->Extent().Width / 1920.0;
        Pan(tiles, *chart, 0.5, "view at 0.5");
        Pan(tiles, *chart, 1, "view at 1");
        Pan(tiles, *chart, 1.99, "view at 1.99");
        Pan(tiles, *chart, 3.1, "view at 3.1");
        Pan(tiles, *chart, whole / 2, "view of half the width");
    }
    return 0;
}
