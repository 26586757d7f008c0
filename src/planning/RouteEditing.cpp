#include "planning/RouteEditing.h"

#include <algorithm>

#include "base/Flagged.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "store/KeptListRow.h"
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

RouteEditing::RouteEditing(Variablen& variablen, Dialogs& messages, Undo& lastDeed, Recordset& waypointList,
                           PlanningOwner& screen)
    : shared(variablen), dialogs(messages), undo(lastDeed), waypoints(waypointList), owner(screen) {
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
    ShowSelected();
}

// The length is written when a route with points is drawn: without any, that of another would stand here.
void RouteEditing::ShowNoLengthWithoutPoints() {
    if (RoutePointsSet.RecordCount() == 0) lblRouteDistanz.clear();
}

void RouteEditing::FocusWaypoints() {
    try {
        owner.FocusWaypoints();
    } catch (const RuntimeError&) {
        // the point is put in or taken out all the same
    }
}

// The chart marks the chosen point.
void RouteEditing::PointRowChanged() {
    FocusWaypoints();
    try {
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
    ShowSelected();
}

void RouteEditing::DeleteRoute() {
    const Flagged now(moving);
    const int place = RoutesSet.AbsolutePosition();
    Undo::Deed deed = KeepRoute();
    try {
        Transaction transaction(shared.DataConn);
        shared.DataConn.Execute("DELETE FROM GpsPoints WHERE RouteID = ?", {RoutesSet.Get("RouteID")});
        RoutesSet.Delete();
        transaction.Commit();
    } catch (...) {
        StandAgain(RoutesSet, place);
        throw;
    }
    undo.Offer(std::move(deed));
    if (RoutesSet.Eof()) RoutesSet.MoveLast(); // a list with rows stands on one
}

// The selected route with all its points as they are now.
Undo::Deed RouteEditing::KeepRoute() {
    const Value route = RoutesSet.Get("RouteID");
    const std::string name = Undo::NameOf(RoutesSet);
    const KeptListRow row(shared.DataConn, "Route", "1", {}, RoutesSet.RowId());
    const KeptRows points(shared.DataConn, "GpsPoints", "RouteID = ?", {route});
    const int place = RoutePointsSet.IsOpen() ? RoutePointsSet.AbsolutePosition() : 0;
    return {"Strecke " + name + " gelöscht", "Route " + name + " deleted", shared.DataConn,
            [row, points] {
                row.PutBack();
                points.PutBack();
            },
            [this, route, place] {
                SelectRoute(route);
                if (place >= 1 && place <= RoutePointsSet.RecordCount())
                    RoutePointsSet.SetAbsolutePosition(place);
                ShowSelected();
            }};
}

// The route and its points are read again; nothing is drawn.
void RouteEditing::SelectRoute(const Value& route) {
    const Flagged now(moving);
    RoutesSet.Requery();
    if (!RoutesSet.Find("RouteID", Comparison::Equal, route)) RoutesSet.MoveFirst();
    OpenPoints();
}

void RouteEditing::ShowSelected() {
    ShowNoLengthWithoutPoints();
    if (ShowRouteOn) owner.RedrawPlan();
}

void RouteEditing::cmdAddwaypoint() {
    if (!HasRoute()) return;
    const Value route = RoutesSet.Get("RouteID");
    InsertAfterCurrent(shared.DataConn, RoutePointsSet, PointsOfRoute, {route}, [&](Recordset& point) {
        point.Set("RouteID", route);
        for (const char* field : {"PointID", "Name", "Lat", "Long"}) point.Set(field, waypoints.Get(field));
    });
    FocusWaypoints();
    owner.RedrawPlan();
}

void RouteEditing::cmdDeleteWaypoint() {
    if (!RoutePointsSet.IsOpen() || RoutePointsSet.RecordCount() == 0) return;
    const int place = ToInt16(RoutePointsSet.AbsolutePosition());
    const Value route = RoutePointsSet.Get("RouteID");
    Undo::Deed deed = KeepPoint(route);
    try {
        Transaction transaction(shared.DataConn);
        RoutePointsSet.Delete();
        Renumber(shared.DataConn, PointsOfRoute, {route});
        transaction.Commit();
    } catch (...) {
        StandAgain(RoutePointsSet, place);
        throw;
    }
    undo.Offer(std::move(deed));
    RoutePointsSet.Requery();
    FocusWaypoints();
    if (RoutePointsSet.RecordCount() == 0) return; // the line of the route stays until the next redraw
    if (!RoutePointsSet.Find("Nummer", Comparison::Equal, place)) RoutePointsSet.MoveLast();
    owner.RedrawPlan();
}

// The current point as it is now, and the numbers of its route.
Undo::Deed RouteEditing::KeepPoint(const Value& route) {
    const std::string name = Undo::NameOf(RoutePointsSet);
    const KeptListRow row(shared.DataConn, "GpsPoints", "RouteID = ?", {route}, RoutePointsSet.RowId());
    return {"Streckenpunkt " + name + " gelöscht", "Route point " + name + " deleted", shared.DataConn,
            [this, row] { pointBack = row.PutBack(); },
            [this, route] {
                SelectRoute(route);
                while (!RoutePointsSet.Eof() && RoutePointsSet.RowId() != pointBack)
                    RoutePointsSet.MoveNext();
                FocusWaypoints();
                owner.RedrawPlan();
            }};
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
