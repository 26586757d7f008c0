#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Language.h"
#include "common/Undo.h"
#include "data/RoutePoints.h"
#include "data/Routes.h"
#include "planning/PlanEffects.h"
#include "planning/PlanScene.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

// What the controls of the route lists show besides the rows; members carry their names.
struct RouteControls {
    std::string lblRouteDistanz; // a by-product of DrawnRoute
    bool ShowRouteOn = false;
    bool operator==(const RouteControls&) const = default;
};

// The list of routes and the points of the selected one. The current row of RoutesSet is the selected route,
// that of RoutePointsSet the place behind which the next point is put.
class RouteEditing : public RouteControls, private RecordsetObserver {
public:
    // `lastDeed`: takes back the last deletion of the screen. `onEvents`: what follows from a route that
    // somebody selected, or from an undo.
    RouteEditing(const Language& texts, Connection& dataConn, Dialogs& messages, Undo& lastDeed,
                 PlanEvents onEvents);
    ~RouteEditing() override;
    RouteEditing(const RouteEditing&) = delete;
    RouteEditing& operator=(const RouteEditing&) = delete;

    void Form_Load(); // opens the lists
    // The user chose another route point. The keys go to the waypoints, from which the next one is picked,
    // and the chart marks the chosen one.
    PlanEffects PointRowChanged();

    // "Nr", the first column, brings a list back to its order; waypoints have none.
    void RoutesHeadClick(int column);
    void PointsHeadClick(int column);

    PlanEffects cmdNewRoute(); // asks for the name
    PlanEffects cmdRouteDelete();
    // Copies the waypoint into the selected route, if there is one. RuntimeError NoCurrentRecord without a
    // waypoint; nothing is written then.
    PlanEffects cmdAddwaypoint(const std::optional<WaypointBook::Waypoint>& waypoint);
    PlanEffects cmdDeleteWaypoint();
    PlanEffects cmdshowRoute() { return SetShown(true); }  // the route is drawn from now on
    PlanEffects picShowRoute() { return SetShown(false); } // and no longer; also the click on lblRouteDistanz

    // An import has added a route, which is selected now, and then its points.
    void RouteAdded(const Value& route);
    void PointsAdded();

    // The selected route while it is shown. Its length stays as it was while the route is not drawn, has no
    // points or cannot be read.
    std::optional<PlanRoute> DrawnRoute();
    Value CurrentPoint() const; // PointID, Null when there is none

    Recordset RoutesSet;
    Recordset RoutePointsSet; // closed as long as there has been no route

private:
    void CurrentRowChanged() override;

    bool HasRoute() const;
    void OpenPoints();
    void DeleteRoute();
    Undo::Deed KeepRoute();
    Undo::Deed KeepPoint(const Value& route);
    void SelectRoute(const Value& route);
    void RequeryRoutes(const Value& route);
    PlanEffects SetShown(bool on);
    PlanEffects ShowSelected();
    double ReadPoints(PlanRoute& route);

    const Language& language;
    Connection& data;
    Dialogs& dialogs;
    Undo& undo;
    Routes routes;
    RoutePoints points;
    PlanEvents events;
    std::int64_t pointBack = 0; // identity of the point that an undo has put back
    bool moving = false;        // a routine moves the list through rows that nobody is to see
};

} // namespace ornivane
