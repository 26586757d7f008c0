#include <algorithm>
#include <random>

#include <gmock/gmock.h>

#include "planning/ListsFixture.h"
#include "planning/RouteImport.h"

namespace ornivane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

const char* const AllWaypoints = "SELECT * FROM Waypoints ORDER BY PointID";
const char* const AllRoutes = "SELECT * FROM Route ORDER BY Nummer";
const char* const AllPoints = "SELECT * FROM GpsPoints ORDER BY RouteID, Nummer";

class PlanningUndoTest : public testing::Test, protected PlanningLists {
protected:
    PlanningUndoTest() {
        Sql("PRAGMA synchronous = OFF"); // no test pulls the plug
        Boxes.Answer = true;
    }
    std::vector<Texts> Store() { return {Rows(AllWaypoints), Rows(AllRoutes), Rows(AllPoints)}; }
    void StandOn(const char* name) {
        Points.WaypointsSet.MoveFirst();
        Points.WaypointsSet.Find("Name", Comparison::Equal, name);
    }
    void Type(const std::string& name, const std::string& lat, const std::string& longitude) {
        Points.tWaypoint = {"", name, lat, longitude};
    }
    std::string Waypoint() const {
        return Points.WaypointsSet.Text("Name") + " as " + Points.tWaypoint[1] + ", " + Points.lblCount;
    }
    std::string Point() const {
        const Recordset& points = Routes.RoutePointsSet;
        return Routes.RoutesSet.Text("Name") + std::to_string(points.AbsolutePosition()) +
               points.Text("Name");
    }
};

TEST_F(PlanningUndoTest, ChangedAndDeletedWaypointsComeBackAsTheyWere) {
    Sql("INSERT INTO Waypoints VALUES (90, 'Damaged', 'north', NULL, NULL)");
    Load();
    const auto before = Store();
    StandOn("Cork");
    Points.tWaypoint[1] = "Zzz";
    Act(Points.cmdChange()); // which makes it northern, too
    EXPECT_EQ(Bar.Text, "Waypoint Cork changed [&undo]");
    EXPECT_TRUE(Bar.Press());
    EXPECT_EQ(Store(), before);
    EXPECT_EQ(Waypoint(), "Cork as Cork, 3 / 5");
    EXPECT_EQ(Letter(Points.tNS) + Points.tWaypoint[2], "S33.5");
    EXPECT_FALSE(Bar.Press()); // once
    EXPECT_EQ(Bar.Text, "");
    Shared.EnglishUI = 0;
    for (const char* name : {"Damaged", "Zug", "aachen"}) {
        StandOn(name);
        Act(Points.cmdDelete());
        EXPECT_EQ(Bar.Text, std::string("Wegpunkt ") + name + " gelöscht [&rückgängig]");
        Bar.Press();
        EXPECT_EQ(Store(), before);
        EXPECT_EQ(Points.WaypointsSet.Text("Name"), name);
    }
}

TEST_F(PlanningUndoTest, AWaypointComesBackIntoTheListWhereItWasCurrentAndLeavesWhatIsTyped) {
    Load();
    Act(Points.ChooseCategory("See"));
    Act(Points.cmdDelete()); // Cork
    Act(Points.ChooseCategory("Feld"));
    Type("Neu", "1", "2");
    Bar.Press();
    EXPECT_EQ(Points.tKat + ": " + Waypoint(), "See: Cork as Neu, 1 / 2");
    EXPECT_EQ(Points.OtherTarget(), "Cork") << "it was typed over Zug";
    Act(Points.ChooseCategory(WaypointEditing::AllWaypoints));
    Act(Points.cmdDelete()); // aachen
    Points.cmdNext();
    Bar.Press();
    EXPECT_EQ(Points.tKat + ": " + Waypoint(), "Alle Wegpunkte: aachen as aachen, 1 / 4");
}

TEST_F(PlanningUndoTest, TheRowThatAChangeWillWriteIsNamedWhenItIsNotTheOneShown) {
    Load();
    EXPECT_EQ(Points.OtherTarget(), std::nullopt);
    Act(Points.ChooseCategory("See"));
    EXPECT_EQ(Points.OtherTarget(), "Cork");
    Points.CancelEntry();
    EXPECT_EQ(Points.OtherTarget(), std::nullopt);
    Act(Points.ChooseCategory(WaypointEditing::AllWaypoints));
    Type("bonn", "1", "2");
    Act(Points.cmdNew());
    EXPECT_EQ(Points.OtherTarget(), "Bonn"); // the fields were typed over Cork's
    Points.cmdNext();
    EXPECT_EQ(Points.OtherTarget(), std::nullopt);
    Points.BeginEntry({StoredLatitude(50), StoredLongitude(7)}); // from the chart
    EXPECT_EQ(Points.OtherTarget(), "Cork");
    Points.tWaypoint[1] = "Neu";
    Act(Points.cmdNew());
    EXPECT_EQ(Points.OtherTarget(), std::nullopt);
    while (Points.WaypointsSet.RecordCount() > 0) Points.cmdDelete();
    EXPECT_EQ(Points.OtherTarget(), std::nullopt);
}

TEST_F(PlanningUndoTest, ADeletedRoutePointComesBackInItsPlaceAlsoAmongPointsPutInSince) {
    AddRoute("A", {6.3, 7.0, 7.3, 7.4});
    AddRoute("B", {6.3});
    Sql("UPDATE GpsPoints SET Nummer = Nummer * 3"); // as imports have left it
    Load();
    const auto before = Store();
    for (const int place : {1, 2, 4}) {
        Routes.RoutePointsSet.SetAbsolutePosition(place);
        const std::string current = Point();
        Act(Routes.cmdDeleteWaypoint());
        EXPECT_EQ(Bar.Text, "Route point P" + std::to_string(place) + " deleted [&undo]");
        Routes.RoutesSet.MoveLast();
        const int focused = Asked[PlanEffect::FocusWaypoints];
        Bar.Press();
        EXPECT_EQ(Store(), before);
        EXPECT_EQ(Point(), current);
        EXPECT_EQ(Asked[PlanEffect::FocusWaypoints], focused + 1);
    }
    Routes.RoutePointsSet.SetAbsolutePosition(2);
    Act(Routes.cmdDeleteWaypoint());
    Routes.RoutePointsSet.MoveFirst();
    AddCurrent(); // aachen
    Routes.RoutePointsSet.MoveLast();
    AddCurrent();
    Bar.Press();
    EXPECT_EQ(Point(), "A3P2");
    EXPECT_THAT(Rows("SELECT CAST(Nummer AS INTEGER), Name FROM GpsPoints WHERE RouteID = 1 ORDER BY Nummer"),
                ElementsAre("1 P1", "2 aachen", "3 P2", "4 P3", "5 P4", "6 aachen"));
    Routes.RoutePointsSet.MoveLast();
    Act(Routes.cmdDeleteWaypoint()); // the youngest row: its identity is given again
    AddCurrent();
    Bar.Press();
    EXPECT_EQ(Numbers("GpsPoints WHERE RouteID = 1").size(), 7u);
}

TEST_F(PlanningUndoTest, ADeletedRouteComesBackWithAllItsPointsAndItsNumber) {
    AddRoute("A", {6.3});
    AddRoute("B", {6.3, 7.0, 7.3});
    AddRoute("C", {});
    Load();
    Routes.RoutesSet.MoveNext();
    Routes.RoutePointsSet.MoveNext();
    const auto before = Store();
    Act(Routes.cmdRouteDelete());
    EXPECT_EQ(Bar.Text, "Route B deleted [&undo]");
    Bar.Press();
    EXPECT_EQ(Store(), before);
    EXPECT_EQ(Point(), "B2P2");
    Act(Routes.cmdRouteDelete());
    Boxes.Inputs = {"New"};
    Act(Routes.cmdNewRoute());
    AddCurrent();
    Bar.Press();
    EXPECT_THAT(Numbers("Route"), ElementsAre("1 A", "2 B", "3 C", "4 New"));
    EXPECT_THAT(Rows("SELECT r.Name, p.Name FROM GpsPoints p JOIN Route r USING (RouteID) ORDER BY RouteID, "
                     "p.Nummer"),
                ElementsAre("A P1", "B P1", "B P2", "B P3", "New aachen"));
}

TEST_F(PlanningUndoTest, WhatTheStoreRefusesStaysUndoneAsAWholeAndCanBeTriedAgain) {
    AddRoute("A", {6.3, 7.0});
    Load();
    const auto before = Store();
    Act(Routes.cmdRouteDelete());
    const auto deleted = Store();
    Sql("CREATE TRIGGER Full BEFORE INSERT ON GpsPoints WHEN NEW.Name = 'P2' "
        "BEGIN SELECT RAISE(ABORT, 'full'); END");
    EXPECT_TRUE(Bar.Press());
    EXPECT_EQ(Store(), deleted);
    EXPECT_THAT(Bar.Text, HasSubstr("Route A deleted, not undone: "));
    EXPECT_THAT(Bar.Text, HasSubstr("full"));
    Sql("DROP TRIGGER Full");
    Connection other;
    other.Open(Folder.Path() / "data.ovd", Connection::Mode::ReadWrite);
    other.Execute("BEGIN IMMEDIATE");
    EXPECT_TRUE(Bar.Press());
    EXPECT_THAT(Bar.Text, HasSubstr("locked"));
    other.Execute("ROLLBACK");
    EXPECT_TRUE(Bar.Press());
    EXPECT_EQ(Store(), before);
    // A deed that was refused itself is not offered, and takes no offer away.
    Act(Points.cmdDelete());
    Sql("CREATE TRIGGER Held BEFORE DELETE ON GpsPoints BEGIN SELECT RAISE(ABORT, 'held'); END");
    EXPECT_THROW(Routes.cmdDeleteWaypoint(), RuntimeError);
    Bar.Press();
    EXPECT_EQ(Store(), before);
}

// The lists as a child would keep them: rows with their identity, in their order, and what stands marked.
struct Model {
    struct Route {
        int ID;
        std::string Name;
        std::vector<std::string> Points; // names
        bool operator==(const Route&) const = default;
    };
    std::map<int, std::string> Waypoints; // name, latitude, category
    std::vector<Route> Routes;
    int NextPoint = 5, NextRoute = 1;
};

// Random hands on the lists beside the model of them, compared after each deed.
class RandomPlanning : public PlanningUndoTest {
public:
    int Random(int below) { return below > 0 ? static_cast<int>(Dice() % static_cast<unsigned>(below)) : 0; }
    int CurrentID() const { return static_cast<int>(Points.WaypointsSet.Get("PointID").Integer()); }
    std::string CurrentName() const { return Points.WaypointsSet.Text("Name"); }
    Model::Route& CurrentRoute() {
        const int id = static_cast<int>(Routes.RoutesSet.Get("RouteID").Integer());
        return *std::find_if(Expected.Routes.begin(), Expected.Routes.end(),
                             [id](const Model::Route& route) { return route.ID == id; });
    }
    bool HasRoute() const { return Routes.RoutesSet.RecordCount() > 0; }
    bool HasPoint() const { return HasRoute() && Routes.RoutePointsSet.RecordCount() > 0; }
    bool HasWaypoint() const { return Points.WaypointsSet.RecordCount() > 0; }
    static void MoveTo(Recordset& rows, int place) {
        if (rows.RecordCount() > 0) rows.SetAbsolutePosition(place + 1);
    }
    void Move() {
        MoveTo(Points.WaypointsSet, Random(Points.WaypointsSet.RecordCount()));
        MoveTo(Routes.RoutesSet, Random(Routes.RoutesSet.RecordCount()));
        if (HasRoute()) MoveTo(Routes.RoutePointsSet, Random(Routes.RoutePointsSet.RecordCount()));
    }
    void NewWaypoint() {
        const std::string name = "N" + std::to_string(Expected.NextPoint);
        Type(name, "10", "20");
        Points.tNS = NorthSouth::North;
        ASSERT_TRUE(Taken(Points.cmdNew()));
        const std::string category = Points.cmbKat == WaypointEditing::AllWaypoints ? "" : Points.cmbKat;
        Expected.Waypoints[Expected.NextPoint++] = name + " 10.0 " + category;
    }
    void ChangeWaypoint() {
        if (!HasWaypoint()) return;
        const int id = CurrentID();
        const std::string before = Expected.Waypoints[id];
        Marked = CurrentName();
        Type("C" + std::to_string(Random(1000)), std::to_string(Random(80)), "1");
        ASSERT_TRUE(Taken(Points.cmdChange()));
        Expected.Waypoints[id] =
            Points.tWaypoint[1] + " " + Points.tWaypoint[2] + ".0 " + before.substr(before.rfind(' ') + 1);
        Reverse = [id, before](Model& model) { model.Waypoints[id] = before; };
    }
    void DeleteWaypoint() {
        if (!HasWaypoint()) return;
        const int id = CurrentID();
        Marked = CurrentName();
        const std::string before = Expected.Waypoints[id];
        Act(Points.cmdDelete());
        Expected.Waypoints.erase(id);
        Reverse = [id, before](Model& model) { model.Waypoints[id] = before; };
    }
    void NewRoute() {
        const std::string name = "R" + std::to_string(Expected.NextRoute);
        const auto behind = HasRoute() ? Routes.RoutesSet.AbsolutePosition() : 0;
        Boxes.Inputs = {name};
        Act(Routes.cmdNewRoute());
        Expected.Routes.insert(Expected.Routes.begin() + behind, {Expected.NextRoute++, name, {}});
        EXPECT_EQ(Routes.RoutesSet.Text("Name"), name);
    }
    void DeleteRoute() {
        if (!HasRoute()) return;
        const Model::Route before = CurrentRoute();
        const auto at = std::find(Expected.Routes.begin(), Expected.Routes.end(), before);
        const int follower = at + 1 == Expected.Routes.end() ? 0 : (at + 1)->ID;
        Marked = before.Name;
        Act(Routes.cmdRouteDelete());
        Expected.Routes.erase(at);
        Reverse = [before, follower](Model& model) {
            const auto place = std::find_if(model.Routes.begin(), model.Routes.end(),
                                            [follower](const auto& route) { return route.ID == follower; });
            model.Routes.insert(place, before);
        };
    }
    void AddPoint() {
        if (!HasRoute() || !HasWaypoint()) return;
        auto& points = CurrentRoute().Points;
        const auto behind = HasPoint() ? Routes.RoutePointsSet.AbsolutePosition() : 0;
        AddCurrent();
        points.insert(points.begin() + behind, CurrentName() + "#" + std::to_string(Dice() % 100000));
        Shared.DataConn.Execute("UPDATE GpsPoints SET Name = ? WHERE RouteID = ? AND Nummer = ?",
                                {points[static_cast<std::size_t>(behind)], CurrentRoute().ID, behind + 1});
        Routes.RoutePointsSet.Requery(); // now each can be told from the others
        MoveTo(Routes.RoutePointsSet, behind);
    }
    void DeletePoint() {
        if (!HasPoint()) return;
        Model::Route& route = CurrentRoute();
        const auto at = route.Points.begin() + Routes.RoutePointsSet.AbsolutePosition() - 1;
        const std::string name = *at, follower = at + 1 == route.Points.end() ? "" : *(at + 1);
        Marked = name;
        Act(Routes.cmdDeleteWaypoint());
        route.Points.erase(at);
        Reverse = [id = route.ID, name, follower](Model& model) {
            auto& points = std::find_if(model.Routes.begin(), model.Routes.end(), [id](const auto& each) {
                               return each.ID == id;
                           })->Points;
            points.insert(std::find(points.begin(), points.end(), follower), name);
        };
    }

    // A route through a new waypoint and the current one.
    void Import() {
        const bool hasWaypoints = !Expected.Waypoints.empty();
        const std::string name = "R" + std::to_string(Expected.NextRoute);
        Recordset file;
        file.AppendField({"Name", FieldType::Text});
        file.AppendField({"Lat", FieldType::Double});
        file.AppendField({"Long", FieldType::Double});
        file.OpenDetached();
        Texts points{"N" + std::to_string(Expected.NextPoint)};
        if (HasWaypoint()) points.push_back(CurrentName());
        for (const std::string& point : points) {
            file.AddNew();
            file.Set("Name", point);
            file.Set("Lat", 10.0);
            file.Set("Long", 20.0);
            file.Update();
        }
        Boxes.File = Folder.Path() / (name + ".ovr");
        file.Save(*Boxes.File);
        RouteImport(Shared, Shared, Shared.DataConn, Boxes,
                    {[this] { Points.ReadAgain(); }, [this](const Value& route) { Routes.RouteAdded(route); },
                     [this] { Routes.PointsAdded(); }})
            .GetRoute();
        if (hasWaypoints) Expected.Waypoints[Expected.NextPoint++] = points.front() + " 10.0 ";
        Expected.Routes.push_back({Expected.NextRoute++, name, hasWaypoints ? points : Texts()});
        EXPECT_EQ(Routes.RoutesSet.Text("Name"), name);
    }
    void TakeBack() {
        ASSERT_EQ(Bar.Press(), static_cast<bool>(Reverse));
        if (!Reverse) return;
        Reverse(Expected);
        Reverse = nullptr;
        EXPECT_TRUE((HasWaypoint() && CurrentName() == Marked) ||
                    (HasRoute() && Routes.RoutesSet.Text("Name") == Marked) ||
                    (HasPoint() && Routes.RoutePointsSet.Text("Name") == Marked))
            << Marked;
    }
    void LookElsewhere() {
        switch (Random(3)) {
        case 0:
            return Act(Points.ChooseCategory(Points.Categories[static_cast<std::size_t>(Random(3))]));
        case 1:
            return Points.FillCategories();
        default:
            Points.WaypointsSet.Requery();
            Routes.RoutesSet.Requery();
        }
    }
    void Compare(int step) {
        Texts waypoints, routes, points, listed;
        for (const auto& [id, row] : Expected.Waypoints) waypoints.push_back(std::to_string(id) + " " + row);
        int number = 0;
        for (const auto& route : Expected.Routes) {
            routes.push_back(std::to_string(route.ID) + " " + route.Name);
            number = 0;
            for (const auto& name : route.Points)
                points.push_back(std::to_string(route.ID) + " " + std::to_string(++number) + " " + name);
        }
        std::sort(points.begin(), points.end());
        ASSERT_EQ(Rows("SELECT PointID, Name, Lat, Kategorie FROM Waypoints ORDER BY PointID"), waypoints)
            << step;
        ASSERT_EQ(Rows("SELECT RouteID, Name FROM Route ORDER BY Nummer"), routes) << step;
        ASSERT_THAT(Rows("SELECT RouteID, CAST(Nummer AS INTEGER), Name FROM GpsPoints"),
                    testing::UnorderedElementsAreArray(points))
            << step;
        const auto names = [](const Recordset& rows) {
            Texts all;
            for (int i = 0; rows.IsOpen() && i < rows.RecordCount(); ++i)
                all.push_back(rows.ValueAt(i, "Name").Text());
            return all;
        };
        std::string condition;
        if (Points.cmbKat != WaypointEditing::AllWaypoints)
            condition = " WHERE Kategorie = '" + Points.cmbKat + "'";
        ASSERT_THAT(names(Points.WaypointsSet),
                    testing::UnorderedElementsAreArray(Rows("SELECT Name FROM Waypoints" + condition)))
            << step;
        for (const auto& route : Expected.Routes) listed.push_back(route.Name);
        ASSERT_EQ(names(Routes.RoutesSet), listed) << step;
        if (HasRoute()) {
            ASSERT_EQ(names(Routes.RoutePointsSet), CurrentRoute().Points) << step;
        }
        ASSERT_TRUE(!HasWaypoint() || Points.WaypointsSet.AbsolutePosition() > 0) << step;
        ASSERT_EQ(Points.tKat, Points.cmbKat);
    }

    std::mt19937 Dice;
    Model Expected;
    std::function<void(Model&)> Reverse; // of the last deed
    std::string Marked;                  // what is current after it was taken back
};

TEST_F(RandomPlanning, AnySequenceOfDeedsLeavesStoreAndListsAsASimpleModelHasThem) {
    Load();
    Expected.Waypoints = {
        {1, "Bonn 50.44 "}, {2, "Zug 47.1 See"}, {3, "aachen 50.4633 Feld"}, {4, "Cork -33.5 See"}};
    using Deed = void (RandomPlanning::*)();
    const Deed deeds[] = {
        &RandomPlanning::NewWaypoint, &RandomPlanning::ChangeWaypoint, &RandomPlanning::DeleteWaypoint,
        &RandomPlanning::NewRoute,    &RandomPlanning::DeleteRoute,    &RandomPlanning::AddPoint,
        &RandomPlanning::AddPoint,    &RandomPlanning::AddPoint,       &RandomPlanning::DeletePoint,
        &RandomPlanning::DeletePoint, &RandomPlanning::TakeBack,       &RandomPlanning::TakeBack,
        &RandomPlanning::TakeBack,    &RandomPlanning::LookElsewhere,  &RandomPlanning::Move,
        &RandomPlanning::Import};
    for (int step = 0; step < 1500 && !HasFatalFailure(); ++step) {
        (this->*deeds[static_cast<std::size_t>(Random(static_cast<int>(std::size(deeds))))])();
        Compare(step);
    }
    EXPECT_GT(Expected.NextRoute, 20);
}

} // namespace
} // namespace ornivane
