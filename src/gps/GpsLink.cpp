#include "gps/GpsLink.h"

namespace ornivane {

namespace {

constexpr int CheckInterval = 1000; // ms
constexpr int WatchInterval = 5000; // ms
constexpr int CheckSeconds = 2;

} // namespace

GpsLink::GpsLink(ByteSource& byteSource, SentenceSink& sentenceSink, Timer& timer, Dialogs& messages,
                 const Language& uiLanguage, std::function<void(LinkAction)> flyingScreen)
    : source(byteSource), sink(sentenceSink), timerCheck(timer), dialogs(messages), language(uiLanguage),
      screen(std::move(flyingScreen)) {
    source.OnEvent([this](SerialEvent event) { MSComm1_OnComm(event); });
    timerCheck.OnTimer([this] { timerCheck_Timer(); });
}

void GpsLink::Form_Activate() {
    source.TakeSettings();
    if (!source.IsOpen()) Happen(LinkEvent::Return);
}

void GpsLink::cmdGPS_Click() {
    CheckCount = CheckSeconds;
    Happen(LinkEvent::Connect);
}

void GpsLink::timerCheck_Timer() {
    if (situation.State != LinkState::Checking || --CheckCount == 0) Happen(LinkEvent::Tick);
    KeepTimer();
    screen(LinkAction::ShowState);
}

void GpsLink::MSComm1_OnComm(SerialEvent event) {
    if (event == SerialEvent::Break) dialogs.Message(MessageTitle, "Break");
    if (event == SerialEvent::Receive) {
        const std::string receivedText = source.ReadAll();
        if (receivedText.empty()) return; // an earlier event has taken it
        sink.HandleInput(receivedText);
    }
    Happen(event == SerialEvent::Receive ? LinkEvent::Data : LinkEvent::LineFault);
    KeepTimer();
    screen(LinkAction::ShowState);
}

void GpsLink::ShowSatellites(const std::string& used, std::optional<int> inView) {
    if (inView)
        toolTips[1] = "Sat: " + used + "/" + std::to_string(*inView);
    else
        toolTips.fill("Sat: -/-");
}

void GpsLink::Happen(LinkEvent event) {
    const LinkStep step = Next(situation, event);
    situation = step.Next;
    ShowStatus(step.Status);
    for (const LinkAction action : step.Actions) Do(action);
}

void GpsLink::Do(LinkAction action) {
    switch (action) {
    case LinkAction::None:
        return;
    case LinkAction::Close:
        return source.Close();
    case LinkAction::Open:
        if (!source.IsOpen()) Open();
        return;
    case LinkAction::Reopen:
        source.Close();
        return Happen(Open() ? LinkEvent::Opened : LinkEvent::NotOpened);
    case LinkAction::StartTimer:
        return timerCheck.SetInterval(Interval());
    case LinkAction::StopTimer:
        return timerCheck.SetInterval(0);
    default:
        screen(action);
    }
}

bool GpsLink::Open() {
    const bool isOpen = source.Open();
    if (isOpen) sink.Reset();
    return isOpen;
}

void GpsLink::ShowStatus(LinkStatus status) {
    if (status == LinkStatus::Hide) lblStatus.clear();
    if (status == LinkStatus::Checking)
        lblStatus = language.Text("%1 wird überprüft", "Checking %1", {source.Name()});
    if (status == LinkStatus::NoSignal)
        lblStatus = language.Text("Kein Signal an %1", "No Signal an %1", {source.Name()});
    if (status == LinkStatus::OpenFailure) lblStatus = source.OpenFailure();
}

// In milliseconds; 0 when there is nothing to wait for.
int GpsLink::Interval() const {
    const LinkState state = situation.State;
    if (state == LinkState::Checking) return CheckInterval;
    if (state == LinkState::Off || state == LinkState::CheckPaused) return 0;
    return state == LinkState::DataLost || !source.IsOpen() ? WatchInterval : 0;
}

// A wait that goes on is not begun anew.
void GpsLink::KeepTimer() {
    if (timerCheck.Interval() != Interval()) timerCheck.SetInterval(Interval());
}

} // namespace ornivane
