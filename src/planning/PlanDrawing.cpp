#include "planning/PlanDrawing.h"

#include "base/RuntimeError.h"

namespace ornivane {

namespace {

using Layer = DrawingFaults::Layer;

constexpr int LineWidth = 3; // of the measuring line, pixels

} // namespace

PlanDrawing::PlanDrawing(OpenStores& openStores, const Picture& picStorage, PictureSurface& picMap,
                         DrawingFaults& toTell)
    : stores(openStores), storage(picStorage), surface(picMap), faults(toTell),
      selection(openStores.LuftraumConn), airspace(openStores.LuftraumConn), waypoints(openStores.DataConn),
      airfields(openStores.AirfieldConn) {}

// A damaged row ends its layer; what was drawn of it stays.
void PlanDrawing::DrawLayer(DrawingFaults::Layer layer, const std::function<void()>& draw) {
    if (const auto error = ErrorOf(draw)) faults.Tell(layer, *error);
}

void PlanDrawing::RedrawPlan(const PlanScene& scene) {
    kept = false;
    PointSettings settings;
    if (stores.AirfieldStoreOpen) settings.Airfields = &airfields;
    MapSymbols symbols(surface, scene.Transform, scene.SlideMap, settings);
    surface.PaintPicture(storage, {0, 0, surface.ScaleWidth(), surface.ScaleHeight()},
                         scene.Transform.Section());
    DrawLayer(Layer::Airspace, [&] { DrawPlanAirspace(scene); });
    if (scene.Route) DrawLayer(Layer::Route, [&] { DrawPlanRoute(*scene.Route, symbols); });
    DrawLayer(Layer::Waypoints, [&] { DrawWaypoints(scene, symbols); });
    if (scene.Measuring) surface.Keep();
    kept = scene.Measuring;
    if (scene.NewPoint) symbols.DrawPoint(*scene.NewPoint, PointMode::PlanNewPoint, {});
}

bool PlanDrawing::RecallPlan() { return kept && surface.Recall(); }

// A row that cannot be read or drawn ends it: the airspaces behind it are missing then.
void PlanDrawing::DrawPlanAirspace(const PlanScene& scene) {
    const auto shown = scene.Airspace.Shown();
    // That the store is missing was told when the program started.
    if (shown == AirspaceChoice::Which::None || !stores.LuftraumConn.IsOpen()) return;
    const AirspaceDrawing::Canvas canvas{surface, scene.Transform, scene.SlideMap, true, "+"};
    const ViewBounds view = scene.Transform.GetViewBounds();
    const auto height =
        shown == AirspaceChoice::Which::AtHeight ? std::optional(scene.Airspace.Height()) : std::nullopt;
    for (const std::int16_t number : selection.AirspacesAt(view, height))
        airspace.DrawAirspace(canvas, number);
    if (!scene.Airspace.tPR) return;
    for (const std::int16_t number : selection.Patterns(view, height)) airspace.DrawAirspace(canvas, number);
}

// What of a leg lies outside the view falls off the picture by itself.
void PlanDrawing::DrawPlanRoute(const PlanRoute& route, MapSymbols& symbols) {
    for (std::size_t i = 1; i < route.Points.size(); ++i)
        symbols.DrawLeg(route.Points[i - 1], route.Points[i], RouteColour);
    if (route.Fault) faults.Tell(Layer::Route, *route.Fault);
}

void PlanDrawing::DrawWaypoints(const PlanScene& scene, MapSymbols& symbols) {
    std::vector<MapSymbols::StoredPoint> points;
    DrawLayer(Layer::Waypoints, [&] {
        waypoints.ForEach(scene.Transform.WholeView(), [&](const WaypointWindow::Row& row) {
            const bool isCurrent = Value(row.PointID) == scene.RoutePoint;
            points.push_back({row.At, std::string(row.Name),
                              isCurrent ? PointMode::PlanRoutePoint : PointMode::PlanPoint});
        });
    });
    symbols.DrawPoints(points);
}

void PlanDrawing::DrawMeasuringLine(const MeasuringLine& line) {
    surface.SetDrawWidth(LineWidth);
    surface.Circle(line.Start.X, line.Start.Y, 1, Black);
    surface.Line(line.Start.X, line.Start.Y, line.End.X, line.End.Y, Black);
    surface.SetDrawWidth(1);
}

} // namespace ornivane
