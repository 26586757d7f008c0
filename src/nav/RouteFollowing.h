#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/Variablen.h"
#include "map/MapTransform.h"
#include "nav/FlightState.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

// What route following asks of the flying screen.
class RouteFollowingOwner {
public:
    virtual ~RouteFollowingOwner() = default;
    virtual void UpdateMap() = 0; // ignored inside a drawing pass
    virtual void FocusMap() = 0;
    virtual bool HasFix() const = 0;                     // the lamp of a fix shows
    virtual double DistanceToTarget() const = 0;         // NM, at the last leg calculation
    virtual void TargetChosen() = 0;                     // by hand, or it stands elsewhere now
    virtual void RouteGone(const std::string& name) = 0; // the flown one was renamed or deleted
    virtual std::string MapName() const = 0;             // of the active map, empty when there is none
};

// The route that is flown, point by point, and the target of Direct Fly. Members carry the names of the
// controls that show them.
class RouteFollowing : private RecordsetObserver {
public:
    RouteFollowing(Variablen& variablen, FlightState& state, RouteFollowingOwner& owner);
    ~RouteFollowing() override;
    RouteFollowing(const RouteFollowing&) = delete;
    RouteFollowing& operator=(const RouteFollowing&) = delete;

    void OpenRoutes(); // once, when the screen is loaded
    void Activate();   // the screen is back in front: routes and points may have changed

    void cmbRoute_Click(const std::string& name);
    void cmdActivateGoto_Click();
    void picActivateGoto_Click();
    void cmdDirectFly_Click();
    void picDF_Click();
    void cmdNext_Click();
    void cmdPrev_Click();
    // Total and remaining distance of the route.
    void RefreshRouteList();
    // The clicked position becomes the target of Direct Fly while that is on.
    void SetDirectTarget(const Position& position);

    // The active target in decimal degrees; false when there is none.
    bool ActiveTarget(Position& target);
    bool HasRoutes() const { return RoutesSet.IsOpen() && RoutesSet.RecordCount() > 0; }

    Recordset RoutesSet;
    Recordset RoutePointsSet; // the current row is the active route point
    bool RouteActive = false;
    bool GotoActive = false;

    std::string cmbRoute;
    std::vector<std::string> RouteNames;
    std::string tRoute; // lies over cmbRoute, so that the arrow keys do not change the route by accident
    bool picActivateGoto = false, picDF = false, Frame1 = false;
    bool cmdNextEnabled = true, cmdPrevEnabled = true;
    bool RowSelected = false;      // the current row of gridWaypoints shows as selected
    std::string lblLatx, lblLongx; // DegMinValue as shown; empty without a target
    std::string lblRoute, lblRemDist;

private:
    void RowsReset() override {}
    void RowInserted(int) override {}
    void RowRemoved(int) override {}
    void RowChanged(int) override {}
    void CurrentRowChanged() override;

    // Where the lists stood when the screen was left.
    struct Place {
        Value RouteID, Nummer, PointID; // Null where there was none
        int Points = 0;                 // of the route
        std::optional<Position> Target; // decimal degrees; none behind a damaged row
    };

    void OpenPoints();
    bool OnPoint() const;
    Place CurrentPlace();
    bool ReopenRoute(const Place& place, const std::string& name);
    void ReturnTo(const Place& place);
    void EnableSteps() { cmdNextEnabled = cmdPrevEnabled = true; }
    void HideFrameUnless(bool stays);
    void SwitchOff();
    void ClearTargetValues();

    Variablen& shared;
    FlightState& state;
    RouteFollowingOwner& owner;
    Statement legs;
    bool activating = false; // routes are reopened: the moves of their rows are no choices of the pilot
};

} // namespace ornivane
