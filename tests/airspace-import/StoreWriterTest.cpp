#include "airspace-import/StoreWriter.h"

#include <cmath>
#include <sstream>

#include <gmock/gmock.h>

#include "airspace-import/Import.h"
#include "base/RuntimeError.h"
#include "common/StoredPositions.h"
#include "geo/GreatCircle.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace ornivane;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string Head = "AC R\nAN One\nAL GND\nAH FL 95\n";
const std::string Triangle = "DP 48:00:00 N 17:00:00 E\nDP 48:10:30 N 17:00:00 E\nDP 48:00:00 N 17:10:00 E\n";
const std::string Centre = "V X=48:00:00 N 17:00:00 E\n";

class AirspaceStore : public testing::Test {
protected:
    // The fields of all rows in the order of the drawing, a text each.
    std::vector<std::string> Rows(const std::string& fields) {
        Connection connection;
        connection.Open(File, Connection::Mode::ReadOnly);
        return RowsOf(connection, "SELECT " + fields + " FROM Luftraum ORDER BY \"Index\", PNumber",
                      NumbersAs::Shown, "|");
    }
    void Write(const std::string& text, bool replace = true) {
        std::ostringstream report;
        Import import(report, report);
        import.Add("a.txt", text);
        EXPECT_TRUE(import.AllTaken()) << report.str();
        WriteAirspaceStore(File, import.Airspaces(), {2026, 4, 1}, replace);
    }

    TemporaryFolder Folder;
    std::filesystem::path File = Folder.Path() / "Luftraum.ovd";
};

TEST_F(AirspaceStore, HoldsLimitsAndPlacesAsTheDrawingReadsThem) {
    Write(Head + Triangle + "AC Q\nAN Two\nAL 1000 AGL\nAH UNL\n" + "V X=8:30:00 S 0:15:00 W\nDC 2.5\n");
    EXPECT_THAT(
        Rows("\"Index\", PNumber, AspType, Low, LowType, High, HighType, Drawtype, Lat, Long, arcRad"),
        ElementsAre("1|1|R|0| GND|9500|FL|DP|48|17|0", "1|2|R|0| GND|9500|FL|DP|48.105|17|0",
                    "1|3|R|0| GND|9500|FL|DP|48|17.1|0", "2|1|Q|1000||99999||DC|-8.7|-0.55|2.5"));
    Connection connection;
    connection.Open(File, Connection::Mode::ReadOnly);
    EXPECT_THAT(RowsOf(connection, "SELECT Datum FROM RELEASE"), ElementsAre("2026-04-01"));
}

TEST_F(AirspaceStore, JoinsArcsToWhatIsBeforeThem) {
    const std::string east = "DB 48:05:00 N 17:00:00 E, 47:55:00 N 17:00:00 E\n";
    const struct {
        std::string Outline;
        std::vector<std::string> Drawtypes;
    } cases[]{
        {"DP 48:05:00 N 17:00:00 E\n" + east + "DP 47:55:00 N 17:00:00 E\nDP 48:00:00 N 16:50:00 E\n",
         {"DP", "DB", "DP"}}, // the points at the arc's ends are one with it
        {"DP 48:00:00 N 16:50:00 E\n" + east + "DP 48:00:00 N 16:50:00 E\n",
         {"DP", "DP", "DB"}}, // a side to the start
        {east + "DB 47:54:00 N 17:00:00 E, 48:06:00 N 17:00:00 E\n", {"DB", "DP", "DB"}}, // between two arcs
        {"DB 48:05:00 N 17:00:00 E, 47:54:00 N 17:00:00 E\n", {"DB", "DP"}}, // the end has another radius
        {east, {"DB"}},
        {"DA 5,0,360\n", {"DC"}},
        {"DP 48:00:00 N 17:00:00 E\n" + Triangle + "DP 48:00:00 N 17:00:00 E\n", {"DP", "DP", "DP"}},
    };
    for (const auto& each : cases) {
        Write(Head + Centre + each.Outline);
        EXPECT_EQ(Rows("Drawtype"), each.Drawtypes) << each.Outline;
    }
}

// The way the drawing goes: radius and courses from the stored ends, also those exactly north and south of
// the centre.
TEST_F(AirspaceStore, ArcsAreDrawnFromStartToEnd) {
    std::string text;
    std::vector<double> wanted;
    for (int start = 0; start < 360; start += 15)
        for (const int radius : {1, 2, 5}) {
            const int end = start == 180 ? 0 : 180;
            text += Head + "V X=46:00:00 N 17:00:00 E\nV D=-\nDA " + std::to_string(radius) + "," +
                    std::to_string(start) + "," + std::to_string(end) + "\n";
            wanted.insert(wanted.end(), {radius * 1.0, start * 1.0, end * 1.0});
        }
    Write(text);
    Connection connection;
    connection.Open(File, Connection::Mode::ReadOnly);
    Statement row(
        connection,
        "SELECT arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir FROM Luftraum ORDER BY \"Index\"");
    for (std::size_t k = 0; k < wanted.size(); k += 3) {
        ASSERT_TRUE(row.Step());
        const auto at = [&](int column) { return ToDecimalDegrees(DegMinOf(row, column)); };
        for (int end : {1, 2}) {
            const auto arm = GreatCircle::Between(at(0), at(2 * end));
            EXPECT_NEAR(arm.DistanceNM, wanted[k], 0.001);
            EXPECT_NEAR(std::remainder(arm.TrueCourse - wanted[k + end], 360), 0, 0.1) << wanted[k + end];
        }
        EXPECT_EQ(row.Text(6), "-");
    }
}

TEST_F(AirspaceStore, ArcsAreFoundByTheirMiddle) {
    Write(Head + Centre + "DA 60,350,10\n" + Head + "V D=-\nDA 60,10,350\n");
    EXPECT_THAT(Rows("Lat, Long, arcDir"), ElementsAre("49|17|+", "49|17|-"));
}

TEST_F(AirspaceStore, OnlyAStoreOfAirspaceIsReplacedAndOnlyWhenAsked) {
    Write(Head + Triangle, false);
    EXPECT_THROW(Write(Head + Triangle, false), RuntimeError);
    EXPECT_NO_THROW(Write(Head + Triangle, true));
    File = Folder.Path() / "data.ovd";
    WriteFileAtomically(File, "the user's own");
    EXPECT_THROW(Write(Head + Triangle, true), RuntimeError);
    EXPECT_EQ(ReadWholeFile(File), "the user's own");
    File = Folder.Path() / "missing" / "Luftraum.ovd";
    EXPECT_THROW(Write(Head + Triangle), RuntimeError);
    EXPECT_EQ(Folder.Files(), 2);
}

TEST(AirspaceImport, TakesNoMoreThanTheProgramCounts) {
    std::ostringstream report, problems;
    Import import(report, problems);
    std::string many;
    for (int i = 0; i < 20000; ++i) many += Head + Centre + "DC 1\n";
    import.Add("one.txt", many);
    EXPECT_TRUE(import.AllTaken());
    import.Add("two.txt", many);
    EXPECT_EQ(import.Airspaces().size(), 32767u);
    EXPECT_FALSE(import.AllTaken());
    EXPECT_THAT(problems.str(), HasSubstr("two.txt:76603: One: the store holds 32767 airspaces\n"));
    EXPECT_THAT(report.str(), HasSubstr("two.txt: 20000 airspaces read, 12767 taken, 7233 refusals\n"));
}

} // namespace
