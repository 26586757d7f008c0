// 100,000 waypoints in a recordset: opening, finding by name, walking.

#include <benchmark/benchmark.h>

#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace ornivane;

constexpr int Many = 100000;

Connection& Waypoints() {
    static TemporaryFolder folder;
    static Connection data = [] {
        CreateStore(folder.Path() / "data.ovd", StoreKind::Data);
        Connection connection;
        connection.Open(folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        connection.Execute("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) WITH RECURSIVE n(i) AS "
                           "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                           "SELECT 'Wegpunkt ' || (i * 7919 % 100003), 45 + i % 1000 / 100.0, 5 + i % 777 / "
                           "100.0, 'Stadt' FROM n",
                           {Many});
        return connection;
    }();
    return data;
}

void Open(benchmark::State& state) {
    Connection& data = Waypoints();
    for (auto _ : state) {
        Recordset rows;
        rows.Open(data, "SELECT * From Waypoints Order by NAME ASC");
        if (rows.RecordCount() != Many) state.SkipWithError("rows are missing");
    }
}

void FindByName(benchmark::State& state) {
    Recordset rows;
    rows.Open(Waypoints(), "SELECT * From Waypoints Order by NAME ASC");
    for (auto _ : state) {
        rows.MoveFirst();
        benchmark::DoNotOptimize(rows.Find("Name", Comparison::GreaterOrEqual, "wegpunkt 9"));
    }
}

void Walk(benchmark::State& state) {
    Recordset rows;
    rows.Open(Waypoints(), "SELECT * From Waypoints Order by NAME ASC");
    for (auto _ : state) {
        double sum = 0;
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) sum += rows.Number("Lat");
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK(Open)->Unit(benchmark::kMillisecond);
BENCHMARK(FindByName)->Unit(benchmark::kMillisecond);
BENCHMARK(Walk)->Unit(benchmark::kMillisecond);

} // namespace
