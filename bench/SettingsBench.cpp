// 69,899 airfields of 1,047 prefixes become waypoints in one go; the same once more; all get another
// category.

#include <benchmark/benchmark.h>

#include <numeric>

#include "common/Variablen.h"
#include "settings/AirfieldTransfer.h"
#include "settings/CategoryManager.h"
#include "store/Schema.h"
#include "store/Statement.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace ornivane;

constexpr int Airfields = 69899;
constexpr int Prefixes = 1047;

std::string Prefix(int number) {
    constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return {letters[number / 36], letters[number % 36]};
}

// A program folder with the airfields, one waypoint and a category.
struct World {
    World() {
        Shared.ProgramFolder = Folder.Path();
        CreateStore(Folder.Path() / "data.ovd", StoreKind::Data);
        CreateStore(Folder.Path() / "ovdata.ovd", StoreKind::Airfields);
        Shared.DataConn.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        Shared.AirfieldConn.Open(Folder.Path() / "ovdata.ovd", Connection::Mode::ReadWrite);
        Shared.DataConn.Execute(
            "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('Bonn', 50, 7, '')");
        Shared.DataConn.Execute("INSERT INTO Kategorie VALUES (1, 'Flugplätze')");
        FillAirfields();
    }
    void FillAirfields() {
        Transaction transaction(Shared.AirfieldConn);
        Statement country(Shared.AirfieldConn, "INSERT INTO ICAOCODE VALUES (?, ?)");
        for (int i = 0; i < Prefixes; ++i) {
            const StatementRun run(country);
            country.Bind(1, Prefix(i));
            country.Bind(2, "Country " + Prefix(i));
            country.Step();
        }
        Statement airfield(Shared.AirfieldConn,
                           "INSERT INTO ARPT (ICAO, WGS_DLAT, WGS_DLONG) VALUES (?, ?, ?)");
        for (int i = 0; i < Airfields; ++i) {
            const StatementRun run(airfield);
            airfield.Bind(1, Prefix(i % Prefixes) + "-" + std::to_string(1000 + i / Prefixes));
            airfield.Bind(2, i % 1700 / 10.0 - 85);
            airfield.Bind(3, i % 3590 / 10.0 - 179);
            airfield.Step();
        }
        transaction.Commit();
    }

    TemporaryFolder Folder;
    Variablen Shared;
    ScriptedDialogs Dialogs;
};

std::vector<std::size_t> All(std::size_t count) {
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});
    return places;
}

// A list of countries, a transfer of all of them, expected to end with this message.
void Transfer(benchmark::State& state, World& world, const std::string& expected) {
    AirfieldTransfer transfer(world.Shared, world.Shared, world.Dialogs);
    transfer.Form_Load();
    transfer.cmdTransfer_Click(All(transfer.listAP.size()));
    if (world.Dialogs.Shown.back() != expected) state.SkipWithError("another count");
}

void ImportAll(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        World world;
        state.ResumeTiming();
        Transfer(state, world, "69899 Flughäfen hinzugefügt|Es wurden 69899 Flughäfen hinzugefügt.");
    }
}

void ImportAgain(benchmark::State& state) {
    World world;
    Transfer(state, world, "69899 Flughäfen hinzugefügt|Es wurden 69899 Flughäfen hinzugefügt.");
    for (auto _ : state)
        Transfer(state, world,
                 "Nichts hinzugefügt|Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon vorhanden.");
}

void AssignAll(benchmark::State& state) {
    World world;
    Transfer(state, world, "69899 Flughäfen hinzugefügt|Es wurden 69899 Flughäfen hinzugefügt.");
    CategoryManager manager(world.Shared.DataConn, world.Dialogs);
    manager.Form_Load();
    for (auto _ : state) {
        manager.cmbKategorie = manager.cmbKategorie == "A" ? "B" : "A";
        manager.cmdZuweisen_Click(All(manager.listWegpunkt.size()));
    }
    if (manager.listKategorie.back() != manager.cmbKategorie) state.SkipWithError("not assigned");
}

BENCHMARK(ImportAll)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportAgain)->Unit(benchmark::kMillisecond);
BENCHMARK(AssignAll)->Unit(benchmark::kMillisecond);

} // namespace
