#pragma once

#include <functional>
#include <vector>

namespace ornivane {

// What is left for the planning screen to do after a routine of one of its components.
enum class PlanEffect {
    Redraw,
    CentreOnEntry,  // scrolls the chart to the entry fields' position and redraws
    FocusMap,       // picMap
    FocusWaypoints, // gridWaypoints
    FocusRoutes,    // gridRoute
    FocusName,
    FocusLatitude,
    FocusLongitude, // tWaypoint(1) to tWaypoint(3), the text marked
};

// In the order in which the screen acts.
using PlanEffects = std::vector<PlanEffect>;

// Receives the effects of what no routine returns: a row that somebody moved, a deletion that was taken back.
using PlanEvents = std::function<void(const PlanEffects&)>;

} // namespace ornivane
