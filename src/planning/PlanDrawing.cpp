#include "planning/PlanDrawing.h"

#include <optional>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"
#include "map/StoredPlace.h"

namespace ornivane {

namespace {

using Layer = DrawingFaults::Layer;

bool OnRow(const Recordset& rows) { return rows.IsOpen() && rows.AbsolutePosition() > 0; }

// No waypoint has it when there is no current route point.
Value CurrentPoint(const Recordset& points) { return OnRow(points) ? points.Get("PointID") : Value(); }

} // namespace

PlanDrawing::PlanDrawing(const Rooms& ofScreen)
    : rooms(ofScreen), waypoints(ofScreen.Shared.DataConn), airfields(ofScreen.Shared.AirfieldConn) {}

// A damaged row ends its layer; what was drawn of it stays.
void PlanDrawing::DrawLayer(DrawingFaults::Layer layer, const std::function<void()>& draw) {
    try {
        draw();
    } catch (const RuntimeError& error) {
        rooms.Faults.Tell(layer, error);
    }
}

void PlanDrawing::RedrawPlan() {
    kept = false;
    const bool hasExtent = rooms.picMap.ScaleWidth() > 0 && rooms.picMap.ScaleHeight() > 0;
    if (!rooms.Map.HasMap() || !hasExtent) return;
    DrawLayer(Layer::Chart, [this] { DrawLayers(); });
    if (!rooms.Map.Measuring.MeasureOn) return;
    rooms.picMap.Keep();
    kept = true;
}

void PlanDrawing::DrawLayers() {
    const SourceRect& view = rooms.Map.View;
    rooms.picMap.PaintPicture(rooms.picStorage, {0, 0, rooms.picMap.ScaleWidth(), rooms.picMap.ScaleHeight()},
                              {view.SX, view.SY, view.SW, view.SH});
    const MapTransform transform = rooms.Map.Transform();
    PointSettings settings;
    if (rooms.Shared.AirfieldStoreOpen) settings.Airfields = &airfields;
    MapSymbols symbols(rooms.picMap, transform, rooms.Map.SlideMap, settings);
    DrawLayer(Layer::Airspace,
              [&] { rooms.Airspace.DrawPlanAirspace(rooms.picMap, transform, rooms.Map.SlideMap); });
    if (rooms.Routes.ShowRouteOn) DrawLayer(Layer::Route, [&] { DrawPlanRoute(symbols); });
    DrawLayer(Layer::Waypoints, [&] { DrawWaypoints(symbols, transform); });
}

void PlanDrawing::RecallPlan() {
    if (!kept || !rooms.picMap.Recall()) RedrawPlan();
}

void PlanDrawing::DrawPlanRoute(MapSymbols& symbols) {
    if (!OnRow(rooms.Routes.RoutesSet)) return;
    if (!routePoints.IsPrepared())
        routePoints =
            Statement(rooms.Shared.DataConn,
                      "SELECT Lat, Long, Name From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC");
    const StatementRun run(routePoints);
    routePoints.Bind(1, rooms.Routes.RoutesSet.Get("RouteID"));
    const std::string name = rooms.Routes.RoutesSet.TextOrEmpty("Name");
    std::optional<Position> from;
    double sum = 0;
    while (routePoints.Step()) {
        const Position to = StoredPlace::Of(routePoints, name).Decimal();
        if (from) {
            DrawPlanLeg(symbols, *from, to);
            sum += CalcRouteDist(to.Lat, to.Long, from->Lat, from->Long);
        }
        from = to;
    }
    if (from) rooms.Routes.lblRouteDistanz = Format(sum, "#####", rooms.Shared.Locale) + " NM";
}

// What of a leg lies outside the view falls off the picture by itself.
void PlanDrawing::DrawPlanLeg(MapSymbols& symbols, const Position& from, const Position& to) {
    symbols.DrawLeg(from, to, RouteColour);
}

void PlanDrawing::DrawWaypoints(MapSymbols& symbols, const MapTransform& transform) {
    const Value current = CurrentPoint(rooms.Routes.RoutePointsSet);
    std::vector<MapSymbols::StoredPoint> points;
    DrawLayer(Layer::Waypoints, [&] {
        waypoints.ForEach(transform.WholeView(), [&](const WaypointWindow::Row& row) {
            const bool isCurrent = Value(row.PointID) == current;
            points.push_back({row.Lat, row.Long, std::string(row.Name),
                              isCurrent ? PointMode::PlanRoutePoint : PointMode::PlanPoint});
        });
    });
    symbols.DrawPoints(points);
}

} // namespace ornivane
