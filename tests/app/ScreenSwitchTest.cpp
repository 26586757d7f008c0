#include <gmock/gmock.h>

#include <memory>
#include <set>

#include "Fakes.h"
#include "app/ScreenSwitch.h"

namespace ornivane::test {

using testing::ElementsAre;
using testing::IsEmpty;

class ScreenSwitching : public testing::Test {
protected:
    Screen* Make(Mode mode) {
        calls.push_back("make " + NameOf(mode));
        if (unmakeable.contains(mode)) throw std::runtime_error("no table");
        made.push_back(std::make_unique<RecordedScreen>(NameOf(mode), calls, failing[mode]));
        return made.back().get();
    }
    static std::string NameOf(Mode mode) { return ModeCaption(mode).English; }
    Texts Calls() { return std::exchange(calls, {}); }

    Texts calls;
    int errors = 0;
    std::set<Mode> unmakeable;
    std::map<Mode, std::string> failing;
    std::vector<std::unique_ptr<Screen>> made;
    ScreenSwitch screens{{[this](Mode mode) { return Make(mode); },
                          [this](Screen*) { calls.push_back("front"); },
                          [this](const std::function<void()>& step) {
                              try {
                                  step();
                                  return true;
                              } catch (const std::exception&) {
                                  ++errors;
                                  return false;
                              }
                          }}};
};

TEST_F(ScreenSwitching, MakesAScreenOnceAndStopsTheOldOneFirst) {
    screens.Show(Mode::Flight);
    EXPECT_THAT(Calls(), ElementsAre("make Flight", "front", "Flight activate"));
    screens.Show(Mode::Flight);
    EXPECT_THAT(Calls(), IsEmpty());
    screens.Show(Mode::Settings);
    EXPECT_THAT(Calls(), ElementsAre("Flight deactivate", "make Settings", "front", "Settings activate"));
    screens.Show(Mode::Flight);
    EXPECT_THAT(Calls(), ElementsAre("Settings deactivate", "front", "Flight activate"));
}

TEST_F(ScreenSwitching, ComesToTheNewScreenThoughTheOldOneFails) {
    failing[Mode::Flight] = "deactivate";
    screens.Show(Mode::Flight);
    screens.Show(Mode::FlightPlan);
    EXPECT_EQ(errors, 1);
    EXPECT_EQ(screens.Current(), Mode::FlightPlan);
}

TEST_F(ScreenSwitching, ReturnsToTheOldScreenWhenTheNewOneCannotBeMade) {
    unmakeable = {Mode::Planning};
    screens.Show(Mode::Flight);
    Calls();
    screens.Show(Mode::Planning);
    EXPECT_THAT(Calls(), ElementsAre("Flight deactivate", "make Plan Mode", "front", "Flight activate"));
    EXPECT_EQ(screens.Current(), Mode::Flight);
    EXPECT_EQ(screens.Loaded().size(), 1u);
}

TEST_F(ScreenSwitching, UnloadsEveryScreenAtTheEndThoughOneFails) {
    failing[Mode::Flight] = "unload";
    failing[Mode::Settings] = "deactivate";
    screens.Show(Mode::Flight);
    screens.Show(Mode::Settings);
    Calls();
    screens.UnloadAllForms("Main");
    EXPECT_THAT(Calls(), ElementsAre("Settings deactivate", "Flight unload", "Settings unload"));
    EXPECT_EQ(errors, 2);
}

TEST_F(ScreenSwitching, LeavesTheExceptedFormAloneWhenTheOthersAreUnloaded) {
    screens.Show(Mode::Flight);
    screens.Show(Mode::Settings);
    for (const auto& screen : made) screen->setObjectName(screen == made[0] ? "frmGPSmain" : "frmSettings");
    Calls();
    screens.UnloadAllForms("frmSettings");
    EXPECT_THAT(Calls(), ElementsAre("Flight unload"));
    EXPECT_EQ(screens.Current(), Mode::Settings);
}

} // namespace ornivane::test
