#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/AtomicFile.h"
#include "base/Format.h"
#include "geo/NavigationMaths.h"
#include "nav/FlyingScreen.h"
#include "store/Schema.h"
#include "support/MapFakes.h"
#include "support/TemporaryFolder.h"

namespace ornivane {

class IdlePort : public SerialPort {
public:
    void SetSettings(const std::string&) override {}
    void Open(int) override { open = true; }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    std::string ReadAll() override { return {}; }
    void OnEvent(std::function<void(SerialEvent)>) override {}

private:
    bool open = false;
};

class IdleTimer : public Timer {
public:
    void SetInterval(int milliseconds) override { interval = milliseconds; }
    int Interval() const override { return interval; }
    void OnTimer(std::function<void()>) override {}

private:
    int interval = 0;
};

// The flying screen on a real store with two maps of 2000 x 1000 pixels over 6 to 8° E and 50 to 51° N
// (alpha.jpg) and 60 to 61° N (Zulu.JPG), and a view of 800 x 400 pixels.
class FlyingScreenTest : public testing::Test {
protected:
    FlyingScreenTest() {
        Shared.ProgramFolder = Folder.Path();
        CreateStore(Folder.Path() / "data.ovd", StoreKind::Data);
        Shared.DataConn.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        std::filesystem::create_directory(Folder.Path() / "Karten");
        for (const char* chart : {"alpha.jpg", "zulu.jpg"})
            WriteFileAtomically(Folder.Path() / "Karten" / chart, "an image");
        Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
            "('Zulu.JPG', 61, 60, 6, 8, 2000, 1000, 1), ('alpha.jpg', 51, 50, 6, 8, 2000, 1000, 1), "
            "('unused.jpg', 1, 0, 0, 1, 10, 10, 0)");
    }

    void Sql(const std::string& statement) { Shared.DataConn.Execute(statement); }
    // A route through points of one latitude, at the given longitudes (DegMinValue).
    void AddRoute(const std::string& name, const std::vector<double>& longitudes) {
        Shared.DataConn.Execute("INSERT INTO Route (Nummer, Name) SELECT count(*) + 1, ? FROM Route", {name});
        for (std::size_t i = 0; i < longitudes.size(); ++i)
            Shared.DataConn.Execute("INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) "
                                    "SELECT ?, max(RouteID), ?, ?, 50.3, ? FROM Route",
                                    {static_cast<double>(i + 1), static_cast<int>(i + 1),
                                     "P" + std::to_string(i + 1), longitudes[i]});
    }
    FlyingScreen& Start() {
        Screen = std::make_unique<FlyingScreen>(
            FlyingScreenWorld{Shared, Port, CheckTimer, Clock, Storage, Surface, ProgressBar, Boxes, Notices},
            [] {}, [] {});
        Screen->Form_Load();
        Screen->Form_Activate();
        return *Screen;
    }
    // A position as the interpreter tells it, from decimal degrees north and east.
    void Fly(double lat, double longitude, bool fix = true) {
        if (fix) Screen->Readouts.FixObtained();
        const auto raw = [](double degrees, const char* picture) {
            return Format(ToDegMinValue(degrees) * 100, picture, LocaleText());
        };
        Screen->Readouts.PositionReceived("N lat", "E long", raw(lat, "0000.0000"),
                                          raw(longitude, "00000.0000"));
    }

    TemporaryFolder Folder;
    Variablen Shared;
    IdlePort Port;
    IdleTimer CheckTimer;
    SetClock Clock;
    FakePicture Storage;
    DrawnSurface Surface;
    FakeProgress ProgressBar;
    RecordedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlyingScreen> Screen;
};

} // namespace ornivane
