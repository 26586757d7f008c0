#pragma once

#include <QImage>
#include <memory>

#include "gps/GpsFakes.h"
#include "nav/FlyingScreen.h"
#include "platform/qt/CompassCard.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtPictureSurface.h"
#include "store/Schema.h"
#include "support/MapFakes.h"
#include "support/TestCharts.h"

// What the benches of the flying screen share: a chart of 12,000 x 9,000 pixels and a store over it.
namespace ornivane {

inline constexpr int ChartWidth = 12000, ChartHeight = 9000;

// A chart with fine lines and areas, as scans have them.
inline void DrawChart(const std::filesystem::path& file) {
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

// The program folder with the chart, so many waypoints over it, and a route of so many points.
struct ChartFolder {
    ChartFolder(int waypoints, int routePoints) {
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
                                "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                "SELECT 'Punkt ' || (i * 7919 % 100003), 47 + i * 37 % 600 / 100.0, 5 + i * "
                                "91 % 800 / 100.0, '' FROM n",
                                {waypoints});
        if (routePoints == 0) return;
        Shared.DataConn.Execute("INSERT INTO Route (Nummer, Name) VALUES (1, 'Long')");
        // To and fro over the chart, 50 points a row, as a survey is flown: legs of some 6 NM.
        Shared.DataConn.Execute(
            "INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) WITH RECURSIVE n(i) AS "
            "(SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < ?), "
            "d AS (SELECT i, 47.2 + i / 50 * 0.14 AS la, "
            "5.2 + (CASE i / 50 % 2 WHEN 0 THEN i % 50 ELSE 49 - i % 50 END) * 0.15 AS lo FROM n) "
            "SELECT i + 1, 1, i + 1, 'Punkt ' || i, CAST(la AS INTEGER) + (la - CAST(la AS INTEGER)) * 0.6, "
            "CAST(lo AS INTEGER) + (lo - CAST(lo AS INTEGER)) * 0.6 FROM d",
            {routePoints});
    }

    TemporaryFolder Folder;
    Variablen Shared;
};

struct Flight : ChartFolder {
    explicit Flight(int waypoints) : ChartFolder(waypoints, 0) {
        Screen = std::make_unique<FlyingScreen>(
            FlyingScreenWorld{Shared, Port, CheckTimer, TrackTimer, Clock, Chart, Surface, Card, Dial, Wind,
                              ProgressBar, Boxes, Notices},
            [] {}, [](FocusBy) {});
        Screen->Form_Load();
        Screen->Form_Activate();
        Screen->Readouts.FixObtained();
        Screen->State.CurLat = Latitude(50);
        Screen->State.CurLong = Longitude(9);
        Screen->cmdKartezentrieren_Click();
        MakeSharp();
    }
    // Until no tile is missing.
    void MakeSharp() {
        Becomes([this] {
            Screen->UpdateMap();
            return Surface.IsSharp();
        });
    }

    FakePort Port;
    FakeTimer CheckTimer, TrackTimer;
    SetClock Clock;
    TestCharts Charts;
    QtPicture Chart{Charts};
    CompassCard Card;
    QtPictureSurface Surface{1640, 980}, Dial{200, 200}, Wind{100, 100};
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlyingScreen> Screen;
};

} // namespace ornivane
