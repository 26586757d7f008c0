#include "planning/RouteEditing.h"

#include <algorithm>

#include "base/Flagged.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "store/Lists.h"

namespace ornivane {

namespace {

const char* const Routes = "SELECT * From Route";
const char* const PointsOfRoute = "SELECT * From GpsPoints WHERE RouteID = ?";

// Back in the order of Nummer, on the row that was current.
void SortByNumber(Recordset& rows) {
    if (!rows.IsOpen()) return;
    const bool onRow = rows.AbsolutePosition() > 0;
    const Bookmark current = onRow ? rows.CurrentBookmark() : 0;
    rows.Sort("Nummer");
    if (onRow) rows.GoTo(current);
}

// After a roll back: the list must not go on without the row that it has brought back.
void StandAgain(Recordset& rows, int place) {
    rows.Requery();
    if (rows.RecordCount() > 0) rows.SetAbsolutePosition(std::min(place, rows.RecordCount()));
}

} // namespace

RouteEditing::RouteEditing(Variablen& variablen, Dialogs& messages, Recordset& waypointList,
                           PlanningOwner& screen)
    : shared(variablen), dialogs(messages), waypoints(waypointList), owner(screen) {
    RoutesSet.AddObserver(this);
}

RouteEditing::~RouteEditing() { RoutesSet.RemoveObserver(this); }

bool RouteEditing::HasRoute() const { return RoutesSet.IsOpen() && RoutesSet.AbsolutePosition() > 0; }

void RouteEditing::Form_Load() {
    const Flagged now(moving);
    RoutesSet.Open(shared.DataConn, std::string(Routes) + " Order by NUMMER ASC");
    if (HasRoute()) OpenPoints();
}

void RouteEditing::OpenPoints() {
    RoutePointsSet.Open(shared.DataConn, std::string(PointsOfRoute) + " ORDER BY Nummer ASC",
                        {RoutesSet.Get("RouteID")});
}

void RouteEditing::CurrentRowChanged() {
    if (!moving) RouteRowChanged();
}

void RouteEditing::RouteRowChanged() {
    if (!HasRoute() || RoutesSet.Get("RouteID").IsNull()) return;
    OpenPoints();
    if (ShowRouteOn) owner.RedrawPlan();
}

// The keys stay with the waypoints, from which the next point is picked; the chart marks the chosen one.
void RouteEditing::PointRowChanged() {
    try {
        owner.FocusWaypoints();
        owner.RedrawPlan();
    } catch (const RuntimeError&) {
        // choosing a place to insert at does not depend on the picture
    }
}

void RouteEditing::RoutesHeadClick(int column) {
    if (column != 0) return;
    const Flagged now(moving);
    SortByNumber(RoutesSet);
}

void RouteEditing::PointsHeadClick(int column) {
    if (column == 0) SortByNumber(RoutePointsSet);
}

void RouteEditing::cmdNewRoute() {
    const std::string name = dialogs.InputBox(shared.Text("Neue Strecke", "New Route"));
    if (name.empty()) {
        dialogs.Message(
            shared.Text("Eingabefehler", "Data error"),
            shared.Text("Bitte eine Streckenbezeichnung eingeben !", "Please enter a route name !"));
        return;
    }
    {
        const Flagged now(moving);
        // A gap that a deleted route left would put the new route before the selected one.
        Renumber(shared.DataConn, Routes, {});
        InsertAfterCurrent(shared.DataConn, RoutesSet, Routes, {},
                           [&](Recordset& route) { route.Set("Name", name); });
    }
    RouteRowChanged();
    if (RoutesSet.RecordCount() >= 2) owner.FocusRoutes();
}

void RouteEditing::cmdRouteDelete() {
    if (!HasRoute()) return;
    const std::string name = RoutesSet.TextOrEmpty("Name");
    const std::string question = shared.EnglishUI == 1
                                     ? "The Route - " + name + " - will be deleted ?"
                                     : "Soll die Strecke - " + name + " - gelöscht werden ?";
    if (!dialogs.AskYesNo({}, question)) return;
    DeleteRoute();
    if (HasRoute()) {
        RouteRowChanged();
        return;
    }
    if (RoutePointsSet.IsOpen()) RoutePointsSet.Requery();
    if (ShowRouteOn) owner.RedrawPlan();
}

void RouteEditing::DeleteRoute() {
    const Flagged now(moving);
    const int place = RoutesSet.AbsolutePosition();
    try {
        Transaction transaction(shared.DataConn);
        shared.DataConn.Execute("DELETE FROM GpsPoints WHERE RouteID = ?", {RoutesSet.Get("RouteID")});
        RoutesSet.Delete();
        transaction.Commit();
    } catch (...) {
        StandAgain(RoutesSet, place);
        throw;
    }
    if (RoutesSet.Eof()) RoutesSet.MoveLast(); // a list with rows stands on one
}

void RouteEditing::cmdAddwaypoint() {
    if (!HasRoute()) return;
    const Value route = RoutesSet.Get("RouteID");
    InsertAfterCurrent(shared.DataConn, RoutePointsSet, PointsOfRoute, {route}, [&](Recordset& point) {
        point.Set("RouteID", route);
        for (const char* field : {"PointID", "Name", "Lat", "Long"}) point.Set(field, waypoints.Get(field));
    });
    owner.RedrawPlan();
}

void RouteEditing::cmdDeleteWaypoint() {
    if (!RoutePointsSet.IsOpen() || RoutePointsSet.RecordCount() == 0) return;
    const int place = ToInt16(RoutePointsSet.AbsolutePosition());
    const Value route = RoutePointsSet.Get("RouteID");
    try {
        Transaction transaction(shared.DataConn);
        RoutePointsSet.Delete();
        Renumber(shared.DataConn, PointsOfRoute, {route});
        transaction.Commit();
    } catch (...) {
        StandAgain(RoutePointsSet, place);
        throw;
    }
    RoutePointsSet.Requery();
    if (RoutePointsSet.RecordCount() == 0) return; // the line of the route stays until the next redraw
    if (!RoutePointsSet.Find("Nummer", Comparison::Equal, place)) RoutePointsSet.MoveLast();
    owner.RedrawPlan();
}

void RouteEditing::cmdshowRoute() {
    ShowRouteOn = true;
    owner.RedrawPlan();
}

void RouteEditing::picShowRoute() {
    ShowRouteOn = false;
    owner.RedrawPlan();
}

} // namespace ornivane
