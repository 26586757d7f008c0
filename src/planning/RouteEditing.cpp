#include "planning/RouteEditing.h"

#include <algorithm>

#include "base/Flagged.h"
#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "geo/GreatCircle.h"
#include "store/Connection.h"

namespace ornivane {

namespace {

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

RouteEditing::RouteEditing(const Language& texts, Connection& dataConn, Dialogs& messages, Undo& lastDeed,
                           PlanEvents onEvents)
    : language(texts), data(dataConn), dialogs(messages), undo(lastDeed), routes(dataConn), points(dataConn),
      events(std::move(onEvents)) {
    RoutesSet.AddObserver(this);
}

RouteEditing::~RouteEditing() { RoutesSet.RemoveObserver(this); }

bool RouteEditing::HasRoute() const { return RoutesSet.IsOpen() && RoutesSet.AbsolutePosition() > 0; }

void RouteEditing::Form_Load() {
    const Flagged now(moving);
    routes.Open(RoutesSet);
    if (HasRoute()) OpenPoints();
}

void RouteEditing::OpenPoints() { points.Open(RoutePointsSet, RoutesSet.Get("RouteID")); }

void RouteEditing::CurrentRowChanged() {
    if (moving || !HasRoute() || RoutesSet.Get("RouteID").IsNull()) return;
    OpenPoints();
    events(ShowSelected());
}

PlanEffects RouteEditing::PointRowChanged() { return {PlanEffect::FocusWaypoints, PlanEffect::Redraw}; }

void RouteEditing::RoutesHeadClick(int column) {
    if (column != 0) return;
    const Flagged now(moving);
    SortByNumber(RoutesSet);
}

void RouteEditing::PointsHeadClick(int column) {
    if (column == 0) SortByNumber(RoutePointsSet);
}

PlanEffects RouteEditing::cmdNewRoute() {
    const std::string name = dialogs.InputBox(language.Text("Neue Strecke", "New Route"));
    if (name.empty()) {
        dialogs.Message(
            language.Text("Eingabefehler", "Data error"),
            language.Text("Bitte eine Streckenbezeichnung eingeben !", "Please enter a route name !"));
        return {};
    }
    {
        const Flagged now(moving);
        routes.InsertAfterCurrent(RoutesSet, name);
    }
    OpenPoints();
    PlanEffects effects = ShowSelected();
    if (RoutesSet.RecordCount() >= 2) effects.push_back(PlanEffect::FocusRoutes);
    return effects;
}

PlanEffects RouteEditing::cmdRouteDelete() {
    if (!HasRoute()) return {};
    const std::string question =
        language.Text("Soll die Strecke - %1 - gelöscht werden ?", "The Route - %1 - will be deleted ?",
                      {RoutesSet.TextOrEmpty("Name")});
    if (!dialogs.AskYesNo({}, question)) return {};
    DeleteRoute();
    if (HasRoute())
        OpenPoints();
    else if (RoutePointsSet.IsOpen())
        RoutePointsSet.Requery();
    return ShowSelected();
}

void RouteEditing::DeleteRoute() {
    const Flagged now(moving);
    const int place = RoutesSet.AbsolutePosition();
    Undo::Deed deed = KeepRoute();
    RestoreOnError(
        [&] {
            Transaction transaction(data);
            points.DeleteAll(RoutesSet.Get("RouteID"));
            RoutesSet.Delete();
            transaction.Commit();
        },
        [&] { StandAgain(RoutesSet, place); });
    undo.Offer(std::move(deed));
    if (RoutesSet.Eof()) RoutesSet.MoveLast(); // a list with rows stands on one
}

// The selected route with all its points as they are now.
Undo::Deed RouteEditing::KeepRoute() {
    const Value route = RoutesSet.Get("RouteID");
    const std::string name = Undo::NameOf(RoutesSet);
    const KeptListRow row = routes.Keep(RoutesSet.RowId());
    const KeptRows itsPoints = points.KeepAll(route);
    const int place = RoutePointsSet.IsOpen() ? RoutePointsSet.AbsolutePosition() : 0;
    return {{"Strecke %1 gelöscht", "Route %1 deleted"},
            name,
            data,
            [row, itsPoints] {
                row.PutBack();
                itsPoints.PutBack();
            },
            [this, route, place] {
                SelectRoute(route);
                if (place >= 1 && place <= RoutePointsSet.RecordCount())
                    RoutePointsSet.SetAbsolutePosition(place);
                events(ShowSelected());
            }};
}

// The route and its points are read again; nothing is drawn.
void RouteEditing::SelectRoute(const Value& route) {
    const Flagged now(moving);
    RequeryRoutes(route);
    OpenPoints();
}

void RouteEditing::RequeryRoutes(const Value& route) {
    RoutesSet.Requery();
    if (!RoutesSet.Find("RouteID", Comparison::Equal, route)) RoutesSet.MoveFirst();
}

// Seen at once, still without points: what tells of the import comes later.
void RouteEditing::RouteAdded(const Value& route) {
    if (RoutesSet.IsOpen()) RequeryRoutes(route);
}

void RouteEditing::PointsAdded() {
    if (RoutePointsSet.IsOpen()) RoutePointsSet.Requery();
}

// The length is written when a route with points is drawn: without any, that of another would stand here.
PlanEffects RouteEditing::ShowSelected() {
    if (RoutePointsSet.RecordCount() == 0) lblRouteDistanz.clear();
    return ShowRouteOn ? PlanEffects{PlanEffect::Redraw} : PlanEffects();
}

PlanEffects RouteEditing::cmdAddwaypoint(const std::optional<WaypointBook::Waypoint>& waypoint) {
    if (!HasRoute()) return {};
    if (!waypoint) throw RuntimeError(ErrorNumber::NoCurrentRecord);
    points.InsertAfterCurrent(RoutePointsSet, RoutesSet.Get("RouteID"), *waypoint);
    return {PlanEffect::FocusWaypoints, PlanEffect::Redraw};
}

PlanEffects RouteEditing::cmdDeleteWaypoint() {
    if (!RoutePointsSet.IsOpen() || RoutePointsSet.RecordCount() == 0) return {};
    const int place = ToInt16(RoutePointsSet.AbsolutePosition());
    const Value route = RoutePointsSet.Get("RouteID");
    Undo::Deed deed = KeepPoint(route);
    RestoreOnError(
        [&] {
            Transaction transaction(data);
            RoutePointsSet.Delete();
            points.Renumber(route);
            transaction.Commit();
        },
        [&] { StandAgain(RoutePointsSet, place); });
    undo.Offer(std::move(deed));
    RoutePointsSet.Requery();
    // The line of the route stays until the next redraw.
    if (RoutePointsSet.RecordCount() == 0) return {PlanEffect::FocusWaypoints};
    if (!RoutePointsSet.Find("Nummer", Comparison::Equal, place)) RoutePointsSet.MoveLast();
    return {PlanEffect::FocusWaypoints, PlanEffect::Redraw};
}

// The current point as it is now, and the numbers of its route.
Undo::Deed RouteEditing::KeepPoint(const Value& route) {
    const std::string name = Undo::NameOf(RoutePointsSet);
    const KeptListRow row = points.Keep(route, RoutePointsSet.RowId());
    return {{"Streckenpunkt %1 gelöscht", "Route point %1 deleted"},
            name,
            data,
            [this, row] { pointBack = row.PutBack(); },
            [this, route] {
                SelectRoute(route);
                while (!RoutePointsSet.Eof() && RoutePointsSet.RowId() != pointBack)
                    RoutePointsSet.MoveNext();
                events({PlanEffect::FocusWaypoints, PlanEffect::Redraw});
            }};
}

PlanEffects RouteEditing::SetShown(bool on) {
    ShowRouteOn = on;
    return {PlanEffect::Redraw};
}

Value RouteEditing::CurrentPoint() const {
    return RoutePointsSet.AbsolutePosition() > 0 ? RoutePointsSet.Get("PointID") : Value();
}

std::optional<PlanRoute> RouteEditing::DrawnRoute() {
    if (!ShowRouteOn || !HasRoute()) return std::nullopt;
    PlanRoute route;
    route.Fault = ErrorOf([&] {
        const double length = ReadPoints(route);
        if (!route.Points.empty()) lblRouteDistanz = Format(length, "#####", language.Locale) + " NM";
    });
    return route;
}

// The length in NM.
double RouteEditing::ReadPoints(PlanRoute& route) {
    const std::string name = RoutesSet.TextOrEmpty("Name");
    double sum = 0;
    points.ForEach(RoutesSet.Get("RouteID"), [&](const RoutePoints::Point& point) {
        const Position to = ToDecimalDegrees(point.PlaceIn(name));
        if (!route.Points.empty()) sum += CalcRouteDist(to, route.Points.back());
        route.Points.push_back(to);
    });
    return sum;
}

} // namespace ornivane
