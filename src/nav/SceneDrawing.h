#pragma once

#include <string>

#include "map/AirspaceDrawing.h"
#include "map/DrawingFaults.h"
#include "nav/Scene.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// Draws a scene: the chart, then everything that lies on it, bottom to top. Changes nothing but the surface.
class SceneDrawing {
public:
    // All outlive the drawing; `luftraumConn` may be closed while no scene has airspace.
    SceneDrawing(PictureSurface& picMap, const Picture& picStorage, Connection& luftraumConn,
                 const DrawingFaults& faults);

    // Returns why airspace is missing, empty if none is: an airspace that cannot be drawn ends the airspace
    // alone.
    std::string Draw(const Scene& scene);

private:
    std::string DrawAirspace(const Scene& scene);
    static void DrawRoute(MapSymbols& symbols, const Scene& scene);

    PictureSurface& surface;
    const Picture& chart;
    AirspaceDrawing airspace;
    const DrawingFaults& faults;
};

} // namespace ornivane
