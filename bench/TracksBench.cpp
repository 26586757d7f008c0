// The track manager with 1,000,000 points in 300 tracks: opening, choosing all, exporting all. The last
// benchmark's label is the most memory that the process ever had.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "support/FlightFolder.h"
#include "support/PressedNotice.h"
#include "support/ScriptedDialogs.h"
#include "tracks/TrackManager.h"

namespace {

using namespace ornivane;

struct Logged : FlightFolder {
    Logged() {
        const auto file = Folder.Path() / "track.ovd";
        CreateStore(file, StoreKind::Track);
        Connection logger;
        logger.Open(file, Connection::Mode::ReadWrite);
        Transaction together(logger);
        logger.Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
                       "INSERT INTO List SELECT i, 'Track ' || i FROM n");
        logger.Execute(
            "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 999999) "
            "INSERT INTO Track SELECT i % 300 + 1, i / 300 + 1, 50 + i / 1e6, 7 + i / 1e6, i % 3000, "
            "'2026-11-23', '10:00:00' FROM n");
        together.Commit();
    }
    ScriptedDialogs Boxes;
    PressedNotice Bar;
    Undo LastDeed{Bar, Shared, {}};
};

Logged& TheLogged() {
    static Logged logged;
    return logged;
}

void OpenManager(benchmark::State& state) {
    Logged& logged = TheLogged();
    for (auto _ : state)
        TrackManager(logged.Shared, logged.Shared, logged.Boxes, logged.LastDeed).Form_Load();
}
BENCHMARK(OpenManager)->Unit(benchmark::kMillisecond);

// One click with 299 tracks chosen already, and a screenful of the grid at its end.
void ChooseAll(benchmark::State& state) {
    Logged& logged = TheLogged();
    TrackManager manager(logged.Shared, logged.Shared, logged.Boxes, logged.LastDeed);
    manager.Form_Load();
    for (int i = 0; i < 299; ++i) manager.listTrack_MouseUp(i);
    for (auto _ : state) {
        manager.listTrack_MouseUp(299);
        for (int row = 1; row <= 30; ++row)
            benchmark::DoNotOptimize(manager.TrackPointsSet.At(manager.TrackPointsSet.Count() - row));
    }
}
BENCHMARK(ChooseAll)->Unit(benchmark::kMillisecond);

// Half a million samples go and come back from the backup.
void DeleteAndTakeBack(benchmark::State& state) {
    Logged& logged = TheLogged();
    TrackManager manager(logged.Shared, logged.Shared, logged.Boxes, logged.LastDeed);
    manager.Form_Load();
    for (int i = 0; i < 150; ++i) manager.listTrack_MouseUp(i);
    const int count = manager.TrackPointsSet.Count();
    logged.Boxes.Answer = true;
    for (auto _ : state) {
        manager.cmdDelete_Click();
        logged.Bar.Press();
    }
    if (manager.TrackPointsSet.Count() != count) state.SkipWithError("not all are back");
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    state.SetLabel(std::to_string(used.ru_maxrss / 1024) + " MiB at most");
}
BENCHMARK(DeleteAndTakeBack)->Iterations(2)->Unit(benchmark::kMillisecond);

void ExportAll(benchmark::State& state) {
    Logged& logged = TheLogged();
    TrackManager manager(logged.Shared, logged.Shared, logged.Boxes, logged.LastDeed);
    manager.Form_Load();
    for (int i = 0; i < state.range(0); ++i) manager.listTrack_MouseUp(i);
    logged.Boxes.File = logged.Folder.Path() / "all.gpx";
    for (auto _ : state) manager.cmdWptTrack_Click();
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    state.SetLabel(std::to_string(used.ru_maxrss / 1024) + " MiB at most, a file of " +
                   std::to_string(std::filesystem::file_size(*logged.Boxes.File) >> 20) + " MiB");
}
BENCHMARK(ExportAll)->ArgName("tracks")->Arg(75)->Arg(150)->Arg(300)->Unit(benchmark::kMillisecond);

} // namespace
