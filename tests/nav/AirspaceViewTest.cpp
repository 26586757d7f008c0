#include "common/SettingsFiles.h"
#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

// Airspace and airfields over the chart alpha.jpg: 6 to 8° E, 50 to 51° N.
class AirspaceViewTest : public FlyingScreenTest {
protected:
    AirspaceViewTest() {
        OpenAirspace();
        Shared.QNH = 1013;
        Shared.QNHDate = DateOf(Clock.Now());
    }
    // A circle of 3 NM; every airspace has its own radius in the labels of the tests by its height.
    void Airspace(int index, const char* type, double low, double high, double lat = 50.30,
                  double longitude = 6.30) {
        Shared.LuftraumConn.Execute(
            "INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, LowType, HighType, Drawtype, Lat, "
            "Long, arcRad) VALUES (?, 1, ?, ?, ?, '', '', 'DC', ?, ?, 3)",
            {index, type, low, high, lat, longitude});
    }
    // The whole chart, the aircraft over it.
    void Begin() {
        Start();
        Screen->State.CurLat = Latitude(50.6);
        Screen->State.CurLong = Longitude(6.5);
        Screen->SetSlide(100);
    }
    int LabelsAt(const char* altitude, bool feet = true) {
        Screen->State.AltInFeet = feet;
        Screen->State.lblAlt = Showing(altitude);
        Screen->UpdateMap();
        return Surface.Count("[ D ");
    }
};

TEST_F(AirspaceViewTest, ShowsWhatReachesWithin400FeetOfTheHeight) {
    Airspace(1, "D", 2000, 4000);
    Airspace(2, "D", 5500, 5800);
    Airspace(3, "A", 0, 1000);
    Begin();
    EXPECT_EQ(LabelsAt("3000"), 0);
    Screen->Airspace.SetAirspace(true, false);
    EXPECT_GT(Surface.Count("w5 #FF0000"), 0);
    EXPECT_EQ(LabelsAt("3000"), 0); // without heights
    Screen->Airspace.SetAirspace(true, true);
    for (const auto& [altitude, shown] :
         {std::pair{"1599", 0}, {"1600", 1}, {"4400", 1}, {"4401", 0}, {"---", 0}, {"5100", 1}})
        EXPECT_EQ(LabelsAt(altitude), shown) << altitude;
    EXPECT_EQ(LabelsAt("1000", false), 1); // metres: 3281 ft
    Shared.QNH = 1000;                     // from 5001 feet on as a pressure altitude: 390 feet more
    EXPECT_EQ(LabelsAt("5000"), 0);
    EXPECT_EQ(LabelsAt("5001"), 1);
    EXPECT_EQ(LabelsAt("5900"), 0);
    EXPECT_TRUE(Screen->Airspace.frmQNH);
    EXPECT_EQ(Screen->Airspace.lblQNHColour, AirspaceView::FewAirspaces);
    for (int i = 10; i < 41; ++i) Airspace(i, "D", 2000, 4000);
    EXPECT_EQ(LabelsAt("3000"), 32);
    EXPECT_EQ(Screen->Airspace.lblQNHColour, AirspaceView::ManyAirspaces);
    Screen->Airspace.SetAirspace(false, false);
    EXPECT_FALSE(Screen->Airspace.frmQNH);
    EXPECT_EQ(LabelsAt("3000"), 0);
}

TEST_F(AirspaceViewTest, PatternsHaveNoUpperLimitAndTheirOwnWindow) {
    Airspace(1, "A", 500, 1000);
    Airspace(2, "A", 3000, 4000);
    Airspace(3, "A", 500, 1000, 51.05); // beyond the view, inside the widened window
    Airspace(4, "D", 0, 9000, 51.05);
    Begin();
    Screen->State.lblAlt = Showing("2000");
    Screen->SetFlag(&DisplayFlags::ShowPatterns, true);
    EXPECT_EQ(Surface.Count(" w5 #"), 13); // number 1 alone; its arcs are red and black
    EXPECT_FALSE(Screen->Airspace.frmQNH);
    Screen->Airspace.SetAirspace(true, false);
    EXPECT_EQ(Surface.Count(" w5 #"), 26); // the other kind is found beyond the view
    Screen->SetFlag(&DisplayFlags::ShowPatterns, false);
    EXPECT_EQ(Surface.Count(" w5 #"), 13);
}

TEST_F(AirspaceViewTest, WhatTheChartBeforeLacksIsToldWhenTheChartChanges) {
    Sql("INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, \"Höhe\", Active) VALUES "
        "('Berta.jpg', 51, 50, 7, 9, 2000, 1000, 1)");
    WriteFileAtomically(Folder.Path() / "Karten" / "Berta.jpg", "an image");
    Begin();
    Screen->cmdMapScroll_Click();
    Fly(50.5, 7.9);
    Shared.LuftraumConn.Execute(
        "INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, Drawtype, Lat, Long) VALUES "
        "(2, 1, 'D', 0, 9000, 'DB', 50.30, 7.05)"); // in the view of alpha.jpg alone
    Screen->Flags.ShowAirspace = true;
    Screen->State.CurLong = Longitude(7.995);
    Screen->UpdateMap();
    EXPECT_EQ(Screen->Map.Name(), "Berta.jpg");
    EXPECT_EQ(Notices.Shown.size(), 1u);
    Screen->Form_Deactivate();
    Screen->Form_Activate();
    EXPECT_EQ(Notices.Shown.size(), 1u) << "the new one lacks nothing";
}

TEST_F(AirspaceViewTest, ADamagedRowEndsTheSelectionAndNotTheRedraw) {
    Airspace(1, "D", 0, 9000);
    Shared.LuftraumConn.Execute(
        "INSERT INTO Luftraum (\"Index\", PNumber, AspType, Low, High, Drawtype, Lat, Long) VALUES "
        "(2, 1, 'D', 0, 9000, 'DB', 50.30, 6.30)");
    Airspace(3, "D", 0, 9000);
    Begin();
    Screen->Airspace.SetAirspace(true, false);
    EXPECT_EQ(Surface.Count(" w5 #"), 13);  // the first one
    EXPECT_EQ(Surface.Count("#80FFFF"), 1); // and the aircraft
    Screen->UpdateMap();
    Screen->Airspace.SetAirspace(true, true);
    const std::vector<std::string> told{
        "Nicht alle Lufträume sind auf der Karte: es fehlt ein Wert (Luftraum.ovd, Index 2: PNumber 1)."};
    EXPECT_EQ(Notices.Shown, told); // once
    Shared.LuftraumConn.Execute("UPDATE Luftraum SET arcRad = 'wide', Drawtype = 'DC' WHERE \"Index\" = 2");
    Shared.EnglishUI = 1;
    Screen->UpdateMap();
    Screen->UpdateMap();
    ASSERT_EQ(Notices.Shown.size(), 2u);
    EXPECT_EQ(Notices.Shown[1], "Not all airspace is on the chart: a text stands where a number belongs "
                                "(Luftraum.ovd, Index 2: PNumber 1: wide).");
    Screen->Form_Deactivate();
    Screen->Form_Activate(); // whoever comes back is told again
    EXPECT_EQ(Notices.Shown.size(), 3u);
    Shared.LuftraumConn.Execute("UPDATE Luftraum SET Drawtype = 'DC', arcRad = 3 WHERE \"Index\" = 2");
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count(" w5 #"), 39);
    Airspace(40000, "D", 0, 9000);
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count(" w5 #"), 0);
    EXPECT_EQ(Surface.Count("#80FFFF"), 1);
    ASSERT_EQ(Notices.Shown.size(), 4u);
    EXPECT_EQ(Notices.Shown[3],
              "Not all airspace is on the chart: a number is too large (Luftraum.ovd, Index 40000).");
    Shared.LuftraumConn.Close(); // a run without the store: told when the program started
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count("#80FFFF"), 1);
    EXPECT_EQ(Notices.Shown.size(), 4u);
}

TEST_F(AirspaceViewTest, AirfieldsShowRunwayAndRadioInThreeStages) {
    OpenAirfields();
    Shared.AirfieldConn.Execute(
        "INSERT INTO ARPT VALUES ('EDAA', 1160, 0, 50.5, 6.5), ('EDBB', 0, 700.5, 50.5, 6.6), "
        "('EDCC', 0, 0, 50.5, 6.7)");
    Shared.AirfieldConn.Execute(
        "INSERT INTO RWY VALUES ('EDAA', 500, '0', '17/35', '173'), ('EDAA', 1160, '0', '09/27', '090'), "
        "('EDAA', 2000, '1', '01/19', '010'), ('EDBB', 700, '1', '18/36', 'n/a'), ('EDCC', 0, '1', '', '')");
    Shared.AirfieldConn.Execute(
        "INSERT INTO ACOM VALUES ('EDAA', 'Langen Info', '119.150'), ('EDAA', 'A Turm', '118.1'), "
        "('EDAA', 'A Tower', '118.2'), ('EDAA', 'A ATIS', '124.1'), ('EDBB', 'München Information', "
        "'120.6'), "
        "('EDBB', 'Platz Info', 122.5), ('EDBB', 'B Tower', '118.3')");
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('EDAA', 50.30, 6.30, ''), "
        "('EDBB', 50.30, 6.36, ''), ('EDCC', 50.30, 6.42, ''), ('Dorf', 50.12, 6.30, ''), "
        "('Stadt', 50.12, 6.36, '')");
    Sql("DELETE FROM Waypoints WHERE Name = 'Dorf'"); // four letters without an airfield come below
    Begin();
    EXPECT_EQ(Surface.Count("r10"), 0); // off: an airfield shows nothing at all
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 1);
    Screen->Airspace.SetAirfields(true, false);
    EXPECT_EQ(Surface.Count("r10 w6 #000080"), 3);
    EXPECT_EQ(Surface.Count("#C0C0C0"), 2); // the bar of the paved one, in both directions
    EXPECT_EQ(Surface.Count("#00FF00"), 0) << "a heading that is no number has no bar";
    EXPECT_EQ(Surface.Count("[ EDAA ]"), 1);
    EXPECT_EQ(Surface.Count("1160 m"), 0);
    Screen->Airspace.SetAirfields(true, true);
    EXPECT_EQ(Surface.Count("[ 09/27 - 1160 m  ]"), 1);
    EXPECT_EQ(Surface.Count("[ 18/36 - 700.5 m  ]"), 1);
    EXPECT_EQ(Surface.Count("[  - 0 m  ]"), 1);
    EXPECT_EQ(Surface.Count("[ A Turm 118.1 ]"), 1); // the first tower; the region's service is not his
    EXPECT_EQ(Surface.Count("[ A ATIS 124.1 ]"), 1);
    EXPECT_EQ(Surface.Count("[ Platz Info 122.5 ]"), 1);
    // Only route points: airfields stay, other waypoints go.
    AddRoute("R", {6.3, 7.0});
    Screen->Form_Activate();
    Screen->cmdShowPoints_Click();
    EXPECT_EQ(Surface.Count("r10"), 3);
    EXPECT_EQ(Surface.Count("[ Stadt ]"), 0);
    Screen->Airspace.SetAirfields(false, false);
    EXPECT_EQ(Surface.Count("r10"), 0);
}

TEST_F(AirspaceViewTest, AFourLetterPointWithoutAirfieldEndsThePass) {
    OpenAirfields();
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('Alba', 50.30, 6.30, ''), "
        "('Before', 50.12, 6.36, ''), ('Köln', 50.30, 6.30, ''), ('Zoo', 50.12, 6.36, '')");
    Begin();
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 0);
    EXPECT_EQ(Surface.Count("#80FFFF"), 0);
    Screen->UpdateMap();
    const std::vector<std::string> told{
        "\"Alba\": vier Zeichen, aber kein Flugplatz in ovdata.ovd. Die Karte "
        "endet hier; bitte umbenennen."};
    EXPECT_EQ(Notices.Shown, told); // once
    Sql("DELETE FROM Waypoints WHERE Name = 'Alba'");
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 1); // up to Köln, which has four characters
    Sql("DELETE FROM Waypoints WHERE Name = 'Köln'");
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count("r5 w4 #FF0000"), 2);
    EXPECT_EQ(Surface.Count("#80FFFF"), 1);
}

// To rename such a waypoint would be the wrong advice: the code is right.
TEST_F(AirspaceViewTest, AnAirfieldWithoutARunwayOfItsKindIsToldAsThat) {
    OpenAirfields();
    Shared.AirfieldConn.Execute("INSERT INTO ARPT VALUES ('EDAA', 1160, 0, 50.5, 6.5), ('EDBB', 0, 0, 50.5, "
                                "6.6), ('EDCC', 'long', 0, 50.5, 6.7)");
    Shared.AirfieldConn.Execute("INSERT INTO RWY VALUES ('EDAA', 2000, '1', '01/19', '010')");
    AddWaypoint("EDAA", 50.30, 6.30);
    Begin();
    Screen->UpdateMap();
    EXPECT_EQ(Surface.Count("#80FFFF"), 0);
    EXPECT_EQ(Notices.Shown,
              std::vector<std::string>{
                  "\"EDAA\": in ovdata.ovd hat der Flugplatz keine Piste seiner Art (befestigt). "
                  "Die Karte endet hier, bis die Datei berichtigt ist."});
    Shared.EnglishUI = 1;
    Sql("UPDATE Waypoints SET Name = 'EDBB'");
    Screen->UpdateMap();
    EXPECT_EQ(Notices.Shown.back(),
              "\"EDBB\": the airfield has no runway of its kind (grass) in ovdata.ovd. The "
              "map ends here until the file is corrected.");
    Sql("UPDATE Waypoints SET Name = 'EDCC'");
    Screen->UpdateMap();
    EXPECT_EQ(Notices.Shown.back(),
              "The chart is not drawn to its end, the aircraft is missing: a text stands "
              "where a number belongs (ovdata.ovd, EDCC: long).");
    EXPECT_EQ(Notices.Shown.size(), 3u);
}

TEST_F(AirspaceViewTest, TakesTheQnhOfTheSettingsWhenItsDayIsOver) {
    Shared.QNH = 990;
    EXPECT_EQ(Start().Qnh.lblQNH, "QNH 990");
    Clock.Time.Day += 1;
    EXPECT_EQ(Start().Qnh.lblQNH, "QNH 1013");
    Shared.tQNH = "990"; // entered before midnight, the program went on
    EXPECT_EQ(Start().Qnh.lblQNH, "QNH 990");
}

TEST_F(AirspaceViewTest, AQnhEnteredInFlightCountsAtOnceAndIsKept) {
    Airspace(1, "D", 5900, 6200);
    Begin();
    Screen->Airspace.SetAirspace(true, true);
    EXPECT_EQ(LabelsAt("5200"), 0);
    const auto enter = [&](const char* text) {
        Screen->Qnh.lblQNH_Click();
        EXPECT_TRUE(Screen->IsEntering());
        Screen->Qnh.tEnterQNH_Enter(text);
        EXPECT_FALSE(Screen->IsEntering());
    };
    const struct {
        const char* Typed;
        int Qnh, Labels;
    } cases[] = {{"1000", 1000, 1}, {"1049", 1049, 0}, {"950", 950, 0}, {"1050", 1013, 0},
                 {"987", 987, 1},   {"low", 1013, 0},  {"988", 988, 1}, {"", 1013, 0}};
    for (const auto& c : cases) {
        enter(c.Typed);
        EXPECT_EQ(Screen->Qnh.lblQNH, "QNH " + std::to_string(c.Qnh)) << c.Typed;
        EXPECT_EQ(Surface.Count("[ D "), c.Labels) << c.Typed;
        EXPECT_EQ(Shared.tQNH, std::to_string(c.Qnh));
        QnhSettings kept;
        EXPECT_TRUE(ReadQnhSettings(Folder.Path(), kept));
        EXPECT_EQ(kept, (QnhSettings{c.Qnh, DateOf(Clock.Now())})) << c.Typed;
    }
    enter("991");
    Screen->Qnh.lblQNH_Click();
    Screen->Qnh.tEnterQNH_Escape();
    Screen->Form_Deactivate();
    Clock.Time.Day += 1; // past midnight it is still the one of this flight
    Screen->Form_Activate();
    EXPECT_EQ(Screen->Qnh.lblQNH, "QNH 991");
    EXPECT_EQ(Shared.QNHDate, (Date{2026, 11, 22}));
}

TEST_F(AirspaceViewTest, AQnhHoldsThoughItCannotBeKept) {
    std::filesystem::create_directory(Folder.Path() / "LR.crm"); // no file can take this name
    Airspace(1, "D", 5900, 6200);
    Begin();
    Screen->Airspace.SetAirspace(true, true);
    LabelsAt("5200");
    Screen->Qnh.lblQNH_Click();
    EXPECT_THROW(Screen->Qnh.tEnterQNH_Enter("1000"), RuntimeError);
    EXPECT_EQ(Screen->Qnh.lblQNH, "QNH 1000");
    EXPECT_EQ(Surface.Count("[ D "), 1);
}

} // namespace
} // namespace ornivane
