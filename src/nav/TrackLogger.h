#pragma once

#include <string>

#include "base/RuntimeError.h"
#include "common/Variablen.h"
#include "nav/FlightState.h"
#include "platform/Clock.h"
#include "platform/Timer.h"
#include "store/Recordset.h"

namespace ornivane {

// What the logger asks of the flying screen.
class TrackLoggerOwner {
public:
    virtual ~TrackLoggerOwner() = default;
    virtual bool HasFix() const = 0; // picGPSCheck(1) is showing
    virtual void FocusMap() = 0;
    // A sample or a new recording could not be stored. Told once until storing works again.
    virtual void LoggingFailed(const RuntimeError& error) = 0;
    virtual void LoggerChanged() = 0; // the members may have changed: show them
};

// Writes the position into track.ovd at a fixed interval, one recording from each start to its stop. Every
// sample is a transaction of its own, so that a pulled plug costs at most the one that is being written.
//
// Running means that the timer's interval is above 0. Three pictures lie on one place: cmdRecord (by hand,
// stopped), cmdRecordAuto (waits for 30 knots), picRecord (running, with the count of samples in lblRecord).
class TrackLogger {
public:
    static constexpr double StartKnots = 30; // above it an automatic recording starts, below it stops

    // Takes over the callback of the timer, which must outlive the logger.
    TrackLogger(Variablen& variablen, const FlightState& state, Timer& timer, const Clock& clock,
                TrackLoggerOwner& owner);
    TrackLogger(const TrackLogger&) = delete;
    TrackLogger& operator=(const TrackLogger&) = delete;

    bool IsRunning() const { return timeTrack.Interval() > 0; }

    // Sets the buttons up; a recording that ran when the screen was left goes on.
    void Form_Activate();
    void Form_Deactivate();
    // Starts or stops. Nothing without a fix, nor while an automatic recording runs. RuntimeError when the
    // recording cannot be stored; the logger stays stopped then.
    void ToggleTrackLog();
    void cmdRecord_Click();
    // Stopping by hand also ends the automatic mode. Without a fix nothing stops at once: the next interval
    // ends the recording, unless there is a fix again.
    void lblRecord_Click();
    void picRecord_Click() { lblRecord_Click(); }
    void timeTrack_Timer();
    // The automatic start and stop. Knots, whatever unit is displayed.
    void SpeedReceived(double knots);

    bool cmdRecord = false, cmdRecordAuto = false, picRecord = false;
    std::string lblRecord = "0";
    int lblRecordFont = 14;   // points, and
    int lblRecordWidth = 100; // percent of its first width: the number must fit in its picture
    long TrackIndex = 0;
    long TrackSampleCount = 0;

private:
    void Start();
    void Stop();
    bool RecordingExists() const;
    void ShowStopped();
    void ShowRunning();
    void FitCount();
    void AddSample();
    std::string RecordingName() const;
    int Interval() const;

    Variablen& shared;
    const FlightState& state;
    Timer& timeTrack;
    const Clock& clock;
    TrackLoggerOwner& owner;
    Recordset TrackRecordset; // the samples of this recording
    bool failing = false;     // the last write was refused
};

} // namespace ornivane
