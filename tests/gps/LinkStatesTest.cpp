#include "gps/LinkStates.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace ornivane {
namespace {

using enum LinkState;
using enum LinkEvent;
using testing::Contains;
using Lamp = std::optional<std::size_t>;

// The table's answer when the source opens or does not, as Reopen finds out.
LinkSituation After(LinkSituation at, LinkEvent event, bool opens) {
    const LinkStep step = Next(at, event);
    if (!std::ranges::count(step.Actions, LinkAction::Reopen)) return step.Next;
    return Next(step.Next, opens ? Opened : NotOpened).Next;
}

LinkSituation After(const std::vector<LinkEvent>& events, bool opens = true) {
    LinkSituation at;
    for (const LinkEvent event : events) at = After(at, event, opens);
    return at;
}

// All that can come about; a line tells nothing while its source is closed.
std::vector<LinkSituation> Reachable() {
    std::vector<LinkSituation> reached{{}};
    for (std::size_t i = 0; i < reached.size(); ++i)
        for (const LinkEvent event : {Connect, Disconnect, Leave, Return, Data, NoFix, Fix, LineFault, Tick})
            for (const bool opens : {true, false}) {
                const LinkSituation at = reached[i];
                const bool isClosed = at.State == Off || at.State == CheckPaused;
                if (isClosed && (event >= Data && event <= Tick)) continue;
                const LinkSituation next = After(at, event, opens);
                if (!std::ranges::count(reached, next)) reached.push_back(next);
            }
    return reached;
}

TEST(LinkStates, ShowWhatHappenedByOneLampAtMost) {
    struct Case {
        std::vector<LinkEvent> Events;
        LinkState State;
        Lamp Shows;
    };
    const Case cases[] = {
        {{Connect}, Checking, 0},
        {{Connect, Fix, Data}, Checking, 1},
        {{Connect, Data, Tick}, Running, 0},
        {{Connect, Tick}, Listening, {}},
        {{Connect, Tick, Data}, Listening, {}},
        {{Connect, Tick, Fix}, Running, 1},
        {{Connect, LineFault}, DataLost, 2},
        {{Connect, Tick, LineFault}, Listening, {}},
        {{Connect, LineFault, Tick}, DataLost, 2},
        {{Connect, LineFault, Data, Tick}, DataBack, 2},
        {{Connect, LineFault, Data, Tick, LineFault}, DataBack, 2},
        {{Connect, LineFault, Fix}, DataLost, 1},
        {{Connect, LineFault, Fix, LineFault}, DataLost, 2},
        {{Connect, LineFault, NoFix, Tick}, Running, 0},
        {{Connect, Data, Tick, Disconnect, Connect, Tick}, Running, 0}, // data of an earlier connection
        {{Connect, LineFault, Disconnect, Connect, Tick}, Listening, {}},
        {{Connect, Tick, Leave}, Off, {}},
        {{Connect, Fix, Leave, Return}, Checking, 1},
        {{Connect, LineFault, Data, Tick, Leave, Return}, DataLost, 2},
    };
    for (const Case& c : cases) {
        const LinkSituation at = After(c.Events);
        EXPECT_EQ(at.State, c.State) << &c - cases;
        EXPECT_EQ(at.Lamp(), c.Shows) << &c - cases;
    }
    EXPECT_EQ(After({Connect, Tick}, false).State, Off);
    EXPECT_EQ(After({Connect, Fix, Tick, Leave, Return}, false).Lamp(), Lamp(2));
}

TEST(LinkStates, LetNoEventLeaveAStaleFixOrADeadEnd) {
    const std::vector<LinkSituation> reachable = Reachable();
    EXPECT_EQ(reachable.size(), 20u);
    for (const LinkSituation at : reachable) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(at.State) << static_cast<int>(at.Heard));
        EXPECT_FALSE(Next(at, Connect).Next.HasFix());
        EXPECT_EQ(Next(at, Disconnect).Next.Lamp(), Lamp());
        EXPECT_THAT(Next(at, Disconnect).Actions, Contains(LinkAction::Close));
        EXPECT_EQ(Next(at, Leave).Next.Lamp(), at.Lamp());
        EXPECT_EQ(After(Next(at, Leave).Next, Return, true).Lamp(), at.Lamp());
        if (at.State == Off || at.State == CheckPaused) continue;
        EXPECT_FALSE(Next(at, LineFault).Next.HasFix());
        // A tick leads on, or it opens the source.
        EXPECT_TRUE(!(Next(at, Tick).Next == at) || Next(at, Tick).Actions != LinkActions());
    }
}

} // namespace
} // namespace ornivane
