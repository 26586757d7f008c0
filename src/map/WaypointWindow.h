#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "map/MapTransform.h"
#include "store/Statement.h"

namespace ornivane {

class Connection;

// The waypoints of a geographic window. Prepared once, asked anew in every redraw.
class WaypointWindow {
public:
    enum class Order { ByName, AsTheyCome };
    struct Row {
        std::int64_t PointID;
        double Lat, Long; // DegMinValue
        std::string_view Name;
    };

    WaypointWindow(Connection& connection, Order rowOrder) : dataConn(connection), order(rowOrder) {}

    // Bounds included. RuntimeError InvalidNull at a row without a position.
    void ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action);

private:
    Connection& dataConn;
    Order order;
    Statement query;
};

} // namespace ornivane
