#pragma once

#include <functional>

#include "common/DisplayFlags.h"
#include "common/OpenStores.h"
#include "common/Settings.h"
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
    bool Passed = false;       // a route point: the keys belong to the map
    bool IsADayAway = false;   // the target: to be told
    bool ChangesChart = false; // ChangeChart is to follow when this scene is drawn
};

// Computes in each redraw what depends on the position, in a fixed order: the place of the aircraft on the
// chart and centring, what of the airspace concerns it, the leg with the passing rule, the route list, the
// search for another chart. All navigation values are computed here and nowhere else; nothing is drawn.
class Navigation {
public:
    explicit Navigation(const NavigationParts& parts);

    // Nothing without maps. While the map cannot be shown the scene draws nothing, and leg and search are
    // computed all the same. An error in the data ends the step: what was computed and found so far stays,
    // and the scene says why.
    NavigationStep Step(const RedrawOrder& order);
    // The chart that was announced, and the step on it: the picture of the chart before would make a click on
    // it mean another place. Without another search, which could change the chart back and forth for ever.
    // Behind the drawing, because a chart that cannot be shown blanks the sheet.
    NavigationStep ChangeChart(const RedrawOrder& order);

private:
    void UntilError(Scene& scene, const std::function<void()>& steps) const;
    // All of a step on a chart but the search and the aircraft, which is missing when the search fails.
    void Compute(NavigationStep& step, const RedrawOrder& order);
    void AddAircraft(Scene& scene) const;
    void PlaceChart(Scene& scene, bool paintsChart);
    Point PlaceAircraft(); // on the image
    void SelectAirspace(Scene& scene);
    void DrawRoute(Scene& scene);
    // The line of the active leg, the leg's values and the route list; nothing while none is flown.
    void DrawActiveLeg(NavigationStep& step, bool hasFix);
    void FindPoints(Scene& scene);
    void FindWaypoints(Scene& scene);
    void FindRoutePoints(Scene& scene);

    NavigationParts parts;
    WaypointWindow waypoints;
    AirfieldBook airfields;
    RoutePoints routePoints;
    Point MapPoint; // the aircraft in view pixels
};

} // namespace ornivane
