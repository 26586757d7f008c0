#include "data/Waypoints.h"

#include <gmock/gmock.h>
#include <random>

#include "base/RuntimeError.h"
#include "data/WaypointBook.h"
#include "store/TextOrder.h"
#include "support/FlightFolder.h"
#include "support/Positions.h"
#include "support/Rows.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

class WaypointsTest : public testing::Test, protected FlightFolder {
protected:
    Names Rows() { return RowsOf(Shared.DataConn, "SELECT Name, Kategorie FROM Waypoints ORDER BY PointID"); }
    static Names NamesIn(const Recordset& list) {
        Names names;
        for (int i = 0; i < list.RecordCount(); ++i) names.push_back(list.ValueAt(i, "Name").TextOrEmpty());
        return names;
    }

    Waypoints All{Shared.DataConn};
};

// The list of a form, the book of an import and the queries of a redraw mean the same waypoint by a name.
TEST_F(WaypointsTest, EveryLookUpFindsTheWaypointThatASearchOfTheListFinds) {
    const Names names{"a", "A", "ä", "O'Hara", "o'HARA", "O", "z'", "'", "", "%", "Straße", "strasse"};
    Sql("PRAGMA synchronous = OFF"); // no test pulls the plug
    std::mt19937 random(9);
    for (int i = 0; i < 60; ++i) // of many, which is the first?
        All.Add(names[random() % (names.size() - 2)],
                Stored(static_cast<double>(random() % 80), static_cast<double>(random() % 170)), "");
    Sql("INSERT INTO Waypoints (Name, Lat, Long) VALUES (NULL, 1, 2)");
    const WaypointBook book(Shared.DataConn);
    Recordset list, part;
    All.Open(list);
    for (const std::string& name : names) {
        list.MoveFirst();
        const bool isThere = list.Find("Name", Comparison::Equal, name);
        const auto* entry = book.Find(name);
        const auto place = All.PlaceOf(name);
        ASSERT_TRUE((entry != nullptr) == isThere && place.has_value() == isThere) << name;
        if (isThere) {
            EXPECT_EQ(entry->PointID, list.Get("PointID")) << name;
            EXPECT_EQ(place->Lat.Value(), list.Number("Lat")) << name;
            EXPECT_EQ(place->Long.Value(), list.Number("Long")) << name;
        }
        list.MoveFirst();
        const bool isBehind = list.Find("Name", Comparison::GreaterOrEqual, name);
        EXPECT_EQ(CompareText(All.FirstNameFrom(name), isBehind ? list.Text("Name") : ""), 0) << name;
        Names beginning;
        for (const std::string& each : NamesIn(list))
            if (!name.empty() && StartsWith(each, name)) beginning.push_back(each);
        All.OpenBeginningWith(part, name);
        EXPECT_EQ(NamesIn(part), beginning) << name;
    }
    Names each;
    EXPECT_TRUE(All.ForEachName([&](std::string_view name) { each.emplace_back(name); }));
    Names listed = NamesIn(list);
    listed.erase(listed.begin()); // the one without a name
    EXPECT_EQ(each, listed);
}

TEST_F(WaypointsTest, WithoutWaypointsNothingIsFound) {
    EXPECT_TRUE(WaypointBook(Shared.DataConn).IsEmpty());
    EXPECT_EQ(All.PlaceOf("x"), std::nullopt);
    EXPECT_EQ(All.FirstNameFrom(""), "");
    EXPECT_FALSE(All.ForEachName([](std::string_view) { ADD_FAILURE(); }));
    Sql("INSERT INTO Waypoints (Name) VALUES (NULL)");
    EXPECT_TRUE(All.ForEachName([](std::string_view) { ADD_FAILURE(); }));
    EXPECT_FALSE(WaypointBook(Shared.DataConn).IsEmpty());
}

TEST_F(WaypointsTest, ADamagedPlaceIsAnErrorOfItsOwnLookUpOnly) {
    AddWaypoint("Good", 50.3, 7.0);
    Sql("INSERT INTO Waypoints (Name, Lat, Long) VALUES ('Half', 50, NULL), ('Text', 'north', 7)");
    for (const auto& [name, number] :
         {std::pair{"Half", ErrorNumber::InvalidNull}, {"Text", ErrorNumber::TypeMismatch}}) {
        const auto error = ErrorOf([&, &of = name] { static_cast<void>(All.PlaceOf(of)); });
        ASSERT_TRUE(error) << name;
        EXPECT_EQ(error->Number(), number);
        EXPECT_EQ(All.PlaceOf("good"), Stored(50.3, 7.0));
    }
}

TEST_F(WaypointsTest, CategoriesMoveWithAllTheirWaypointsAndBack) {
    for (const auto& [name, category] : {std::pair{"A", "L'Or"}, {"B", "l'or"}, {"C", ""}, {"D", "See"}})
        AddWaypoint(name, 1, 2, category);
    const Names before = Rows();
    Recordset list;
    All.OpenCategory(list, "L'OR");
    EXPECT_THAT(NamesIn(list), ElementsAre("A", "B"));
    const KeptColumn kept = All.KeepCategory("L'Or");
    All.MoveCategory("L'Or", "O'Hara");
    EXPECT_THAT(Rows(), ElementsAre("A O'Hara", "B O'Hara", "C ", "D See"));
    kept.PutBack();
    EXPECT_EQ(Rows(), before);
    const KeptRows row = All.Keep(4);
    All.SetCategory(4, "new");
    EXPECT_EQ(Rows().back(), "D new");
    row.PutBackOver();
    Sql("DELETE FROM Waypoints WHERE PointID = 4");
    row.PutBack();
    EXPECT_EQ(Rows(), before);
}

} // namespace
} // namespace ornivane
