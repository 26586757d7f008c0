#include "gps/LinkStates.h"

#include <algorithm>

namespace ornivane {

namespace {

using enum LinkState;
using enum LinkEvent;
using enum LinkAction;
using R = Reception;
using T = LinkStatus;

// A set of states, events or receptions.
constexpr unsigned In(auto... members) { return (0U | ... | (1U << static_cast<unsigned>(members))); }
constexpr unsigned Any = ~0U;

struct Transition {
    unsigned States, Events, Heard; // where it applies; the first that does is taken
    std::optional<LinkState> Next;  // none: the state stays
    Reception Most;                 // that is remembered of what was heard
    LinkStatus Status;
    LinkActions Actions = {};
};

constexpr auto Stays = std::nullopt;
constexpr unsigned Nothing = In(R::Nothing), OnlyData = In(R::Data), Word = In(R::NoFix, R::Fix);
constexpr LinkActions Leaving{StopTimer, Close, ShowState};
constexpr R Kept = R::Fix, WithoutFix = R::Data, Cleared = R::Nothing;

// clang-format off
constexpr Transition Transitions[] = {
    // The user.
    {Any,                              In(Connect),    Any,      Checking,    WithoutFix, T::Checking,    {Close, StartTimer, ShowState, Open, FocusMap, ShowState}},
    {Any,                              In(Disconnect), Any,      Off,         WithoutFix, T::Hide,        {Close, StopTimer, RefreshRouteList, ShowState}},

    // The receiver.
    {In(Checking),                     In(Data),       Any,      Stays,       Kept,       T::Hide},
    {In(Off, Listening, DataBack),     In(NoFix, Fix), Any,      Running,     Kept,       T::Hide},
    {Any,                              In(NoFix, Fix), Any,      Stays,       Kept,       T::Hide},
    {In(Checking, Running),            In(LineFault),  Any,      DataLost,    Cleared,    T::Hide,        {StartTimer, ShowLoss}},
    {In(DataLost),                     In(LineFault),  Word,     Stays,       Cleared,    T::Hide,        {StartTimer, ShowLoss}},

    // The timer.
    {In(Checking),                     In(Tick),       Nothing,  Stays,       Kept,       T::Keep,        {Reopen}},
    {In(Checking),                     In(Opened),     Any,      Listening,   Kept,       T::NoSignal,    {StopTimer, RefreshRouteList}},
    {In(Checking),                     In(NotOpened),  Any,      Off,         Kept,       T::OpenFailure, {StopTimer, RefreshRouteList}},
    {In(Checking),                     In(Tick),       Any,      Running,     Kept,       T::Hide},
    {In(DataLost),                     In(Tick),       Nothing,  Stays,       Kept,       T::Keep,        {Reopen}},
    {In(DataLost),                     In(Opened),     Any,      Stays,       Kept,       T::NoSignal,    {ClearDisplays, RefreshRouteList}},
    {In(DataLost),                     In(NotOpened),  Any,      Stays,       Kept,       T::OpenFailure, {RefreshRouteList}},
    {In(DataLost),                     In(Tick),       OnlyData, DataBack,    Kept,       T::Hide},
    {In(DataLost),                     In(Tick),       Word,     Running,     Kept,       T::Hide},
    // Only while the line has closed the source, which would stay closed for ever.
    {In(Running, Listening, DataBack), In(Tick),       Any,      Stays,       Kept,       T::Keep,        {Open}},

    // The screen goes and comes back. Nothing will tell any more of a device that went away meanwhile, so it
    // counts as lost.
    {In(Checking, CheckPaused),        In(Leave),      Any,      CheckPaused, Kept,       T::Keep,        Leaving},
    {In(Listening),                    In(Leave),      Any,      Off,         Kept,       T::Hide,        Leaving},
    {In(DataLost),                     In(Leave),      Word,     Running,     Kept,       T::Hide,        Leaving},
    {Any,                              In(Leave),      Any,      Stays,       Kept,       T::Hide,        Leaving},
    {In(CheckPaused),                  In(Return),     Any,      Checking,    Kept,       T::Keep,        {Open, StartTimer, ShowState}},
    {In(Running),                      In(Return),     Any,      Stays,       Kept,       T::Keep,        {Reopen, ShowState}},
    {In(Running),                      In(NotOpened),  Any,      DataLost,    Cleared,    T::Keep,        {StartTimer, ShowLoss}},
    {In(DataLost, DataBack),           In(Return),     Any,      DataLost,    Cleared,    T::Keep,        {Open, StartTimer, ShowState}},
};
// clang-format on

Reception After(Reception heard, LinkEvent event) {
    if (event == Data) return std::max(heard, R::Data);
    return event == Fix ? R::Fix : event == NoFix ? R::NoFix : heard;
}

} // namespace

std::optional<std::size_t> LinkSituation::Lamp() const {
    if (Heard == R::Fix) return 1;
    if (Heard == R::NoFix || State == Checking || State == CheckPaused || State == Running) return 0;
    if (State == DataLost || State == DataBack) return 2;
    return std::nullopt;
}

LinkStep Next(LinkSituation at, LinkEvent event) {
    const Reception heard = After(at.Heard, event);
    for (const Transition& row : Transitions)
        if ((row.States & In(at.State)) != 0 && (row.Events & In(event)) != 0 &&
            (row.Heard & In(at.Heard)) != 0)
            return {{row.Next.value_or(at.State), std::min(heard, row.Most)}, row.Status, row.Actions};
    return {{at.State, heard}};
}

} // namespace ornivane
