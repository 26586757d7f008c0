#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "base/Language.h"
#include "gps/LinkStates.h"
#include "gps/SentenceSink.h"
#include "platform/ByteSource.h"
#include "platform/Dialogs.h"
#include "platform/Timer.h"

namespace ornivane {

// The link of the flying screen: opens the source of bytes, passes what it receives to the sink, and watches
// over it as the table of LinkStates.cpp says.
//
// A gap in the data starts nothing: receivers pause. Only an event of the line itself (a hang-up, a break)
// puts a running link into the state DataLost. A source that the line has closed at any other time while the
// link is wanted is opened anew at the same rhythm, without a word.
class GpsLink {
public:
    // What the screen shows of the link.
    struct Signs {
        std::optional<std::size_t> picGPSCheck; // which of the three lamps lies over cmdGPS
        std::array<std::string, 3> ToolTips;    // of the lamps
        std::string lblStatus;                  // the line over the map; empty when it is hidden
        bool Hourglass = false;                 // the mouse pointer
        bool operator==(const Signs&) const = default;
    };

    // Takes over the callbacks of source and timer. All must outlive the link. `flyingScreen` does what the
    // link asks of its screen.
    GpsLink(ByteSource& byteSource, SentenceSink& sentenceSink, Timer& timer, Dialogs& messages,
            const Language& uiLanguage, std::function<void(LinkAction)> flyingScreen);
    GpsLink(const GpsLink&) = delete;
    GpsLink& operator=(const GpsLink&) = delete;

    // The screen comes forward: takes the saved source, and brings back a link that was on when it left.
    void Form_Activate();
    // The screen leaves: closes the source; what the link was doing is remembered.
    void Form_Deactivate() { Happen(LinkEvent::Leave); }
    void cmdGPS_Click();
    // Also ends a link whose source the line has closed: the user must be able to stop the watch.
    void picGPSCheck_Click(int /*index*/) { Happen(LinkEvent::Disconnect); }
    void timerCheck_Timer();
    void MSComm1_OnComm(SerialEvent event);
    // What the receiver says of its fix.
    void ShowFix(bool has) { Happen(has ? LinkEvent::Fix : LinkEvent::NoFix); }
    // "Sat: 7/11" for a fix; without one (no count in view) the tooltips of all lamps say so.
    void ShowSatellites(const std::string& used, std::optional<int> inView);

    Signs Shown() const {
        return {situation.Lamp(), toolTips, lblStatus, situation.State == LinkState::Checking};
    }
    bool HasFix() const { return situation.HasFix(); }
    LinkState State() const { return situation.State; }
    // What was heard on this connection, a line each; empty before anything came.
    std::string LinkToolTip() const { return sink.ToolTip(); }

private:
    void Happen(LinkEvent event);
    void Do(LinkAction action);
    bool Open();
    void ShowStatus(LinkStatus status);
    int Interval() const;
    void KeepTimer();

    ByteSource& source;
    SentenceSink& sink;
    Timer& timerCheck;
    Dialogs& dialogs;
    const Language& language;
    std::function<void(LinkAction)> screen;
    LinkSituation situation;
    int CheckCount = 0; // seconds left in the check
    std::string lblStatus;
    std::array<std::string, 3> toolTips;
};

} // namespace ornivane
