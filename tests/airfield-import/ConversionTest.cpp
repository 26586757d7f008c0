#include "airfield-import/Conversion.h"

#include <gtest/gtest.h>

using namespace ornivane::airfields;

TEST(AirfieldConversion, TellsPavedSurfacesFromOthers) {
    for (const char* paved : {"ASP", "asphalt", "ASPH-TURF", "CON", "Concrete/Grass", "PEM", "BIT", "Tarmac"})
        EXPECT_EQ(SurfaceOf(paved), Surface::Paved) << paved;
    for (const char* unpaved : {"TURF", "GRS/ASP", "grass", "Gravel", "COR", "water", "dirt", "UNPAVED"})
        EXPECT_EQ(SurfaceOf(unpaved), Surface::Unpaved) << unpaved;
    for (const char* unknown : {"", " - ", "U", "UNK", "unknown"})
        EXPECT_EQ(SurfaceOf(unknown), Surface::Unknown) << unknown;
}

TEST(AirfieldConversion, WritesBothEndsOfARunwayWithTwoDigits) {
    EXPECT_EQ(DesignatorOf("7", "25"), "07/25");
    EXPECT_EQ(DesignatorOf("09l", "27R"), "09L/27R");
    EXPECT_EQ(DesignatorOf("", "5C"), "05C");
    EXPECT_EQ(DesignatorOf("", ""), "");
    EXPECT_EQ(DesignatorOf("NE", "SW"), "NE/SW");
    EXPECT_EQ(DesignatorOf("H1", ""), "H1");
    EXPECT_EQ(DesignatorOf("37", "0"), "37/0");
}

TEST(AirfieldConversion, TakesTheHeadingFromTheFieldThenFromTheNumber) {
    EXPECT_EQ(HeadingOf({"07", "68.4"}, {"25", "248"}), "068");
    EXPECT_EQ(HeadingOf({"07", ""}, {"25", "249.6"}), "070");
    EXPECT_EQ(HeadingOf({"36", "0"}, {"18", ""}), "360");
    EXPECT_EQ(HeadingOf({"36", "359.7"}, {"18", ""}), "360");
    EXPECT_EQ(HeadingOf({"7L", "400"}, {"25R", "x"}), "070");
    EXPECT_EQ(HeadingOf({"", ""}, {"36", ""}), "180");
    EXPECT_EQ(HeadingOf({"N", ""}, {"", "-5"}), "");
}

TEST(AirfieldConversion, WritesFrequenciesWithThreeDecimals) {
    EXPECT_EQ(FrequencyText(119.025), "119.025");
    EXPECT_EQ(FrequencyText(119.02), "119.025");
    EXPECT_EQ(FrequencyText(118.17), "118.175");
    EXPECT_EQ(FrequencyText(118.03), "118.030");
    EXPECT_EQ(FrequencyText(131.7), "131.700");
    EXPECT_EQ(FrequencyText(113.02), "113.020");
    EXPECT_EQ(MetresOf(2625), 800);
}

TEST(AirfieldConversion, NamesStationsSoThatTheirKindIsFound) {
    EXPECT_EQ(StationName({"TWR", "Köln"}), "Köln TWR");
    EXPECT_EQ(StationName({"TWR", "Köln Tower"}), "Köln Tower");
    EXPECT_EQ(StationName({"TWR", "Aachen Start"}), "Aachen Start");
    EXPECT_EQ(StationName({"AFIS", "Kjevik AFIS"}), "Kjevik AFIS INFO");
    EXPECT_EQ(StationName({"ATIS", ""}), "ATIS");
    EXPECT_EQ(StationName({"ATIS", "Arrival Information"}), "ATIS");
    EXPECT_EQ(StationName({"GND", "Köln"}), "Köln GND");
    EXPECT_EQ(StationName({"", "Hangelar Info"}), "Hangelar Info");
}
