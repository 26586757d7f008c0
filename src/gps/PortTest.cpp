#include "gps/PortTest.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Strings.h"

namespace ornivane {

namespace {

constexpr int CheckInterval = 1000; // ms
constexpr int CheckSeconds = 2;
// A line longer than this is noise: the sign of a wrong baud rate.
constexpr std::size_t LongestSensibleLine = 200;

} // namespace

PortTest::PortTest(SerialPort& serialPort, Timer& timer, const PortList& portList, Dialogs& messages,
                   const Clock& clock, const Settings& programSettings, const Language& uiLanguage,
                   std::function<void()> stateChanged)
    : port(serialPort, programSettings, uiLanguage), timerCheck(timer), ports(portList), dialogs(messages),
      settings(programSettings), language(uiLanguage), changed(std::move(stateChanged)), gps(*this),
      sentences(gps, clock, uiLanguage) {
    port.OnEvent([this](SerialEvent event) { MSComm1_OnComm(event); });
    timerCheck.OnTimer([this] { timerCheck_Timer(); });
    sentences.OnPiece = [this](std::string_view piece) { sent.HandleInput(piece); };
    sent.OnFirstPiece = [this](std::string_view line) { ShowFirstLine(line); };
}

void PortTest::Form_Activate() {
    cmbCom.clear();
    for (int number = 1; number <= MostPorts; ++number)
        if (ports.Exists(number)) cmbCom.push_back(number);
    const auto saved = ReadComSettings(settings.ProgramFolder);
    OfferBaudRates(saved);
    SelectedCom = cmbCom.empty() ? 0 : cmbCom.front();
    missingCom.clear();
    if (cmbCom.empty()) { // the other settings can be used without a port
        dialogs.MessageBeside(language.Text("Es wurde kein COM Port gefunden", "No COM was found"),
                              NoPortText());
    } else if (saved) {
        const double number = NumberIn(saved->Port);
        const auto offered = std::find(cmbCom.begin(), cmbCom.end(), number);
        if (offered != cmbCom.end())
            SelectedCom = *offered;
        else
            missingCom = saved->Port;
    }
    changed();
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
    return language.Text("Keine COM Anschlüsse vorhanden", "No COM Port available");
}

void PortTest::Form_Deactivate() {
    timerCheck.SetInterval(0);
    port.Close();
    CheckCount = 0;
    if (stage == Stage::Checking) stage = Stage::Untested;
    ClearTestDisplays(); // the line is closed: a green lamp would stand for nothing
    isCleared = false;   // no test ran when the screen comes back
    changed();
}

void PortTest::cmdCheck_Click() {
    if (SelectedCom == 0) return;
    port.Close();
    port.ComPort = static_cast<std::int16_t>(SelectedCom);
    port.LineSettings = BaudRates.at(cmbBaud) + ",n,8,1";
    stage = Stage::Checking;
    missingCom.clear();
    ClearTestDisplays();
    CheckCount = CheckSeconds;
    // Data of an earlier test would save a port that is dead.
    dataSeen = sentenceHeard = false;
    timerCheck.SetInterval(CheckInterval);
    changed();
    OpenChosen();
    changed();
}

void PortTest::OpenChosen() {
    if (port.Open()) {
        sentences.Reset(); // or the lines of an earlier test would pass for this one's
        sent.Reset();
    } else {
        stage = Stage::NotOpened;
    }
}

void PortTest::ClearTestDisplays() {
    input = {};
    isCleared = true;
    lblLat = lblLong = NoValue;
}

void PortTest::timerCheck_Timer() {
    if (CheckCount > 0) --CheckCount;
    if (CheckCount != 0) return;
    timerCheck.SetInterval(0);
    if (!dataSeen) {
        // It stays open: what comes later is shown, but saved only by another test.
        port.Close();
        stage = Stage::NoSignal;
        ClearTestDisplays();
        OpenChosen();
    } else {
        input.HasCome = true;
        stage = Stage::Untested; // should the file not be written
        changed();
        WriteComSettings(settings.ProgramFolder, {std::to_string(port.ComPort), BaudRates.at(cmbBaud)});
        stage = Stage::Saved;
    }
    changed();
}

void PortTest::MSComm1_OnComm(SerialEvent event) {
    if (event == SerialEvent::Break) dialogs.Message(MessageTitle, "Break");
    if (event == SerialEvent::Receive) {
        const std::string receivedText = port.ReadAll();
        if (receivedText.empty()) return;
        input.HasCome = true;
        sentences.HandleInput(receivedText);
        dataSeen = true;
    } else {
        // A port that went away in the middle of its test has not passed it.
        if (event == SerialEvent::Other) dataSeen = false;
        if (input.HasCome) ClearTestDisplays();
    }
    changed();
}

std::string PortTest::lblStatus() const {
    if (stage == Stage::Checking)
        return language.Text("%1 wird überprüft", "%1 - testing connection ", {port.Name()});
    if (stage == Stage::NoSignal) return language.Text("Kein Signal an %1", "No Signal - %1", {port.Name()});
    if (stage == Stage::Saved) return language.Text("OK - Daten gespeichert", "OK - Data saved");
    return stage == Stage::NotOpened ? port.OpenFailure() : std::string();
}

std::string PortTest::lblSatellites() const {
    const std::string count = isCleared && input.UsedAndInView.empty() ? "-/-" : input.UsedAndInView;
    return language.Text("Anzahl Satelliten = ", "Number of satellites = ") + count;
}

std::string PortTest::lblHint() const {
    if (stage == Stage::Saved && input.HasCome && !sentenceHeard)
        return language.Text("Es kommen Daten, aber keine Sätze eines GPS: Baudrate und Anschluss prüfen",
                             "Data come in, but no sentences of a GPS: check baud rate and port");
    if (cmbCom.empty()) return NoPortText();
    if (missingCom.empty()) return {};
    std::string there;
    for (const int number : cmbCom) there += (there.empty() ? "COM " : ", COM ") + std::to_string(number);
    return language.Text("COM %1 gibt es nicht. Anderen wählen und überprüfen: %2",
                         "COM %1 is not there. Choose and check another: %2", {missingCom, there});
}

PortTest::Label PortTest::lblComVerbindung() const {
    if (!input.HasCome) return {language.Text("Keine COM Verbindung", "No COM Connection"), Red};
    return {language.Text("%1 Verbindung hergestellt", "%1 connected", {port.Name()}), Green};
}

PortTest::Label PortTest::LabelStatus() const {
    if (input.HasFix) return {"GPS Fix", Green};
    // Before the first test the label says it in the words of its caption, with a small f.
    if (!isCleared) return {language.Text("Kein GPS fix", "No GPS fix"), Red};
    return {language.Text("Kein GPS Fix", "No GPS Fix"), Red};
}

std::string PortTest::tGPS() const {
    if (!input.IsNoise) return input.FirstLine;
    return language.Text("Kein GPS Datenempfang - Baudrate überprüfen",
                         "No data from GPS received - check baudrate");
}

// The line is shown, so bytes that are no text are made ones.
void PortTest::ShowFirstLine(std::string_view line) {
    input.IsNoise = line.size() > LongestSensibleLine;
    input.FirstLine = input.IsNoise ? std::string() : DecodeText(line);
}

void PortTest::PositionReceived(const PositionTexts& position) {
    lblLat = input.HasFix ? position.Latitude : NoValue;
    lblLong = input.HasFix ? position.Longitude : NoValue;
}

void PortTest::SatellitesInViewReceived(std::int16_t satellitesInView) {
    sentenceHeard = true;
    input.UsedAndInView = input.HasFix ? Label7 + " / " + std::to_string(satellitesInView) : std::string();
}

} // namespace ornivane
