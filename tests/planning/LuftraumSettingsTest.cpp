#include "planning/LuftraumSettings.h"

#include <gtest/gtest.h>

namespace ornivane {
namespace {

class LuftraumSettingsTest : public testing::Test {
protected:
    Variablen Shared;
    PlanAirspace Airspace{Shared};
    LuftraumSettings Dialog{Shared, Airspace};
};

TEST_F(LuftraumSettingsTest, ReadsAndWritesTheHeightOfTheMap) {
    struct {
        const char* Height;
        int Option;
        const char *Text, *After;
    } const cases[] = {
        {"-99", 1, "1000", "-99"},   {"-10", 2, "1000", "-10"},         {"0", 3, "0", "0"},
        {"4500", 3, "4500", "4500"}, {"4500,5", 3, "4500,5", "4500,5"},
    };
    for (const auto& c : cases) {
        Airspace.tLRHoehe = c.Height;
        Airspace.tPR = c.Option == 1 ? "1" : "0";
        Dialog.Form_Load();
        const int option = Dialog.Option1 ? 1 : Dialog.Option2 ? 2 : Dialog.Option3 ? 3 : 0;
        EXPECT_EQ(option, c.Option) << c.Height;
        EXPECT_EQ(Dialog.cmbHoehe, c.Text);
        EXPECT_EQ(Dialog.chkPL, c.Option == 1);
        Dialog.cmdExit_Click();
        EXPECT_EQ(Airspace.tLRHoehe, c.After);
        EXPECT_EQ(Airspace.tPR, c.Option == 1 ? "1" : "0");
    }
}

TEST_F(LuftraumSettingsTest, AHeightThatIsNoneSwitchesAirspaceOff) {
    Dialog.Form_Load();
    for (const char* text : {"", "high", "-1", "-99", "FL 65"}) {
        Airspace.tLRHoehe = "4500";
        Dialog.Option1_Click();
        Dialog.Option3_Click();
        EXPECT_FALSE(Dialog.Option1);
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
