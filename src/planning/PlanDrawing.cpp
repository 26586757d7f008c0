#include "planning/PlanDrawing.h"

#include <optional>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

// A damaged row ends its layer; what was drawn of it stays.
void Quietly(const std::function<void()>& layer) {
    try {
        layer();
    } catch (const RuntimeError&) {
        // the picture shows that something is missing, and a notice at each movement of the mouse would not
        // help
    }
}

bool OnRow(const Recordset& rows) { return rows.IsOpen() && rows.AbsolutePosition() > 0; }

// No waypoint has it when there is no current route point.
Value CurrentPoint(const Recordset& points) { return OnRow(points) ? points.Get("PointID") : Value(); }

} // namespace

PlanDrawing::PlanDrawing(const Rooms& ofScreen)
    : rooms(ofScreen), waypoints(ofScreen.Shared.DataConn), airfields(ofScreen.Shared.AirfieldConn) {}

void PlanDrawing::RedrawPlan() {
    kept = false;
    if (!rooms.Map.HasMap()) return;
    Quietly([this] {
        const SourceRect& view = rooms.Map.View;
        rooms.picMap.PaintPicture(rooms.picStorage,
                                  {0, 0, rooms.picMap.ScaleWidth(), rooms.picMap.ScaleHeight()},
                                  {view.SX, view.SY, view.SW, view.SH});
        const MapTransform transform = rooms.Map.Transform();
        PointSettings settings;
        if (rooms.Shared.AirfieldStoreOpen) settings.Airfields = &airfields;
        MapSymbols symbols(rooms.picMap, transform, rooms.Map.SlideMap, settings);
        rooms.Airspace.DrawPlanAirspace(rooms.picMap, transform, rooms.Map.SlideMap);
        if (rooms.Routes.ShowRouteOn) Quietly([&] { DrawPlanRoute(symbols); });
        Quietly([&] { DrawWaypoints(symbols, transform); });
    });
    if (!rooms.Map.Measuring.MeasureOn) return;
    rooms.picMap.Keep();
    kept = true;
}

void PlanDrawing::RecallPlan() {
    if (!kept || !rooms.picMap.Recall()) RedrawPlan();
}

void PlanDrawing::DrawPlanRoute(MapSymbols& symbols) {
    if (!OnRow(rooms.Routes.RoutesSet)) return;
    if (!routePoints.IsPrepared())
        routePoints = Statement(rooms.Shared.DataConn,
                                "SELECT Lat, Long From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC");
    const StatementRun run(routePoints);
    routePoints.Bind(1, rooms.Routes.RoutesSet.Get("RouteID"));
    std::optional<Position> from;
    double sum = 0;
    while (routePoints.Step()) {
        const Position to{ToDecimalDegrees(routePoints.Number(0)), ToDecimalDegrees(routePoints.Number(1))};
        if (from) {
            DrawPlanLeg(symbols, *from, to);
            sum += CalcRouteDist(to.Lat, to.Long, from->Lat, from->Long);
        }
        from = to;
    }
    if (from) rooms.Routes.lblRouteDistanz = Format(sum, "#####", rooms.Shared.Locale) + " NM";
}

// A leg outside of the view is drawn as well, and falls off the picture.
void PlanDrawing::DrawPlanLeg(MapSymbols& symbols, const Position& from, const Position& to) {
    symbols.DrawLeg(from, to, RouteColour);
}

void PlanDrawing::DrawWaypoints(MapSymbols& symbols, const MapTransform& transform) {
    const Value current = CurrentPoint(rooms.Routes.RoutePointsSet);
    std::vector<MapSymbols::StoredPoint> points;
    Quietly([&] {
        waypoints.ForEach(transform.WholeView(), [&](const WaypointWindow::Row& row) {
            const bool isCurrent = Value(row.PointID) == current;
            points.push_back({row.Lat, row.Long, std::string(row.Name),
                              isCurrent ? PointMode::PlanRoutePoint : PointMode::PlanPoint});
        });
    });
    symbols.DrawPoints(points);
}

} // namespace ornivane
