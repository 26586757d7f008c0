#include "nav/TrackLogger.h"

#include "common/SettingsFiles.h"
#include "nav/FlyingScreenFixture.h"
#include "support/Rows.h"

namespace ornivane {
namespace {

class TrackLoggerTest : public FlyingScreenTest {
protected:
    TrackLoggerTest() {
        OpenTracks();
        Shared.TrackEnabled = true;
        Shared.TrackInterval = 10000;
    }
    TrackLogger& Begin(bool automatic) {
        Shared.TrackAuto = automatic;
        Start();
        Fly(50.5, 7.0);
        return Screen->Logger;
    }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i)
            if (TrackTimer.Interval() > 0) TrackTimer.Fire();
    }
    std::string Buttons() const {
        const TrackLogger& logger = Screen->Logger;
        return std::string(logger.cmdRecord ? "hand " : "") + (logger.cmdRecordAuto ? "auto " : "") +
               (logger.picRecord ? "running" : "");
    }
    std::vector<std::string> Rows(const char* sql) {
        return RowsOf(Shared.TrackConn, sql, NumbersAs::Stored, "|");
    }
    std::vector<std::string> List() { return Rows("SELECT \"Index\", Name FROM List ORDER BY 1"); }
};

TEST_F(TrackLoggerTest, WritesASampleAtEachIntervalBetweenTwoClicks) {
    Shared.Locale.DecimalSeparator = ',';
    Start();
    Screen->cmdRecord_Click(); // without a fix nothing happens
    EXPECT_EQ(Buttons(), "hand ");
    TrackLogger& logger = Begin(false);
    Screen->cmdRecord_Click();
    EXPECT_EQ(Buttons(), "running");
    EXPECT_EQ(TrackTimer.Interval(), 10000);
    Screen->Readouts.TimeChanged("23:59:58");
    Tick();
    Screen->Readouts.AltitudeReceived("300.5");
    Clock.Time = {2026, 11, 23, 0, 0, 8}; // midnight; the receiver's clock is its own
    Tick();
    Screen->lblAlt_Click(); // metres from here on, the value that stands as well
    Tick();
    EXPECT_EQ(logger.lblRecord, "3");
    Screen->Readouts.AltitudeReceived("0.1"); // at sea level the display is empty
    Tick();
    Screen->picRecord_Click();
    EXPECT_EQ(Buttons(), "hand ");
    EXPECT_EQ(TrackTimer.Interval(), 0);
    EXPECT_EQ(List(), (std::vector<std::string>{"1|22Nov26 - 13:50"}));
    EXPECT_EQ(Rows("SELECT Number, Lat, Long, round(Height, 2), \"Date\", \"Time\" FROM Track"),
              (std::vector<std::string>{
                  "1|50.5|7.0|null|2026-11-22|23:59:58", "2|50.5|7.0|300.54|2026-11-23|23:59:58",
                  "3|50.5|7.0|301.0|2026-11-23|23:59:58", "4|50.5|7.0|0.0|2026-11-23|23:59:58"}));
    Screen->cmdRecord_Click();
    Screen->picRecord_Click();
    Clock.Time = {2020, 1, 1, 0, 0, 0}; // a clock that jumps back
    Screen->cmdRecord_Click();
    Screen->picRecord_Click();
    Screen->cmdRecord_Click(); // in the same minute: the same name
    EXPECT_EQ(List(), (std::vector<std::string>{"1|22Nov26 - 13:50", "2|23Nov26 - 00:00", "3|01Jan20 - 00:00",
                                                "4|01Jan20 - 00:00"}));
}

TEST_F(TrackLoggerTest, StartsAndStopsByItselfAt30Knots) {
    TrackLogger& logger = Begin(true);
    EXPECT_EQ(Buttons(), "auto ");
    const std::pair<const char*, const char*> steps[] = {
        {"30", "auto "}, {"30.1", "running"}, {"30", "running"}, {"29.9", "auto "}, {"80", "running"}};
    Screen->lblSpeed_Click(); // km/h on the display changes nothing
    for (const auto& [speed, buttons] : steps) {
        Screen->Readouts.SpeedReceived(speed);
        EXPECT_EQ(Buttons(), buttons) << speed;
    }
    EXPECT_EQ(List().size(), 2u);
    Tick(2);
    logger.ToggleTrackLog(true); // does not stop what runs by itself
    EXPECT_EQ(Buttons(), "running");
    Screen->picRecord_Click(); // the pilot does, and ends the automatic mode with it
    EXPECT_EQ(Buttons(), "hand ");
    EXPECT_FALSE(Shared.TrackAuto);
    TrackSettings saved;
    EXPECT_TRUE(ReadTrackSettings(Folder.Path(), saved));
    EXPECT_EQ(saved, (TrackSettings{true, 10, false}));
    Screen->Readouts.SpeedReceived("90");
    EXPECT_EQ(Buttons(), "hand ");
}

TEST_F(TrackLoggerTest, AClickThatStopsWritesTheSettingsAlsoOfARecordingByHand) {
    Begin(false);
    Screen->cmdRecord_Click();
    Screen->picRecord_Click();
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "track.crm").value_or("none"), "1\r\n10\r\n0\r\n");
}

TEST_F(TrackLoggerTest, WithoutAFixAClickEndsTheAutomaticModeAndTheNextIntervalTheRecording) {
    Begin(true);
    Screen->Readouts.SpeedReceived("90");
    Screen->Readouts.FixLost();
    Screen->picRecord_Click();
    EXPECT_EQ(Buttons(), "running");
    EXPECT_FALSE(Shared.TrackAuto);
    EXPECT_EQ(ReadWholeFile(Folder.Path() / "track.crm").value_or("none"), "1\r\n10\r\n0\r\n");
    Tick();
    EXPECT_EQ(Buttons(), "hand ");
    EXPECT_EQ(TrackTimer.Interval(), 0);
}

TEST_F(TrackLoggerTest, ALostFixEndsTheRecordingAndSpeedBeginsANewOne) {
    Begin(true);
    Screen->Readouts.SpeedReceived("90");
    Tick();
    Screen->Readouts.FixLost();
    Tick();
    EXPECT_EQ(Buttons(), "auto ");
    Fly(50.6, 7.0);
    Screen->Readouts.SpeedReceived("90");
    Tick();
    EXPECT_EQ(Rows("SELECT \"Index\", Number FROM Track"), (std::vector<std::string>{"1|1", "2|1"}));
}

TEST_F(TrackLoggerTest, PausesWhileAnotherScreenIsInFront) {
    Begin(false);
    Screen->cmdRecord_Click();
    Tick(2);
    Screen->Form_Deactivate();
    EXPECT_EQ(TrackTimer.Interval(), 0);
    EXPECT_TRUE(Shared.TrackWasRunning);
    Screen->Form_Activate();
    EXPECT_EQ(Buttons(), "running");
    Tick();
    EXPECT_EQ(Rows("SELECT \"Index\", Number FROM Track"), (std::vector<std::string>{"1|1", "1|2", "1|3"}));
    Screen->Form_Deactivate();
    Shared.TrackAuto = true; // chosen in the settings meanwhile
    Screen->Form_Activate();
    EXPECT_EQ(Buttons(), "auto ");
    EXPECT_EQ(TrackTimer.Interval(), 0);
    Screen->Form_Deactivate();
    Shared.TrackEnabled = false;
    Screen->Form_Activate();
    EXPECT_EQ(Buttons(), "");
}

TEST_F(TrackLoggerTest, ARecordingThatWasDeletedMeanwhileIsNotGoneOnWith) {
    Begin(false);
    Screen->cmdRecord_Click();
    Tick(2);
    Screen->Form_Deactivate();
    Shared.TrackConn.Execute("DELETE FROM List");
    Screen->Form_Activate();
    EXPECT_EQ(Buttons(), "hand ");
    EXPECT_EQ(TrackTimer.Interval(), 0);
}

TEST_F(TrackLoggerTest, GoesOnWhenThereIsRoomAgain) {
    TrackLogger& logger = Begin(false);
    Screen->cmdRecord_Click();
    Tick(2);
    Statement(Shared.TrackConn, "PRAGMA max_page_count = 1")
        .Step(); // what the store has is all the disk there is
    int refused = 0;
    for (; refused < 400 && Notices.Shown.empty(); ++refused) Tick();
    ASSERT_EQ(Notices.Shown.size(), 1u);
    EXPECT_NE(Notices.Shown[0].find("Der Track wird nicht gespeichert"), std::string::npos);
    const std::string stood = logger.lblRecord;
    Tick(3);
    EXPECT_EQ(Notices.Shown.size(), 1u); // told once
    EXPECT_EQ(logger.lblRecord, stood);
    EXPECT_EQ(Buttons(), "running");
    Statement(Shared.TrackConn, "PRAGMA max_page_count = 100000").Step();
    Tick(2);
    EXPECT_EQ(Rows("SELECT count(*), max(Number), min(Number) FROM Track")[0],
              std::to_string(std::stoi(stood) + 2) + "|" + std::to_string(std::stoi(stood) + 2) + "|1");
}

TEST_F(TrackLoggerTest, TheCountFitsItsPicture) {
    TrackLogger& logger = Begin(false);
    Screen->cmdRecord_Click();
    for (const auto& [before, font] : {std::pair{997L, 14}, {998L, 12}, {9998L, 10}}) {
        logger.TrackSampleCount = before;
        Tick();
        EXPECT_EQ(logger.lblRecordFont, font) << logger.lblRecord;
    }
    Screen->picRecord_Click();
    Screen->cmdRecord_Click();
    EXPECT_EQ(logger.lblRecordFont, 14);
    EXPECT_EQ(logger.lblRecord, "0");
}

} // namespace
} // namespace ornivane
