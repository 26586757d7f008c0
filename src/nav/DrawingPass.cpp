#include "nav/DrawingPass.h"

#include <vector>

#include "base/Flagged.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "map/StoredPlace.h"

namespace ornivane {

DrawingPass::DrawingPass(const DrawingPassRooms& passRooms)
    : rooms(passRooms), waypoints(passRooms.Shared.DataConn), airfields(passRooms.Shared.AirfieldConn) {}

void DrawingPass::Pass(const std::function<void()>& steps) {
    // Stepping to the next point inside a pass moves the grid's row, which asks for a redraw: one redraw is
    // never interrupted by another.
    if (running || !rooms.Map.HasRows()) return;
    const Flagged now(running);
    mapChanged = false;
    UntilError([&] { rooms.Map.HasMap() ? steps() : GoOnWithoutChart(); });
    if (!mapChanged || !rooms.Map.HasMap()) return;
    // The picture is that of the map before. Drawn anew at once, or a click on it would mean another place;
    // without a search, which could change the map back and forth for ever.
    searches = false;
    UntilError([this] { WholeRedraw(); });
    searches = true;
}

// A damaged row ends this pass; what was drawn stays, and the next pass starts afresh.
void DrawingPass::UntilError(const std::function<void()>& steps) {
    try {
        steps();
    } catch (const RuntimeError& error) {
        const bool hasExtent = rooms.picMap.ScaleWidth() > 0 && rooms.picMap.ScaleHeight() > 0;
        if (hasExtent) rooms.Faults.Tell(DrawingFaults::Layer::Whole, error);
    }
}

// The leg and the search for a chart that can be shown.
void DrawingPass::GoOnWithoutChart() {
    if (rooms.Route.RouteActive || rooms.Route.GotoActive) DrawActiveLeg(nullptr);
    mapChanged = rooms.Ring.Search({rooms.State.CurLat, rooms.State.CurLong}, {});
}

void DrawingPass::UpdateMap() {
    Pass([this] { WholeRedraw(); });
}

void DrawingPass::WholeRedraw() {
    PlaceAircraft();
    if (rooms.Map.CenterMap) rooms.Map.CenterOnAircraft(MapPoint);
    PaintChart();
    Overlays();
}

void DrawingPass::DrawOverlays() {
    Pass([this] {
        const SourceRect standing = rooms.Map.View;
        PlaceAircraft();
        if (rooms.Map.CenterMap) rooms.Map.CenterOnAircraft(MapPoint);
        // A picture that stands for another view than this one would put every point in the wrong place.
        if (rooms.Map.View != standing) PaintChart();
        Overlays();
    });
}

void DrawingPass::PaintChart() {
    const SourceRect& view = rooms.Map.View;
    rooms.picMap.PaintPicture(rooms.picStorage, {0, 0, rooms.picMap.ScaleWidth(), rooms.picMap.ScaleHeight()},
                              {view.SX, view.SY, view.SW, view.SH});
    DrawAirspace();
}

// The airspaces not yet drawn are missing when an error ends them; the rest of the redraw goes on.
void DrawingPass::DrawAirspace() {
    const MapTransform transform = rooms.Map.Transform();
    try {
        rooms.Airspace.SelectAirspace(rooms.picMap, transform, rooms.Map.SlideMap);
    } catch (const RuntimeError& error) {
        rooms.Faults.Tell(DrawingFaults::Layer::Airspace, error);
    }
}

void DrawingPass::PlaceAircraft() {
    const MapTransform transform = rooms.Map.Transform();
    const Point image = transform.ImageOf({rooms.State.CurLat, rooms.State.CurLong});
    if (image.X < 0 || image.Y < 0 || !(image.X < rooms.Map.Breite) || !(image.Y < rooms.Map.Höhe))
        rooms.Map.SetCentring(false);
    MapPoint = transform.ViewOfImage(image);
}

bool DrawingPass::AircraftIsFarOutside() const {
    return MapPoint.X < -5 || MapPoint.Y < -5 || MapPoint.X > rooms.picMap.ScaleWidth() + 5 ||
           MapPoint.Y > rooms.picMap.ScaleHeight() + 5;
}

void DrawingPass::Overlays() {
    PlaceAircraft();
    const MapTransform transform = rooms.Map.Transform();
    MapSymbols symbols(rooms.picMap, transform, rooms.Map.SlideMap, SettingsOfPoints());
    if (rooms.Flags.ShowRoute) DrawRoute(symbols);
    if (rooms.Route.RouteActive || rooms.Route.GotoActive) DrawActiveLeg(&symbols);
    DrawPoints(symbols, transform);
    if (!rooms.Route.lblLatx.empty() && rooms.Route.GotoActive)
        symbols.DrawPoint(NumberIn(rooms.Route.lblLatx), NumberIn(rooms.Route.lblLongx),
                          PointMode::DirectTarget, "DF");
    if (AircraftIsFarOutside() && !rooms.Map.AutoMapSwitch) return;
    if (searches) mapChanged = rooms.Ring.Search({rooms.State.CurLat, rooms.State.CurLong}, MapPoint);
    if (!rooms.Map.HasMap()) return; // the map it has changed to cannot be shown
    const double direction = rooms.State.lblBearing == NoValue ? 0 : NumberIn(rooms.State.lblBearing);
    DrawAircraft(rooms.picMap, MapPoint, transform.ViewAngle(direction), !rooms.State.NoFix,
                 rooms.Shared.SymbolType);
}

Statement& DrawingPass::RoutePointRows() {
    if (!routePoints.IsPrepared())
        routePoints =
            Statement(rooms.Shared.DataConn,
                      "SELECT Lat, Long, Name, PointID From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC");
    routePoints.Reset();
    routePoints.Bind(1, rooms.Route.RoutesSet.Get("RouteID"));
    return routePoints;
}

void DrawingPass::DrawRoute(MapSymbols& symbols) {
    if (!rooms.Route.HasRoutes()) return;
    const StatementRun run(RoutePointRows());
    Position from;
    for (bool first = true; routePoints.Step(); first = false) {
        const Position to = StoredPlace::Of(routePoints, rooms.Route.cmbRoute).Decimal();
        if (!first) symbols.DrawLeg(from, to, RouteColour);
        from = to;
    }
}

void DrawingPass::DrawActiveLeg(MapSymbols* symbols) {
    Position target;
    if (!rooms.Route.ActiveTarget(target)) return;
    const Position current{rooms.State.CurLat, rooms.State.CurLong};
    if (symbols) symbols->DrawLeg(current, target, Blue);
    rooms.ActiveLeg.UpdateLeg(target, current, rooms.Route.GotoActive,
                              [this] { rooms.Route.cmdNext_Click(); });
    rooms.Route.RefreshRouteList();
}

PointSettings DrawingPass::SettingsOfPoints() {
    return {rooms.Flags.ShowNames, rooms.Shared.AirfieldStoreOpen ? &airfields : nullptr,
            rooms.Flags.ShowAirfields, rooms.Flags.ShowAirfieldText, picShowPoints};
}

void DrawingPass::DrawPoints(MapSymbols& symbols, const MapTransform& transform) {
    if (!picShowPoints) {
        DrawWaypoints(symbols, transform);
    } else if (rooms.Route.HasRoutes()) {
        // Of the waypoints only airfields come through then.
        if (rooms.Flags.ShowAirfields) DrawWaypoints(symbols, transform);
        DrawRoutePoints(symbols);
    }
}

void DrawingPass::DrawWaypoints(MapSymbols& symbols, const MapTransform& transform) {
    const ViewBounds bounds =
        transform.GetViewBounds(0, 0, rooms.picMap.ScaleWidth(), rooms.picMap.ScaleHeight());
    std::vector<MapSymbols::StoredPoint> points;
    try {
        waypoints.ForEach(bounds, [&](const WaypointWindow::Row& row) {
            points.push_back({row.Lat, row.Long, std::string(row.Name)});
        });
    } catch (const RuntimeError&) {
        symbols.DrawPoints(points); // a damaged row ends the pass, those before it show
        throw;
    }
    symbols.DrawPoints(points);
}

void DrawingPass::DrawRoutePoints(MapSymbols& symbols) {
    const Recordset& active = rooms.Route.RoutePointsSet;
    if (!active.IsOpen() || active.RecordCount() == 0) return;
    const Value activeId = active.Get("PointID");
    const Value activeName = active.Get("Name");
    const StatementRun run(RoutePointRows());
    while (routePoints.Step()) {
        const bool isActive =
            routePoints.ColumnValue(3) == activeId || routePoints.ColumnValue(2) == activeName;
        const StoredPlace at = StoredPlace::Of(routePoints, rooms.Route.cmbRoute);
        symbols.DrawRoutePoint(at.Lat, at.Long, isActive ? PointMode::ActiveRoutePoint : PointMode::Plain,
                               std::string(routePoints.Text(2)));
    }
}

void DrawingPass::cmdShowPoints_Click() {
    picShowPoints = rooms.Route.RoutePointsSet.IsOpen() && rooms.Route.HasRoutes();
    UpdateMap();
}

} // namespace ornivane
