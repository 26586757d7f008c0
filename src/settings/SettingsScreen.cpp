#include "settings/SettingsScreen.h"

#include <algorithm>

#include "base/Numbers.h"
#include "common/Qnh.h"
#include "common/SettingsFiles.h"

namespace ornivane {

namespace {

constexpr double LongestInterval = 60; // s

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

// "21.03.2024" in German, "2024-03-21" in English.
std::string ShownDate(const std::optional<Date>& date, const Language& language) {
    if (!date) return "---";
    return language.Text(
        "%1.%2.%3", "%4",
        {TwoDigits(date->Day), TwoDigits(date->Month), std::to_string(date->Year), DateText(*date)});
}

// Whole seconds, 60 at most. What is no number or below one second is the first of the list.
int IntervalIn(const std::string& text) {
    const auto typed = ParseNumber(text);
    const double seconds = typed ? Round(std::min(*typed, LongestInterval)) : 0;
    return seconds >= 1 ? static_cast<int>(seconds) : std::stoi(SettingsScreen::Intervals.front());
}

} // namespace

SettingsScreen::SettingsScreen(const SettingsWorld& settingsWorld, Notice& notices, Form settingsForm)
    : Port(settingsWorld.MSComm1, settingsWorld.timerCheck, settingsWorld.Ports, settingsWorld.Messages,
           settingsWorld.SystemClock, settingsWorld.Shared, settingsWorld.Shared, settingsForm.ShowState),
      LastDeed(notices, settingsWorld.Shared, settingsForm.ShowState),
      CategoryList(settingsWorld.Shared, settingsWorld.Shared.DataConn, settingsWorld.Messages, LastDeed),
      world(settingsWorld), form(std::move(settingsForm)) {}

void SettingsScreen::Form_Activate() {
    Variablen& shared = world.Shared;
    Frame4 = shared.TrackConn.IsOpen();
    frmLuftraumShows = shared.LuftraumConn.IsOpen();
    // A QNH of today is shown, or a mere look at this screen would end it.
    if (shared.QNHDate == DateOf(world.SystemClock.Now())) shared.tQNH = QnhText(shared);
    if (Frame4) ReadTrack();
    ApplyLanguage();
    Port.Form_Activate();
    CategoryList.Form_Activate(); // last: a store that fails leaves the port test
}

void SettingsScreen::ReadTrack() {
    TrackSettings track;
    if (ReadTrackSettings(world.Shared.ProgramFolder, track) || track.Seconds > 0)
        cmbTrack = std::to_string(track.Seconds);
    chkTrack = TrackEnabledControls = track.On;
    chkAutoOn = track.Automatic;
}

void SettingsScreen::ApplyLanguage() {
    frmLuftraum = world.Shared.Text("Luftraumdaten - Stand: ", "Airspace data - as of: ") +
                  ShownDate(world.Shared.LuftraumDate, world.Shared);
    LastDeed.ApplyLanguage();
}

// Captions first: they must fit the language even when the file cannot be written.
void SettingsScreen::ChooseLanguage(std::int16_t language) {
    world.Shared.Choose(language);
    form.ShowLanguage();
    WriteLanguage(world.Shared.ProgramFolder, language);
}

void SettingsScreen::Option_Click(std::int16_t symbol) {
    world.Shared.SymbolType = symbol;
    WriteSymbol(world.Shared.ProgramFolder, symbol);
}

void SettingsScreen::chkTrack_Click(bool ticked) {
    chkTrack = TrackEnabledControls = world.Shared.TrackEnabled = ticked;
}

bool SettingsScreen::cmdGetWaypoint_Click() {
    if (world.Shared.AirfieldStoreOpen) return true;
    world.Messages.Message(
        MessageTitle, "Datei ovdata.ovd wurde nicht im Verzeichnis: " + world.Shared.ProgramFolder.string() +
                          " gefunden. Bitte Datei aus Ornivane APT in das Ornivane GPS "
                          "Verzeichnis kopieren.");
    return false;
}

void SettingsScreen::Form_Deactivate() {
    LastDeed.Withdraw();
    EnterQnh(world.Shared, world.Shared.tQNH, DateOf(world.SystemClock.Now()));
    if (Frame4) TakeTrack();
    Port.Form_Deactivate();
    SaveAll();
}

void SettingsScreen::TakeTrack() {
    const int seconds = IntervalIn(cmbTrack);
    cmbTrack = std::to_string(seconds);
    world.Shared.TrackEnabled = chkTrack;
    world.Shared.TrackInterval = seconds * 1000;
    world.Shared.TrackAuto = chkTrack && chkAutoOn;
}

void SettingsScreen::SaveAll() {
    const Variablen& shared = world.Shared;
    // The other file may still be written.
    const auto failure = ErrorOf([&] {
        WriteQnhSettings(shared.ProgramFolder, {shared.QNH, shared.QNHDate});
    });
    if (Frame4)
        WriteTrackSettings(shared.ProgramFolder,
                           {shared.TrackEnabled, shared.TrackInterval / 1000, shared.TrackAuto});
    if (failure) throw *failure;
}

} // namespace ornivane
