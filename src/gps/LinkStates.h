#pragma once

#include <array>
#include <cstddef>
#include <optional>

namespace ornivane {

// The link of the flying screen as a state machine. A situation is what the link does and what it has heard;
// one table says what each event does in it. Lamps, hourglass and timer follow from the situation.

enum class LinkState {
    Off,         // not connected
    Checking,    // two seconds for the first data
    CheckPaused, // the same while another screen is in front
    Running,     // the check is passed, or the receiver has spoken of its fix
    Listening,   // no data came within the check: late data start the displays without a further click
    DataLost,    // the line broke off on a running link: the source is opened anew every five seconds
    DataBack     // data came after that, and no word of the fix yet
};

// Data are remembered beyond the connection: with them the next check passes, whatever the source does.
// NoFix and Fix are the receiver's last word.
enum class Reception { Nothing, Data, NoFix, Fix };

struct LinkSituation {
    LinkState State = LinkState::Off;
    Reception Heard = Reception::Nothing;
    bool operator==(const LinkSituation&) const = default;

    bool HasFix() const { return Heard == Reception::Fix; }
    // Which lamp lies over cmdGPS: 0 checking or no fix, 1 fix, 2 data lost; none when it can be clicked.
    std::optional<std::size_t> Lamp() const;
};

enum class LinkEvent {
    Connect,    // cmdGPS
    Disconnect, // a lamp
    Leave,      // the screen goes, and comes back
    Return,
    Data, // a chunk was read; before that its words of the fix
    NoFix,
    Fix,
    LineFault, // a break or a hang-up
    Tick,      // the timer; of the check the last one
    Opened,    // what came of Reopen
    NotOpened
};

enum class LinkStatus { Keep, Hide, Checking, NoSignal, OpenFailure }; // the text over the map

enum class LinkAction {
    None,
    // What the link does itself.
    Close,
    Open,   // unless it is open; a failure is not told
    Reopen, // leads to Opened or NotOpened
    StartTimer,
    StopTimer,
    // What it asks of its screen.
    ShowState,        // the signs may be others
    ClearDisplays,    // the source is open, and nothing comes
    ShowLoss,         // there is no fix any more, and nothing to show
    RefreshRouteList, // its times go by the fix
    FocusMap
};

using LinkActions = std::array<LinkAction, 6>; // in this order

struct LinkStep {
    LinkSituation Next;
    LinkStatus Status = LinkStatus::Keep;
    LinkActions Actions = {};
};

LinkStep Next(LinkSituation at, LinkEvent event);

} // namespace ornivane
