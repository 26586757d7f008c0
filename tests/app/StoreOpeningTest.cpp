#include <gmock/gmock.h>

#include "Fakes.h"
#include "Stores.h"
#include "app/StoreOpening.h"

namespace ornivane::test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::StartsWith;

class StoreOpeningTest : public testing::Test {
protected:
    StoreOpeningTest() {
        MakeStores(folder.Path());
        variablen.ProgramFolder = folder.Path();
        variablen.TrackEnabled = variablen.TrackAuto = true;
        variablen.TrackInterval = 10000;
    }
    // Everything but the main store may be missing.
    StoreOpening::Result Run() {
        const StoreOpening::Result result = StoreOpening(variablen, boxes).Run();
        EXPECT_FALSE(result.MustEnd);
        return result;
    }
    bool MustEnd() { return StoreOpening(variablen, boxes).Run().MustEnd; }
    void Change(const char* name, const std::string& statement) {
        Connection store;
        store.Open(folder.Path() / name, Connection::Mode::ReadWrite);
        store.Execute(statement);
    }
    void Remove(const char* name) { std::filesystem::remove(folder.Path() / name); }

    TemporaryFolder folder;
    Variablen variablen;
    ScriptedDialogs boxes;
};

TEST_F(StoreOpeningTest, OpensAllFourAndSaysNothing) {
    const StoreOpening::Result result = Run();
    EXPECT_THAT(boxes.Shown, IsEmpty());
    EXPECT_FALSE(result.TrackFailure || result.AirspaceFailure);
    EXPECT_TRUE(variablen.DataConn.IsOpen() && variablen.TrackConn.IsOpen() &&
                variablen.LuftraumConn.IsOpen());
    EXPECT_TRUE(variablen.AirfieldStoreOpen);
    EXPECT_EQ(variablen.LuftraumDate, AirspaceRelease);
    EXPECT_TRUE(variablen.TrackEnabled);
}

TEST_F(StoreOpeningTest, EndsWithoutTheMainStore) {
    Remove("data.ovd");
    EXPECT_TRUE(MustEnd());
    EXPECT_THAT(boxes.Shown,
                ElementsAre("Datenfehler|Die Datei - data.ovd - wurde nicht im Programmordner gefunden."));
    variablen.EnglishUI = 1;
    EXPECT_TRUE(MustEnd());
    EXPECT_EQ(boxes.Shown.back(), "Data error|File - data.ovd - was not found.");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "data.ovd"));
}

TEST_F(StoreOpeningTest, TellsTheReasonWhenTheMainStoreCannotBeUsed) {
    const std::string good = folder.Bytes("data.ovd");
    const std::pair<const char*, std::string> cases[] = {
        {"a text file", "Waypoints: none\n"},
        {"an empty file, which opens as a store without tables", ""},
        {"a torn file", good.substr(0, good.size() / 2)},
    };
    for (const auto& [name, bytes] : cases) {
        folder.Write("data.ovd", bytes);
        EXPECT_TRUE(MustEnd()) << name;
        EXPECT_THAT(boxes.Shown,
                    ElementsAre(StartsWith(
                        "Datenfehler|Die Datei - data.ovd - wurde nicht im Programmordner gefunden.\n")))
            << name;
        EXPECT_FALSE(variablen.DataConn.IsOpen());
        EXPECT_EQ(folder.Bytes("data.ovd"), bytes) << name << " was changed";
        boxes.Shown.clear();
    }
}

TEST_F(StoreOpeningTest, TellsThatAnotherProgramLocksTheMainStore) {
    Connection other;
    other.Open(folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
    other.Execute("BEGIN EXCLUSIVE");
    EXPECT_TRUE(MustEnd());
    EXPECT_THAT(boxes.Shown, ElementsAre(testing::HasSubstr("locked")));
}

TEST_F(StoreOpeningTest, GoesOnWithoutTracksAndTurnsTheLoggerOff) {
    for (const auto& [name, bytes, reason] : {std::tuple{"missing", "", false}, {"no store", "x", true}}) {
        variablen.TrackEnabled = variablen.TrackAuto = true;
        Remove("track.ovd");
        if (reason) folder.Write("track.ovd", bytes);
        const StoreOpening::Result result = Run();
        ASSERT_TRUE(result.TrackFailure && !result.AirspaceFailure) << name;
        EXPECT_NE(result.TrackFailure->empty(), reason) << *result.TrackFailure;
        EXPECT_FALSE(variablen.TrackEnabled || variablen.TrackAuto || variablen.TrackInterval != 0) << name;
        EXPECT_FALSE(variablen.TrackConn.IsOpen()) << name;
    }
}

TEST_F(StoreOpeningTest, GoesOnWithoutAirspaceAlsoWhenOnlyItsDateIsMissing) {
    Remove("Luftraum.ovd");
    EXPECT_EQ(Run().AirspaceFailure, "");

    MakeStores(folder.Path());
    Change("Luftraum.ovd", "DELETE FROM RELEASE");
    EXPECT_THAT(Run().AirspaceFailure, Optional(testing::HasSubstr("3021")));
    EXPECT_FALSE(variablen.LuftraumConn.IsOpen());
}

// Opened all the same, such a store would show an empty sky and say nothing.
TEST_F(StoreOpeningTest, AStoreWithoutItsTablesOrFieldsCountsAsOneThatCannotBeOpened) {
    for (const char* damage :
         {"DROP TABLE Luftraum", "ALTER TABLE Luftraum DROP COLUMN Arcy2", "DROP TABLE RELEASE",
          "ALTER TABLE Luftraum RENAME COLUMN \"Index\" TO Number", "ALTER TABLE Luftraum RENAME TO Sky"}) {
        Remove("Luftraum.ovd");
        MakeStores(folder.Path());
        if (std::string(damage).find("Index") != std::string::npos)
            Change("Luftraum.ovd", "DROP INDEX LuftraumByIndex");
        Change("Luftraum.ovd", damage);
        EXPECT_THAT(Run().AirspaceFailure, Optional(testing::ContainsRegex("no such (table|column)")))
            << damage;
        EXPECT_FALSE(variablen.LuftraumConn.IsOpen()) << damage;
    }
    Remove("Luftraum.ovd");
    for (const char* damage : {"DROP TABLE ARPT", "DROP TABLE RWY", "DROP TABLE ACOM", "DROP TABLE ICAOCODE",
                               "ALTER TABLE ARPT DROP COLUMN RWYGLen", "ALTER TABLE RWY DROP COLUMN Surface",
                               "ALTER TABLE ACOM DROP COLUMN Freq"}) {
        Remove("ovdata.ovd");
        MakeStores(folder.Path());
        Change("ovdata.ovd", damage);
        EXPECT_FALSE(Run().AirspaceFailure) << damage;
        EXPECT_FALSE(variablen.AirfieldStoreOpen) << damage;
        EXPECT_FALSE(variablen.AirfieldConn.IsOpen()) << damage;
    }
    folder.Write("ovdata.ovd", "");
    EXPECT_FALSE(Run().AirspaceFailure);
    EXPECT_FALSE(variablen.AirfieldStoreOpen);
    EXPECT_THAT(boxes.Shown, IsEmpty());
}

TEST_F(StoreOpeningTest, SaysNothingWithoutAirfields) {
    for (const bool missing : {true, false}) {
        if (missing)
            Remove("ovdata.ovd");
        else
            folder.Write("ovdata.ovd", "no store");
        const StoreOpening::Result result = Run();
        EXPECT_FALSE(variablen.AirfieldStoreOpen || result.TrackFailure || result.AirspaceFailure);
        EXPECT_THAT(boxes.Shown, IsEmpty());
    }
}

} // namespace ornivane::test
