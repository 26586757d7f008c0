#include "nav/TrackLogger.h"

#include <algorithm>

#include "base/Numbers.h"
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

TrackLogger::TrackLogger(Variablen& variablen, const FlightState& flightState, Timer& timer,
                         const Clock& systemClock, TrackLoggerOwner& loggerOwner)
    : shared(variablen), state(flightState), timeTrack(timer), clock(systemClock), owner(loggerOwner) {
    timeTrack.OnTimer([this] { timeTrack_Timer(); });
}

int TrackLogger::Interval() const { return std::max(shared.TrackInterval, ShortestInterval); }

void TrackLogger::ShowStopped() {
    cmdRecord = !shared.TrackAuto;
    cmdRecordAuto = shared.TrackAuto;
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

bool TrackLogger::RecordingExists() const {
    Recordset list;
    list.Open(shared.TrackConn, "SELECT * FROM List WHERE \"Index\" = ?",
              {static_cast<std::int64_t>(TrackIndex)});
    return list.RecordCount() > 0;
}

void TrackLogger::Form_Activate() {
    timeTrack.SetInterval(0);
    if (!shared.TrackEnabled || !shared.TrackConn.IsOpen()) {
        cmdRecord = cmdRecordAuto = picRecord = false;
        return;
    }
    ShowStopped();
    if (shared.TrackAuto || !shared.TrackWasRunning || !TrackRecordset.IsOpen()) return;
    if (!RecordingExists()) return; // deleted meanwhile: its samples would belong to no track
    ShowRunning();
    timeTrack.SetInterval(Interval());
}

void TrackLogger::Form_Deactivate() {
    shared.TrackWasRunning = IsRunning();
    timeTrack.SetInterval(0);
}

void TrackLogger::ToggleTrackLog() {
    if (!owner.HasFix() || (shared.TrackAuto && IsRunning())) return;
    if (IsRunning())
        Stop();
    else
        Start();
}

std::string TrackLogger::RecordingName() const {
    const LocalTime now = clock.Now();
    return TwoDigits(now.Day) + shared.Locale.ShortMonths[static_cast<std::size_t>(now.Month - 1)] +
           TwoDigits(now.Year) + " - " + ShortTime(now.Hour, now.Minute);
}

void TrackLogger::Start() {
    try {
        Recordset list;
        // A name that no row has: the columns without reading the table.
        list.Open(shared.TrackConn, "SELECT * FROM List WHERE NAME = ?", {std::string("****XXX****")});
        list.AddNew();
        list.Set("Name", RecordingName());
        list.Update();
        TrackIndex = static_cast<long>(list.Number("Index"));
        TrackSampleCount = 0;
        FitCount();
        TrackRecordset.Open(shared.TrackConn, "SELECT * FROM Track WHERE \"Index\" = ?",
                            {static_cast<std::int64_t>(TrackIndex)});
    } catch (const RuntimeError&) {
        ShowStopped();
        throw;
    }
    failing = false;
    timeTrack.SetInterval(Interval());
}

void TrackLogger::cmdRecord_Click() {
    if (owner.HasFix()) {
        if (cmdRecord) {
            ShowRunning();
            lblRecord = "0";
        } else {
            cmdRecord = true;
            cmdRecordAuto = picRecord = false;
        }
        ToggleTrackLog();
    }
    owner.FocusMap();
}

void TrackLogger::lblRecord_Click() {
    shared.TrackAuto = false;
    ToggleTrackLog();
    owner.FocusMap();
    // Last: a folder that cannot be written must not keep the recording from ending.
    WriteTrackSettings(shared.ProgramFolder, {true, shared.TrackInterval / 1000, false});
}

void TrackLogger::SpeedReceived(double knots) {
    if (!shared.TrackAuto || !shared.TrackEnabled || !shared.TrackConn.IsOpen()) return;
    if (knots > StartKnots && !IsRunning()) {
        lblRecord = "0";
        ShowRunning();
        try {
            ToggleTrackLog();
        } catch (const RuntimeError& error) {
            // The receiver's sentence goes on; the next speed tries again.
            if (!failing) owner.LoggingFailed(error);
            failing = true;
        }
        if (!IsRunning()) ShowStopped();
    } else if (knots < StartKnots && IsRunning()) {
        Stop();
    }
}

void TrackLogger::FitCount() {
    lblRecordFont = TrackSampleCount > 9998 ? 10 : TrackSampleCount > 998 ? 12 : 14;
    lblRecordWidth = TrackSampleCount > 9998 ? 150 : TrackSampleCount > 998 ? 130 : 100;
}

void TrackLogger::AddSample() {
    TrackRecordset.AddNew();
    TrackRecordset.Set("Index", static_cast<std::int64_t>(TrackIndex));
    TrackRecordset.Set("Number", static_cast<std::int64_t>(TrackSampleCount));
    TrackRecordset.Set("Lat", state.CurLat);
    TrackRecordset.Set("Long", state.CurLong);
    if (state.lblAlt != NoValue) {
        const double height = ShownNumber(state.lblAlt);
        TrackRecordset.Set("Height", state.AltInFeet ? height / FeetPerMetre : height); // metres
    }
    TrackRecordset.Set("Date", DateText(DateOf(clock.Now())));
    TrackRecordset.Set("Time", state.LabelTime);
    TrackRecordset.Update();
}

void TrackLogger::timeTrack_Timer() {
    if (!owner.HasFix()) {
        Stop();
        owner.LoggerChanged();
        return;
    }
    ++TrackSampleCount;
    try {
        AddSample();
        failing = false;
    } catch (const RuntimeError& error) {
        TrackRecordset.CancelUpdate();
        // A full disk: the next interval tries again, and the numbers go on without a gap.
        --TrackSampleCount;
        if (!failing) owner.LoggingFailed(error);
        failing = true;
    }
    if (picRecord) {
        FitCount();
        lblRecord = std::to_string(TrackSampleCount);
    }
    owner.LoggerChanged();
}

} // namespace ornivane
