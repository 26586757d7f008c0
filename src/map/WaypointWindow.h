#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "map/MapTransform.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// The waypoints of a geographic window, in the order of their names. Prepared once, asked anew in every
// redraw.
class WaypointWindow {
public:
    struct Row {
        std::int64_t PointID;
        DegMin At;
        std::string_view Name;
    };

    explicit WaypointWindow(Connection& connection) : dataConn(connection) {}

    // Bounds included. RuntimeError InvalidNull at a row without a position.
    void ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action);

private:
    Connection& dataConn;
    Statement query;
};

} // namespace ornivane
