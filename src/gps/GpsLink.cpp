#include "gps/GpsLink.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "gps/LinkTexts.h"

namespace ornivane {

namespace {

constexpr int CheckInterval = 1000; // ms
constexpr int WatchInterval = 5000; // ms
constexpr std::int16_t CheckSeconds = 2;

} // namespace

GpsLink::GpsLink(SerialPort& serialPort, Timer& timer, Dialogs& messages, const Clock& systemClock,
                 const Variablen& variables, LinkOwner& linkOwner)
    : port(serialPort), timerCheck(timer), dialogs(messages), shared(variables), owner(linkOwner),
      clock(systemClock), heard(systemClock) {
    twins.OnSentence = [this](std::string_view talker, bool isRight) { heard.Add(talker, isRight); };
    port.OnEvent([this](SerialEvent event) { MSComm1_OnComm(event); });
    timerCheck.OnTimer([this] { timerCheck_Timer(); });
}

void GpsLink::SetInterpreter(NmeaInterpreter& gps) { framing.emplace(gps); }

bool GpsLink::AnIndicatorShows() const {
    return std::any_of(picGPSCheck.begin(), picGPSCheck.end(),
                       [](const Indicator& picture) { return picture.Visible; });
}

void GpsLink::LoadSavedCom() {
    if (const auto saved = ReadComSettings(shared.ProgramFolder)) {
        ComPort = ToInt16(NumberIn(saved->Port));
        Settings = saved->Baud + ",n,8,1";
        return;
    }
    ComPort = 1;
    try {
        WriteComSettings(shared.ProgramFolder, ComSettings());
    } catch (const RuntimeError&) {
        // In a folder that cannot be written the same values simply come back at the next start; the screen
        // must come forward all the same.
    }
}

void GpsLink::Form_Activate() {
    LoadSavedCom();
    if (!AnIndicatorShows() || port.IsOpen()) return;
    const bool open = OpenSilently();
    // What was under way when the screen was left goes on: without its timer a check would never end and a
    // lost link would never come back.
    if (CheckCount > 0) {
        Hourglass = true;
        timerCheck.SetInterval(CheckInterval);
    } else if (picGPSCheck[2].Visible) {
        CheckCount = DataLostWatch;
        DataSeen = false;
        timerCheck.SetInterval(WatchInterval);
    } else if (!open) {
        // The device went away meanwhile: nothing will tell of it any more, so it counts as lost now.
        EnterDataLost();
    }
    owner.StateChanged();
}

void GpsLink::Form_Deactivate() {
    StopTimer();
    // A link without an indicator does not survive the visit to another screen.
    wanted = wanted && AnIndicatorShows();
    port.Close();
    Hourglass = false;
    // What it said of the port is over; a check under way goes on when the screen comes back.
    if (CheckCount <= 0) lblStatus.Visible = false;
    owner.StateChanged();
}

void GpsLink::cmdGPS_Click() {
    port.Close();
    wanted = true;
    reopening = false;
    picGPSCheck[0].Visible = true;
    picGPSCheck[1].Visible = picGPSCheck[2].Visible = false;
    const std::string number = std::to_string(ComPort);
    lblStatus = {true,
                 shared.EnglishUI == 1 ? "Checking COM " + number : "COM " + number + " wird überprüft"};
    CheckCount = CheckSeconds;
    Hourglass = true;
    timerCheck.SetInterval(CheckInterval);
    owner.StateChanged();
    // The check tells of a failure.
    OpenSilently();
    owner.FocusMap();
    owner.StateChanged();
}

// Also ends a link whose port the line has closed: the port of a pulled plug is not open, and the user must
// be able to stop the watch.
void GpsLink::picGPSCheck_Click(int /*index*/) {
    port.Close();
    wanted = false;
    StopTimer();
    CheckCount = 0;
    lblStatus.Visible = false;
    Hourglass = false;
    for (Indicator& picture : picGPSCheck) picture.Visible = false;
    owner.RefreshRouteList();
    owner.StateChanged();
}

void GpsLink::StopTimer() {
    timerCheck.SetInterval(0);
    reopening = false;
}

void GpsLink::MSComm1_OnComm(SerialEvent event) {
    if (event == SerialEvent::Break) dialogs.Message(MessageTitle, "Break");
    if (event == SerialEvent::Receive && !ReceiveWaiting()) return;
    if (picGPSCheck[0].Visible || picGPSCheck[1].Visible) {
        lblStatus.Visible = false;
        if (event != SerialEvent::Receive) EnterDataLost();
    }
    ReopenIfWanted();
    owner.StateChanged();
}

// False when nothing waits: an earlier event has taken it.
bool GpsLink::ReceiveWaiting() {
    const std::string receivedText = port.ReadAll();
    if (receivedText.empty()) return false;
    for (const WholeLines::Piece& piece : lines.Take(receivedText))
        // All else says nothing to the interpreter.
        if (piece.IsSentences) framing->HandleInput(twins.Turn(piece.Bytes, clock.Ticks()));
    DataSeen = true;
    return true;
}

void GpsLink::ShowFix(bool has) {
    for (std::size_t i = 0; i < picGPSCheck.size(); ++i) picGPSCheck[i].Visible = i == (has ? 1U : 0U);
}

void GpsLink::ShowSatellites(const std::string& used, std::optional<int> inView) {
    if (inView)
        picGPSCheck[1].ToolTip = "Sat: " + used + "/" + std::to_string(*inView);
    else
        for (Indicator& lamp : picGPSCheck) lamp.ToolTip = "Sat: -/-";
}

void GpsLink::EnterDataLost() {
    picGPSCheck[0].Visible = picGPSCheck[1].Visible = false;
    picGPSCheck[2].Visible = true;
    Hourglass = false;
    reopening = false;
    timerCheck.SetInterval(WatchInterval);
    CheckCount = DataLostWatch;
    DataSeen = false;
    owner.DataLost();
}

void GpsLink::timerCheck_Timer() {
    if (reopening) {
        ReopenTick();
    } else {
        if (CheckCount > 0) --CheckCount;
        if (CheckCount == DataLostWatch)
            WatchTick();
        else if (CheckCount == 0)
            CheckTick();
    }
    ReopenIfWanted();
    owner.StateChanged();
}

void GpsLink::WatchTick() {
    if (DataSeen) {
        StopTimer();
        lblStatus.Visible = false;
        Hourglass = false;
        return;
    }
    if (Reopen()) {
        owner.NoSignal();
        ShowNoSignal();
    }
    EndCheck();
}

void GpsLink::CheckTick() {
    StopTimer();
    if (DataSeen) {
        // Passed by data of an earlier connection as well, whatever the port does now.
        lblStatus.Visible = false;
        Hourglass = false;
        return;
    }
    // It stays open and listens, so that data which comes later starts the displays without a further click.
    // A port that does not open waits for the next click.
    if (Reopen())
        ShowNoSignal();
    else
        wanted = false;
    EndCheck();
}

void GpsLink::EndCheck() {
    picGPSCheck[0].Visible = picGPSCheck[1].Visible = false;
    Hourglass = false;
    owner.RefreshRouteList();
}

void GpsLink::ShowNoSignal() {
    lblStatus = {true, shared.Text("Kein Signal an COM ", "No Signal an COM ") + std::to_string(ComPort)};
}

bool GpsLink::Reopen() {
    port.Close();
    try {
        OpenPort();
        return true;
    } catch (const RuntimeError& error) {
        lblStatus = {true, OpenFailureText(error, std::to_string(ComPort), shared)};
        return false;
    }
}

bool GpsLink::OpenSilently() {
    try {
        OpenPort();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

// Another receiver may be behind the port now, and what the last one left unfinished never gets its end.
void GpsLink::OpenPort() {
    port.SetSettings(Settings);
    port.Open(ComPort);
    lines.Reset();
    framing->Reset();
    twins.Reset();
    heard.Forget();
}

std::string GpsLink::LinkToolTip() const { return HeardText(heard, FailedSentences(), shared); }

// A port that the line closed outside the data-lost watch (while listening after "No signal", or behind a
// check that passed at once) would stay closed for ever.
void GpsLink::ReopenIfWanted() {
    if (!wanted || port.IsOpen() || timerCheck.Interval() != 0) return;
    reopening = true;
    timerCheck.SetInterval(WatchInterval);
}

void GpsLink::ReopenTick() {
    if (port.IsOpen() || OpenSilently()) StopTimer();
}

} // namespace ornivane
