#include <random>

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "settings/Categories.h"
#include "settings/CategoryManager.h"
#include "support/FlightFolder.h"
#include "support/PressedNotice.h"
#include "support/Rows.h"
#include "support/ScriptedDialogs.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CategoriesTest : public testing::Test, protected FlightFolder {
protected:
    CategoriesTest() {
        Shared.EnglishUI = 1;
        Sql("INSERT INTO Kategorie VALUES (1, 'Stadt'), (2, 'VOR'), (3, 'Platz')");
        for (const auto& [name, category] : std::vector<std::pair<const char*, const char*>>{
                 {"Bonn", "Stadt"}, {"Aachen", "stadt"}, {"EDKB", "Platz"}, {"BONN", ""}, {"NTM", "VOR"}})
            AddWaypoint(name, 50, 7, category);
        List.Form_Load();
    }
    std::vector<std::string> Rows(const char* sql) { return RowsOf(Shared.DataConn, sql, NumbersAs::Shown); }
    std::vector<std::string> Stored() {
        return Rows("SELECT Nummer, Kategorie FROM Kategorie ORDER BY Nummer");
    }
    std::vector<std::string> Waypoints() {
        return Rows("SELECT Name, Kategorie FROM Waypoints ORDER BY PointID");
    }
    std::vector<std::vector<std::string>> Both() { return {Stored(), Waypoints()}; }
    void StandOn(int place) {
        List.CategoriesSet.SetAbsolutePosition(place);
        List.GridRowChanged();
    }

    ScriptedDialogs Dialogs;
    PressedNotice Bar;
    Undo LastDeed{Bar, Shared, {}};
    Categories List{Shared, Shared.DataConn, Dialogs, LastDeed};
};

TEST_F(CategoriesTest, AddsBehindTheCurrentRowWhatIsNotThereYet) {
    EXPECT_EQ(List.tKategorie, "Stadt");
    List.tKategorie = "Peter's";
    List.cmdAdd_Click();
    EXPECT_THAT(Stored(), ElementsAre("1 Stadt", "2 Peter's", "3 VOR", "4 Platz"));
    EXPECT_EQ(List.CategoriesSet.AbsolutePosition(), 2);
    EXPECT_EQ(List.tKategorie, "Peter's");

    List.tKategorie = "vor";
    List.cmdAdd_Click();
    List.tKategorie = "";
    Shared.EnglishUI = 0;
    List.cmdAdd_Click();
    EXPECT_THAT(Dialogs.Shown,
                ElementsAre("Data error|Category already exists. Please choose another name...",
                            "Datenfehler|Bitte Name für die Kategorie eingeben"));
    EXPECT_THAT(Stored(), ElementsAre("1 Stadt", "2 Peter's", "3 VOR", "4 Platz"));
    EXPECT_EQ(List.CategoriesSet.AbsolutePosition(), 3) << "on the row that was found";
}

TEST_F(CategoriesTest, RenamesTheWaypointsWithTheCategory) {
    List.tKategorie = "Platz"; // two rows of one name, their waypoints are one category
    List.cmdChange_Click();
    EXPECT_THAT(Stored(), ElementsAre("1 Platz", "2 VOR", "3 Platz"));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn Platz", "Aachen Platz", "EDKB Platz", "BONN ", "NTM VOR"));
    StandOn(2);
    List.tKategorie_DblClick();
    List.cmdChange_Click();
    EXPECT_THAT(Stored(), ElementsAre("1 Platz", "2 ", "3 Platz"));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn Platz", "Aachen Platz", "EDKB Platz", "BONN ", "NTM "));
    EXPECT_THAT(Dialogs.Shown, IsEmpty());
}

TEST_F(CategoriesTest, DeletesWithoutItsWaypointsAndStandsOnTheNextOrLastRow) {
    List.cmdDelete_Click();
    EXPECT_THAT(Stored(), ElementsAre("1 VOR", "2 Platz"));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn ", "Aachen ", "EDKB Platz", "BONN ", "NTM VOR"));
    EXPECT_EQ(List.tKategorie, "VOR");
    StandOn(2);
    List.cmdDelete_Click();
    EXPECT_EQ(List.CategoriesSet.AbsolutePosition(), 1);
    List.cmdDelete_Click();
    List.cmdDelete_Click();
    List.cmdChange_Click();
    EXPECT_THAT(Stored(), IsEmpty());
    List.tKategorie = "New";
    List.cmdAdd_Click();
    EXPECT_THAT(Stored(), ElementsAre("1 New"));
}

TEST_F(CategoriesTest, AChangeIsTakenBackWithAllItsWaypointsAndNoOthers) {
    const auto before = Waypoints();
    List.tKategorie = "Platz"; // both are one category then
    List.cmdChange_Click();
    EXPECT_EQ(Bar.Text, "Category Stadt changed [&undo]");
    List.cmdChange_Click(); // a second time changes nothing
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Stored(), ElementsAre("1 Stadt", "2 VOR", "3 Platz"));
    EXPECT_EQ(Waypoints(), before);
    EXPECT_EQ(List.tKategorie, "Stadt");
    List.tKategorie = "New";
    List.cmdChange_Click();
    StandOn(3);
    List.tKategorie = "Added";
    List.cmdAdd_Click();
    Sql("UPDATE Waypoints SET Kategorie = 'Added' WHERE Name = 'Aachen'"); // another dialog has given it
    Shared.EnglishUI = 0;
    LastDeed.ApplyLanguage();
    EXPECT_EQ(Bar.Text, "Kategorie Stadt geändert [&rückgängig]");
    Bar.Press();
    EXPECT_THAT(Stored(), ElementsAre("1 Stadt", "2 VOR", "3 Platz", "4 Added"));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn Stadt", "Aachen Added", "EDKB Platz", "BONN ", "NTM VOR"));
    EXPECT_EQ(List.tKategorie, "Stadt");
}

// A waypoint that got the new name meanwhile would be in a category that is no more.
TEST_F(CategoriesTest, WaypointsThatCameIntoARenamedCategoryGoBackWithIt) {
    Sql("UPDATE Waypoints SET Kategorie = 'Gone' WHERE Name = 'NTM'"); // of a category that is in no list
    List.tKategorie = "Gone";
    List.cmdChange_Click();
    Sql("UPDATE Waypoints SET Kategorie = 'Gone' WHERE Name = 'EDKB'");
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn Stadt", "Aachen stadt", "EDKB Stadt", "BONN ", "NTM Gone"));
    List.tKategorie = "Platz"; // which is another one
    List.cmdChange_Click();
    Sql("UPDATE Waypoints SET Kategorie = 'Platz' WHERE PointID = 4");
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Waypoints(),
                ElementsAre("Bonn Stadt", "Aachen stadt", "EDKB Stadt", "BONN Platz", "NTM Gone"));
    List.tKategorie.clear();
    List.cmdChange_Click();
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Waypoints(),
                ElementsAre("Bonn Stadt", "Aachen stadt", "EDKB Stadt", "BONN Platz", "NTM Gone"));
}

TEST_F(CategoriesTest, ADeletedCategoryThatWasAddedAgainDoesNotComeBackTwice) {
    const auto before = Waypoints();
    List.cmdDelete_Click();
    List.tKategorie = "stadt";
    List.cmdAdd_Click();
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Stored(), ElementsAre("1 VOR", "2 stadt", "3 Platz"));
    EXPECT_EQ(Waypoints(), before);
    EXPECT_EQ(List.tKategorie, "stadt");
    Sql("UPDATE Kategorie SET Kategorie = NULL WHERE Nummer = 1");
    List.Form_Activate();
    StandOn(1);
    List.cmdDelete_Click();
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Stored(), ElementsAre("1 null", "2 stadt", "3 Platz"));
}

// Any deed in any order, and some of them taken back, beside what the store was before the last one.
TEST_F(CategoriesTest, AnySequenceOfDeedsIsTakenBackToWhatWasThere) {
    Sql("PRAGMA synchronous = OFF");
    std::mt19937 dice;
    auto before = Both(), present = before;
    int undone = 0;
    for (int step = 0; step < 600; ++step) {
        const unsigned deed = dice() % 4;
        if (List.CategoriesSet.RecordCount() > 0)
            StandOn(1 + static_cast<int>(dice() % static_cast<unsigned>(List.CategoriesSet.RecordCount())));
        const std::string current = List.tKategorie;
        if (deed == 0 || List.CategoriesSet.RecordCount() == 0) {
            List.tKategorie = "K" + std::to_string(step);
            List.cmdAdd_Click();
            Shared.DataConn.Execute("UPDATE Waypoints SET Kategorie = ? WHERE PointID = ?",
                                    {List.tKategorie, 1 + step % 5});
            present = Both();
            LastDeed.Withdraw();
        } else if (deed == 3) {
            List.Form_Activate();
        } else {
            before = present;
            List.tKategorie = "K" + std::to_string(dice() % 10);
            if (List.tKategorie == current) List.tKategorie += " again";
            deed == 1 ? List.cmdChange_Click() : List.cmdDelete_Click();
            present = Both();
            if (dice() % 2 == 0) continue;
            ASSERT_TRUE(Bar.Press());
            ASSERT_EQ(Both(), before) << step;
            ASSERT_EQ(List.tKategorie, current) << step;
            present = before;
            ++undone;
        }
    }
    EXPECT_GT(undone, 100);
}

TEST_F(CategoriesTest, LeavesAllAsItWasWhenTheStoreRefuses) {
    Sql("CREATE TRIGGER refuse BEFORE UPDATE OF Nummer ON Kategorie BEGIN SELECT RAISE(ABORT, 'no'); END");
    Sql("CREATE TRIGGER name BEFORE UPDATE OF Kategorie ON Kategorie BEGIN SELECT RAISE(ABORT, 'no'); END");
    StandOn(2);
    List.tKategorie = "New";
    EXPECT_THROW(List.cmdDelete_Click(), RuntimeError);
    EXPECT_THROW(List.cmdChange_Click(), RuntimeError);
    EXPECT_THROW(List.cmdAdd_Click(), RuntimeError);
    EXPECT_THAT(Stored(), ElementsAre("1 Stadt", "2 VOR", "3 Platz"));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn Stadt", "Aachen stadt", "EDKB Platz", "BONN ", "NTM VOR"));
    EXPECT_EQ(List.CategoriesSet.RecordCount(), 3);
    EXPECT_EQ(List.CategoriesSet.AbsolutePosition(), 2);
}

TEST_F(CategoriesTest, TheManagerGivesManyWaypointsACategory) {
    CategoryManager manager(Shared.DataConn, Dialogs);
    manager.Form_Load();
    EXPECT_THAT(manager.listWegpunkt, ElementsAre("Aachen", "Bonn", "BONN", "EDKB", "NTM"));
    EXPECT_THAT(manager.listKategorie, ElementsAre("stadt", "Stadt", "", "Platz", "VOR"));
    EXPECT_THAT(manager.Categories, ElementsAre("Stadt", "VOR", "Platz"));
    manager.cmbKategorie = "VOR";
    manager.cmdZuweisen_Click({1, 2, 3});
    EXPECT_THAT(manager.listKategorie, ElementsAre("stadt", "VOR", "", "VOR", "VOR"))
        << "of two waypoints of one name the first, both times";

    manager.listWegpunkt.back() = "Zzz";
    manager.cmbKategorie = "Platz";
    manager.cmdZuweisen_Click({0, 4, 1}); // ends at the second
    EXPECT_THAT(
        Dialogs.Shown,
        ElementsAre("Datenbankfehler|Wegpunkt - Zzz - wurde nicht gefunden. Bitte Datenbank überprüfen."));
    EXPECT_THAT(Waypoints(), ElementsAre("Bonn VOR", "Aachen Platz", "EDKB VOR", "BONN ", "NTM VOR"));
}

} // namespace
} // namespace ornivane
