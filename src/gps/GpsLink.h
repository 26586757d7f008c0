#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "common/Variablen.h"
#include "gps/HeardSentences.h"
#include "gps/SentenceFraming.h"
#include "gps/TalkerTwins.h"
#include "gps/WholeLines.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/SerialPort.h"
#include "platform/Timer.h"

namespace ornivane {

// What the link asks of the screen that owns it.
class LinkOwner {
public:
    virtual ~LinkOwner() = default;
    // The running link has lost its data: there is no fix any more, and nothing to show.
    virtual void DataLost() = 0;
    // The port is open, and nothing comes.
    virtual void NoSignal() = 0;
    virtual void RefreshRouteList() = 0;
    virtual void FocusMap() = 0;
    // The members of the link may have changed: show them.
    virtual void StateChanged() = 0;
};

// The serial link of the flying screen: opens the port, passes what it receives to the interpreter, and
// watches over it. Its state is the controls over cmdGPS:
//   picGPSCheck 0 the link is being checked, or the receiver has no fix
//               1 the receiver has a fix
//               2 data stopped on a running link
// None showing means that cmdGPS under them can be clicked.
//
// A gap in the data starts nothing: receivers pause. Only an event of the line itself (a hang-up, a break)
// puts a running link into the data-lost watch, which reopens the port every five seconds until data returns.
// A port that the line has closed at any other time while the link is wanted is reopened at the same rhythm,
// without a word.
class GpsLink {
public:
    struct Indicator {
        bool Visible = false;
        std::string ToolTip;
        bool operator==(const Indicator&) const = default;
    };
    struct StatusLine {
        bool Visible = false;
        std::string Caption;
        bool operator==(const StatusLine&) const = default;
    };

    // Takes over the callbacks of port and timer, which must outlive the link.
    GpsLink(SerialPort& port, Timer& timer, Dialogs& dialogs, const Clock& clock, const Variablen& shared,
            LinkOwner& owner);
    GpsLink(const GpsLink&) = delete;
    GpsLink& operator=(const GpsLink&) = delete;

    // Must have been called before the first event. The interpreter must outlive the link.
    void SetInterpreter(NmeaInterpreter& gps);

    // The screen comes forward: takes the saved port, and brings back a link that was on when it left.
    void Form_Activate();
    // The screen leaves: closes the port and stops the watch; what the link was doing is remembered.
    void Form_Deactivate();
    void cmdGPS_Click();
    void picGPSCheck_Click(int index);
    void timerCheck_Timer();
    // What the receiver says of its fix: the lamp of a fix or of none.
    void ShowFix(bool has);
    // "Sat: 7/11" for a fix; without one (no count in view) the tooltips of all lamps say so.
    void ShowSatellites(const std::string& used, std::optional<int> inView);
    void MSComm1_OnComm(SerialEvent event);

    // data.crm into ComPort and the line settings. One that cannot be read is replaced by port 1 and 4800;
    // the line settings stay as they were then.
    void LoadSavedCom();

    std::array<Indicator, 3> picGPSCheck;
    StatusLine lblStatus;
    bool Hourglass = false; // the mouse pointer
    std::int16_t ComPort = 1;
    std::int16_t CheckCount = 0; // seconds left in the check; DataLostWatch in the data-lost watch
    bool DataSeen = false;       // a receive event has come; cleared only on entering the data-lost watch
    std::string Settings = "4800,n,8,1";

    static constexpr std::int16_t DataLostWatch = -99;

    // The talkers heard on this connection, the sentences of the last minute and those that could not be
    // read, in the language in use; a line each. Empty before a sentence has come.
    std::string LinkToolTip() const;

    unsigned long long FailedSentences() const { return framing ? framing->FailedSentences() : 0; }

private:
    bool ReceiveWaiting();
    void EnterDataLost();
    void WatchTick();
    void CheckTick();
    void ReopenTick();
    // Closes and opens the port; where that fails lblStatus says why and the result is false.
    bool Reopen();
    bool OpenSilently();
    void OpenPort();
    void ShowNoSignal();
    void EndCheck();
    void ReopenIfWanted();
    void StopTimer();
    bool AnIndicatorShows() const;

    SerialPort& port;
    Timer& timerCheck;
    Dialogs& dialogs;
    const Variablen& shared;
    LinkOwner& owner;
    const Clock& clock;
    WholeLines lines;
    TalkerTwins twins;
    HeardSentences heard;
    std::optional<SentenceFraming> framing;
    bool wanted = false;    // the user has connected and not disconnected
    bool reopening = false; // the timer ticks only to open a port that the line has closed
};

} // namespace ornivane
