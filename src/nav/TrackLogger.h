#pragma once

#include <optional>
#include <string>

#include "base/Language.h"
#include "base/RuntimeError.h"
#include "common/Settings.h"
#include "data/Tracks.h"
#include "nav/FlightState.h"
#include "platform/Clock.h"
#include "platform/Timer.h"
#include "store/Connection.h"

namespace ornivane {

// What the logger shows, to be compared with what was shown last. Three pictures have one place: cmdRecord
// (by hand, stopped), cmdRecordAuto (waits for 30 knots), picRecord (running, with the samples counted in
// lblRecord).
struct TrackLoggerShown {
    bool cmdRecord = false, cmdRecordAuto = false, picRecord = false;
    std::string lblRecord = "0";
    int lblRecordFont = 14;   // points, and
    int lblRecordWidth = 100; // percent of its first width: the number must fit in its picture
    bool operator==(const TrackLoggerShown&) const = default;
};

// Writes the position into track.ovd at a fixed interval, one recording from each start to its stop. Every
// sample is a transaction of its own, so that a pulled plug costs at most the one that is being written.
// Running means that the timer's interval is above 0.
class TrackLogger : public TrackLoggerShown {
public:
    static constexpr double StartKnots = 30; // above it an automatic recording starts, below it stops

    // Of the timer only the interval is set: its owner passes its ticks on. All of it outlives the logger.
    TrackLogger(const Language& languageOfNames, Connection& trackStore, Settings& programSettings,
                const FlightState& flightState, Timer& timer, const Clock& systemClock);
    TrackLogger(const TrackLogger&) = delete;
    TrackLogger& operator=(const TrackLogger&) = delete;

    bool IsRunning() const { return timeTrack.Interval() > 0; }

    // Sets the buttons up; a recording that ran when the screen was left goes on.
    void Form_Activate();
    void Form_Deactivate();
    // Starts or stops. Nothing without a fix, nor while an automatic recording runs. RuntimeError when the
    // recording cannot be stored; the logger stays stopped then.
    void ToggleTrackLog(bool hasFix);
    void cmdRecord_Click(bool hasFix);
    // Stopping by hand also ends the automatic mode. Without a fix nothing stops at once: the next interval
    // ends the recording, unless there is a fix again.
    void lblRecord_Click(bool hasFix);
    void SaveSettings() const;
    // Takes a sample, or ends the recording without a fix. The result of this and of SpeedReceived is why it
    // could not be stored, once until storing works again.
    std::optional<RuntimeError> timeTrack_Timer(bool hasFix);
    // The automatic start and stop. Knots, whatever unit is displayed.
    std::optional<RuntimeError> SpeedReceived(double knots, bool hasFix);

    long TrackIndex = 0; // of the recording; 0 before the first one
    long TrackSampleCount = 0;

private:
    void Start();
    void Stop();
    void ShowStopped();
    void ShowRunning();
    void FitCount();
    void AddSample();
    std::string RecordingName() const;
    int Interval() const;

    bool CanRecord() const { return settings.TrackEnabled && trackConn.IsOpen(); }
    std::optional<RuntimeError> ToTell(const std::optional<RuntimeError>& failure);

    const Language& language;
    Connection& trackConn;
    Settings& settings;
    const FlightState& state;
    Timer& timeTrack;
    const Clock& clock;
    Tracks tracks;
    bool failing = false; // the last write was refused
};

} // namespace ornivane
