#include "nav/RouteFollowing.h"

#include <algorithm>
#include <exception>

#include "base/Flagged.h"
#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

const char* const PointsOfRoute = "SELECT * From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC";
constexpr int NoRoute = -99999; // no row ever has it: a valid, empty set of points

} // namespace

RouteFollowing::RouteFollowing(Variablen& variablen, FlightState& flightState,
                               RouteFollowingOwner& routeOwner)
    : shared(variablen), state(flightState), owner(routeOwner) {
    RoutePointsSet.AddObserver(this);
}

RouteFollowing::~RouteFollowing() { RoutePointsSet.RemoveObserver(this); }

void RouteFollowing::OpenRoutes() {
    RoutesSet.Open(shared.DataConn, "SELECT * From Route Order by NUMMER ASC");
}

void RouteFollowing::CurrentRowChanged() {
    if (activating) return;
    RowSelected = true;
    EnableSteps();
    owner.TargetChosen();
    owner.UpdateMap();
}

void RouteFollowing::OpenPoints() {
    RoutePointsSet.Open(shared.DataConn, PointsOfRoute,
                        {HasRoutes() && !RoutesSet.Eof() ? RoutesSet.Get("RouteID") : Value(NoRoute)});
}

void RouteFollowing::cmbRoute_Click(const std::string& name) {
    if (!HasRoutes()) return;
    {
        const Flagged reopening(activating);
        RoutesSet.MoveFirst();
        if (!RoutesSet.Find("Name", Comparison::Equal, name)) RoutesSet.MoveFirst();
        OpenPoints();
    }
    cmbRoute = RoutesSet.Text("Name");
    tRoute = cmbRoute;
    if (RoutePointsSet.RecordCount() == 0) SwitchOff();
    EnableSteps();
    owner.TargetChosen();
    std::exception_ptr damage;
    try {
        RefreshRouteList();
    } catch (const RuntimeError&) {
        damage = std::current_exception(); // the route is chosen all the same
    }
    owner.UpdateMap();
    // Last: a folder that cannot be written must not keep the new route from the screen.
    const std::string map = owner.MapName();
    if (!map.empty()) WriteLastChoice(shared.ProgramFolder, {map, cmbRoute});
    if (damage) std::rethrow_exception(damage);
}

void RouteFollowing::HideFrameUnless(bool stays) {
    if (!stays) Frame1 = false;
}

void RouteFollowing::cmdActivateGoto_Click() {
    RouteActive = RoutePointsSet.IsOpen() && RoutePointsSet.RecordCount() > 0;
    picActivateGoto = RouteActive;
    if (!RouteActive) {
        HideFrameUnless(GotoActive);
        return;
    }
    Frame1 = true;
    RowSelected = true;
    // A route that was flown to its end left its step button off; on a route that is active it works again.
    cmdNextEnabled = true;
    owner.TargetChosen();
    owner.UpdateMap();
    owner.FocusMap();
}

void RouteFollowing::SwitchOff() {
    RouteActive = false;
    picActivateGoto = false;
    HideFrameUnless(GotoActive);
}

void RouteFollowing::picActivateGoto_Click() {
    SwitchOff();
    owner.UpdateMap();
    owner.FocusMap();
}

void RouteFollowing::ClearTargetValues() {
    state.lblTrueBearing.clear();
    state.lblDistanz.clear();
    state.lblTime.clear();
}

void RouteFollowing::cmdDirectFly_Click() {
    GotoActive = true;
    Frame1 = true;
    picDF = true;
    ClearTargetValues();
    owner.TargetChosen();
    owner.UpdateMap();
    owner.FocusMap();
}

void RouteFollowing::picDF_Click() {
    GotoActive = false;
    HideFrameUnless(picActivateGoto);
    picDF = false;
    ClearTargetValues();
    owner.TargetChosen();
    owner.UpdateMap();
    owner.FocusMap();
}

void RouteFollowing::SetDirectTarget(const Position& position) {
    if (!GotoActive) return;
    lblLatx = Format(ToDegMinValue(position.Lat), "###.##0", shared.Locale);
    lblLongx = Format(ToDegMinValue(position.Long), "###.##0", shared.Locale);
    owner.TargetChosen();
    owner.UpdateMap();
}

void RouteFollowing::cmdNext_Click() {
    if (!RoutePointsSet.IsOpen()) return;
    if (RoutePointsSet.RecordCount() > 0) RowSelected = false;
    if (RoutePointsSet.AbsolutePosition() >= RoutePointsSet.RecordCount() ||
        RoutePointsSet.RecordCount() == 0) {
        SwitchOff();
        cmdNextEnabled = false;
    } else {
        cmdPrevEnabled = true;
        RoutePointsSet.MoveNext();
    }
    RowSelected = true;
    owner.FocusMap();
}

void RouteFollowing::cmdPrev_Click() {
    if (!RoutePointsSet.IsOpen()) return;
    RowSelected = false;
    if (RoutePointsSet.AbsolutePosition() < 2) {
        cmdPrevEnabled = false;
    } else {
        cmdNextEnabled = true;
        RoutePointsSet.MovePrevious();
    }
    RowSelected = true;
    owner.FocusMap();
}

bool RouteFollowing::ActiveTarget(Position& target) {
    if (!RoutePointsSet.IsOpen()) return false;
    if (GotoActive) {
        if (lblLatx.empty()) return false;
        target = {ToDecimalDegrees(NumberIn(lblLatx)), ToDecimalDegrees(NumberIn(lblLongx))};
        return true;
    }
    if (!OnPoint()) return false;
    target = {ToDecimalDegrees(RoutePointsSet.Number("Lat")),
              ToDecimalDegrees(RoutePointsSet.Number("Long"))};
    return true;
}

void RouteFollowing::RefreshRouteList() {
    if (!HasRoutes() || RoutesSet.Eof()) return;
    // A damaged point ends this, and what stands here then must not be that of another route.
    lblRoute.clear();
    lblRemDist.clear();
    if (!legs.IsPrepared())
        legs = Statement(shared.DataConn,
                         "SELECT Nummer, Lat, Long From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC");
    // The place in the route tells the row, not the waypoint: one waypoint may stand several times in a
    // route.
    const double active = OnPoint() ? RoutePointsSet.Number("Nummer") : -1;
    double total = 0, rest = 0;
    Position from;
    const StatementRun run(legs);
    legs.Bind(1, RoutesSet.Get("RouteID"));
    for (bool first = true; legs.Step(); first = false) {
        const Position to{ToDecimalDegrees(legs.Number(1)), ToDecimalDegrees(legs.Number(2))};
        if (!first) {
            const double leg = CalcRouteDist(to.Lat, to.Long, from.Lat, from.Long);
            total += leg;
            rest += leg;
            if (legs.Number(0) == active) rest = 0;
        }
        from = to;
    }
    lblRoute = Format(total, "#####", shared.Locale);
    if (owner.HasFix()) rest += owner.DistanceToTarget();
    lblRemDist = GotoActive ? state.lblDistanz : Format(rest, "###0.0", shared.Locale) + " NM";
}

bool RouteFollowing::OnPoint() const {
    return RoutePointsSet.IsOpen() && RoutePointsSet.RecordCount() > 0 && !RoutePointsSet.Eof() &&
           !RoutePointsSet.Bof();
}

RouteFollowing::Place RouteFollowing::CurrentPlace() {
    Place place;
    if (HasRoutes() && !RoutesSet.Eof()) place.RouteID = RoutesSet.Get("RouteID");
    if (OnPoint()) {
        place.Nummer = RoutePointsSet.Get("Nummer");
        place.PointID = RoutePointsSet.Get("PointID");
    }
    if (RoutePointsSet.IsOpen()) place.Points = RoutePointsSet.RecordCount();
    try {
        Position target;
        if (ActiveTarget(target)) place.Target = target;
    } catch (const RuntimeError&) {
        // The lists are read anew all the same: the row may have been mended.
    }
    return place;
}

// In a round trip a waypoint stands several times: its number in the route comes first, as long as the
// waypoint is still that one.
void RouteFollowing::ReturnTo(const Place& place) {
    if (RoutePointsSet.RecordCount() == 0 || place.Nummer.IsNull()) return;
    RoutePointsSet.MoveFirst();
    if (RoutePointsSet.Find("Nummer", Comparison::Equal, place.Nummer) &&
        RoutePointsSet.Get("PointID") == place.PointID)
        return;
    RoutePointsSet.MoveFirst();
    if (place.PointID.IsNull() || !RoutePointsSet.Find("PointID", Comparison::Equal, place.PointID))
        RoutePointsSet.MoveFirst();
}

// The route of this name, or the first one. False unless it is the one of before under its name: who renames
// a route and comes back finds no such name in the list.
bool RouteFollowing::ReopenRoute(const Place& place, const std::string& name) {
    RoutesSet.Requery();
    RouteNames.clear();
    for (; !RoutesSet.Eof(); RoutesSet.MoveNext()) RouteNames.push_back(RoutesSet.Text("Name"));
    if (RouteNames.empty()) {
        cmbRoute.clear();
        lblRoute.clear();
        lblRemDist.clear();
        OpenPoints();
        return false;
    }
    RoutesSet.MoveFirst();
    const bool isFound = RoutesSet.Find("Name", Comparison::Equal, name);
    if (!isFound) RoutesSet.MoveFirst();
    cmbRoute = RoutesSet.Text("Name");
    tRoute = cmbRoute;
    OpenPoints();
    return isFound && RoutesSet.Get("RouteID") == place.RouteID;
}

void RouteFollowing::Activate() {
    const Flagged reopening(activating);
    const Place before = CurrentPlace();
    const std::string name = cmbRoute.empty() ? tRoute : cmbRoute;
    const bool isSame = ReopenRoute(before, name);
    if (RouteActive && !isSame) {
        // Another route than the one that was chosen must not lead on.
        SwitchOff();
        owner.RouteGone(name);
    }
    if (RoutePointsSet.RecordCount() == 0) SwitchOff();
    if (!state.HadPosition && OnPoint()) {
        state.CurLat = ToDecimalDegrees(RoutePointsSet.Number("Lat"));
        state.CurLong = ToDecimalDegrees(RoutePointsSet.Number("Long"));
    }
    ReturnTo(before);
    const Place now = CurrentPlace();
    if (!isSame || now.Nummer != before.Nummer || now.Points != before.Points) EnableSteps();
    if (now.Target != before.Target) owner.TargetChosen();
    RefreshRouteList();
}

} // namespace ornivane
