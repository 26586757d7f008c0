#pragma once

#include <functional>

#include "common/SettingsFiles.h"
#include "common/Variablen.h"
#include "data/RoutePoints.h"
#include "map/ActiveMap.h"
#include "map/DrawingFaults.h"
#include "map/MapRing.h"
#include "map/WaypointWindow.h"
#include "nav/AirspaceView.h"
#include "nav/FlightState.h"
#include "nav/Leg.h"
#include "nav/RouteFollowing.h"
#include "nav/Scene.h"

namespace ornivane {

// What a navigation step reads and changes; all of it outlives the navigation.
struct NavigationParts {
    OpenStores& Stores;
    const Settings& Symbols;
    const FlightState& State;
    const DisplayFlags& Flags;
    ActiveMap& Map;
    MapRing& Ring;
    RouteFollowing& Route;
    Leg& ActiveLeg;
    AirspaceView& Airspace;
    const DrawingFaults& Faults;
};

// What a redraw is to show.
struct RedrawOrder {
    bool PaintsChart = true;      // otherwise the overlays alone, over the picture that stands
    bool OnlyRoutePoints = false; // picShowPoints
    bool HasFix = false;          // by the lamp of the link: the rest of the route counts from the aircraft
};

// What a navigation step leaves to the screen.
struct NavigationStep {
    Scene Picture;
    bool Passed = false;     // a route point: the keys belong to the map
    bool IsADayAway = false; // the target: to be told
};

// Computes in each redraw what depends on the position, in a fixed order: the place of the aircraft on the
// chart and centring, what of the airspace concerns it, the leg with the passing rule, the route list, the
// search for another chart. All navigation values are computed here and nowhere else; nothing is drawn.
class Navigation {
public:
    explicit Navigation(const NavigationParts& parts);

    // Nothing without maps. While the map cannot be shown the scene draws nothing, and leg and search are
    // computed all the same. An error in the data ends the step: what was computed and found so far stays,
    // and the scene says why. After a change of charts the scene is the new chart's, computed anew without
    // another search, which could change the chart back and forth for ever.
    NavigationStep Step(const RedrawOrder& order);

private:
    void UntilError(Scene& scene, const std::function<void()>& steps) const;
    // True when the chart was changed: the scene is of the one before.
    bool Compute(NavigationStep& step, const RedrawOrder& order, bool searches);
    bool ComputeWithoutChart(NavigationStep& step, bool hasFix);
    void PlaceChart(Scene& scene, bool paintsChart);
    void PlaceAircraft();
    void SelectAirspace(Scene& scene);
    void DrawRoute(Scene& scene);
    // The line of the active leg, the leg's values and the route list.
    void DrawActiveLeg(NavigationStep& step, bool hasFix);
    void FindPoints(Scene& scene);
    void FindWaypoints(Scene& scene);
    void FindRoutePoints(Scene& scene);
    bool AircraftIsFarOutside(const MapTransform& transform) const;

    NavigationParts parts;
    WaypointWindow waypoints;
    AirfieldBook airfields;
    RoutePoints routePoints;
    Point MapPoint; // the aircraft in view pixels
};

} // namespace ornivane
