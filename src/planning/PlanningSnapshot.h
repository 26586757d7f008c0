#pragma once

#include <optional>
#include <string>
#include <vector>

#include "planning/PlanMap.h"
#include "planning/RouteEditing.h"
#include "planning/WaypointEditing.h"

namespace ornivane {

// What the controls around the planning map show, but for the readouts of the cursor, which follow the mouse;
// members carry their names.
struct PlanMapControls {
    std::string WhyNoMap; // on the blank sheet; empty while a map shows
    int SlideMap = 0;
    std::vector<std::string> MapNames;
    std::string cmbMaps;
    std::string tLR;
    bool MeasureOn = false;
    bool operator==(const PlanMapControls&) const = default;
};

// All that the planning screen shows besides the picture and the rows of the lists: its form compares two of
// them.
struct PlanningSnapshot {
    PlanMapControls Map;
    WaypointControls Waypoints;
    std::optional<std::string>
        OtherTarget; // the waypoint that a change would write, when another one is shown
    RouteControls Routes;
    bool operator==(const PlanningSnapshot&) const = default;
};

} // namespace ornivane
