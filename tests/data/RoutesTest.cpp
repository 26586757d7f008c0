#include "data/Routes.h"

#include <gmock/gmock.h>
#include <random>

#include "base/RuntimeError.h"
#include "data/RoutePoints.h"
#include "support/FlightFolder.h"
#include "support/Rows.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

class RoutesTest : public testing::Test, protected FlightFolder {
protected:
    Names PointsOf(const Value& route) {
        Names names;
        Points.ForEach(route, [&](const RoutePoints::Point& point) { names.emplace_back(point.Name()); });
        return names;
    }
    Names Numbered(const char* table) {
        return RowsOf(Shared.DataConn, std::string("SELECT Nummer, Name FROM ") + table + " ORDER BY Nummer",
                      NumbersAs::Shown);
    }
    static WaypointBook::Waypoint Waypoint(const std::string& name) { return {1, name, 50.3, 7.0}; }

    Routes All{Shared.DataConn};
    RoutePoints Points{Shared.DataConn};
};

TEST_F(RoutesTest, PointsComeInTheOrderOfTheirNumbersAndOfTheirOwnRouteAlone) {
    const Value tour = All.Append("L'Étoile"), other = All.Append("L'Étoile");
    EXPECT_NE(tour, other);
    Points.Add(tour, 7.5, Waypoint("O'Hara"));
    Points.Add(tour, -2, Waypoint("'"));
    Points.Add(other, 1, Waypoint("O'Hara"));
    EXPECT_THAT(PointsOf(tour), ElementsAre("'", "O'Hara"));
    EXPECT_THAT(PointsOf(Value()), IsEmpty());
    Recordset list;
    Points.Open(list, Value());
    EXPECT_EQ(list.RecordCount(), 0);
    Points.Renumber(tour);
    EXPECT_THAT(Numbered("GpsPoints WHERE RouteID = 1"), ElementsAre("1 '", "2 O'Hara"));
    const KeptRows kept = Points.KeepAll(tour);
    Points.DeleteAll(tour);
    EXPECT_THAT(PointsOf(tour), IsEmpty());
    EXPECT_THAT(PointsOf(other), ElementsAre("O'Hara"));
    kept.PutBack();
    EXPECT_THAT(PointsOf(tour), ElementsAre("'", "O'Hara"));
    Points.ForEach(other, [](const RoutePoints::Point& point) {
        EXPECT_TRUE(point.IsOf(1, "another") && point.IsOf(2, "O'Hara"));
        EXPECT_FALSE(point.IsOf(2, "another") || point.IsOf(Value(), Value()));
    });
}

TEST_F(RoutesTest, ADamagedPointIsToldWithItsPlaceAndHoldsNobodyUp) {
    AddRoute("R", {6.3, 7.0, 7.3});
    Connection another;
    another.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
    for (const auto& [damage, number] :
         {std::pair{"Lat = NULL", ErrorNumber::InvalidNull}, {"Long = 'east'", ErrorNumber::TypeMismatch}}) {
        Sql(std::string("UPDATE GpsPoints SET Lat = 50.3, ") + damage + " WHERE Nummer = 2");
        for (int run = 0; run < 2; ++run) {
            int read = 0;
            const auto error = ErrorOf([&] {
                Points.ForEach(1, [&](const RoutePoints::Point& point) {
                    point.PlaceIn("R'");
                    ++read;
                });
            });
            ASSERT_TRUE(error) << damage;
            EXPECT_EQ(error->Number(), number);
            EXPECT_TRUE(error->Detail().starts_with("data.ovd, R', P2")) << error->Detail();
            EXPECT_EQ(read, 1) << damage << ": from the first point on";
            EXPECT_NO_THROW(another.Execute("UPDATE Route SET Nummer = Nummer")) << "the store is free";
        }
    }
    EXPECT_THAT(PointsOf(1), ElementsAre("P1", "P2", "P3")) << "a name needs no place";
}

TEST_F(RoutesTest, WhateverTheGapsAPointComesBehindTheCurrentOneAndADeletedOneBackToItsPlace) {
    Sql("PRAGMA synchronous = OFF"); // no test pulls the plug
    const Value route = All.Append("R");
    Points.Add(All.Append("S"), 1, Waypoint("of another"));
    Recordset list;
    Points.Open(list, route);
    std::mt19937 random(5);
    Names expected;
    for (int step = 0; step < 300; ++step) {
        const auto at = expected.empty() ? 0 : random() % expected.size();
        if (!expected.empty()) list.SetAbsolutePosition(static_cast<int>(at) + 1);
        const std::string name = "P'" + std::to_string(step);
        if (const auto deed = random() % 5; deed < 2 || expected.empty()) {
            Points.InsertAfterCurrent(list, route, Waypoint(name));
            expected.insert(expected.begin() + static_cast<long>(expected.empty() ? 0 : at + 1), name);
            ASSERT_EQ(list.Text("Name"), name);
        } else if (deed == 2) {
            Shared.DataConn.Execute("UPDATE GpsPoints SET Nummer = Nummer * 1.7 - 3 WHERE RouteID = ?",
                                    {route});
            list.Requery();
        } else {
            const KeptListRow kept = Points.Keep(route, list.RowId());
            list.Delete();
            if (deed == 3) {
                kept.PutBack();
                list.Requery();
            } else {
                expected.erase(expected.begin() + static_cast<long>(at));
            }
        }
        ASSERT_EQ(PointsOf(route), expected) << step;
    }
    EXPECT_THAT(PointsOf(2), ElementsAre("of another"));
}

TEST_F(RoutesTest, ARouteIsAppendedBehindTheLastOrPutBehindTheCurrentOne) {
    EXPECT_EQ(All.Append("A"), Value(1));
    Sql("UPDATE Route SET Nummer = 7");
    EXPECT_EQ(All.Append("B'"), Value(2));
    EXPECT_THAT(Numbered("Route"), ElementsAre("7 A", "8 B'"));
    Recordset list;
    All.Open(list);
    All.InsertAfterCurrent(list, "A'");
    EXPECT_EQ(list.Text("Name"), "A'");
    EXPECT_THAT(Numbered("Route"), ElementsAre("1 A", "2 A'", "3 B'"));
    const KeptListRow kept = All.Keep(list.RowId());
    list.Delete();
    kept.PutBack();
    EXPECT_THAT(Numbered("Route"), ElementsAre("1 A", "2 A'", "3 B'"));
    Sql("CREATE TRIGGER Full BEFORE INSERT ON Route BEGIN SELECT RAISE(ABORT, 'full'); END");
    EXPECT_THROW(All.Append("C"), RuntimeError);
    EXPECT_NO_THROW(Sql("BEGIN")) << "no transaction is left open";
}

} // namespace
} // namespace ornivane
