#include "nav/Instrument.h"

#include <cmath>

#include <gtest/gtest.h>

#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"
#include "support/FlightFolder.h"
#include "support/MapFakes.h"
#include "support/Readouts.h"

namespace ornivane {
namespace {

class InstrumentTest : public testing::Test, protected FlightFolder {
protected:
    InstrumentTest() {
        Surface.Width = Surface.Height = 200;
        Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('KBO', 50.45, 7.30, ''), "
            "('Köln', 50.56, 6.57, ''), ('West', 50.00, 6.00, ''), ('O''Hara', 50.30, 7.1, '')");
        State.CurLat = Latitude(50.5);
        State.CurLong = Longitude(7.0);
        State.HadPosition = true;
    }
    void Choose(DialMode mode, const std::string& station = "KBO", const std::string& track = "060") {
        Dial.InstrumentMode = mode;
        Dial.lblVOR1 = station;
        State.lblBearing = Showing(track);
        State.HeadingIndicator = -State.lblBearing.Number();
        Dial.UpdateInstrument(State.HeadingIndicator);
    }
    bool Drew(const std::string& step) const { return Surface.Count(step) > 0; }

    FlightState State;
    DrawnSurface Surface;
    FakePicture Card;
    ScriptedDialogs Boxes;
    Instrument Dial{Shared.DataConn, Shared, Shared, State, Surface, Card, Boxes};
};

TEST_F(InstrumentTest, TurnsTheCardUnderTheFixedAircraft) {
    Choose(DialMode::Heading);
    EXPECT_EQ(Surface.Drawn[0], "cls");
    EXPECT_EQ(Surface.Drawn[1], "turned -60");
    EXPECT_EQ(Surface.Count(" w2 #FFFFFF"), 21); // a closed outline of 21 points
    EXPECT_TRUE(Drew("line 93,105 90,105 w2"));
    EXPECT_EQ(Surface.Count(" w5 #FFFF00"), 10);
    EXPECT_FALSE(Dial.StationShows);
    EXPECT_EQ(Surface.Count("#00FFFF"), 0);
}

TEST_F(InstrumentTest, PointsTheNeedleToTheStationAndTellsItsDistance) {
    Choose(DialMode::Vor); // 51.56 degrees true, 24.2 NM away, on a track of 60: 8.4 degrees to the left
    EXPECT_EQ(Dial.lbldistVOR, "24.2 NM");
    EXPECT_NEAR(Dial.VORBearing, 51.5634, 0.001);
    EXPECT_TRUE(Drew("circle 100,100 r5 w3 #000000"));
    EXPECT_TRUE(Drew("line 99.3,95.1 86.2,7 w3 #00FFFF")) << "inner end to the tip";
    EXPECT_TRUE(Drew("line 100.7,104.9 113.8,193 w3 #00FFFF"));
    // Both strokes of the head lie at 30 degrees beside the shaft, behind the tip.
    EXPECT_TRUE(Drew("line 86.2,7 78.9,25.6 w3 #00FFFF") || Drew("line 86.2,7 78.8,25.6 w3 #00FFFF"));
    EXPECT_EQ(Surface.Count("#00FFFF"), 4);
    Choose(DialMode::Vor, "West");
    EXPECT_EQ(Dial.lbldistVOR, "49 NM"); // from 30 NM on without a decimal
    EXPECT_NEAR(Dial.VORBearing, 231.593, 0.001);
    State.HadPosition = false;
    Choose(DialMode::Vor, "KBO", "---"); // without a track: parked across, red
    EXPECT_TRUE(Drew("line 105,100 194,100 w3 #FF0000"));
    EXPECT_EQ(Dial.lbldistVOR, "---"); // there was no position yet
}

TEST_F(InstrumentTest, AStationDueNorthIsAheadOnATrackOf360) {
    AddWaypoint("N", 50.59, 7.00);
    for (int minute = 0; minute < 59; ++minute) {
        State.CurLat = Latitude(50 + minute / 60.0);
        Dial.lblKurs = "360";
        Choose(DialMode::Hsi, "N", "360");
        EXPECT_NEAR(Dial.VORBearing, 360, 0.05) << minute;
        EXPECT_TRUE(Drew("line 100,65 100,6 w3 #00FFFF")) << "the needle points ahead, minute " << minute;
        EXPECT_EQ(Surface.Count("100,40 w3 #FFFFFF"), 10) << "to, minute " << minute;
    }
    State.CurLat = Latitude(51.5);
    Choose(DialMode::Vor, "N", "360");
    EXPECT_NEAR(Dial.VORBearing, 180, 0.05);
}

TEST_F(InstrumentTest, TheHsiShowsDeviationAndToOrFrom) {
    const struct {
        const char* Course;
        bool To, Bar;
    } cases[] = {{"050", true, true},   {"063", true, true},   {"064", true, false},  {"039", true, false},
                 {"231", false, true},  {"141", true, false},  {"142", false, false}, {"322", false, false},
                 {"400", false, false}, {"abc", false, false}, {"", false, false}};
    for (const auto& c : cases) {
        Dial.lblKurs = c.Course;
        Choose(DialMode::Hsi);
        const bool isShown = Surface.Count("#FF00FF") == 3;
        EXPECT_EQ(isShown, std::string(c.Course) <= "360" && c.Course[0] != 0) << c.Course;
        if (!isShown) continue;
        EXPECT_EQ(Surface.Count(" r3 w2 #000000"), 4);
        // The course arrow has two shafts and two strokes, the bar two lines.
        EXPECT_EQ(Surface.Count(" w3 #FFFF00"), c.Bar ? 6 : 4) << c.Course;
        // Ten strokes run to the tip of the triangle, 60 units ahead along the course or behind.
        const double turned = (std::stod(c.Course) - 60) * 3.14159265 / 180, side = c.To ? 60 : -60;
        const std::string tip = NumberText(Round(100 + side * std::sin(turned), 1)) + "," +
                                NumberText(Round(100 - side * std::cos(turned), 1)) + " w3 #FFFFFF";
        EXPECT_EQ(Surface.Count(tip), 10) << c.Course;
    }
    // Off course by 5 degrees to the right of it: the bar is 25 units to the left of the middle.
    Dial.lblKurs = "60";
    Choose(DialMode::Hsi, "KBO", "060");
    EXPECT_TRUE(Drew("line 57.8,100 57.8,60 w3 #FFFF00")); // 8.44 degrees, 42.2 units
}

// Neither a needle to nowhere nor one that still points to the station before.
TEST_F(InstrumentTest, WithoutABearingTheNeedleIsParkedAndTheHsiShowsNoDeviation) {
    AddWaypoint("Unset", 0, 7.30);
    AddWaypoint("Here", 50.30, 7.00);
    State.CurLat = ToDecimalDegrees(StoredLatitude(50.30));
    Dial.lblKurs = "050";
    for (const char* station : {"", "Nowhere", "Unset", "Here"}) {
        for (const bool isHsi : {false, true}) {
            Choose(DialMode::Vor, "KBO");
            EXPECT_EQ(Surface.Count("#00FFFF"), 4);
            // By the entry, as a pilot does it; the unknown one and none by the saved settings.
            Dial.RightButton();
            Dial.tVOR1_Change(station);
            Dial.tVOR1_Enter();
            Choose(isHsi ? DialMode::Hsi : DialMode::Vor, station);
            EXPECT_EQ(Dial.lbldistVOR, "---") << station;
            EXPECT_EQ(Surface.Count("#00FFFF"), 0) << station;
            EXPECT_TRUE(Drew(isHsi ? "line 135,100 194,100 w3 #FF0000" : "line 105,100 194,100 w3 #FF0000"));
            EXPECT_EQ(Surface.Count(" w3 #FFFFFF"), 0) << "no triangle: " << station;
            // The course arrow of the HSI stays, and its dots, without the two lines of the bar.
            EXPECT_EQ(Surface.Count(" w3 #FFFF00"), isHsi ? 4 : 0) << station;
            EXPECT_EQ(Surface.Count(" r3 w2 #000000"), isHsi ? 4 : 0) << station;
        }
    }
    State.CurLat = Latitude(50.6); // away from it, there is a bearing
    Choose(DialMode::Vor, "Here");
    EXPECT_EQ(Surface.Count("#00FFFF"), 4);
    State.CurLat = ToDecimalDegrees(StoredLatitude(50.30)); // and over it, the one that stood
    Choose(DialMode::Vor, "Here");
    EXPECT_EQ(Surface.Count("#00FFFF"), 4);
}

TEST_F(InstrumentTest, AnUnknownStationIsToldAtEachRedrawUntilAnotherIsEntered) {
    Choose(DialMode::Vor, "Nowhere");
    Choose(DialMode::Vor, "Nowhere");
    EXPECT_EQ(Boxes.Shown, std::vector<std::string>(2, "Error|VOR nicht gefunden: Nowhere"));
    EXPECT_EQ(Dial.lbldistVOR, "---");
    Dial.RightButton();
    Dial.Redraw();
    EXPECT_EQ(Boxes.Shown.size(), 2u); // not into the entry
    Choose(DialMode::Vor, "O'Hara");
    EXPECT_TRUE(Dial.lbldistVOR.HasNumber());
    EXPECT_EQ(Boxes.Shown.size(), 2u);
}

TEST_F(InstrumentTest, FindsAStationWhileItsNameIsTyped) {
    Choose(DialMode::Heading, "");
    Dial.RightButton(); // nothing to enter here
    EXPECT_FALSE(Dial.IsEntering());
    Dial.LeftButton();
    Dial.RightButton();
    ASSERT_TRUE(Dial.frmVOR);
    for (const auto& [text, found] :
         {std::pair{"k", "KBO"}, {"kö", "Köln"}, {"O'", "O'Hara"}, {"zz", ""}, {"w", "West"}}) {
        Dial.tVOR1_Change(text);
        EXPECT_EQ(Dial.lblResult, found) << text;
    }
    Dial.tVOR1_Enter();
    EXPECT_EQ(Dial.lblVOR1, "West");
    EXPECT_FALSE(Dial.frmVOR);
    EXPECT_TRUE(Dial.lbldistVOR.HasNumber()); // shown at once
    Dial.RightButton();
    Dial.tVOR1_Change("k");
    Dial.tVOR1_Escape();
    EXPECT_EQ(Dial.lblVOR1, "West");
}

TEST_F(InstrumentTest, EntersACourseOfThreeDigitsAndRemembersAll) {
    Choose(DialMode::Vor);
    Dial.LeftButton();
    EXPECT_EQ(Dial.InstrumentMode, DialMode::Hsi);
    Dial.RightButton();
    Dial.tKurs_Change("05");
    EXPECT_TRUE(Dial.frmKurs);
    Dial.tKurs_Change("051");
    EXPECT_FALSE(Dial.frmKurs);
    EXPECT_EQ(Dial.lblKurs, "051");
    Dial.RightButton();
    Dial.tKurs_Change("9");
    Dial.tKurs_Escape();
    EXPECT_EQ(Dial.lblKurs, "051");
    Dial.SaveVOR();
    Instrument again(Shared.DataConn, Shared, Shared, State, Surface, Card, Boxes);
    again.LoadVOR();
    EXPECT_EQ(again.InstrumentMode, DialMode::Hsi);
    EXPECT_EQ(again.lblVOR1, "KBO");
    EXPECT_EQ(again.lblKurs, "051");
    Dial.LeftButton(); // and round to the beginning
    EXPECT_EQ(Dial.InstrumentMode, DialMode::Heading);
}

} // namespace
} // namespace ornivane
