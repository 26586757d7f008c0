#pragma once

#include <functional>

#include "common/OpenStores.h"
#include "map/AirfieldBook.h"
#include "map/AirspaceDrawing.h"
#include "map/AirspaceSelection.h"
#include "map/DrawingFaults.h"
#include "map/MapSymbols.h"
#include "map/WaypointWindow.h"
#include "planning/PlanScene.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// The picture of the planning map, from the bottom to the top: chart, airspace, the selected route, all
// waypoints in view. Each layer ends at a row that cannot be drawn, which is told once; the others go on.
class PlanDrawing {
public:
    PlanDrawing(OpenStores& openStores, const Picture& picStorage, PictureSurface& picMap,
                DrawingFaults& toTell);

    void RedrawPlan(const PlanScene& scene);
    // The picture of the last RedrawPlan without what was drawn over it: while the cursor measures, it
    // follows the mouse, and nothing else on the map changes. False when there is none.
    bool RecallPlan();
    void DrawMeasuringLine(const MeasuringLine& line);

private:
    void DrawLayer(DrawingFaults::Layer layer, const std::function<void()>& draw);
    // At the height that the pilot chose, without a band around it and without QNH: nothing is flown here.
    void DrawPlanAirspace(const PlanScene& scene);
    void DrawPlanRoute(const PlanRoute& route, MapSymbols& symbols);
    void DrawWaypoints(const PlanScene& scene, MapSymbols& symbols);

    OpenStores& stores;
    const Picture& storage;
    PictureSurface& surface;
    DrawingFaults& faults;
    AirspaceSelection selection;
    AirspaceDrawing airspace;
    WaypointWindow waypoints;
    AirfieldBook airfields;
    bool kept = false; // the surface has a copy of this picture
};

} // namespace ornivane
