#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "data/RoutePoints.h"
#include "nav/FlightState.h"
#include "store/Recordset.h"

namespace ornivane {

// What the controls of the route show. Members carry their names.
struct RouteShown {
    std::string cmbRoute;
    std::vector<std::string> RouteNames;
    std::string tRoute; // lies over cmbRoute, so that the arrow keys do not change the route by accident
    bool RouteActive = false; // the lamp over cmdActivateGoto
    bool GotoActive = false;  // Direct Fly, the lamp over cmdDirectFly
    bool Frame1() const { return RouteActive || GotoActive; }
    bool cmdNextEnabled = true, cmdPrevEnabled = true;
    bool RowSelected = false; // the current row of gridWaypoints shows as selected
    // The target of Direct Fly as DegMinValue; blank without one.
    Readout lblLatx = Readout::Blank(), lblLongx = Readout::Blank();
    Readout lblRoute = Readout::Blank(), lblRemDist = Readout::Blank(); // NM
    bool operator==(const RouteShown&) const = default;
};

// What a routine of the route leaves to its screen, to be done in this order.
struct RouteEffects {
    bool TargetChosen = false; // by the pilot
    bool Redraw = false;
    bool FocusMap = false;
};

// What coming back to the screen has found in the lists.
struct RouteReturn {
    std::optional<std::string> Gone; // the flown route that was renamed or deleted: it is flown no longer
    bool IsAnotherTarget = false;    // or it stands elsewhere now
    std::optional<RuntimeError>
        Damage; // of a row; one at which the map would open leaves the first one active
};

// The route that is flown, point by point, and the target of Direct Fly.
class RouteFollowing : public RouteShown, private RecordsetObserver {
public:
    // `rowIsChosen`: the pilot has made another row the active point, in the grid or by a step button.
    RouteFollowing(Connection& connection, FlightState& flightState, std::function<void()> rowIsChosen);
    ~RouteFollowing() override;
    RouteFollowing(const RouteFollowing&) = delete;
    RouteFollowing& operator=(const RouteFollowing&) = delete;

    void OpenRoutes(); // once, when the screen is loaded
    // The screen is back in front: routes and points may have changed. The route list is to be refreshed.
    [[nodiscard]] RouteReturn Activate();

    // True when there are routes: another target is chosen, the route list to be refreshed, the map drawn.
    [[nodiscard]] bool cmbRoute_Click(const std::string& name);
    [[nodiscard]] RouteEffects cmdActivateGoto_Click();
    [[nodiscard]] RouteEffects picActivateGoto_Click();
    [[nodiscard]] RouteEffects cmdDirectFly_Click() { return SetDirectFly(true); }
    [[nodiscard]] RouteEffects picDF_Click() { return SetDirectFly(false); }
    [[nodiscard]] RouteEffects cmdNext_Click();
    [[nodiscard]] RouteEffects cmdPrev_Click();
    // The clicked position becomes the target of Direct Fly while that is on.
    [[nodiscard]] RouteEffects SetDirectTarget(const Position& position);
    // As cmdNext_Click, when the active point was passed: no choice of the pilot.
    void PassPoint();
    // Total and remaining distance of the route. `toTargetNM`: what remains to the active point; none without
    // a fix.
    void RefreshRouteList(std::optional<double> toTargetNM);

    // That of Direct Fly as its labels show it, while that is on and has one.
    std::optional<DegMin> DirectTarget() const;
    // That of Direct Fly, or the active route point.
    std::optional<Position> ActiveTarget() const;
    bool HasRoutes() const { return RoutesSet.IsOpen() && RoutesSet.RecordCount() > 0; }

    Recordset RoutesSet;
    Recordset RoutePointsSet; // the current row is the active route point

private:
    void CurrentRowChanged() override;

    // Where the lists stood when the screen was left.
    struct Place {
        Value RouteID, Nummer, PointID; // Null where there was none
        int Points = 0;                 // of the route
        std::optional<Position> Target; // decimal degrees; none behind a damaged row
    };

    void OpenPoints();
    bool OnPoint() const;
    Place CurrentPlace() const;
    bool ReopenRoute(const Place& place, const std::string& name);
    void ReturnTo(const Place& place);
    void EnableSteps() { cmdNextEnabled = cmdPrevEnabled = true; }
    RouteEffects SetDirectFly(bool on);

    Connection& dataConn;
    FlightState& state;
    std::function<void()> rowChosen;
    RoutePoints points;
    bool movesItself = false; // the moves of the rows are no choices of the pilot
};

} // namespace ornivane
