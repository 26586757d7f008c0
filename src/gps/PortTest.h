#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/Readout.h"
#include "common/SettingsFiles.h"
#include "gps/NmeaSink.h"
#include "gps/PortSource.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "platform/PortList.h"
#include "platform/Timer.h"

namespace ornivane {

// The port test of the settings screen: opens a port that the user chose, shows what comes, and saves port
// and baud rate when data came within two seconds. That is the only way in which the saved port changes.
class PortTest : private NmeaListener {
public:
    static constexpr Colour Red = 0xFF0000;
    static constexpr Colour Green = 0x00FF00;
    struct Label {
        std::string Caption;
        Colour ForeColor = Red;
    };
    static constexpr std::array<const char*, 5> UsualBaudRates{"4800", "9600", "19200", "38400", "57600"};
    static constexpr int MostPorts = 20;

    // Takes over the callbacks of port and timer, which must outlive it. `stateChanged`: show it anew.
    PortTest(SerialPort& serialPort, Timer& timer, const PortList& portList, Dialogs& messages,
             const Clock& clock, const Settings& programSettings, const Language& uiLanguage,
             std::function<void()> stateChanged);
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
    // A test is under way: neither port nor baud rate may be changed, what was tested is what is saved. The
    // mouse pointer is the hourglass meanwhile.
    bool IsTesting() const { return CheckCount > 0; }

    std::vector<int> cmbCom; // the ports offered
    int SelectedCom = 0;     // the port chosen among them; 0 when there are none
    // The baud rates offered: the usual ones, and the saved one should it be another.
    std::vector<std::string> BaudRates{UsualBaudRates.begin(), UsualBaudRates.end()};
    std::size_t cmbBaud = 0; // index into them
    std::string Label7;      // satellites used, hidden
    std::string lblLat = NoValue, lblLong = NoValue;

    // What else shows, in the language of this moment.
    std::string lblStatus() const; // how the test goes
    // The saved port is not there, or there is none at all; or data came, but nothing that a receiver says at
    // the right baud rate.
    std::string lblHint() const;
    std::string tGPS() const; // the first line of the input, always UTF-8
    Label lblComVerbindung() const;
    Label LabelStatus() const; // the fix
    std::string lblSatellites() const;

private:
    void TimeChanged(const std::string& /*time*/) override { sentenceHeard = true; }
    void FixObtained() override { input.HasFix = true; }
    void FixLost() override { input.HasFix = false; }
    void PositionReceived(const PositionTexts& position) override;
    void SatellitesUsedReceived(std::int16_t used) override { Label7 = std::to_string(used); }
    void SatellitesInViewReceived(std::int16_t satellitesInView) override;

    enum class Stage { Untested, Checking, NoSignal, NotOpened, Saved };
    // What has come over the line.
    struct Input {
        bool HasCome = false; // and the line has not been interrupted since
        bool HasFix = false;
        std::string UsedAndInView; // satellites, "6 / 11"; empty while unknown
        std::string FirstLine;     // of the input
        bool IsNoise = false;      // it is too long for a sentence
    };

    void OfferBaudRates(const std::optional<ComSettings>& saved);
    void OpenChosen();
    void ShowFirstLine(std::string_view line);
    const char* NoPortText() const;

    PortSource port;
    Timer& timerCheck;
    const PortList& ports;
    Dialogs& dialogs;
    const Settings& settings;
    const Language& language;
    std::function<void()> changed;
    Stage stage = Stage::Untested;
    int CheckCount = 0;         // seconds left
    bool dataSeen = false;      // in this test
    bool sentenceHeard = false; // likewise
    bool isCleared = false;     // the displays are those of a test
    Input input;
    std::string missingCom; // the saved port while it is not there and no other was tested
    NmeaInterpreter gps;
    NmeaSink sentences;
    // The same stream as the receiver sent it, for tGPS only: who looks for a fault must see that.
    NmeaListener nobody;
    NmeaInterpreter sentGps{nobody};
    SentenceFraming sent{sentGps};
};

} // namespace ornivane
