#pragma once

#include <cstdint>
#include <string>

#include "common/Undo.h"
#include "common/Variablen.h"
#include "planning/PlanningOwner.h"
#include "platform/Dialogs.h"
#include "store/Recordset.h"

namespace ornivane {

// The list of routes and the points of the selected one. The current row of RoutesSet is the selected route,
// that of RoutePointsSet the place behind which the next point is put. Members carry the names of the
// controls that show them.
class RouteEditing : private RecordsetObserver {
public:
    // `undo`: takes back the last deletion of the screen. `waypoints`: its current row is what cmdAddwaypoint
    // copies.
    RouteEditing(Variablen& shared, Dialogs& dialogs, Undo& undo, Recordset& waypoints, PlanningOwner& owner);
    ~RouteEditing() override;
    RouteEditing(const RouteEditing&) = delete;
    RouteEditing& operator=(const RouteEditing&) = delete;

    void Form_Load();       // opens the lists, draws nothing
    void RouteRowChanged(); // runs by itself when the current route changes
    void PointRowChanged(); // the user chose another route point

    // "Nr", the first column, brings a list back to its order; waypoints have none.
    void RoutesHeadClick(int column);
    void PointsHeadClick(int column);

    void cmdNewRoute(); // asks for the name
    void cmdRouteDelete();
    // RuntimeError NoCurrentRecord without a waypoint; nothing is written then.
    void cmdAddwaypoint();
    void cmdDeleteWaypoint();
    void cmdshowRoute(); // the route is drawn from now on
    void picShowRoute(); // and no longer; also the click on lblRouteDistanz

    Recordset RoutesSet;
    Recordset RoutePointsSet;    // closed as long as there has been no route
    std::string lblRouteDistanz; // written by drawing the route
    bool ShowRouteOn = false;

private:
    void RowsReset() override {}
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void RowChanged(int) override {}
    void CurrentRowChanged() override;

    bool HasRoute() const;
    void OpenPoints();
    void DeleteRoute();
    Undo::Deed KeepRoute();
    Undo::Deed KeepPoint(const Value& route);
    void SelectRoute(const Value& route);
    void ShowSelected();
    void ShowNoLengthWithoutPoints();
    void FocusWaypoints(); // the keys stay with the waypoints, from which the next point is picked

    Variablen& shared;
    Dialogs& dialogs;
    Undo& undo;
    Recordset& waypoints;
    PlanningOwner& owner;
    std::int64_t pointBack = 0; // identity of the point that an undo has put back
    bool moving = false;        // a routine moves the list through rows that nobody is to see
};

} // namespace ornivane
