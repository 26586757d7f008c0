#include <map>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "calibration/MapData.h"
#include "gps/GpsFakes.h"
#include "nav/FlyingScreen.h"
#include "planning/PlanningScreen.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"

namespace ornivane {
namespace {

// Has the size that the header of the file tells; keeps the one before when there is none.
class HeaderPicture : public FakePicture {
public:
    bool Load(const std::filesystem::path& file) override {
        ImageSize size;
        if (ReadImageSize(file, size) != SizeReading::Read) return false;
        NextWidth = size.Width;
        NextHeight = size.Height;
        return FakePicture::Load(file);
    }
};

struct Chart {
    const char* Name;
    int Width, Height;
    double West;
};
// Of different sizes, so that a rectangle tells which of them it was cut from.
constexpr Chart Charts[] = {{"alpha.jpg", 2000, 1000, 6},
                            {"O'Hara.jpg", 2600, 1900, 5},
                            {"\xC3\x84rger.jpg", 3300, 1500, 7},
                            {"zulu.jpg", 4100, 2900, 6}};

// Flight, planning and the catalogue on one store, one of them in front.
class ChartVisitsTest : public testing::Test, protected FlightFolder {
protected:
    ChartVisitsTest() {
        Sql("DELETE FROM Maps");
        for (const Chart& chart : Charts) {
            WriteImage(chart);
            Shared.DataConn.Execute(
                "INSERT INTO Maps (Name, Unten, Oben, Links, Rechts, Breite, \"Höhe\", Active) "
                "VALUES (?, 50, 51, ?, ?, ?, ?, 1)",
                {chart.Name, chart.West, chart.West + 2, chart.Width, chart.Height});
        }
    }
    std::filesystem::path Image(const Chart& chart) const { return Folder.Path() / "Karten" / chart.Name; }
    void WriteImage(const Chart& chart) { WriteJpegHeader(chart.Name, chart.Width, chart.Height); }
    void StartProgram() {
        Flight.reset();
        Planning.reset();
        Catalogue.reset();
        Flight = std::make_unique<FlyingScreen>(
            FlyingScreenWorld{Shared, Port, CheckTimer, TrackTimer, Clock, Storage, Surface, Card, Gyro,
                              WindRose, ProgressBar, Boxes, Notices},
            [] {}, [](FocusBy) {});
        Flight->Form_Load();
        Flight->State.CurLat = Latitude(50.5);
        Flight->State.CurLong = Longitude(6.9);
        Flight->Form_Activate();
        Catalogue = std::make_unique<MapData>(Shared, Preview, PreviewSurface, Boxes);
        Catalogue->Form_Load();
        Planning = std::make_unique<PlanningScreen>(
            PlanningScreenWorld{Shared, PlanStorage, PlanSurface, ProgressBar, Boxes, Notices},
            PlanningScreen::Form{[] {}, [] {}, [](PlanEffect) {}});
        Planning->Form_Load();
    }
    int Random(int from, int to) { return std::uniform_int_distribution<int>(from, to)(Dice); }

    FakePort Port;
    FakeTimer CheckTimer, TrackTimer;
    SetClock Clock;
    FakePicture Card;
    HeaderPicture Storage, PlanStorage, Preview;
    DrawnSurface Surface, Gyro, WindRose, PlanSurface, PreviewSurface;
    FakeProgress ProgressBar;
    ScriptedDialogs Boxes;
    RecordedNotice Notices;
    std::unique_ptr<FlyingScreen> Flight;
    std::unique_ptr<PlanningScreen> Planning;
    std::unique_ptr<MapData> Catalogue;
    std::mt19937 Dice{1};
};

// What flight remembers of its charts, followed through random visits to the other screens.
class ChartMemoryTest : public ChartVisitsTest {
protected:
    struct Remembered {
        float SX, SW;
        int SlideMap;
        bool CenterMap;
    };
    void Note() {
        const ActiveMap& map = Flight->Map;
        if (map.HasMap()) Expected[map.Name()] = {map.View.SX, map.View.SW, map.SlideMap, map.CenterMap};
    }
    void FlyABit() {
        const ActiveMap& map = Flight->Map;
        if (!map.HasMap()) return;
        switch (Random(0, 4)) {
        case 0:
            Flight->cmbMaps_Click(
                map.MapNames[static_cast<std::size_t>(Random(0, static_cast<int>(map.MapNames.size()) - 1))]);
            break;
        case 1:
            Flight->SetSlide(Random(-60, 100));
            break;
        case 2:
            Flight->Pan(Random(-300, 300), Random(-300, 300));
            break;
        case 3:
            map.CenterMap ? Flight->picKartezentrieren_Click() : Flight->cmdKartezentrieren_Click();
            break;
        default:
            Flight->State.CurLong = Longitude(6.2 + Random(0, 160) / 100.0);
            Flight->UpdateMap();
        }
        Note();
    }
    void ChangeTheCatalogue() {
        const Chart& chart = Charts[Random(0, std::size(Charts) - 1)];
        switch (Random(0, 7)) {
        case 0:
            Catalogue->listKarten_Click(AnyEntry());
            break;
        case 7: // a click into gridMaps
            if (!Catalogue->ActiveMapsSet.Eof()) Catalogue->ActiveMapsSet.MoveLast();
            break;
        case 1:
            Catalogue->listKarten_ItemCheck(AnyEntry());
            break;
        case 2:
            Catalogue->tKarten[3] = "7." + std::to_string(Random(10, 59));
            Catalogue->cmdSpeichern_Click();
            break;
        case 3: // gone from the folder, or there again
            std::filesystem::exists(Image(chart)) ? static_cast<void>(std::filesystem::remove(Image(chart)))
                                                  : WriteImage(chart);
            Catalogue->FillMapList();
            break;
        case 4:
            Catalogue->chkVorschau_Click(!Catalogue->chkVorschau);
            break;
        default:
            Surface.Width = PlanSurface.Width = Random(300, 1900);
            Surface.Height = PlanSurface.Height = Random(300, 1000);
            Flight->Form_Resize();
            Planning->Form_Resize();
        }
    }
    int AnyEntry() const {
        const auto count = static_cast<int>(Catalogue->listKarten.size());
        return count == 0 ? -1 : const_cast<ChartMemoryTest*>(this)->Random(0, count - 1);
    }
    void Plan() {
        Planning->Form_Activate();
        PlanMap& map = Planning->Map;
        if (map.HasMap()) {
            // Whatever happened meanwhile, the picture is a part of the chart that is named.
            EXPECT_NEAR(map.View.SW, WidthAt(map.cmbMaps, map.SlideMap), 0.01) << map.cmbMaps;
            if (Random(0, 1) == 0)
                map.cmbMaps_Change(map.MapNames[static_cast<std::size_t>(
                    Random(0, static_cast<int>(map.MapNames.size()) - 1))]);
            Flight->SetSlide(Random(-40, 100));
        }
        Planning->Form_Deactivate();
    }
    static double WidthAt(const std::string& name, int slide) {
        for (const Chart& chart : Charts)
            if (name == chart.Name) return chart.Width / 2.0 * (1 + slide / 100.0);
        ADD_FAILURE() << name;
        return 0;
    }
    void CheckMemory() {
        Recordset rows;
        rows.OpenFile(Folder.Path() / "position.crm");
        for (; !rows.Eof(); rows.MoveNext()) {
            const std::string name = rows.Text("Karte");
            SCOPED_TRACE(name);
            ASSERT_TRUE(Expected.contains(name));
            const Remembered& view = Expected[name];
            EXPECT_NEAR(rows.Number("SW"), WidthAt(name, view.SlideMap), 0.01);
            EXPECT_NEAR(rows.Number("SX"), view.SX, 0.5);
            EXPECT_EQ(rows.Number("SlideMap"), view.SlideMap);
            EXPECT_EQ(rows.Get("CenterMap").Boolean(), view.CenterMap);
        }
    }
    // True when the program was closed from the catalogue.
    void VisitTheCatalogue(bool close) {
        Flight->Form_Deactivate();
        for (int i = Random(1, 6); i > 0; --i) ChangeTheCatalogue();
        if (Random(0, 2) == 0) Plan();
        if (close) {
            Flight->Form_Unload();
            CheckMemory();
            StartProgram();
        } else {
            Flight->Form_Activate();
        }
        Note();
    }

    std::map<std::string, Remembered> Expected;
};

TEST_F(ChartMemoryTest, EveryViewIsKeptUnderItsOwnChart) {
    StartProgram();
    Note();
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        if (Random(0, 3) > 0)
            FlyABit();
        else
            VisitTheCatalogue(Random(0, 2) == 0);
    }
}

} // namespace
} // namespace ornivane
