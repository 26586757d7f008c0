#pragma once

#include <functional>
#include <string>

#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "common/Variablen.h"
#include "map/ActiveMap.h"
#include "map/DrawingFaults.h"
#include "map/MapRing.h"
#include "map/MapSymbols.h"
#include "map/WaypointWindow.h"
#include "nav/AirspaceView.h"
#include "nav/FlightState.h"
#include "nav/Leg.h"
#include "nav/RouteFollowing.h"

namespace ornivane {

// What the pass reads and changes; all of it lives longer than the pass.
struct DrawingPassRooms {
    Variablen& Shared;
    FlightState& State;
    DisplayFlags& Flags;
    ActiveMap& Map;
    MapRing& Ring;
    RouteFollowing& Route;
    Leg& ActiveLeg;
    AirspaceView& Airspace;
    DrawingFaults& Faults;
    Picture& picStorage;
    PictureSurface& picMap;
};

// The redraw of the flying screen: chart, then everything that lies on it, bottom to top. Nothing of it is
// kept from one redraw to the next. All navigation values are recomputed here and nowhere else.
class DrawingPass {
public:
    explicit DrawingPass(const DrawingPassRooms& rooms);

    // The single entry into a redraw. Does nothing without maps and while a pass is running. While the map
    // cannot be shown the sheet stays blank, and what a pass computes is computed all the same. Any error
    // ends it: what was drawn so far stays, and the cause is told once. A view without extent is no fault.
    void UpdateMap();
    // The overlays only, over the picture that stands.
    void DrawOverlays();

    bool IsRunning() const { return running; }

    bool picShowPoints = false; // only route points are shown
    // picShowPoints by its button: stays off without points or routes.
    void cmdShowPoints_Click();

private:
    void Pass(const std::function<void()>& steps);
    void UntilError(const std::function<void()>& steps);
    void DrawAirspace();
    void WholeRedraw();
    void GoOnWithoutChart();
    void PaintChart();
    void PlaceAircraft();
    void Overlays();
    void DrawRoute(MapSymbols& symbols);
    void DrawActiveLeg(MapSymbols* symbols);
    void DrawPoints(MapSymbols& symbols, const MapTransform& transform);
    void DrawRoutePoints(MapSymbols& symbols);
    Statement& RoutePointRows(); // bound to the route in the list
    bool AircraftIsFarOutside() const;
    PointSettings SettingsOfPoints();
    void DrawWaypoints(MapSymbols& symbols, const MapTransform& transform);

    DrawingPassRooms rooms;
    WaypointWindow waypoints;
    AirfieldBook airfields;
    Statement routePoints;
    Point MapPoint; // the aircraft in view pixels
    bool running = false;
    bool mapChanged = false; // by the search in this pass
    bool searches = true;
};

} // namespace ornivane
