#include <gmock/gmock.h>

#include "app/Stores.h"
#include "common/SettingsFiles.h"
#include "settings/SettingsScreen.h"
#include "support/PortWorld.h"
#include "support/PressedNotice.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SettingsScreenTest : public testing::Test, protected PortWorld {
protected:
    SettingsScreenTest() {
        MakeStores(Folder.Path());
        Shared.LuftraumDate = AirspaceRelease;
        Shared.DataConn.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
        Shared.TrackConn.Open(Folder.Path() / "track.ovd", Connection::Mode::ReadWrite);
        Shared.LuftraumConn.Open(Folder.Path() / "Luftraum.ovd", Connection::Mode::ReadOnly);
        Ports.Numbers = {7};
        Screen.Form_Load();
    }
    std::string Bytes(const char* file) { return Folder.Bytes(file); }

    int CaptionsWritten = 0;
    PressedNotice Bar;
    SettingsScreen Screen{
        {Shared, Port, Timer, Ports, Clock, Dialogs}, Bar, {[] {}, [this] { ++CaptionsWritten; }}};
};

TEST_F(SettingsScreenTest, ADeletedCategoryIsOfferedInTheLanguageChosenUntilTheScreenIsLeft) {
    Screen.Form_Activate();
    Screen.CategoryList.tKategorie = "VOR";
    Screen.CategoryList.cmdAdd_Click();
    Screen.CategoryList.cmdDelete_Click();
    Screen.ChooseLanguage(1);
    Screen.ApplyLanguage();
    EXPECT_EQ(Bar.Text, "Category VOR deleted [&undo]");
    Screen.Form_Deactivate();
    EXPECT_EQ(Bar.Text, "");
    Screen.ApplyLanguage();
    EXPECT_FALSE(Bar.Press());
}

TEST_F(SettingsScreenTest, WritesEachFileAsItIsReadAgain) {
    Screen.Form_Activate();
    EXPECT_EQ(Screen.cmbTrack, "10");
    EXPECT_EQ(Screen.frmLuftraum, "Luftraumdaten - Stand: 21.03.2024");
    Screen.ChooseLanguage(1);
    Screen.Option_Click(2);
    EXPECT_EQ(CaptionsWritten, 1);
    Screen.chkTrack_Click(true);
    Screen.chkAutoOn_Click(true);
    EXPECT_TRUE(Shared.TrackEnabled && Shared.TrackAuto && Screen.TrackEnabledControls);
    Screen.cmbTrack = "75";
    Shared.tQNH = "1021,4";
    Screen.Form_Deactivate();
    EXPECT_EQ(Bytes("lang.crm"), "1\r\n");
    EXPECT_EQ(Bytes("symbol.crm"), "2\r\n");
    EXPECT_EQ(Bytes("track.crm"), "1\r\n60\r\n1\r\n");
    EXPECT_EQ(Bytes("LR.crm"), "1021\r\n#2026-11-22#\r\n");
    EXPECT_EQ(Shared.TrackInterval, 60000);

    Screen.chkTrack_Click(false);
    EXPECT_FALSE(Screen.TrackEnabledControls);
    EXPECT_TRUE(Screen.chkAutoOn) << "only what is saved is off";
    Screen.Form_Deactivate();
    EXPECT_EQ(Bytes("track.crm"), "0\r\n60\r\n0\r\n");
    EXPECT_FALSE(Shared.TrackEnabled || Shared.TrackAuto);
    Screen.Form_Activate();
    EXPECT_FALSE(Screen.chkTrack || Screen.chkAutoOn);
    EXPECT_EQ(Screen.cmbTrack, "60");
}

TEST_F(SettingsScreenTest, TakesAQnhOfTheAtmosphereOnly) {
    struct Case {
        const char* Typed;
        int Qnh;
        const char* Shown;
    };
    for (const auto& [typed, qnh, shown] :
         {Case{"950", 950, "950"}, Case{"949,9", 1013, "1013"}, Case{"1050", 1013, "1013"},
          Case{"1049", 1049, "1049"}, Case{"low", 1013, "1013"}, Case{"", 1013, "1013"}}) {
        Shared.tQNH = typed;
        Screen.Form_Deactivate();
        EXPECT_EQ(Shared.QNH, qnh) << typed;
        EXPECT_EQ(Shared.tQNH, shown);
    }
}

TEST_F(SettingsScreenTest, ALookAtTheScreenKeepsTheQnhOfTodayAndNoOlderOne) {
    Shared.QNH = 1021; // as read from the file at the start
    Shared.QNHDate = Date{2026, 11, 22};
    Screen.Form_Activate();
    Screen.Form_Deactivate();
    EXPECT_EQ(Bytes("LR.crm"), "1021\r\n#2026-11-22#\r\n");

    Shared.tQNH = "1049,6"; // below 1050, and a whole number when it is stored
    for (int visit = 0; visit < 2; ++visit) {
        Screen.Form_Deactivate();
        EXPECT_EQ(Bytes("LR.crm"), "1050\r\n#2026-11-22#\r\n");
        Screen.Form_Activate();
    }

    Shared.QNHDate = Date{2026, 11, 21};
    Shared.tQNH = "1013";
    Screen.Form_Activate();
    Screen.Form_Deactivate();
    EXPECT_EQ(Bytes("LR.crm"), "1013\r\n#2026-11-22#\r\n");
}

TEST_F(SettingsScreenTest, AQnhOutOfRangeIsNoneAlsoWhenItIsTheStoredOne) {
    Shared.QNHDate = Date{2026, 11, 22};
    for (const std::int16_t stored : {std::int16_t{900}, std::int16_t{1050}}) {
        Shared.QNH = stored; // as read from the file at the start
        Screen.Form_Activate();
        EXPECT_EQ(Shared.tQNH, std::to_string(stored));
        Screen.Form_Deactivate();
        EXPECT_EQ(Shared.QNH, 1013);
        EXPECT_EQ(Shared.tQNH, "1013");
    }
}

TEST_F(SettingsScreenTest, TheFileOfTheQnhHasItsDateAlsoWhenNoneWasEverEntered) {
    Shared.tQNH = "low";
    Screen.Form_Deactivate();
    EXPECT_EQ(Bytes("LR.crm"), "1013\r\n#1899-12-30#\r\n");
    QnhSettings read;
    EXPECT_TRUE(ReadQnhSettings(Folder.Path(), read));
}

TEST_F(SettingsScreenTest, IntervalsThatAreNoneAreTheFirstOfTheList) {
    for (const auto& [typed, kept] :
         {std::pair{"7", "7"}, {"0", "10"}, {"-5", "10"}, {"x", "10"}, {"1e9", "60"}}) {
        Screen.cmbTrack = typed;
        Screen.Form_Deactivate();
        EXPECT_EQ(Screen.cmbTrack, kept) << typed;
    }
}

TEST_F(SettingsScreenTest, LeavesTheTrackFileAloneWithoutAStoreForTracks) {
    Shared.TrackConn.Close();
    Shared.LuftraumConn.Close();
    Screen.Form_Activate();
    EXPECT_FALSE(Screen.Frame4 || Screen.frmLuftraumShows);
    Screen.Form_Deactivate();
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "track.crm"));
}

TEST_F(SettingsScreenTest, ClosesThePortAndKeepsWhatWasEnteredThoughAFileCannotBeWritten) {
    Screen.Form_Activate();
    Screen.Port.SelectedCom = 7;
    Screen.Port.cmdCheck_Click();
    std::filesystem::create_directory(Folder.Path() / "LR.crm"); // no file can take this name
    Shared.tQNH = "1000";
    Screen.chkTrack_Click(true);
    EXPECT_THROW(Screen.Form_Deactivate(), RuntimeError);
    EXPECT_FALSE(Port.IsOpen());
    EXPECT_EQ(Timer.Interval(), 0);
    EXPECT_EQ(Shared.QNH, 1000);
    EXPECT_EQ(Bytes("track.crm"), "1\r\n10\r\n0\r\n");
}

TEST_F(SettingsScreenTest, TellsOfMissingAirfieldsInGermanOnly) {
    Shared.EnglishUI = 1;
    EXPECT_FALSE(Screen.cmdGetWaypoint_Click());
    EXPECT_THAT(
        Dialogs.Shown,
        ElementsAre("Ornivane GPS|Datei ovdata.ovd wurde nicht im Verzeichnis: " + Folder.Path().string() +
                    " gefunden. Bitte Datei aus Ornivane APT in das Ornivane GPS Verzeichnis kopieren."));
    Shared.AirfieldStoreOpen = true;
    EXPECT_TRUE(Screen.cmdGetWaypoint_Click());
}

} // namespace
} // namespace ornivane
