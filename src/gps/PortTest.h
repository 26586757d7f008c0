#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "common/Variablen.h"
#include "gps/NmeaInterpreter.h"
#include "gps/SentenceFraming.h"
#include "gps/TalkerTwins.h"
#include "gps/WholeLines.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "platform/PortList.h"
#include "platform/SerialPort.h"
#include "platform/Timer.h"

namespace ornivane {

// The port test of the settings screen: opens a port that the user chose, shows what comes, and saves port
// and baud rate when data came within two seconds. That is the only way in which the saved port changes.
class PortTest : private NmeaListener {
public:
    struct Label {
        std::string Caption;
        Colour ForeColor = 0x000000;
    };
    static constexpr Colour Red = 0xFF0000;
    static constexpr Colour Green = 0x00FF00;
    static constexpr std::array<const char*, 5> UsualBaudRates{"4800", "9600", "19200", "38400", "57600"};
    static constexpr int MostPorts = 20;

    // Takes over the callbacks of port and timer, which must outlive it. `changed`: show the members.
    PortTest(SerialPort& port, Timer& timer, const PortList& ports, Dialogs& dialogs, const Clock& clock,
             const Variablen& shared, std::function<void()> changed);
    PortTest(const PortTest&) = delete;
    PortTest& operator=(const PortTest&) = delete;

    // Lists the ports of the machine and selects the saved one, or the first when that is not there, and the
    // saved baud rate.
    void Form_Activate();
    // Closes the port and stops a test.
    void Form_Deactivate();
    void cmdCheck_Click();
    void timerCheck_Timer();
    void MSComm1_OnComm(SerialEvent event);
    void ClearTestDisplays();
    // Every text of the test in the language of this moment.
    void ApplyLanguage();
    // A test is under way: neither port nor baud rate may be changed, what was tested is what is saved.
    bool IsTesting() const { return CheckCount > 0; }

    std::vector<int> cmbCom; // the ports offered
    int SelectedCom = 0;     // the port chosen among them; 0 when there are none
    // The baud rates offered: the usual ones, and the saved one should it be another.
    std::vector<std::string> BaudRates{UsualBaudRates.begin(), UsualBaudRates.end()};
    std::size_t cmbBaud = 0; // index into them
    std::string tGPS;        // the first line of the input, always UTF-8
    Label lblStatus;         // how the test goes
    // The saved port is not there, or there is none at all; or data came, but nothing that a receiver says at
    // the right baud rate.
    std::string lblHint;
    Label lblComVerbindung;
    Label LabelStatus; // the fix
    std::string lblSatellites;
    std::string Label7; // satellites used, hidden
    std::string lblLat = "---", lblLong = "---";
    bool Hourglass = false;      // the mouse pointer
    std::int16_t CheckCount = 0; // seconds left
    bool DataSeen = false;       // in this test

private:
    void TimeChanged(const std::string& time) override;
    void FixObtained() override;
    void FixLost() override;
    void PositionReceived(const std::string& latitude, const std::string& longitude,
                          const std::string& latraw, const std::string& longraw) override;
    void SatellitesUsedReceived(std::int16_t satellitesUsed) override;
    void SatellitesInViewReceived(std::int16_t satellitesInView) override;

    enum class Stage { Untested, Checking, NoSignal, NotOpened, Saved };

    void OfferPorts();
    void OfferBaudRates(const std::optional<ComSettings>& saved);
    void OpenChosen();
    void ShowFirstPiece(std::string_view piece);
    std::string ComName() const { return "COM " + std::to_string(testedCom); }
    std::string StatusText() const;
    std::string HintText() const;
    const char* NoPortText() const;
    std::string SatellitesText() const;
    // The members that hold texts, from what is known.
    void ShowTexts();

    SerialPort& port;
    Timer& timerCheck;
    const PortList& ports;
    Dialogs& dialogs;
    const Clock& clock;
    const Variablen& shared;
    std::function<void()> changed;
    Stage stage = Stage::Untested;
    int testedCom = 0;
    std::string missingCom; // the saved port while it is not there and no other was tested
    std::optional<RuntimeError> openFailure;
    bool isCleared = false; // the displays are those of a test
    bool isConnected = false;
    bool isNoise = false;
    bool sentenceHeard = false;
    bool noFix = true;
    std::string usedAndInView; // "6 / 11"; empty while unknown
    std::string firstPiece;
    NmeaInterpreter gps;
    WholeLines lines;
    TalkerTwins twins;
    SentenceFraming framing;
    // The same stream as the receiver sent it, for tGPS only: who looks for a fault must see that.
    NmeaListener nobody;
    NmeaInterpreter sentGps{nobody};
    SentenceFraming sent{sentGps};
};

} // namespace ornivane
