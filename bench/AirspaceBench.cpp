// The redraw of the flying screen with airspace, heights on, and with airfields. ORNIVANE_LUFTRAUM and
// ORNIVANE_OVDATA name stores of one's own (a whole country, the whole world); without them made-up ones of
// the same size are used. The chart is 12,000 x 9,000 pixels over 12 to 22.6° E, 47.6 to 51.2° N, the view
// 1640 x 980. Needs QT_QPA_PLATFORM=offscreen where there is no display.

#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <cstdlib>

#include "BenchFlight.h"
#include "geo/NavigationMaths.h"

namespace {

using namespace ornivane;

// A store of one's own under the name that the program knows, or an empty one.
bool OwnStore(const char* variable, const std::filesystem::path& file, StoreKind kind) {
    const char* own = std::getenv(variable);
    if (own)
        std::filesystem::copy_file(own, file);
    else
        CreateStore(file, kind);
    return own != nullptr;
}

struct Sky : Flight {
    Sky() : Flight(0) {
        Shared.DataConn.Execute("UPDATE Maps SET Unten = 47.36, Oben = 51.12, Links = 12.0, Rechts = 22.36");
        OpenAirspace();
        OpenAirfields();
        Screen->Form_Deactivate();
        Screen->Form_Activate();
        Screen->State.CurLat = Latitude(49.4);
        Screen->State.CurLong = Longitude(17.3);
        Screen->State.lblAlt = Readout(5000, Formats::Feet);
        Screen->Map.InitializeData();
        Screen->cmdKartezentrieren_Click();
    }
    // 360 airspaces of 14 points.
    void OpenAirspace() {
        const auto file = Folder.Path() / "Luftraum.ovd";
        const bool isOwn = OwnStore("ORNIVANE_LUFTRAUM", file, StoreKind::Luftraum);
        Shared.LuftraumConn.Open(file, Connection::Mode::ReadWrite);
        if (isOwn) return;
        Shared.LuftraumConn.Execute(
            "INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, LowType, HighType, Drawtype, Lat, "
            "Long) WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 5039) "
            "SELECT i / 14 + 1, i % 14 + 1, 'D', 1000, 9500, '', 'FL', 'DP', 48 + i / 14 * 37 % 300 / 100.0 "
            "+ "
            "i % 14 * (14 - i % 14) / 300.0, 13 + i / 14 * 91 % 900 / 100.0 + i % 14 / 50.0 FROM n");
    }
    // 69,899 airfields over the world, each a waypoint.
    void OpenAirfields() {
        const auto file = Folder.Path() / "ovdata.ovd";
        const bool isOwn = OwnStore("ORNIVANE_OVDATA", file, StoreKind::Airfields);
        Shared.AirfieldConn.Open(file, Connection::Mode::ReadWrite);
        Shared.AirfieldStoreOpen = true;
        if (!isOwn) MakeAirfields();
        Shared.DataConn.Execute("ATTACH ? AS fields", {file.string()});
        // Decimal degrees to degrees and minutes, with the floor below zero as well.
        Shared.DataConn.Execute(
            "INSERT INTO Waypoints (Name, Lat, Long, Kategorie) SELECT ICAO, "
            "la + (WGS_DLAT - la) * 0.6, lo + (WGS_DLONG - lo) * 0.6, '' FROM (SELECT *, "
            "CAST(WGS_DLAT AS INTEGER) - (WGS_DLAT < CAST(WGS_DLAT AS INTEGER)) AS la, "
            "CAST(WGS_DLONG AS INTEGER) - (WGS_DLONG < CAST(WGS_DLONG AS INTEGER)) AS lo FROM fields.ARPT)");
    }
    void MakeAirfields() {
        Shared.AirfieldConn.Execute(
            "INSERT INTO ARPT WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < "
            "69898) "
            "SELECT char(65 + i / 17576 % 26, 65 + i / 676 % 26, 65 + i / 26 % 26, 65 + i % 26), 800 + i % "
            "2000, 0, "
            "-60 + i * 7919 % 130000 / 1000.0, -170 + i * 104729 % 340000 / 1000.0 FROM n");
        Shared.AirfieldConn.Execute("INSERT INTO RWY SELECT ICAO, RWYALen, '0', '09/27', '090' FROM ARPT");
        Shared.AirfieldConn.Execute("INSERT INTO ACOM SELECT ICAO, ICAO || ' INFO', '122.500' FROM ARPT");
    }
};

Sky& TheSky() {
    static int count = 1;
    static char name[] = "bench";
    static char* names[] = {name, nullptr};
    static QGuiApplication& application = *new QGuiApplication(count, names);
    static Sky& sky = (static_cast<void>(application), *new Sky);
    return sky;
}

void Redraws(benchmark::State& state, const DisplayFlags& flags) {
    Sky& sky = TheSky();
    sky.Screen->Flags = flags;
    sky.Screen->SetSlide(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        sky.Screen->State.CurLong = Longitude(sky.Screen->State.CurLong.Degrees() + 0.00001);
        sky.Screen->UpdateMap();
    }
}

void ChartAlone(benchmark::State& state) { Redraws(state, {}); }
void Airspace(benchmark::State& state) { Redraws(state, {.ShowAirspace = true, .ShowAirspaceText = true}); }
void Airfields(benchmark::State& state) { Redraws(state, {.ShowAirfields = true}); }
void AirfieldsWithText(benchmark::State& state) {
    Redraws(state, {.ShowAirfields = true, .ShowAirfieldText = true});
}
void Everything(benchmark::State& state) { Redraws(state, {true, true, true, true, true, true, true}); }

void EachSlider(benchmark::internal::Benchmark* b) {
    b->ArgName("slider")
        ->Arg(-100)
        ->Arg(0)
        ->Arg(100)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(5)
        ->ReportAggregatesOnly();
}
BENCHMARK(ChartAlone)->Apply(EachSlider);
BENCHMARK(Airspace)->Apply(EachSlider);
BENCHMARK(Airfields)->Apply(EachSlider);
BENCHMARK(AirfieldsWithText)->Apply(EachSlider);
BENCHMARK(Everything)->Apply(EachSlider);

} // namespace
