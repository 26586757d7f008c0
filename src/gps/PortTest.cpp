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
                   const Clock& systemClock, const Variablen& variables, std::function<void()> stateChanged)
    : port(serialPort), timerCheck(timer), ports(portList), dialogs(messages), clock(systemClock),
      shared(variables), changed(std::move(stateChanged)), gps(*this), framing(gps) {
    port.OnEvent([this](SerialEvent event) { MSComm1_OnComm(event); });
    timerCheck.OnTimer([this] { timerCheck_Timer(); });
    sent.OnFirstPiece = [this](std::string_view piece) { ShowFirstPiece(piece); };
    ShowTexts();
}

void PortTest::Form_Activate() {
    OfferPorts();
    const auto saved = ReadComSettings(shared.ProgramFolder);
    OfferBaudRates(saved);
    SelectedCom = cmbCom.empty() ? 0 : cmbCom.front();
    missingCom.clear();
    if (cmbCom.empty()) { // the other settings can be used without a port
        dialogs.MessageBeside(shared.Text("Es wurde kein COM Port gefunden", "No COM was found"),
                              NoPortText());
    } else if (saved) {
        const double number = NumberIn(saved->Port);
        const auto offered = std::find(cmbCom.begin(), cmbCom.end(), number);
        if (offered != cmbCom.end())
            SelectedCom = *offered;
        else
            missingCom = saved->Port;
    }
    ShowTexts();
    changed();
}

void PortTest::OfferPorts() {
    cmbCom.clear();
    for (int number = 1; number <= MostPorts; ++number)
        if (ports.Exists(number)) cmbCom.push_back(number);
}

void PortTest::OfferBaudRates(const std::optional<ComSettings>& saved) {
    BaudRates.assign(UsualBaudRates.begin(), UsualBaudRates.end());
    if (saved) {
        auto baud = std::find(BaudRates.begin(), BaudRates.end(), saved->Baud);
        if (baud == BaudRates.end()) baud = BaudRates.insert(baud, saved->Baud);
        cmbBaud = static_cast<std::size_t>(baud - BaudRates.begin());
    }
    cmbBaud = std::min(cmbBaud, BaudRates.size() - 1);
}

const char* PortTest::NoPortText() const {
    return shared.Text("Keine COM Anschlüsse vorhanden", "No COM Port available");
}

void PortTest::ApplyLanguage() {
    ShowTexts();
    changed();
}

void PortTest::Form_Deactivate() {
    timerCheck.SetInterval(0);
    port.Close();
    CheckCount = 0;
    if (stage == Stage::Checking) stage = Stage::Untested;
    ClearTestDisplays(); // the line is closed: a green lamp would stand for nothing
    isCleared = false;   // no test ran when the screen comes back
    ShowTexts();
    Hourglass = false;
    changed();
}

void PortTest::cmdCheck_Click() {
    if (SelectedCom == 0) return;
    port.Close();
    port.SetSettings(BaudRates.at(cmbBaud) + ",n,8,1");
    stage = Stage::Checking;
    testedCom = SelectedCom;
    missingCom.clear();
    Hourglass = true;
    ClearTestDisplays();
    CheckCount = CheckSeconds;
    // Data of an earlier test would save a port that is dead.
    DataSeen = sentenceHeard = false;
    timerCheck.SetInterval(CheckInterval);
    changed();
    OpenChosen();
    changed();
}

void PortTest::OpenChosen() {
    try {
        port.Open(testedCom);
        lines.Reset(); // or the lines of an earlier test would pass for this one's
        twins.Reset();
        framing.Reset();
        sent.Reset();
    } catch (const RuntimeError& error) {
        stage = Stage::NotOpened;
        openFailure = error;
    }
    ShowTexts();
}

void PortTest::ClearTestDisplays() {
    firstPiece.clear();
    isNoise = false;
    noFix = true;
    isConnected = false;
    isCleared = true;
    lblLat = lblLong = "---";
    usedAndInView.clear();
    ShowTexts();
}

void PortTest::timerCheck_Timer() {
    if (CheckCount > 0) --CheckCount;
    if (CheckCount != 0) return;
    timerCheck.SetInterval(0);
    Hourglass = false;
    if (!DataSeen) {
        // It stays open: what comes later is shown, but saved only by another test.
        port.Close();
        stage = Stage::NoSignal;
        ClearTestDisplays();
        OpenChosen();
    } else {
        isConnected = true;
        stage = Stage::Untested; // should the file not be written
        try {
            WriteComSettings(shared.ProgramFolder, {std::to_string(testedCom), BaudRates.at(cmbBaud)});
            stage = Stage::Saved;
        } catch (...) {
            ShowTexts();
            changed();
            throw;
        }
        ShowTexts();
    }
    changed();
}

void PortTest::MSComm1_OnComm(SerialEvent event) {
    if (event == SerialEvent::Break) dialogs.Message(MessageTitle, "Break");
    if (event == SerialEvent::Receive) {
        const std::string receivedText = port.ReadAll();
        if (receivedText.empty()) return;
        isConnected = true;
        for (const WholeLines::Piece& piece : lines.Take(receivedText)) {
            sent.HandleInput(piece.Bytes);
            if (piece.IsSentences) framing.HandleInput(twins.Turn(piece.Bytes, clock.Ticks()));
        }
        DataSeen = true;
        ShowTexts();
    } else {
        // A port that went away in the middle of its test has not passed it.
        if (event == SerialEvent::Other) DataSeen = false;
        if (isConnected) ClearTestDisplays();
    }
    changed();
}

std::string PortTest::StatusText() const {
    switch (stage) {
    case Stage::Untested:
        break;
    case Stage::Checking:
        return ComName() + shared.Text(" wird überprüft", " - testing connection ");
    case Stage::NoSignal:
        return shared.EnglishUI == 1 ? "No Signal - " + ComName() : "Kein Signal an " + ComName();
    case Stage::NotOpened:
        return OpenFailureText(*openFailure, std::to_string(testedCom), shared);
    case Stage::Saved:
        return shared.Text("OK - Daten gespeichert", "OK - Data saved");
    }
    return {};
}

std::string PortTest::SatellitesText() const {
    const std::string caption = shared.Text("Anzahl Satelliten = ", "Number of satellites = ");
    if (!usedAndInView.empty()) return caption + usedAndInView;
    return isCleared ? caption + "-/-" : caption;
}

std::string PortTest::HintText() const {
    if (stage == Stage::Saved && isConnected && !sentenceHeard)
        return shared.Text("Es kommen Daten, aber keine Sätze eines GPS: Baudrate und Anschluss prüfen",
                           "Data come in, but no sentences of a GPS: check baud rate and port");
    if (cmbCom.empty()) return NoPortText();
    if (missingCom.empty()) return {};
    std::string there;
    for (const int number : cmbCom) there += (there.empty() ? "COM " : ", COM ") + std::to_string(number);
    return "COM " + missingCom +
           shared.Text(" gibt es nicht. Anderen wählen und überprüfen: ",
                       " is not there. Choose and check another: ") +
           there;
}

void PortTest::ShowTexts() {
    lblStatus.Caption = StatusText();
    if (isConnected)
        lblComVerbindung = {ComName() + shared.Text(" Verbindung hergestellt", " connected"), Green};
    else
        lblComVerbindung = {shared.Text("Keine COM Verbindung", "No COM Connection"), Red};
    // Before the first test the label says it in the words of its caption, with a small f.
    const char* const lost =
        isCleared ? shared.Text("Kein GPS Fix", "No GPS Fix") : shared.Text("Kein GPS fix", "No GPS fix");
    LabelStatus = noFix ? Label{lost, Red} : Label{"GPS Fix", Green};
    lblSatellites = SatellitesText();
    lblHint = HintText();
    tGPS = isNoise ? shared.Text("Kein GPS Datenempfang - Baudrate überprüfen",
                                 "No data from GPS received - check baudrate")
                   : firstPiece;
}

// The text is shown, so bytes that are no text are made ones.
void PortTest::ShowFirstPiece(std::string_view piece) {
    isNoise = piece.size() > LongestSensibleLine;
    firstPiece = isNoise ? std::string() : DecodeText(piece);
}

void PortTest::TimeChanged(const std::string& /*time*/) { sentenceHeard = true; }

void PortTest::FixObtained() { noFix = false; }

void PortTest::FixLost() { noFix = true; }

void PortTest::PositionReceived(const std::string& latitude, const std::string& longitude,
                                const std::string& /*latraw*/, const std::string& /*longraw*/) {
    lblLat = noFix ? "---" : latitude;
    lblLong = noFix ? "---" : longitude;
}

void PortTest::SatellitesUsedReceived(std::int16_t satellitesUsed) {
    Label7 = std::to_string(satellitesUsed);
}

void PortTest::SatellitesInViewReceived(std::int16_t satellitesInView) {
    sentenceHeard = true;
    usedAndInView = noFix ? std::string() : Label7 + " / " + std::to_string(satellitesInView);
}

} // namespace ornivane
