#pragma once

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
    explicit WaypointWindow(Connection& connection) : dataConn(connection) {}

    // DegMinValue, bounds included. RuntimeError InvalidNull at a row without a position.
    void ForEach(const ViewBounds& bounds,
                 const std::function<void(double lat, double longitude, std::string_view name)>& action);

private:
    Connection& dataConn;
    Statement query;
};

} // namespace ornivane
