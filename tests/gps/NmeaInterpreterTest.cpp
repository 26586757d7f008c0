#include <gmock/gmock.h>

#include "GpsFakes.h"
#include "base/Strings.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Interpreter {
    EventLog Log;
    NmeaInterpreter gps{Log};

    std::vector<std::string> EventsOf(const std::string& body) {
        Log.Events.clear();
        gps.Parse(Sentence(body));
        return Log.Events;
    }
    ErrorNumber ErrorOf(const std::string& body) {
        const auto error = ornivane::ErrorOf([&] { EventsOf(body); });
        return error ? error->Number() : ErrorNumber{};
    }
};

TEST(NmeaInterpreter, RaisesTheEventsOfASentenceInTheOrderOfItsFields) {
    Interpreter at;
    EXPECT_THAT(at.EventsOf("GPGGA,123519.00,4807.038,N,01131.000,W,2,08,0.9,545.4,M,46.9,M,3,0120"),
                ElementsAre("Time 12:35:19", "Position N 48° 07.038'|W 011° 31.000'|4807.038|01131.000",
                            "PositionFix Valid DGPS", "Used 8", "HDOP 0.9", "Altitude 545.4",
                            "AltitudeUnits M", "Geoid 46.9", "GeoidUnits M", "DGPSage 3",
                            "DGPSstation 0120"));
    EXPECT_THAT(at.EventsOf("GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"),
                ElementsAre("Time 12:35:19", "FixObtained",
                            "Position N 48° 07.038'|E 011° 31.000'|4807.038|01131.000", "Speed 022.4",
                            "Bearing 084.4", "Date 23/03/94"));
    EXPECT_THAT(
        at.EventsOf("GPGLL,4916.45,N,12311.12,W,225444,V"),
        ElementsAre("Position N 49° 16.45'|W 123° 11.12'|4916.45|12311.12", "Time 22:54:44", "FixLost"));
    EXPECT_THAT(at.EventsOf("GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1"),
                ElementsAre("AutoMan Auto 2D/3D", "Mode3D 3D", "Ch1 4", "Ch2 5", "Ch3 0", "Ch4 9", "Ch5 12",
                            "Ch6 0", "Ch7 0", "Ch8 24", "Ch9 0", "Ch10 0", "Ch11 0", "Ch12 0", "PDOP 2.5",
                            "HDOP 1.3", "VDOP 2.1"));
    EXPECT_THAT(at.EventsOf("GPGSV,3,2,11,14,25,170,38,16,57,208,,18,67,296,40,19,40,246,30"),
                ElementsAre("InView 11", "Satellite 5,14,170,25,38", "Satellite 7,18,296,67,40",
                            "Satellite 8,19,246,40,30"));
}

TEST(NmeaInterpreter, LeavesEmptyFieldsOutAndTellsUnknownCodes) {
    Interpreter at;
    EXPECT_THAT(at.EventsOf("GPGGA,,,,,,0,,,,,,,,"), ElementsAre("PositionFix Invalid"));
    EXPECT_THAT(at.EventsOf("GPGGA,,4807.038,N,01131.000,,3,,,,,,,,"), ElementsAre("PositionFix Valid PPS"));
    // No status, no fix event; a status "V" does not hold the position back.
    EXPECT_THAT(at.EventsOf("GPRMC,,,4807.0,S,01131.0,E,1.0,2.0,"),
                ElementsAre("Position S 48° 07.0'|E 011° 31.0'|4807.0|01131.0", "Speed 1.0", "Bearing 2.0"));
    EXPECT_THAT(at.EventsOf("GPRMC,,V,4807.0,N,01131.0,E,,,"),
                ElementsAre("FixLost", "Position N 48° 07.0'|E 011° 31.0'|4807.0|01131.0"));
    EXPECT_THAT(at.EventsOf("GPRMC,,D,,,,,,,"), IsEmpty());
    EXPECT_EQ(at.EventsOf("GPGSA,M,1,,,,,,,,,,,,,,,").size(), 14u);
    EXPECT_EQ(at.gps.AutoManMode + at.gps.Mode3D, "Forced 2D/3DNo Fix");
    EXPECT_EQ(at.EventsOf("GPGSA,X,2,,,,,,,,,,,,,,,").front(), "AutoMan Unknown");
    // Fewer than six digits give what there is.
    EXPECT_THAT(at.EventsOf("GPRMC,123,,,,,,,,"), ElementsAre("Time 12:3:"));
}

TEST(NmeaInterpreter, NumbersSatellitesByMessageAndKeepsTheNumberWithoutOne) {
    Interpreter at;
    // The last message of a series has fewer groups; the slots count on all the same.
    EXPECT_THAT(at.EventsOf("GPGSV,3,3,11,22,42,067,42,24,14,311,43,27,05,244,20"),
                ElementsAre("InView 11", "Satellite 9,22,67,42,42", "Satellite 10,24,311,14,43",
                            "Satellite 11,27,244,5,20"));
    EXPECT_EQ(at.gps.Satellite.Number, 12);
    EXPECT_THAT(at.EventsOf("GPGSV,1,0,2,01,40,083,46,02,17,308,41"),
                ElementsAre("InView 2", "Satellite 12,1,83,40,46", "Satellite 12,2,308,17,41"));
    // An empty message number keeps the one before it.
    at.EventsOf("GPGSV,3,2,,");
    EXPECT_THAT(at.EventsOf("GPGSV,,,,01,40,083,46"), ElementsAre("Satellite 5,1,83,40,46"));
    EXPECT_EQ(at.ErrorOf("GPGSV,1,32767,1,01,40,083,46"), ErrorNumber::Overflow);
}

TEST(NmeaInterpreter, RefusesWhatFailsItsChecksumOrIsNoneOfTheFive) {
    Interpreter at;
    const std::string good = Sentence("GPGLL,4916.45,N,12311.12,W,225444,A");
    EXPECT_TRUE(at.gps.Parse(good));
    std::string lower = Sentence("GPGLL,,,,,,J"); // *1A
    ASSERT_TRUE(at.gps.Parse(lower));
    lower.back() = 'a';

    at.Log.Events.clear();
    for (const std::string& sentence : std::vector<std::string>{
             "", "$", "*00", "$GP", lower, good + " ", good.substr(0, good.size() - 1),
             Sentence("GNRMC,123519,A,,,,,,,"), Sentence("gpgll,,,,,,"), Sentence("GPGLLX,,,,,,")})
        EXPECT_FALSE(at.gps.Parse(sentence)) << sentence;
    EXPECT_THAT(at.Log.Events, IsEmpty());

    // A "$" inside is left out of the sum, bytes above 127 are not.
    EXPECT_EQ(NmeaInterpreter::GetChecksum("$A$B*C"), "03");
    EXPECT_EQ(NmeaInterpreter::GetChecksum("\xB0\x01"), "B1");
}

TEST(NmeaInterpreter, EndsAShortSentenceAtItsFirstMissingFieldAndKeepsTheEventsBeforeIt) {
    Interpreter at;
    EXPECT_EQ(at.ErrorOf("GPRMC,123519,A"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_THAT(at.Log.Events, ElementsAre("Time 12:35:19", "FixObtained"));
    // Too short among the four fields of the position, though the first of them is empty already.
    EXPECT_EQ(at.ErrorOf("GPRMC,123519,A,,N"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(at.ErrorOf("GPGGA"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(at.ErrorOf("GPGSA,A,3,01"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(at.ErrorOf("GPGSV,1,1"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(at.ErrorOf("GPGLL,4916.45,N,12311.12,W,225444"), ErrorNumber::SubscriptOutOfRange);
}

TEST(NmeaInterpreter, ConvertsNumbersStrictly) {
    Interpreter at;
    EXPECT_EQ(at.ErrorOf("GPGGA,,,,,,1,0x8,,,,,,,"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(at.ErrorOf("GPGGA,,,,,,1,8,0.9.1,,,,,,"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(at.ErrorOf("GPGGA,,,,,,1,32768,,,,,,,"), ErrorNumber::Overflow);
    EXPECT_EQ(at.ErrorOf("GPGGA,,,,,,1,1e300,,,,,,,"), ErrorNumber::Overflow);
    EXPECT_THAT(at.EventsOf("GPGGA,,,,,,1,2.5,,,,,,3.5,"),
                ElementsAre("PositionFix Valid SPS", "Used 2", "DGPSage 4"));
}

TEST(NmeaInterpreter, MakesItsTextsForShowingUtf8WhateverTheBytesAre) {
    Interpreter at;
    at.EventsOf("GPRMC,12\xC3"
                "519,A,48\xB0"
                "7.0,N,0113\xFF.0,\xE9,1,2,2\x80"
                "0394");
    EXPECT_EQ(at.gps.Latitude, "N 48° °7.0'");
    for (const std::string& text : {at.gps.Latitude, at.gps.Longitude, at.gps.Time, at.gps.SatDate}) {
        EXPECT_FALSE(text.empty());
        EXPECT_TRUE(IsValidUtf8(text));
    }
}

} // namespace
} // namespace ornivane
