#include <gmock/gmock.h>

#include "base/Strings.h"
#include "common/SettingsFiles.h"
#include "gps/PortTest.h"
#include "support/PortWorld.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PortTestTest : public testing::Test, protected PortWorld {
protected:
    PortTestTest() {
        Shared.EnglishUI = 1;
        Ports.Numbers = {2, 7, 20, 21};
        WriteComSettings(Folder.Path(), {"7", "9600"});
        Screen.Form_Activate();
    }

    std::optional<ComSettings> Saved() const { return ReadComSettings(Folder.Path()); }
    // What is told of the fix: its status, the latitude and the satellites.
    std::array<std::string, 3> Fix() const {
        return {Screen.LabelStatus().Caption, Screen.lblLat, Screen.lblSatellites()};
    }
    void Receive(const std::string& body) { Port.Receive(Sentence(body) + "\r\n"); }
    void Check(int com) {
        Screen.SelectedCom = com;
        Screen.cmdCheck_Click();
    }

    PortTest Screen{Port, Timer, Ports, Dialogs, Clock, Shared, Shared, [] {}};
};

TEST_F(PortTestTest, OffersPortsUpToTwentyAndChoosesTheSavedOneIfItIsStillThere) {
    EXPECT_THAT(Screen.cmbCom, ElementsAre(2, 7, 20));
    EXPECT_EQ(Screen.SelectedCom, 7);
    EXPECT_EQ(Screen.cmbBaud, 1u);
    EXPECT_EQ(Screen.lblHint(), "");

    Ports.Numbers.clear();
    Screen.Form_Activate();
    EXPECT_EQ(Screen.lblHint(), "No COM Port available");
    Screen.cmdCheck_Click();
    EXPECT_THAT(Port.Attempts, IsEmpty());
    Shared.EnglishUI = 0;
    Screen.Form_Activate();
    EXPECT_EQ(Screen.lblHint(), "Keine COM Anschlüsse vorhanden");
    EXPECT_THAT(Dialogs.Shown, ElementsAre("No COM was found|No COM Port available",
                                           "Es wurde kein COM Port gefunden|Keine COM Anschlüsse vorhanden"));
}

// A button that tests nothing because no port is chosen would look broken.
TEST_F(PortTestTest, OffersWhatIsThereWhenTheSavedPortIsGoneAndSaysSo) {
    for (const bool isTheOnly : {true, false}) {
        Ports.Numbers = isTheOnly ? std::vector{2} : std::vector{2, 5};
        const std::string there = isTheOnly ? "COM 2" : "COM 2, COM 5";
        Shared.EnglishUI = 1;
        Screen.Form_Activate();
        EXPECT_EQ(Screen.SelectedCom, 2);
        EXPECT_EQ(Screen.lblHint(), "COM 7 is not there. Choose and check another: " + there);
        Shared.EnglishUI = 0;
        EXPECT_EQ(Screen.lblHint(), "COM 7 gibt es nicht. Anderen wählen und überprüfen: " + there);
        Screen.Form_Deactivate();
        EXPECT_EQ(Saved()->Port, "7") << "looking is not choosing";
    }
    Screen.Form_Activate();
    Screen.cmdCheck_Click();
    EXPECT_THAT(Port.Attempts, ElementsAre(2));
    EXPECT_EQ(Screen.lblHint(), "");
    Receive("GPRMC,120000,A,4807.0,N,01131.0,E,,,");
    Timer.Fire(2);
    EXPECT_EQ(Saved()->Port, "2");
    EXPECT_EQ(Screen.lblHint(), "");

    // Nothing was ever saved.
    std::filesystem::remove(Folder.Path() / "data.crm");
    Screen.Form_Activate();
    EXPECT_EQ(Screen.SelectedCom, 2);
    EXPECT_EQ(Screen.lblHint(), "");
}

TEST_F(PortTestTest, KeepsABaudRateThatTheListLacks) {
    WriteComSettings(Folder.Path(), {"7", "115200"});
    Screen.Form_Activate();
    EXPECT_THAT(Screen.BaudRates, ElementsAre("4800", "9600", "19200", "38400", "57600", "115200"));
    EXPECT_EQ(Screen.BaudRates.at(Screen.cmbBaud), "115200");
    Screen.Form_Deactivate();
    EXPECT_EQ(Saved(), (ComSettings{"7", "115200"}));
    Screen.Form_Activate();
    Screen.cmdCheck_Click();
    EXPECT_EQ(Port.Settings, "115200,n,8,1");
    Port.Receive("$");
    Timer.Fire(2);
    EXPECT_EQ(Saved(), (ComSettings{"7", "115200"}));

    // A test that fails, of this rate or of another, leaves it; one that passes writes the rate chosen.
    Screen.cmbBaud = 2;
    Screen.cmdCheck_Click();
    Timer.Fire(2);
    EXPECT_EQ(Saved(), (ComSettings{"7", "115200"}));
    Screen.cmdCheck_Click();
    Port.Receive("$");
    Timer.Fire(2);
    EXPECT_EQ(Saved(), (ComSettings{"7", "19200"}));
    Screen.Form_Activate();
    EXPECT_EQ(Screen.BaudRates.size(), 5u);
    EXPECT_EQ(Screen.cmbBaud, 2u);
}

TEST_F(PortTestTest, SavesPortAndBaudRateOnlyWhenDataCame) {
    Screen.SelectedCom = 20;
    Screen.cmbBaud = 4;
    Screen.cmdCheck_Click();
    EXPECT_EQ(Screen.lblStatus(), "COM 20 - testing connection ");
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "No COM Connection");
    EXPECT_TRUE(Screen.IsTesting());
    EXPECT_EQ(Port.Settings, "57600,n,8,1");
    Port.Receive("$");
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "COM 20 connected");
    EXPECT_EQ(Screen.lblComVerbindung().ForeColor, PortTest::Green);
    Timer.Fire();
    EXPECT_EQ(Saved()->Port, "7");
    Timer.Fire();
    EXPECT_EQ(Screen.lblStatus(), "OK - Data saved");
    EXPECT_EQ(Saved(), (ComSettings{"20", "57600"}));
    EXPECT_FALSE(Screen.IsTesting());
    EXPECT_EQ(Timer.Interval(), 0);

    // Another port without data: what the first one sent does not count.
    Shared.EnglishUI = 0;
    Check(2);
    EXPECT_EQ(Screen.lblStatus(), "COM 2 wird überprüft");
    Timer.Fire(2);
    EXPECT_EQ(Screen.lblStatus(), "Kein Signal an COM 2");
    EXPECT_TRUE(Port.IsOpen());
    EXPECT_EQ(Saved()->Port, "20");
}

TEST_F(PortTestTest, TellsOfAPortThatDoesNotOpenAndEndsTheTest) {
    Port.Failure = ErrorNumber::FileNotFound;
    Screen.cmdCheck_Click();
    EXPECT_EQ(Screen.lblStatus(), "COM 7 does not exist");
    Timer.Fire(2);
    EXPECT_EQ(Screen.lblStatus(), "COM 7 does not exist");
    EXPECT_FALSE(Screen.IsTesting());
    EXPECT_EQ(Timer.Interval(), 0);

    Port.Failure = ErrorNumber::FileAlreadyOpen;
    Screen.cmdCheck_Click();
    EXPECT_EQ(Screen.lblStatus(), "COM 7 is in use by another program");
    Shared.EnglishUI = 0;
    EXPECT_EQ(Screen.lblStatus(), "COM 7 wird von einem anderen Programm benutzt");
}

TEST_F(PortTestTest, APortThatVanishesDuringItsTestHasNotPassed) {
    Check(20);
    Receive("GPRMC,120000,A,4807.0,N,01131.0,E,,,");
    Timer.Fire();
    Port.HangUp();
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "No COM Connection");
    Port.Failure = ErrorNumber::FileNotFound;
    Timer.Fire();
    EXPECT_EQ(Screen.lblStatus(), "COM 20 does not exist");
    EXPECT_EQ(Saved()->Port, "7");
}

TEST_F(PortTestTest, TellsOfDataThatNoReceiverSendsAtTheRightBaudRate) {
    Screen.cmdCheck_Click();
    Receive("GPRMC,120000,A,4807.0,N,01131.0,E,,,");
    Screen.cmbBaud = 4;
    Screen.cmdCheck_Click(); // what was said at the right one does not count
    for (int i = 0; i < 5; ++i) Port.Receive("\xF8\x80\xFE" + std::string(60, '\x86'));
    Timer.Fire(2);
    EXPECT_EQ(Screen.tGPS(), "No data from GPS received - check baudrate");
    EXPECT_EQ(Screen.LabelStatus().Caption, "No GPS Fix");
    EXPECT_EQ(Screen.lblHint(), "Data come in, but no sentences of a GPS: check baud rate and port");
    Port.Receive("\r\n" + Sentence("GPGLL,4807.0,N,01131.0,E,120000,A") + "\r\n");
    EXPECT_EQ(Screen.lblHint(), "");
}

TEST_F(PortTestTest, ChangesTheLanguageOfWhatItShows) {
    EXPECT_THAT(Fix(), ElementsAre("No GPS fix", "---", "Number of satellites = "));
    Screen.cmdCheck_Click();
    for (const char* body : {"GPRMC,,A,4807.0,N,01131.0,E,,,", "GPGGA,,,,,,1,06,,,,,,,", "GPGSV,1,1,11"})
        Receive(body);
    Shared.EnglishUI = 0;
    EXPECT_EQ(Screen.lblStatus(), "COM 7 wird überprüft");
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "COM 7 Verbindung hergestellt");
    EXPECT_EQ(Screen.lblSatellites(), "Anzahl Satelliten = 6 / 11");
    Screen.Form_Deactivate();
    EXPECT_EQ(Screen.lblStatus(), "");
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "Keine COM Verbindung");
    EXPECT_THAT(Fix(), ElementsAre("Kein GPS fix", "---", "Anzahl Satelliten = "));
}

TEST_F(PortTestTest, ATestWhoseResultCannotBeKeptIsOverAllTheSame) {
    std::filesystem::remove(Folder.Path() / "data.crm");
    std::filesystem::create_directory(Folder.Path() / "data.crm"); // no file can take this name
    Check(7);
    Port.Receive("$");
    EXPECT_THROW(Timer.Fire(2), RuntimeError);
    EXPECT_FALSE(Screen.IsTesting());
    EXPECT_EQ(Screen.lblStatus(), "");
    EXPECT_EQ(Screen.lblComVerbindung().Caption, "COM 7 connected");
}

TEST_F(PortTestTest, ShowsFixSatellitesAndPositionOnlyWithAFix) {
    Screen.cmdCheck_Click();
    const auto receive = [this](const char* status) {
        Receive(std::string("GPRMC,,") + status + ",4807.0,N,01131.0,E,,,");
        Receive("GPGGA,,,,,,1,06,,,,,,,");
        Receive("GPGSV,1,1,11");
    };
    const auto noFix = ElementsAre("No GPS Fix", "---", "Number of satellites = -/-");
    receive("V");
    EXPECT_THAT(Fix(), noFix);
    receive("A");
    EXPECT_THAT(Fix(), ElementsAre("GPS Fix", "N 48° 07.0'", "Number of satellites = 6 / 11"));
    EXPECT_EQ(Screen.LabelStatus().ForeColor, PortTest::Green);
    EXPECT_EQ(Screen.lblLong, "E 011° 31.0'");

    Port.HangUp();
    EXPECT_EQ(Screen.lblComVerbindung().ForeColor, PortTest::Red);
    EXPECT_THAT(Fix(), noFix);
}

TEST_F(PortTestTest, ShowsTheFixOfAReceiverOfSeveralSystemsAndItsInputAsItWasSent) {
    Screen.cmdCheck_Click();
    const std::string sentence = Sentence("GNRMC,,A,4807.0,N,01131.0,E,,,");
    Port.Receive(sentence.substr(0, 9));
    EXPECT_EQ(Screen.tGPS(), "");
    Port.Receive(sentence.substr(9) + "\r\n");
    EXPECT_EQ(Screen.LabelStatus().Caption, "GPS Fix");
    EXPECT_EQ(Screen.lblLat, "N 48° 07.0'");
    EXPECT_EQ(Screen.tGPS(), sentence);
}

TEST_F(PortTestTest, ShowsTheFirstLineOrTheSignOfAWrongBaudRate) {
    Screen.cmdCheck_Click();
    Port.Receive("$GPTXT,1*00\r\n$GPTXT,2*00\r\n");
    EXPECT_EQ(Screen.tGPS(), "$GPTXT,1*00");
    Port.Receive("$" + std::string(199, '\xF0'));
    EXPECT_EQ(CharacterCount(Screen.tGPS()), 200u);
    EXPECT_TRUE(IsValidUtf8(Screen.tGPS()));
    Port.Receive("\xF0");
    EXPECT_EQ(Screen.tGPS(), "No data from GPS received - check baudrate");
    for (int i = 0; i < 200; ++i) Port.Receive(std::string(90, 'x'));
    Shared.EnglishUI = 0;
    Port.Receive("x");
    EXPECT_EQ(Screen.tGPS(), "Kein GPS Datenempfang - Baudrate überprüfen");
}

} // namespace
} // namespace ornivane
