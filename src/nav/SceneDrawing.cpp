#include "nav/SceneDrawing.h"

#include "base/RuntimeError.h"

namespace ornivane {

SceneDrawing::SceneDrawing(PictureSurface& picMap, const Picture& picStorage, Connection& luftraumConn,
                           const DrawingFaults& drawingFaults)
    : surface(picMap), chart(picStorage), airspace(luftraumConn), faults(drawingFaults) {}

std::string SceneDrawing::Draw(const Scene& scene) {
    if (!scene.Transform) return {};
    std::string fault;
    if (scene.PaintsChart) {
        surface.PaintPicture(chart, {0, 0, scene.Transform->ViewWidth(), scene.Transform->ViewHeight()},
                             scene.Transform->Section());
        fault = DrawAirspace(scene);
    }
    MapSymbols symbols(surface, *scene.Transform, scene.SlideMap, scene.Points);
    DrawRoute(symbols, scene);
    if (scene.ActiveLeg) symbols.DrawLeg(scene.ActiveLeg->From, scene.ActiveLeg->To, Blue);
    symbols.DrawPoints(scene.Waypoints);
    for (const MapSymbols::StoredPoint& point : scene.RoutePoints)
        symbols.DrawRoutePoint(point.At, point.Mode, point.Name);
    if (scene.DirectTarget) symbols.DrawPoint(*scene.DirectTarget, PointMode::DirectTarget, "DF");
    if (const auto& aircraft = scene.Aircraft)
        DrawAircraft(surface, aircraft->At, aircraft->DirectionDegrees, aircraft->HasFix, aircraft->Symbol);
    return fault;
}

std::string SceneDrawing::DrawAirspace(const Scene& scene) {
    const AirspaceDrawing::Canvas canvas{surface, *scene.Transform, scene.SlideMap, scene.ShowAirspaceText};
    const auto error = ErrorOf([&] {
        for (const std::int16_t number : scene.Airspaces) airspace.DrawAirspace(canvas, number);
    });
    return error ? faults.TextOf(DrawingFaults::Layer::Airspace, *error) : scene.AirspaceFault;
}

void SceneDrawing::DrawRoute(MapSymbols& symbols, const Scene& scene) {
    for (std::size_t i = 1; i < scene.Route.size(); ++i)
        symbols.DrawLeg(scene.Route[i - 1], scene.Route[i], RouteColour);
}

} // namespace ornivane
