#include "nav/Navigation.h"

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

constexpr double FarOutside = -5; // view pixels: an aircraft that far off the view has no symbol

} // namespace

Navigation::Navigation(const NavigationParts& navigationParts)
    : parts(navigationParts), waypoints(navigationParts.Stores.DataConn),
      airfields(navigationParts.Stores.AirfieldConn), routePoints(navigationParts.Stores.DataConn) {}

NavigationStep Navigation::Step(const RedrawOrder& order) {
    NavigationStep step;
    if (!parts.Map.HasRows()) return step;
    Scene& scene = step.Picture;
    UntilError(scene, [&] {
        if (!parts.Map.HasMap()) {
            DrawActiveLeg(step, order.HasFix);
            // As if the aircraft were at the edge: any chart that covers it is better than none.
            step.ChangesChart = parts.Ring.Search(parts.State.Current(), true);
            return;
        }
        Compute(step, order);
        if (scene.Transform->IsBeyond(MapPoint, FarOutside) && !parts.Map.AutoMapSwitch) return;
        const bool isAtEdge = scene.Transform->IsBeyond(MapPoint, MapRing::EdgePixels);
        step.ChangesChart = parts.Ring.Search(parts.State.Current(), isAtEdge);
        AddAircraft(scene);
    });
    return step;
}

NavigationStep Navigation::ChangeChart(const RedrawOrder& order) {
    NavigationStep step;
    UntilError(step.Picture, [&] {
        parts.Ring.Change(parts.Route.cmbRoute);
        if (!parts.Map.HasMap()) return;
        RedrawOrder whole = order;
        whole.PaintsChart = true;
        Compute(step, whole);
        AddAircraft(step.Picture);
    });
    return step;
}

void Navigation::UntilError(Scene& scene, const std::function<void()>& steps) const {
    try {
        steps();
    } catch (const RuntimeError& error) {
        scene.Fault = parts.Faults.TextOf(DrawingFaults::Layer::Whole, error);
    }
}

void Navigation::Compute(NavigationStep& step, const RedrawOrder& order) {
    Scene& scene = step.Picture;
    PlaceChart(scene, order.PaintsChart);
    SelectAirspace(scene);
    scene.Points = {parts.Flags.ShowNames, parts.Stores.AirfieldStoreOpen ? &airfields : nullptr,
                    parts.Flags.ShowAirfields, parts.Flags.ShowAirfieldText, order.OnlyRoutePoints};
    if (parts.Flags.ShowRoute) DrawRoute(scene);
    DrawActiveLeg(step, order.HasFix);
    FindPoints(scene);
    scene.DirectTarget = parts.Route.DirectTarget();
}

void Navigation::AddAircraft(Scene& scene) const {
    scene.Aircraft = {MapPoint, scene.Transform->ViewAngle(parts.State.lblBearing.Number()),
                      !parts.State.NoFix, parts.Symbols.SymbolType};
}

void Navigation::PlaceChart(Scene& scene, bool paintsChart) {
    const MapTransform standing = parts.Map.Transform();
    const Point aircraft = PlaceAircraft();
    if (parts.Map.CenterMap) {
        parts.Map.CenterOnAircraft(aircraft);
        PlaceAircraft();
    }
    scene.Transform = parts.Map.Transform();
    scene.SlideMap = parts.Map.SlideMap;
    // A picture that stands for another view than this one would put every point in the wrong place.
    scene.PaintsChart = paintsChart || *scene.Transform != standing;
}

// An aircraft off the chart switches centring off.
Point Navigation::PlaceAircraft() {
    const MapTransform transform = parts.Map.Transform();
    const Point image = transform.ImageOf(parts.State.Current());
    if (image.X < 0 || image.Y < 0 || !(image.X < parts.Map.Breite) || !(image.Y < parts.Map.Höhe))
        parts.Map.CenterMap = false;
    MapPoint = transform.ViewOfImage(image);
    return image;
}

// The airspaces not yet found are missing when an error ends this; the step goes on.
void Navigation::SelectAirspace(Scene& scene) {
    if (!scene.PaintsChart) return;
    scene.ShowAirspaceText = parts.Flags.ShowAirspaceText;
    const auto error = ErrorOf([&] { parts.Airspace.SelectAirspace(*scene.Transform, scene.Airspaces); });
    if (error) scene.AirspaceFault = parts.Faults.TextOf(DrawingFaults::Layer::Airspace, *error);
}

void Navigation::DrawRoute(Scene& scene) {
    if (!parts.Route.HasRoutes()) return;
    routePoints.ForEach(parts.Route.RoutesSet.Get("RouteID"), [&](const RoutePoints::Point& point) {
        scene.Route.push_back(ToDecimalDegrees(point.PlaceIn(parts.Route.cmbRoute)));
    });
}

void Navigation::DrawActiveLeg(NavigationStep& step, bool hasFix) {
    RouteFollowing& route = parts.Route;
    if (!route.Frame1()) return;
    const auto target = route.ActiveTarget();
    if (!target) return;
    step.Picture.ActiveLeg = {parts.State.Current(), *target};
    const LegStep leg = parts.ActiveLeg.UpdateLeg(*target, parts.State.Current(), route.GotoActive);
    step.Passed = step.Passed || leg.Passed;
    step.IsADayAway = step.IsADayAway || leg.IsADayAway;
    if (leg.Passed) route.PassPoint();
    route.RefreshRouteList(hasFix ? std::optional(parts.ActiveLeg.LastDistance) : std::nullopt);
}

void Navigation::FindPoints(Scene& scene) {
    if (!scene.Points.OnlyRoutePoints) {
        FindWaypoints(scene);
    } else if (parts.Route.HasRoutes()) {
        // Of the waypoints only airfields come through then.
        if (parts.Flags.ShowAirfields) FindWaypoints(scene);
        FindRoutePoints(scene);
    }
}

void Navigation::FindWaypoints(Scene& scene) {
    waypoints.ForEach(scene.Transform->GetViewBounds(), [&](const WaypointWindow::Row& row) {
        std::string name(row.Name);
        scene.Points.AirfieldOf(name); // one that is missing ends the scene before it
        scene.Waypoints.push_back({row.At, std::move(name)});
    });
}

void Navigation::FindRoutePoints(Scene& scene) {
    const Recordset& active = parts.Route.RoutePointsSet;
    if (!active.IsOpen() || active.RecordCount() == 0) return;
    const Value activeId = active.Get("PointID");
    const Value activeName = active.Get("Name");
    routePoints.ForEach(parts.Route.RoutesSet.Get("RouteID"), [&](const RoutePoints::Point& point) {
        const bool isActive = point.IsOf(activeId, activeName);
        scene.RoutePoints.push_back({point.PlaceIn(parts.Route.cmbRoute), std::string(point.Name()),
                                     isActive ? PointMode::ActiveRoutePoint : PointMode::Plain});
    });
}

} // namespace ornivane
