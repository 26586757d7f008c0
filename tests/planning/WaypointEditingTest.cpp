#include "planning/WaypointEditing.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "planning/ListsFixture.h"

namespace ornivane {
namespace {

using testing::ElementsAre;

class WaypointEditingTest : public testing::Test, protected PlanningLists {
protected:
    WaypointEditingTest() { Load(); }
    std::string Fields() const {
        const auto& t = Points.tWaypoint;
        return t[1] + " " + Letter(Points.tNS) + t[2] + " " + Letter(Points.tEW) + t[3] + ", " +
               Points.lblCount;
    }
    void Type(const std::string& name, const std::string& lat, const std::string& longitude,
              NorthSouth ns = NorthSouth::North, EastWest ew = EastWest::East) {
        Points.tWaypoint = {"", name, lat, longitude};
        Points.tNS = ns;
        Points.tEW = ew;
    }
    void Search(const std::string& text) {
        Points.tquickfind = text;
        Points.QuickFind();
    }
    std::string Buttons() const {
        return std::string(Points.cmdPrevEnabled ? "<" : "") + (Points.cmdNextEnabled ? ">" : "");
    }
    std::vector<std::string> Store() {
        return Rows("SELECT Name, Lat, Long, Kategorie FROM Waypoints ORDER BY PointID LIMIT -1 OFFSET 4");
    }
};

TEST_F(WaypointEditingTest, FieldsAndCounterFollowTheCurrentRow) {
    EXPECT_EQ(Fields(), "aachen N50.4633 E6.0512, 1 / 4");
    Shared.Locale.DecimalSeparator = ',';
    Points.WaypointsSet.MoveLast(); // as a click in the grid does
    EXPECT_EQ(Fields(), "Zug N47,1 E8,31, 4 / 4");
    Points.cmdPrev();
    EXPECT_EQ(Fields(), "Cork S33,5 W8,3, 3 / 4");
    EXPECT_EQ(Asked[PlanEffect::CentreOnEntry], 2);
}

TEST_F(WaypointEditingTest, StepsStopAtBothEndsAndTheirButtonsSayIt) {
    Points.cmdPrev();
    EXPECT_EQ(Buttons(), ">");
    Points.cmdNext();
    EXPECT_EQ(Buttons(), "<>");
    for (int i = 0; i < 5; ++i) Points.cmdNext();
    EXPECT_EQ(Points.lblCount, "4 / 4");
    EXPECT_EQ(Buttons(), "<");
    Sql("DELETE FROM Waypoints WHERE PointID > 1");
    Points.WaypointsSet.Requery(); // as another screen does
    for (const auto step : {&WaypointEditing::cmdNext, &WaypointEditing::cmdPrev}) (Points.*step)();
    EXPECT_EQ(Fields(), "Bonn N50.44 E7.06, 1 / 1");
    EXPECT_EQ(Buttons(), "<>");
    Sql("DELETE FROM Waypoints");
    Points.WaypointsSet.Requery();
    for (const auto step : {&WaypointEditing::cmdNext, &WaypointEditing::cmdPrev}) (Points.*step)();
    EXPECT_EQ(Points.lblCount, "0 / 0");
    EXPECT_EQ(Buttons(), "<>");
}

TEST_F(WaypointEditingTest, AWaypointIsAddedWithHemispheresAndTheCategoryShown) {
    Type("D'Arc", "12,75", "123.99", NorthSouth::South, EastWest::West);
    EXPECT_TRUE(Taken(Points.cmdNew()));
    EXPECT_EQ(Fields(), "D'Arc S12.75 W123.99, 4 / 5");
    Act(Points.ChooseCategory("See"));
    Type("Ziel", "-1", "2");
    EXPECT_TRUE(Taken(Points.cmdNew()));
    EXPECT_EQ(Fields(), "Ziel S1 E2, 2 / 3");
    Type("Bonn", "1", "1"); // another category has one already
    EXPECT_TRUE(Taken(Points.cmdNew()));
    EXPECT_THAT(Store(), ElementsAre("D'Arc -12.75 -123.99 ", "Ziel -1.0 2.0 See", "Bonn 1.0 1.0 See"));
    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_EQ(Asked[PlanEffect::CentreOnEntry], 3); // once for each, not for rows passed on the way
}

TEST_F(WaypointEditingTest, AnEntryThatCannotBeTakenStaysAsTypedAndTellsWhy) {
    struct Case {
        const char *Name, *Lat, *Long, *New, *Change;
        PlanEffect Focus;
    };
    for (const Case& c :
         {Case{"", "x", "x", "Please enter a name in the waypoint field",
               "Please enter a name in the waypoint field", PlanEffect::FocusName},
          Case{"N", "47.4.1", "x", "Please enter a numeric value in the latitude field",
               "Please enter a numeric value in the latitude field", PlanEffect::FocusLatitude},
          Case{"N", "47", "", "Please enter a numeric value in the longitude field",
               "Please enter a numeric value in the longitude field", PlanEffect::FocusLongitude},
          Case{"BONN", "47", "8", "The waypoint already exists. Please choose another name.", nullptr,
               PlanEffect::FocusName}}) {
        Boxes.Shown.clear();
        Type(c.Name, c.Lat, c.Long);
        EXPECT_THAT(Points.cmdNew(), ElementsAre(c.Focus));
        if (c.Change) {
            EXPECT_THAT(Points.cmdChange(), ElementsAre(c.Focus));
        }
        EXPECT_EQ(Boxes.Shown.front(), "Data error|" + std::string(c.New));
        EXPECT_EQ(Boxes.Shown.back(), "Data error|" + std::string(c.Change ? c.Change : c.New));
        EXPECT_EQ(Points.tWaypoint[1] + Points.tWaypoint[2], std::string(c.Name) + c.Lat);
    }
    EXPECT_EQ(Points.WaypointsSet.Text("Name"), "Bonn");
    EXPECT_EQ(Points.lblCount, "2 / 4");
    Points.CancelEntry();
    EXPECT_EQ(Fields(), "Bonn N50.44 E7.06, 2 / 4");
    Shared.EnglishUI = 0;
    Type("", "1", "1");
    Act(Points.cmdNew());
    EXPECT_EQ(Boxes.Shown.back(), "Datenfehler|Bitte Name für den Waypoint eingeben");
    Act(Points.cmdChange());
    EXPECT_EQ(Boxes.Shown.back(), "Datenfehler|Bitte Name für den Wegpunkt eingeben");
    EXPECT_TRUE(Store().empty());
}

TEST_F(WaypointEditingTest, AChangeWritesWhatTheFieldsSayWithoutTheHemisphere) {
    Search("co");
    Points.tWaypoint[1] = "Zzz";
    EXPECT_TRUE(Taken(Points.cmdChange()));
    EXPECT_EQ(Fields(), "Zzz N33.5 E8.3, 3 / 4"); // at its place until the next query
    EXPECT_THAT(Rows("SELECT Name, Lat, Long, Kategorie FROM Waypoints WHERE PointID = 4"),
                ElementsAre("Zzz 33.5 8.3 See"));
    Sql("DELETE FROM Waypoints"); // behind the list's back
    EXPECT_THROW(Points.cmdChange(), RuntimeError);
    Points.cmdNext(); // nothing of it is left to be written
    EXPECT_EQ(Points.lblCount, "4 / 4");
}

TEST_F(WaypointEditingTest, DeletingTheLastRowLeavesTheOneBeforeItCurrent) {
    Points.WaypointsSet.MoveLast();
    Act(Points.cmdDelete());
    EXPECT_EQ(Fields(), "Cork S33.5 W8.3, 3 / 3");
    Points.cmdPrev();
    Act(Points.cmdDelete());
    EXPECT_EQ(Fields(), "Cork S33.5 W8.3, 2 / 2");
    for (int i = 0; i < 3; ++i) Act(Points.cmdDelete());
    EXPECT_EQ(Fields(), "aachen N50.4633 E6.0512, 0 / 0"); // an entry now: nothing stands behind it
    EXPECT_THROW(Points.cmdChange(), RuntimeError);
    EXPECT_TRUE(Taken(Points.cmdNew()));
    EXPECT_EQ(Points.lblCount, "1 / 1");
}

TEST_F(WaypointEditingTest, QuickFindLandsOnTheFirstNameAtOrAfterTheText) {
    for (const auto& [text, found] : std::map<std::string, std::string>{{"z", "Zug"},
                                                                        {"C", "Cork"},
                                                                        {"bz", "Cork"},
                                                                        {"Zz", "aachen"},
                                                                        {"", "aachen"},
                                                                        {"'", "aachen"}}) {
        Search(text);
        EXPECT_EQ(Points.tWaypoint[1], found) << text;
        EXPECT_EQ(Points.WaypointsSet.Text("Name"), found) << text;
    }
    Search("");
    const int redraws = Asked[PlanEffect::CentreOnEntry];
    Search("zu");
    Search("zug");
    EXPECT_EQ(Asked[PlanEffect::CentreOnEntry], redraws + 1); // one redraw for a change of row, none without
}

TEST_F(WaypointEditingTest, ACategoryFiltersTheListAndLeavesTheFieldsAlone) {
    EXPECT_THAT(Points.Categories, ElementsAre("Alle Wegpunkte", "Feld", "See"));
    Points.tKat_Click();
    Act(Points.ChooseCategory("See"));
    EXPECT_TRUE(Points.tKatVisible);
    EXPECT_EQ(Points.tKat + ": " + Fields(), "See: aachen N50.4633 E6.0512, 1 / 2");
    Points.cmdNext();
    EXPECT_EQ(Fields(), "Zug N47.1 E8.31, 2 / 2");
    Type("Neu", "1", "2");
    Act(Points.ChooseCategory("Feld"));
    EXPECT_EQ(Fields(), "Neu N1 E2, 1 / 1");
    Sql("UPDATE Waypoints SET Kategorie = '' WHERE Kategorie = 'Feld'");
    Act(Points.ChooseCategory("Feld"));
    EXPECT_EQ(Fields(), "Neu N1 E2, 0 / 0");
    EXPECT_EQ(Asked[PlanEffect::FocusMap], 3);
    EXPECT_EQ(Asked[PlanEffect::CentreOnEntry], 1); // of the step
}

TEST_F(WaypointEditingTest, AChangeWritesTheTypedValuesToTheRowTheListStandsOn) {
    Act(Points.ChooseCategory("See")); // the fields show aachen
    EXPECT_TRUE(Taken(Points.cmdChange()));
    EXPECT_THAT(Rows("SELECT PointID, Name, Lat FROM Waypoints WHERE PointID > 2"),
                ElementsAre("3 aachen 50.4633", "4 aachen 50.4633"));
    Act(Points.ChooseCategory(WaypointEditing::AllWaypoints));
    Type("bonn", "1", "2");
    EXPECT_FALSE(Taken(Points.cmdNew()));
    EXPECT_TRUE(Taken(Points.cmdChange()));
    EXPECT_THAT(Rows("SELECT PointID, Name, Lat FROM Waypoints WHERE PointID = 1"),
                ElementsAre("1 bonn 1.0"));
    EXPECT_EQ(Boxes.Shown.size(), 1u); // of the duplicate name
}

TEST_F(WaypointEditingTest, ComingBackShowsAllWaypointsOnTheOneThatWasLookedAt) {
    Act(Points.ChooseCategory("See"));
    Points.cmdNext();
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES ('Ahr', 50, 7, 'See')");
    Sql("INSERT INTO Kategorie (Nummer, Kategorie) VALUES (3, 'Neu')");
    Points.FillCategories();
    EXPECT_EQ(Points.cmbKat, "Alle Wegpunkte");
    EXPECT_EQ(Points.tKat, "Alle Wegpunkte");
    EXPECT_EQ(Points.Categories.back(), "Neu");
    EXPECT_EQ(Fields(), "Zug N47.1 E8.31, 5 / 5");
    Sql("DELETE FROM Waypoints WHERE Name = 'Zug'");
    Points.FillCategories();
    EXPECT_EQ(Fields(), "aachen N50.4633 E6.0512, 1 / 4");
}

TEST_F(WaypointEditingTest, ADamagedRowShowsNothingOfItsNeighbours) {
    Sql("INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES (NULL, 'north', NULL, NULL)");
    Points.WaypointsSet.Requery();
    EXPECT_EQ(Fields(), " N E, 1 / 5");
}

TEST_F(WaypointEditingTest, ARefusedWriteLeavesListAndFieldsInStep) {
    Sql("CREATE TRIGGER Full BEFORE INSERT ON Waypoints BEGIN SELECT RAISE(ABORT, 'full'); END");
    Points.cmdNext();
    Type("Neu", "1", "2");
    EXPECT_THROW(Points.cmdNew(), RuntimeError);
    EXPECT_EQ(Points.WaypointsSet.Text("Name"), "Bonn");
    EXPECT_EQ(Fields(), "Neu N1 E2, 2 / 4");
    Points.cmdNext();
    EXPECT_EQ(Fields(), "Cork S33.5 W8.3, 3 / 4");
}

} // namespace
} // namespace ornivane
