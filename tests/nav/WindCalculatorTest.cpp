#include "nav/WindCalculator.h"

#include <random>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "support/MapFakes.h"
#include "support/Readouts.h"

namespace ornivane {
namespace {

class WindTest : public testing::Test {
protected:
    WindTest() { Surface.Width = Surface.Height = 100; }
    void Type(const std::string& keys) {
        for (const char key : keys) Wind.KeyUp(key);
    }
    void Display(const std::string& speed, const std::string& track, const std::string& altitude) {
        State.lblSpeed = Showing(speed);
        State.lblBearing = Showing(track);
        State.lblAlt = Showing(altitude);
    }
    std::string Fields() const { return Wind.lblHeading + " " + Wind.lblIAS; }

    FlightState State;
    LocaleText Locale{',', LocaleText().ShortMonths}; // a German system
    DrawnSurface Surface;
    WindCalculator Wind{State, Locale, Surface};
};

TEST_F(WindTest, FillsHeadingThenAirspeedAndStartsAnewAfterBoth) {
    const std::pair<std::string, const char*> steps[] = {
        {"\b", "--- ---"},  {"3", "3-- ---"}, {"6", "36- ---"},  {"\b", "3-- ---"}, {"\b", "--- ---"},
        {"285", "285 ---"}, {"1", "285 1--"}, {"\b", "285 ---"}, {"10", "285 10-"}, {"5", "285 105"},
        {"9", "9-- ---"},   {"0", "90- ---"}, {"0", "900 ---"},  {"123", "900 123"}};
    for (const auto& [keys, shown] : steps) {
        Type(keys);
        EXPECT_EQ(Fields(), shown);
    }
    EXPECT_EQ(Wind.lblHeadingColour, WindCalculator::WrongHeading); // 900 is told by its colour, and computed
    Wind.KeyUp(0);                                                  // any key begins anew
    EXPECT_EQ(Fields(), "--- ---");
    EXPECT_EQ(Wind.lblHeadingColour, WindCalculator::PlainHeading);
    Type("360");
    EXPECT_EQ(Wind.lblHeadingColour, WindCalculator::PlainHeading);
}

TEST_F(WindTest, SolvesTheTriangleFromTheNumbersAsDisplayed) {
    const struct {
        const char *Speed, *Track, *Altitude;
        bool Feet;
        const char *Keys, *Wind, *TasOfIsa;
    } cases[] = {
        {"110", "246", "1523", true, "285105", "357 / 73", "TAS 108 (ISA)"},
        {"110", "246", "464", false, "285105", "357 / 73", "TAS 108 (ISA)"},  // metres
        {"100", "010", "3000", true, "350110", "292 / 40", "TAS 116 (ISA)"},  // over north, wrapped
        {"100", "350", "3000", true, "010110", "312 / 40", "TAS 116 (ISA)"},  // not wrapped the other way
        {"130", "090", "---", true, "090100", "270 / 30", "TAS 100 (ISA)"},   // from behind
        {"90", "090", "---", true, "090100", "090 / 10", "TAS 100 (ISA)"},    // from ahead
        {"100", "090", "---", true, "090100", "--- / ---", "TAS 100 (ISA)"},  // calm
        {"90", "000", "---", true, "000100", "--- / ---", "TAS 100 (ISA)"},   // a direction of 0
        {"100", "001", "30000", true, "005095", "014 / 43", "TAS 143 (ISA)"}, // the divisor changes
        {"100", "001", "30001", true, "005095", "013 / 53", "TAS 152 (ISA)"},
    };
    for (const auto& c : cases) {
        Display(c.Speed, c.Track, c.Altitude);
        State.AltInFeet = c.Feet;
        Wind.lblWind.clear();
        Type(c.Keys);
        EXPECT_EQ(Wind.lblWind, c.Wind) << c.Keys << " track " << c.Track;
        EXPECT_NE(Wind.lblIASToolTip.find(c.TasOfIsa), std::string::npos) << Wind.lblIASToolTip;
        Wind.KeyUp(0);
    }
    Display("100", "---", "1000");
    Wind.lblWind = "stays";
    Type("090100");
    EXPECT_EQ(Wind.lblWind, "stays"); // without a track there is no triangle
}

TEST_F(WindTest, AnotherUnitOfSpeedShowsTheSameWindAndAirspeedInIt) {
    const auto shown = [this] { return Fields() + " " + Wind.lblWind + Wind.lblIASToolTip; };
    const auto flip = [this] {
        State.SpeedInKnots = !State.SpeedInKnots;
        Wind.SpeedUnitChanged();
    };
    Display("100", "090", "984");
    Type("09");
    flip();
    EXPECT_EQ(Fields(), "09- ---"); // what is being typed is left alone
    flip();
    Type("0110");
    EXPECT_EQ(Wind.lblWind, "090 / 12");
    State.lblBearing = Showing("180"); // a turn later it is still the wind of that heading
    flip();
    EXPECT_EQ(Fields() + " " + Wind.lblWind, "090 204 090 / 22");
    EXPECT_NE(Wind.lblIASToolTip.find("TAS 207 (ISA)"), std::string::npos) << Wind.lblIASToolTip;

    std::mt19937 random(11);
    const auto digits = [&](int least, int most) {
        return Format(std::uniform_int_distribution<int>(least, most)(random), "000", Locale);
    };
    for (int i = 0; i < 2000; ++i) {
        Wind.KeyUp(0);
        Display(digits(40, 300), digits(0, 359), digits(100, 999));
        Type(digits(0, 360) + digits(40, 300));
        Wind.UpdateTAS(State.lblAlt.Number());
        const std::string before = shown(), wind = Wind.lblWind, airspeed = Wind.lblIAS;
        const double factor = State.SpeedInKnots ? 1.852 : 1 / 1.852;
        flip();
        EXPECT_NEAR(std::stod(Wind.lblIAS), std::stod(airspeed) * factor, 0.501) << before;
        EXPECT_EQ(Wind.lblWind.substr(0, 6), wind.substr(0, 6)) << before;
        if (wind[0] != '-') {
            EXPECT_NEAR(std::stod(Wind.lblWind.substr(6)), std::stod(wind.substr(6)) * factor, 1.5) << before;
        }
        flip();
        EXPECT_EQ(shown(), before);
        if (i % 3 == 0) flip();
    }
}

TEST_F(WindTest, AnAirspeedThatHasNoThreeDigitsInTheOtherUnitGoes) {
    Display("300", "090", "1000");
    Type("090540");
    State.SpeedInKnots = false;
    Wind.SpeedUnitChanged();
    EXPECT_EQ(Fields(), "090 ---");
    EXPECT_EQ(Wind.lblIASToolTip, "");
}

TEST_F(WindTest, TellsTheTrueAirspeedAtEachAltitudeOnceTheEntryIsComplete) {
    Wind.UpdateTAS(3000);
    EXPECT_EQ(Wind.lblIASToolTip, "");
    Display("100", "090", "3000");
    Type("090110");
    EXPECT_EQ(Wind.lblIASToolTip, "TAS 113 (ISA-10)  |  TAS 116 (ISA)  |  TAS 118 (ISA+10)");
    Wind.UpdateTAS(6000);
    EXPECT_EQ(Wind.lblIASToolTip, " TAS 119 (ISA-10)  |  TAS 121 (ISA)  |  TAS 123 (ISA+10) ");
    Wind.KeyUp('1');
    EXPECT_EQ(Wind.lblIASToolTip, "");
}

TEST_F(WindTest, TheArrowComesFromTheSideOfTheWindToTheMiddle) {
    Display("100", "090", "---");
    Type("090120"); // from ahead
    EXPECT_EQ(Surface.Drawn, (std::vector<std::string>{"cls", "line 50,0 50,50 w5 #000000",
                                                       "line 64.1,35.9 50,50 w5 #000000",
                                                       "line 35.9,35.9 50,50 w5 #000000"}));
    const auto arrow = Surface.Drawn;
    Display("120", "090", "---");
    Type("x090120"); // calm: the arrow stays
    EXPECT_EQ(Wind.lblWind, "--- / ---");
    EXPECT_EQ(Surface.Drawn, arrow);
}

} // namespace
} // namespace ornivane
