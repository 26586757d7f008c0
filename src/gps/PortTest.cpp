#include "gps/PortTest.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "common/SettingsFiles.h"
#include "gps/LinkTexts.h"

namespace ornivane {

namespace {

constexpr int CheckInterval = 1000; // ms
constexpr std::int16_t CheckSeconds = 2;
// A line longer than this is noise: the sign of a wrong baud rate.
constexpr std::size_t LongestSensibleLine = 200;

} // namespace

PortTest::PortTest(SerialPort& serialPort, Timer& timer, const PortList& portList, Dialogs& messages,
                   const Variablen& variables, std::function<void()> stateChanged)
    : port(serialPort), timerCheck(timer), ports(portList), dialogs(messages), shared(variables),
      changed(std::move(stateChanged)), gps(*this), framing(gps) {
    port.OnEvent([this](SerialEvent event) { MSComm1_OnComm(event); });
    timerCheck.OnTimer([this] { timerCheck_Timer(); });
    sent.OnFirstPiece = [this](std::string_view piece) { ShowFirstPiece(piece); };
}

std::string PortTest::ComName() const { return "COM " + std::to_string(SelectedCom); }

void PortTest::Form_Activate() {
    cmbCom.clear();
    SelectedCom = 0;
    for (int number = 1; number <= MostPorts; ++number)
        if (ports.Exists(number)) cmbCom.push_back(number);
    if (cmbCom.empty())
        dialogs.Message(shared.Text("Es wurde kein COM Port gefunden", "No COM was found"),
                        shared.Text("Keine COM Anschlüsse vorhanden", "No COM Port available"));
    else
        SelectSaved();
    changed();
}

void PortTest::SelectSaved() {
    const auto saved = ReadComSettings(shared.ProgramFolder);
    if (!saved) return;
    const auto baud = std::find(BaudRates.begin(), BaudRates.end(), saved->Baud);
    if (baud != BaudRates.end()) cmbBaud = static_cast<std::size_t>(baud - BaudRates.begin());
    // A port that is no longer there is not chosen.
    const double number = NumberIn(saved->Port);
    for (const int offered : cmbCom)
        if (offered == number) SelectedCom = offered;
}

void PortTest::Form_Deactivate() {
    timerCheck.SetInterval(0);
    port.Close();
    Hourglass = false;
    changed();
}

void PortTest::cmdCheck_Click() {
    if (SelectedCom == 0) return;
    port.Close();
    port.SetSettings(std::string(BaudRates.at(cmbBaud)) + ",n,8,1");
    lblStatus = {ComName() + shared.Text(" wird überprüft", " - testing connection "), lblStatus.ForeColor};
    Hourglass = true;
    ClearTestDisplays();
    CheckCount = CheckSeconds;
    // Data of an earlier test would save a port that is dead.
    DataSeen = false;
    timerCheck.SetInterval(CheckInterval);
    changed();
    OpenChosen();
    changed();
}

void PortTest::OpenChosen() {
    try {
        port.Open(SelectedCom);
        twins.Reset();
    } catch (const RuntimeError& error) {
        lblStatus.Caption = OpenFailureText(error, std::to_string(SelectedCom), shared);
    }
}

void PortTest::ClearTestDisplays() {
    tGPS.clear();
    noFix = true;
    lblComVerbindung = {shared.Text("Keine COM Verbindung", "No COM Connection"), Red};
    LabelStatus = {shared.Text("Kein GPS Fix", "No GPS Fix"), Red};
    lblLat = lblLong = "---";
    ShowNoSatellites();
}

void PortTest::ShowNoSatellites() {
    lblSatellites = shared.Text("Anzahl Satelliten = -/-", "Number of satellites = -/-");
}

void PortTest::timerCheck_Timer() {
    if (CheckCount > 0) --CheckCount;
    if (CheckCount != 0) return;
    timerCheck.SetInterval(0);
    Hourglass = false;
    if (!DataSeen) {
        // It stays open: what comes later is shown, but saved only by another test.
        port.Close();
        ClearTestDisplays();
        lblStatus.Caption =
            shared.EnglishUI == 1 ? "No Signal - " + ComName() : "Kein Signal an " + ComName();
        OpenChosen();
    } else {
        ShowConnected();
        WriteComSettings(shared.ProgramFolder, {std::to_string(SelectedCom), BaudRates.at(cmbBaud)});
        lblStatus.Caption = shared.Text("OK - Daten gespeichert", "OK - Data saved");
    }
    changed();
}

void PortTest::ShowConnected() {
    lblComVerbindung = {ComName() + shared.Text(" Verbindung hergestellt", " connected"), Green};
}

void PortTest::MSComm1_OnComm(SerialEvent event) {
    if (event == SerialEvent::Break) dialogs.Message(MessageTitle, "Break");
    if (event == SerialEvent::Receive) {
        const std::string receivedText = port.ReadAll();
        if (receivedText.empty()) return;
        ShowConnected();
        sent.HandleInput(receivedText);
        framing.HandleInput(twins.Turn(receivedText, 0));
        DataSeen = true;
    } else if (lblComVerbindung.ForeColor == Green) {
        ClearTestDisplays();
    }
    changed();
}

// The text is shown, so bytes that are no text are made ones.
void PortTest::ShowFirstPiece(std::string_view piece) {
    tGPS = piece.size() > LongestSensibleLine ? shared.Text("Kein GPS Datenempfang - Baudrate überprüfen",
                                                            "No data from GPS received - check baudrate")
                                              : DecodeText(piece);
}

void PortTest::FixObtained() {
    LabelStatus = {"GPS Fix", Green};
    noFix = false;
}

void PortTest::FixLost() {
    LabelStatus = {shared.Text("Kein GPS Fix", "No GPS Fix"), Red};
    noFix = true;
}

void PortTest::PositionReceived(const std::string& latitude, const std::string& longitude,
                                const std::string& /*latraw*/, const std::string& /*longraw*/) {
    lblLat = noFix ? "---" : latitude;
    lblLong = noFix ? "---" : longitude;
}

void PortTest::SatellitesUsedReceived(std::int16_t satellitesUsed) {
    Label7 = std::to_string(satellitesUsed);
}

void PortTest::SatellitesInViewReceived(std::int16_t satellitesInView) {
    if (noFix)
        ShowNoSatellites();
    else
        lblSatellites = shared.Text("Anzahl Satelliten = ", "Number of satellites = ") + Label7 + " / " +
                        std::to_string(satellitesInView);
}

} // namespace ornivane
