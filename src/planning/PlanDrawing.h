#pragma once

#include <functional>

#include "map/AirfieldBook.h"
#include "map/DrawingFaults.h"
#include "map/MapSymbols.h"
#include "map/WaypointWindow.h"
#include "planning/PlanAirspace.h"
#include "planning/PlanMap.h"
#include "planning/RouteEditing.h"

namespace ornivane {

// The picture of the planning map, from the bottom to the top: chart, airspace, the selected route, all
// waypoints in view. Each layer ends at a row that cannot be drawn, which is told once; the others go on.
class PlanDrawing {
public:
    struct Rooms {
        Variablen& Shared;
        const PlanMap& Map;
        PlanAirspace& Airspace;
        RouteEditing& Routes;
        const Picture& picStorage;
        PictureSurface& picMap;
        DrawingFaults& Faults;
    };
    explicit PlanDrawing(const Rooms& rooms);

    // Nothing without a map or in a view without extent. The length of the route is a by-product: it stays as
    // it was while the route is not drawn or has no points (RouteEditing empties it when such a route is
    // chosen).
    void RedrawPlan();
    // The picture of the last RedrawPlan, without what was drawn over it: while the cursor measures, it
    // follows the mouse, and nothing else on the map changes.
    void RecallPlan();

private:
    void DrawLayers();
    void DrawLayer(DrawingFaults::Layer layer, const std::function<void()>& draw);
    void DrawPlanRoute(MapSymbols& symbols);
    static void DrawPlanLeg(MapSymbols& symbols, const Position& from, const Position& to);
    void DrawWaypoints(MapSymbols& symbols, const MapTransform& transform);

    Rooms rooms;
    Statement routePoints;
    WaypointWindow waypoints;
    AirfieldBook airfields;
    bool kept = false; // the surface has a copy of this picture
};

} // namespace ornivane
