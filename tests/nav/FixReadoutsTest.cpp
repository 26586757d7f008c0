#include "nav/FlyingScreenFixture.h"

namespace ornivane {
namespace {

class FixReadoutsTest : public FlyingScreenTest {
protected:
    std::string WithUnit(const Readout& shown) const { return shown.Text(Shared.Locale) + shown.Unit(); }
};

TEST_F(FixReadoutsTest, ShowNothingUntilThereIsAFix) {
    FlyingScreen& screen = Start();
    const int paints = Surface.Paints;
    auto& readouts = screen.Readouts;
    readouts.PositionReceived({"N 50° 30'", "E 007° 00'", "5030.000", "00700.000"});
    readouts.SpeedReceived("100");
    readouts.BearingReceived("90");
    readouts.AltitudeReceived("300");
    readouts.SatellitesInViewReceived(9);
    const FlightState& s = screen.State;
    for (const std::string& place : {s.lblLat, s.lblLong}) EXPECT_EQ(place, "---");
    for (const Readout* label : {&s.lblSpeed, &s.lblBearing, &s.lblAlt}) EXPECT_EQ(*label, "---");
    EXPECT_EQ(s.CurLat, Latitude(49.0));
    EXPECT_EQ(Surface.Paints, paints);
    for (const std::string& toolTip : screen.Link.Shown().ToolTips) EXPECT_EQ(toolTip, "Sat: -/-");
}

TEST_F(FixReadoutsTest, ShowTheReceiversValuesInTheChosenUnits) {
    Shared.Locale.DecimalSeparator = ',';
    FlyingScreen& screen = Start();
    auto& readouts = screen.Readouts;
    readouts.FixObtained();
    EXPECT_EQ(screen.Link.Shown().picGPSCheck, 1u);
    readouts.SatellitesUsedReceived(7);
    readouts.SatellitesInViewReceived(11);
    EXPECT_EQ(screen.Link.Shown().ToolTips[1], "Sat: 7/11");
    readouts.SpeedReceived("99.5");
    readouts.BearingReceived("7.4");
    readouts.AltitudeReceived("304.8");
    EXPECT_EQ(WithUnit(screen.State.lblSpeed), "100kts");
    EXPECT_EQ(screen.State.lblBearing.Text({}), "007");
    EXPECT_EQ(screen.State.HeadingIndicator, -7);
    EXPECT_EQ(WithUnit(screen.State.lblAlt), "1000ft");
    screen.lblSpeed_Click();
    screen.lblAlt_Click();
    readouts.SpeedReceived("99.5");
    readouts.AltitudeReceived("304.8");
    EXPECT_EQ(WithUnit(screen.State.lblSpeed), "184km/h");
    EXPECT_EQ(WithUnit(screen.State.lblAlt), "305m");
    EXPECT_THROW(readouts.SpeedReceived("fast"), RuntimeError);
    readouts.FixLost();
    EXPECT_EQ(screen.Link.Shown().picGPSCheck, 0u);
    EXPECT_EQ(WithUnit(screen.State.lblSpeed), "184km/h"); // until the next value of its kind
    readouts.SpeedReceived("99.5");
    EXPECT_EQ(screen.State.lblSpeed, "---");
    readouts.ClearDisplays();
    EXPECT_EQ(screen.State.lblAlt, "---");
    screen.lblSpeed_Click(); // the unit alone
    screen.lblAlt_Click();
    EXPECT_EQ(WithUnit(screen.State.lblSpeed), "---kts");
    EXPECT_EQ(WithUnit(screen.State.lblAlt), "---ft");
    EXPECT_EQ(screen.State.HeadingIndicator, 0);
}

TEST_F(FixReadoutsTest, WestIsNegativeAndSouthIsNotLookedAt) {
    FlyingScreen& screen = Start();
    screen.Readouts.FixObtained();
    screen.Readouts.PositionReceived({"S 50° 30.000'", "W 007° 12.000'", "5030.000", "00712.000"});
    EXPECT_NEAR(screen.State.CurLat.Degrees(), 50.5, 1e-9);
    EXPECT_NEAR(screen.State.CurLong.Degrees(), -7.2, 1e-9);
    EXPECT_EQ(screen.State.lblLat, "S 50° 30.000'");
}

TEST_F(FixReadoutsTest, RedrawAtTheFirstPositionAndAtEvery21st) {
    Start();
    std::vector<int> redraws;
    for (int position = 1; position <= 64; ++position) {
        const int before = Surface.Paints;
        Fly(50.5, 7 + position / 1000.0);
        if (Surface.Paints != before) redraws.push_back(position);
    }
    EXPECT_EQ(redraws, (std::vector<int>{1, 22, 43, 64}));
}

TEST_F(FixReadoutsTest, ALostFixRecoloursTheSymbolOnAPictureThatFits) {
    FlyingScreen& screen = Start();
    Fly(50.5, 7.0);
    screen.cmdKartezentrieren_Click();
    EXPECT_EQ(Surface.Count("#00FF00"), 5);
    const int paints = Surface.Paints;
    screen.Readouts.FixLost(); // at the same place: over the picture that stands
    EXPECT_EQ(Surface.Paints, paints);
    EXPECT_EQ(Surface.Count("#FF0000"), 5);
    Fly(50.5, 7.0);
    Fly(50.5, 7.2);
    screen.Readouts.FixLost(); // the centred view has moved on: the chart must move with it
    EXPECT_EQ(Surface.Paints, paints + 1);
}

} // namespace
} // namespace ornivane
