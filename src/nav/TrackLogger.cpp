#include "nav/TrackLogger.h"

#include <algorithm>
#include <utility>

#include "common/Date.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr int ShortestInterval = 1000; // ms; a damaged setting must not look like a running logger

std::string TwoDigits(int number) {
    const std::string text = std::to_string(number % 100);
    return text.size() < 2 ? "0" + text : text;
}

} // namespace

TrackLogger::TrackLogger(const Language& languageOfNames, Connection& trackStore, Settings& programSettings,
                         const FlightState& flightState, Timer& timer, const Clock& systemClock)
    : language(languageOfNames), trackConn(trackStore), settings(programSettings), state(flightState),
      timeTrack(timer), clock(systemClock), tracks(trackStore) {}

int TrackLogger::Interval() const { return std::max(settings.TrackInterval, ShortestInterval); }

void TrackLogger::ShowStopped() {
    cmdRecord = !settings.TrackAuto;
    cmdRecordAuto = settings.TrackAuto;
    picRecord = false;
}

void TrackLogger::ShowRunning() {
    cmdRecord = cmdRecordAuto = false;
    picRecord = true;
}

void TrackLogger::Stop() {
    timeTrack.SetInterval(0);
    ShowStopped();
}

void TrackLogger::Form_Activate() {
    timeTrack.SetInterval(0);
    if (!CanRecord()) {
        cmdRecord = cmdRecordAuto = picRecord = false;
        return;
    }
    ShowStopped();
    if (settings.TrackAuto || !settings.TrackWasRunning || TrackIndex == 0) return;
    if (!tracks.Exists(TrackIndex)) return; // deleted meanwhile: its samples would belong to no track
    ShowRunning();
    timeTrack.SetInterval(Interval());
}

void TrackLogger::Form_Deactivate() {
    settings.TrackWasRunning = IsRunning();
    timeTrack.SetInterval(0);
}

void TrackLogger::ToggleTrackLog(bool hasFix) {
    if (!hasFix || (settings.TrackAuto && IsRunning())) return;
    if (IsRunning())
        Stop();
    else
        Start();
}

std::string TrackLogger::RecordingName() const {
    const LocalTime now = clock.Now();
    return TwoDigits(now.Day) + language.Locale.ShortMonths[static_cast<std::size_t>(now.Month - 1)] +
           TwoDigits(now.Year) + " - " + ShortTime(now.Hour, now.Minute);
}

void TrackLogger::Start() {
    RestoreOnError([this] { TrackIndex = static_cast<long>(tracks.Add(RecordingName())); },
                   [this] { ShowStopped(); });
    TrackSampleCount = 0;
    FitCount();
    failing = false;
    timeTrack.SetInterval(Interval());
}

void TrackLogger::cmdRecord_Click(bool hasFix) {
    if (!hasFix) return;
    if (cmdRecord) {
        ShowRunning();
        lblRecord = "0";
    } else {
        cmdRecord = true;
        cmdRecordAuto = picRecord = false;
    }
    ToggleTrackLog(hasFix);
}

void TrackLogger::lblRecord_Click(bool hasFix) {
    settings.TrackAuto = false;
    ToggleTrackLog(hasFix);
}

void TrackLogger::SaveSettings() const {
    WriteTrackSettings(settings.ProgramFolder, {true, settings.TrackInterval / 1000, false});
}

std::optional<RuntimeError> TrackLogger::ToTell(const std::optional<RuntimeError>& failure) {
    return failure && !std::exchange(failing, true) ? failure : std::nullopt;
}

std::optional<RuntimeError> TrackLogger::SpeedReceived(double knots, bool hasFix) {
    std::optional<RuntimeError> failure;
    if (!settings.TrackAuto || !CanRecord()) return failure;
    if (knots > StartKnots && !IsRunning()) {
        lblRecord = "0";
        ShowRunning();
        // The receiver's sentence goes on; the next speed tries again.
        failure = ToTell(ErrorOf([&] { ToggleTrackLog(hasFix); }));
        if (!IsRunning()) ShowStopped();
    } else if (knots < StartKnots && IsRunning()) {
        Stop();
    }
    return failure;
}

void TrackLogger::FitCount() {
    lblRecordFont = TrackSampleCount > 9998 ? 10 : TrackSampleCount > 998 ? 12 : 14;
    lblRecordWidth = TrackSampleCount > 9998 ? 150 : TrackSampleCount > 998 ? 130 : 100;
}

void TrackLogger::AddSample() {
    TrackPoint sample{TrackIndex, TrackSampleCount, {state.CurLat, state.CurLong}, {}, {}, {}};
    if (state.lblAlt.HasNumber()) {
        const double height = state.lblAlt.Number();
        sample.Height = state.AltInFeet ? height / FeetPerMetre : height;
    }
    sample.Date = DateText(DateOf(clock.Now()));
    sample.Time = state.LabelTime;
    tracks.AddPoint(sample);
}

std::optional<RuntimeError> TrackLogger::timeTrack_Timer(bool hasFix) {
    if (!hasFix) {
        Stop();
        return std::nullopt;
    }
    ++TrackSampleCount;
    const auto failure = ErrorOf([this] { AddSample(); });
    // A full disk: the next interval tries again, and the numbers go on without a gap.
    if (failure)
        --TrackSampleCount;
    else
        failing = false;
    if (picRecord) {
        FitCount();
        lblRecord = std::to_string(TrackSampleCount);
    }
    return ToTell(failure);
}

} // namespace ornivane
