#include "planning/LuftraumSettings.h"

#include <gtest/gtest.h>

#include "common/Variablen.h"

namespace ornivane {
namespace {

using enum AirspaceChoice::Which;

class LuftraumSettingsTest : public testing::Test {
protected:
    Variablen Shared;
    AirspaceChoice Airspace;
    LuftraumSettings Dialog{Shared, Shared, Shared, Airspace};
};

TEST_F(LuftraumSettingsTest, ReadsAndWritesTheHeightOfTheMap) {
    struct {
        const char* Height;
        AirspaceChoice::Which Option;
        const char *Text, *After;
    } const cases[] = {
        {"-99", All, "1000", "-99"},
        {"-10", None, "1000", "-10"},
        {"0", AtHeight, "0", "0"},
        {"4500", AtHeight, "4500", "4500"},
        {"4500,5", AtHeight, "4500,5", "4500,5"},
    };
    for (const auto& c : cases) {
        Airspace.tLRHoehe = c.Height;
        Airspace.tPR = c.Option == All;
        Dialog.Form_Load();
        EXPECT_EQ(Dialog.Chosen, c.Option) << c.Height;
        EXPECT_EQ(Dialog.cmbHoehe, c.Text);
        EXPECT_EQ(Dialog.chkPL, c.Option == All);
        Dialog.cmdExit_Click();
        EXPECT_EQ(Airspace.tLRHoehe, c.After);
        EXPECT_EQ(Airspace.tPR, c.Option == All);
    }
}

TEST_F(LuftraumSettingsTest, AHeightThatIsNoneSwitchesAirspaceOff) {
    Dialog.Form_Load();
    for (const char* text : {"", "high", "-1", "-99", "FL 65"}) {
        Airspace.tLRHoehe = "4500";
        Dialog.Chosen = AtHeight;
        Dialog.cmbHoehe = text;
        Dialog.cmdExit_Click();
        EXPECT_EQ(Airspace.tLRHoehe, "-10") << text;
    }
}

TEST_F(LuftraumSettingsTest, TellsWhetherThereIsData) {
    Shared.LuftraumDate = Date{2024, 5, 6};
    Dialog.Form_Load();
    EXPECT_EQ(Dialog.lblLR, "Keine Luftraumdaten");
}

} // namespace
} // namespace ornivane
