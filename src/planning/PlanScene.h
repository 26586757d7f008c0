#pragma once

#include <optional>
#include <vector>

#include "base/RuntimeError.h"
#include "map/MapTransform.h"
#include "planning/AirspaceChoice.h"
#include "store/Value.h"

namespace ornivane {

// The points of a route in their order.
struct PlanRoute {
    std::vector<Position> Points;
    std::optional<RuntimeError> Fault; // a row that cannot be read: the points behind it are missing
};

// What the planning map shows at one moment. Drawing it reads and changes nothing else of the screen.
struct PlanScene {
    MapTransform Transform; // of the chart in picStorage
    int SlideMap = 0;
    AirspaceChoice Airspace;
    std::optional<PlanRoute> Route;      // while it is shown
    Value RoutePoint;                    // PointID of the current point of the route; no waypoint has Null
    bool Measuring = false;              // a measuring line will follow the cursor
    std::optional<DegMin> NewPoint = {}; // of the waypoint that is begun
};

// From the entry to the cursor, in view pixels.
struct MeasuringLine {
    Point Start, End;
};

} // namespace ornivane
