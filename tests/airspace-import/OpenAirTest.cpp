#include "airspace-import/OpenAir.h"

#include <gmock/gmock.h>

#include "airspace-import/Fields.h"
#include "airspace-import/Unusable.h"
#include "support/Positions.h"

namespace {

using namespace ornivane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Reference = Limit::Reference;

const std::string Triangle = "DP 48:00:00 N 17:00:00 E\nDP 48:10:00 N 17:00:00 E\nDP 48:00:00 N 17:10:00 E\n";
const std::string Head = "AC R\nAN One\nAL GND\nAH 3500ft MSL\n";

std::string Reasons(const OpenAirContent& content) {
    std::string all;
    for (const Refusal& refusal : content.Refusals)
        all += std::to_string(refusal.Line) + " " + refusal.Reason + "\n";
    return all;
}

TEST(OpenAirFields, PositionsComeInSecondsMinutesAndDegrees) {
    for (const char* text : {"48:47:27 N 016:52:30 E", "48:47.45N 16:52.5E", "N48.790833333 E16.875",
                             "48:47:27n\t016:52:30.0e"}) {
        EXPECT_NEAR(ParsePosition(text).Lat.Degrees(), 48.7908333, 1e-6) << text;
        EXPECT_NEAR(ParsePosition(text).Long.Degrees(), 16.875, 1e-6) << text;
    }
    EXPECT_EQ(ParsePosition("8:30:00 S 0:15:00 W"), At(-8.5, -0.25));
    for (const char* text :
         {"", "48 N", "48:60:00 N 16:00:00 E", "48:1:60 N 16:0:0 E", "91:00:00 N 16:00:00 E",
          "90:00:01 N 16:00:00 E", "48:00:00 N 180:00:01 E", "48:00:00 16:00:00", "48.5:30 N 16 E",
          "48..5 N 16 E", ":: N 16 E", "48:00:00 N 16:00:00 E 1"})
        EXPECT_THROW(ParsePosition(text), Unusable) << text;
}

TEST(OpenAirFields, LimitsComeInManyWords) {
    const struct {
        const char* Text;
        Limit Means;
    } cases[]{{"FL95", {9500, Reference::FlightLevel}},
              {"fl 095", {9500, Reference::FlightLevel}},
              {"9500ft STD", {9500, Reference::FlightLevel}},
              {"3500ft MSL", {3500, Reference::Sea}},
              {"3500 Ft amsl", {3500, Reference::Sea}},
              {"3500", {3500, Reference::Sea}},
              {"1000 AGL", {1000, Reference::Ground}},
              {"1000ft GND", {1000, Reference::Ground}},
              {"300m", {984, Reference::Sea}},
              {"300 m AGL", {984, Reference::Ground}},
              {"GND", {0, Reference::Ground}},
              {"sfc", {0, Reference::Ground}},
              {"0 AGL", {0, Reference::Ground}},
              {"0", {0, Reference::Ground}},
              {"UNLTD", {Limit::Unlimited, Reference::Sea}}};
    for (const auto& each : cases) EXPECT_EQ(ParseLimit(each.Text), each.Means) << each.Text;
    for (const char* text : {"", "FL", "high", "-100ft", "1,500 ft", "3500 4500", "UNL 500", "500 MSL AGL",
                             "FL 95 m", "ft", "1e9", "FL 1000"})
        EXPECT_THROW(ParseLimit(text), Unusable) << text;
}

TEST(OpenAirFields, ClassesGetTheTypeThatIsDrawnAndRead) {
    EXPECT_EQ(AspTypeFor("a", ""), "CLASS A"); // "A" would be a traffic pattern
    EXPECT_EQ(AspTypeFor("UNC", "A"), "CLASS A");
    for (const char* same : {"B", "G", "CTR", "TMZ", "RMZ", "Q", "R", "P", "W", "GS"})
        EXPECT_EQ(AspTypeFor(same, ""), same);
    EXPECT_EQ(AspTypeFor("D", "CTR"), "CTR");
    EXPECT_EQ(AspTypeFor("E", "TMZ"), "TMZ");
    EXPECT_EQ(AspTypeFor("D", "TMA"), "D");
    EXPECT_EQ(AspTypeFor("UNC", "RMZ"), "RMZ");
    EXPECT_EQ(AspTypeFor("UNC", "D"), "Q");
    EXPECT_THROW(AspTypeFor("", ""), Unusable);
    EXPECT_THROW(AspTypeFor("D\x1b[2J", ""), Unusable);
}

TEST(OpenAir, TakesAnyLineEndsCommentsAndEncodings) {
    const auto content =
        ReadOpenAir("\xEF\xBB\xBF* comment\r\nAC D * class\rAN Z\xFCrich * 1\n\nAL\tGND\r\nAH FL 95 * top\n"
                    "AF 120.5\nAG Tower\nAT 48:00:00 N 17:00:00 E\nV Z=100\nV W=5\nV X=48:05:00 N 17:00:00 E "
                    "*ARP\nDC 3 *NM");
    EXPECT_EQ(Reasons(content), "");
    ASSERT_THAT(content.Airspaces, SizeIs(1));
    const Airspace& airspace = content.Airspaces.front();
    EXPECT_EQ(airspace.Line, 2);
    EXPECT_THAT(airspace.Name, HasSubstr("rich"));
    ASSERT_THAT(airspace.Outline, SizeIs(1));
    EXPECT_EQ(airspace.Outline[0].Radius, 3);
}

TEST(OpenAir, RefusesAnAirspaceAndTakesTheOthers) {
    const std::string centre = "V X=48:00:00 N 17:00:00 E\n";
    const struct {
        std::string Record;
        const char* Refusal; // line and reason
    } cases[]{
        {"AC R\nAN One\nAH 3500\n" + Triangle, "1 One: no lower limit"},
        {"AC R\nAL GND\nAH GND\n" + Triangle, "1 (no name): an upper limit that is not above"},
        {"AC R\nAL FL 95\nAH FL 65\n" + Triangle, "an upper limit that is not above"},
        {"AC R\nAL UNL\nAH FL 65\n" + Triangle, "an upper limit that is not above"},
        {"AC R\nAL GND\nAL GND\nAH FL 65\n" + Triangle, "3 (no name): the same limit twice"},
        {Head, "fewer than three points"},
        {Head + Triangle + "AN Two\n" + Triangle, "8 One: a second name"},
        {Head + "DP 48:00:00 N 17:00:00 E\nDP 48:10:00 N 17:00:00 E\nDP 48:00:00 N 17:00:00 E\n",
         "fewer than three"},
        {Head + Triangle + "DP 98:00:00 N 17:00:00 E\n", "8 One: a latitude beyond 90"},
        {Head + "DC 3\n", "5 One: a circle or an arc without a centre"},
        {Head + "V X=nowhere\nDC 3\n", "5 One: a latitude without a number"},
        {Head + centre + "DC 0\n", "6 One: a radius of 0"},
        {Head + centre + "DC 3\n" + Triangle, "a circle beside other elements"},
        {Head + centre + "V D=x\n", "6 One: a direction"},
        {Head + centre + "DB 48:00:00 N 17:00:00 E, 48:10:00 N 17:00:00 E\n", "begins or ends at its centre"},
        {Head + centre + "DB 48:05:00 N 17:00:00 E, 48:20:00 N 17:00:00 E\n", "ends are 5 and 20 nautical"},
        {Head + centre + "DB 48:05:00 N 17:00:00 E\n", "an arc without two ends"},
        {Head + centre + "DA 5,10\n", "an arc without a radius and two angles"},
        {Head + centre + "DA 5,10,361\n", "an angle that is not 0 to 360"},
        {Head + "DY 48:00:00 N 17:00:00 E\n" + Triangle, "an element of an unknown kind: DY"},
    };
    for (const auto& each : cases) {
        const auto content = ReadOpenAir(each.Record + "AC Q\nAN Good\nAL GND\nAH FL 95\n" + Triangle);
        EXPECT_THAT(content.Refusals, SizeIs(1)) << each.Record;
        EXPECT_THAT(Reasons(content), HasSubstr(each.Refusal)) << each.Record;
        EXPECT_EQ(content.Records, 2) << each.Record;
        ASSERT_THAT(content.Airspaces, SizeIs(1)) << each.Record;
        EXPECT_EQ(content.Airspaces[0].Name, "Good");
    }
}

TEST(OpenAir, PensAreNoAirspacesAndStrayLinesAreReported) {
    const auto content = ReadOpenAir("hello\nAC Q\nSP 0,2,127\nSB -1,-1,-1\n" + Head + "what is this\n" +
                                     Triangle + "TO Wall\nDP 1:0:0 N 1:0:0 E\n");
    EXPECT_EQ(content.Records, 1);
    EXPECT_THAT(content.Airspaces, SizeIs(1));
    EXPECT_EQ(Reasons(content),
              "1 no OpenAir record: hello\n9 no OpenAir record: what is this\n13 terrain is not taken\n");
}

TEST(OpenAir, DirectionStartsClockwiseAtEachAirspaceAndTheCentreStays) {
    const std::string arc = "DB 48:05:00 N 17:00:00 E, 47:55:00 N 17:00:00 E\n";
    const auto content = ReadOpenAir(Head + "V X=48:00:00 N 17:00:00 E\nV D=-\n" + arc + Head + arc);
    ASSERT_THAT(content.Airspaces, SizeIs(2)) << Reasons(content);
    EXPECT_FALSE(content.Airspaces[0].Outline[0].Clockwise);
    EXPECT_TRUE(content.Airspaces[1].Outline[0].Clockwise);
    EXPECT_EQ(content.Airspaces[1].Outline[0].Centre, At(48, 17));
}

TEST(OpenAir, JunkIsBounded) {
    EXPECT_THAT(Reasons(ReadOpenAir(std::string("A\0C\0", 4))), HasSubstr("no text"));
    std::string zero = Head + Triangle + Head + Triangle;
    zero[zero.rfind("DP") + 4] = '\0'; // one character of the second airspace
    EXPECT_THAT(ReadOpenAir(zero).Airspaces, SizeIs(1));
    std::string endless = Head;
    for (int i = 0; i < 10001; ++i) endless += "DP 48:00:00 N 17:00:0" + std::to_string(i % 10) + " E\n";
    EXPECT_THAT(Reasons(ReadOpenAir(endless)), HasSubstr("10005 One: more than 10000 points"));
    EXPECT_THAT(Reasons(ReadOpenAir(Head + "DP " + std::string(20000, '1') + "\n" + Triangle)),
                HasSubstr("5 One: a line of"));
    std::string lines;
    for (int i = 0; i < 5000; ++i) lines += "junk\n";
    EXPECT_THAT(ReadOpenAir(lines).Refusals, SizeIs(21));
    const auto steering = ReadOpenAir("AC R\nAN \x1b[2J" + std::string(500, 'x') + "\nAL \x1b[2J");
    EXPECT_THAT(Reasons(steering), testing::Not(HasSubstr("\x1b")));
    EXPECT_LT(Reasons(steering).size(), 300u);
}

} // namespace
