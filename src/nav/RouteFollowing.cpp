#include "nav/RouteFollowing.h"

#include <utility>

#include "base/Flagged.h"
#include "common/StoredPositions.h"
#include "data/Routes.h"
#include "geo/GreatCircle.h"

namespace ornivane {

namespace {

constexpr RouteEffects ChosenByButton{.TargetChosen = true, .Redraw = true, .FocusMap = true};
constexpr ReadoutFormat TargetPlace{"###.##0", ""}, RouteLength{"#####", "NM"};

} // namespace

RouteFollowing::RouteFollowing(Connection& connection, FlightState& flightState,
                               std::function<void()> rowIsChosen)
    : dataConn(connection), state(flightState), rowChosen(std::move(rowIsChosen)), points(connection) {
    RoutePointsSet.AddObserver(this);
}

RouteFollowing::~RouteFollowing() { RoutePointsSet.RemoveObserver(this); }

void RouteFollowing::OpenRoutes() { Routes(dataConn).Open(RoutesSet); }

void RouteFollowing::CurrentRowChanged() {
    if (movesItself) return;
    RowSelected = true;
    EnableSteps();
    rowChosen();
}

void RouteFollowing::OpenPoints() {
    points.Open(RoutePointsSet, HasRoutes() && !RoutesSet.Eof() ? RoutesSet.Get("RouteID") : Value());
}

bool RouteFollowing::cmbRoute_Click(const std::string& name) {
    if (!HasRoutes()) return false;
    {
        const Flagged reopening(movesItself);
        RoutesSet.MoveFirst();
        if (!RoutesSet.Find("Name", Comparison::Equal, name)) RoutesSet.MoveFirst();
        OpenPoints();
    }
    cmbRoute = RoutesSet.Text("Name");
    tRoute = cmbRoute;
    if (RoutePointsSet.RecordCount() == 0) RouteActive = false;
    EnableSteps();
    return true;
}

RouteEffects RouteFollowing::cmdActivateGoto_Click() {
    RouteActive = RoutePointsSet.IsOpen() && RoutePointsSet.RecordCount() > 0;
    if (!RouteActive) return {};
    RowSelected = true;
    // A route that was flown to its end left its step button off; on a route that is active it works again.
    cmdNextEnabled = true;
    return ChosenByButton;
}

RouteEffects RouteFollowing::picActivateGoto_Click() {
    RouteActive = false;
    return {.Redraw = true, .FocusMap = true};
}

RouteEffects RouteFollowing::SetDirectFly(bool on) {
    GotoActive = on;
    state.lblTrueBearing = state.lblDistanz = Readout::Blank();
    state.lblTime = std::string();
    return ChosenByButton;
}

RouteEffects RouteFollowing::SetDirectTarget(const Position& position) {
    if (!GotoActive) return {};
    const DegMin target = ToDegMinValue(position);
    lblLatx = Readout(target.Lat.Value(), TargetPlace);
    lblLongx = Readout(target.Long.Value(), TargetPlace);
    return {.TargetChosen = true, .Redraw = true};
}

RouteEffects RouteFollowing::cmdNext_Click() {
    if (!RoutePointsSet.IsOpen()) return {};
    if (RoutePointsSet.RecordCount() > 0) RowSelected = false;
    if (RoutePointsSet.AbsolutePosition() >= RoutePointsSet.RecordCount() ||
        RoutePointsSet.RecordCount() == 0) {
        RouteActive = false;
        cmdNextEnabled = false;
    } else {
        EnableSteps();
        RoutePointsSet.MoveNext();
    }
    RowSelected = true;
    return {.FocusMap = true};
}

void RouteFollowing::PassPoint() {
    const Flagged byItself(movesItself);
    static_cast<void>(cmdNext_Click());
}

RouteEffects RouteFollowing::cmdPrev_Click() {
    if (!RoutePointsSet.IsOpen()) return {};
    RowSelected = false;
    if (RoutePointsSet.AbsolutePosition() < 2) {
        cmdPrevEnabled = false;
    } else {
        cmdNextEnabled = true;
        RoutePointsSet.MovePrevious();
    }
    RowSelected = true;
    return {.FocusMap = true};
}

std::optional<DegMin> RouteFollowing::DirectTarget() const {
    if (!GotoActive || !lblLatx.HasNumber()) return std::nullopt;
    return DegMin{StoredLatitude(lblLatx.Number()), StoredLongitude(lblLongx.Number())};
}

std::optional<Position> RouteFollowing::ActiveTarget() const {
    if (!RoutePointsSet.IsOpen()) return std::nullopt;
    if (!GotoActive)
        return OnPoint() ? std::optional(ToDecimalDegrees(DegMinOf(RoutePointsSet))) : std::nullopt;
    const auto target = DirectTarget();
    return target ? std::optional(ToDecimalDegrees(*target)) : std::nullopt;
}

void RouteFollowing::RefreshRouteList(std::optional<double> toTargetNM) {
    if (!HasRoutes() || RoutesSet.Eof()) return;
    // A damaged point ends this, and what stands here then must not be that of another route.
    lblRoute = lblRemDist = Readout::Blank();
    // The place in the route tells the row, not the waypoint: one waypoint may stand several times in a
    // route.
    const double active = OnPoint() ? RoutePointsSet.Number("Nummer") : -1;
    double total = 0, rest = 0;
    std::optional<Position> from;
    points.ForEach(RoutesSet.Get("RouteID"), [&](const RoutePoints::Point& point) {
        const Position to = ToDecimalDegrees(point.Place());
        if (from) {
            const double leg = CalcRouteDist(to, *from);
            total += leg;
            rest += leg;
            if (point.Number() == active) rest = 0;
        }
        from = to;
    });
    lblRoute = Readout(total, RouteLength);
    rest += toTargetNM.value_or(0);
    lblRemDist = GotoActive ? state.lblDistanz : Readout(rest, Formats::Miles);
}

bool RouteFollowing::OnPoint() const {
    return RoutePointsSet.IsOpen() && RoutePointsSet.RecordCount() > 0 && !RoutePointsSet.Eof() &&
           !RoutePointsSet.Bof();
}

RouteFollowing::Place RouteFollowing::CurrentPlace() const {
    Place place;
    if (HasRoutes() && !RoutesSet.Eof()) place.RouteID = RoutesSet.Get("RouteID");
    if (OnPoint()) {
        place.Nummer = RoutePointsSet.Get("Nummer");
        place.PointID = RoutePointsSet.Get("PointID");
    }
    if (RoutePointsSet.IsOpen()) place.Points = RoutePointsSet.RecordCount();
    // Behind a damaged row the lists are read anew all the same: it may have been mended.
    IgnoreErrors([&] { place.Target = ActiveTarget(); });
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
        lblRoute = lblRemDist = Readout::Blank();
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

RouteReturn RouteFollowing::Activate() {
    const Flagged reopening(movesItself);
    RouteReturn found;
    const Place before = CurrentPlace();
    const std::string name = cmbRoute.empty() ? tRoute : cmbRoute;
    const bool isSame = ReopenRoute(before, name);
    if (RouteActive && !isSame) {
        // Another route than the one that was chosen must not lead on.
        RouteActive = false;
        found.Gone = name;
    }
    if (RoutePointsSet.RecordCount() == 0) RouteActive = false;
    found.Damage = ErrorOf([&] {
        if (!state.HadPosition && OnPoint()) {
            state.CurLat = ToDecimalDegrees(StoredLatitude(RoutePointsSet.Number("Lat")));
            state.CurLong = ToDecimalDegrees(StoredLongitude(RoutePointsSet.Number("Long")));
        }
        ReturnTo(before);
        const Place now = CurrentPlace();
        if (!isSame || now.Nummer != before.Nummer || now.Points != before.Points) EnableSteps();
        found.IsAnotherTarget = now.Target != before.Target;
    });
    return found;
}

} // namespace ornivane
