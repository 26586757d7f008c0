#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "settings/AirfieldTransfer.h"
#include "support/FlightFolder.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {
namespace {

using testing::ElementsAre;

class AirfieldTransferTest : public testing::Test, protected FlightFolder {
protected:
    AirfieldTransferTest() {
        OpenAirfields();
        Shared.AirfieldConn.Execute(
            "INSERT INTO ARPT (ICAO, WGS_DLAT, WGS_DLONG) VALUES ('EDKB', 50.75, 7.25), ('EDZZ', 1, 1), "
            "('LFPB', 48.5, -8.5), ('EDZZZ', 2, 2), ('XX01', 3, 3), ('YY01', 4, 4), ('YY02', 4, 4)");
        Shared.AirfieldConn.Execute(
            "INSERT INTO ICAOCODE VALUES ('LF', ' Frankreich'), ('ED', 'Deutschland')");
        Sql("INSERT INTO Kategorie VALUES (2, 'Platz'), (1, 'Peter''s')");
    }
    std::vector<std::string> Waypoints() {
        return RowsOf(Shared.DataConn,
                      "SELECT Name, round(Lat, 6), round(Long, 6), Kategorie FROM Waypoints ORDER BY Name",
                      NumbersAs::Shown);
    }

    ScriptedDialogs Dialogs;
    AirfieldTransfer Transfer{Shared, Shared, Dialogs};
};

TEST_F(AirfieldTransferTest, CountsTheAirfieldsOfEachPrefix) {
    Transfer.Form_Load();
    EXPECT_THAT(Transfer.listAP,
                ElementsAre(AirfieldCountry{"ED", "Deutschland", 3}, AirfieldCountry{"LF", "Frankreich", 1},
                            AirfieldCountry{"XX", "Kein Land gefunden", 1},
                            AirfieldCountry{"YY", "Kein Land gefunden", 2}));
    EXPECT_EQ(Transfer.lblCount, "0 Flughäfen");
    EXPECT_EQ(Transfer.cmdTransfer, "Flughäfen in Kategorie Peter's importieren");
    Transfer.listAP_Click({1});
    EXPECT_EQ(Transfer.lblCount, "1 Flughafen");
    Transfer.listAP_Click({0, 1});
    EXPECT_EQ(Transfer.lblCount, "4 Flughäfen");
    Transfer.listAP_Click({2, 3}); // one name: the first of it, twice
    EXPECT_EQ(Transfer.lblCount, "2 Flughäfen");
}

TEST_F(AirfieldTransferTest, AddsOnlyNewNamesAndTellsHowMany) {
    AddWaypoint("edkb", 9, 9, "own");
    Transfer.Form_Load();
    Transfer.cmbKategorie_Click("Platz");
    Transfer.cmdTransfer_Click({0, 1});
    EXPECT_THAT(Waypoints(),
                ElementsAre("edkb 9 9 own", "EDZZ 1 1 Platz", "EDZZZ 2 2 Platz", "LFPB 48.3 -8.7 Platz"))
        << "the west by the floor rule of stored coordinates";
    Transfer.cmdTransfer_Click({0, 1});
    Transfer.cmdTransfer_Click({});
    Transfer.cmdTransfer_Click({2, 3});
    EXPECT_THAT(
        Dialogs.Shown,
        ElementsAre(
            "3 Flughäfen hinzugefügt|Es wurden 3 Flughäfen hinzugefügt.",
            "Nichts hinzugefügt|Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon vorhanden.",
            "Nichts hinzugefügt|Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon vorhanden.",
            "Flughafen hinzugefügt|Es wurde ein Flughafen hinzugefügt."));
}

// A row of one letter takes all codes of that letter into its group: what the list counts is what comes.
TEST_F(AirfieldTransferTest, AStrayRowHidesNoAirfieldFromTheImport) {
    AddWaypoint("Bonn", 9, 9, "own");
    Shared.AirfieldConn.Execute(
        "INSERT INTO ARPT (ICAO, WGS_DLAT, WGS_DLONG) VALUES ('e', 5, 5), (' ', 6, 6), ('YY%', 7, 7)");
    Transfer.Form_Load();
    EXPECT_THAT(Transfer.listAP, ElementsAre(AirfieldCountry{"LF", "Frankreich", 1},
                                             AirfieldCountry{"e", "Kein Land gefunden", 4},
                                             AirfieldCountry{"XX", "Kein Land gefunden", 1},
                                             AirfieldCountry{"YY", "Kein Land gefunden", 3}));
    Transfer.listAP_Click({1});
    EXPECT_EQ(Transfer.lblCount, "4 Flughäfen");
    Transfer.cmbKategorie_Click("Platz");
    Transfer.cmdTransfer_Click({1});
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn 9 9 own", "e 5 5 Platz", "EDKB 50.45 7.15 Platz",
                                         "EDZZ 1 1 Platz", "EDZZZ 2 2 Platz"));
    EXPECT_THAT(Dialogs.Shown, ElementsAre("4 Flughäfen hinzugefügt|Es wurden 4 Flughäfen hinzugefügt."));
}

TEST_F(AirfieldTransferTest, LeavesOutAirfieldsWithoutCoordinatesAndTellsWhich) {
    AddWaypoint("EDZZ", 9, 9, "own");
    Shared.AirfieldConn.Execute("UPDATE ARPT SET WGS_DLAT = NULL WHERE ICAO <> 'EDZZZ'");
    Shared.AirfieldConn.Execute("INSERT INTO ARPT (ICAO, WGS_DLAT, WGS_DLONG) VALUES ('LFAA', 1, 'x')");
    Transfer.Form_Load();
    Transfer.cmdTransfer_Click({0, 1});
    EXPECT_THAT(Waypoints(), ElementsAre("EDZZ 9 9 own", "EDZZZ 2 2 Peter's"));
    Transfer.cmdTransfer_Click({0, 1});
    EXPECT_THAT(
        Dialogs.Shown,
        ElementsAre("Flughafen hinzugefügt|Es wurde ein Flughafen hinzugefügt.\n"
                    "3 Flughäfen ohne Koordinaten wurden ausgelassen:\nEDKB\nLFAA\nLFPB",
                    "Nichts hinzugefügt|Es wurden keine Flughäfen hinzugefügt. Flughäfen sind schon "
                    "vorhanden.\n3 Flughäfen ohne Koordinaten wurden ausgelassen:\nEDKB\nLFAA\nLFPB"));
}

TEST_F(AirfieldTransferTest, TakesAllOrNothing) {
    Transfer.Form_Load();
    EXPECT_THROW(Transfer.cmdTransfer_Click({0}), RuntimeError) << "there is no waypoint at all";
    AddWaypoint("Bonn", 9, 9, "own");
    Sql("CREATE TRIGGER Refuse BEFORE INSERT ON Waypoints WHEN NEW.Name = 'LFPB' "
        "BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_THROW(Transfer.cmdTransfer_Click({0, 1}), RuntimeError);
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn 9 9 own"));
}

} // namespace
} // namespace ornivane
