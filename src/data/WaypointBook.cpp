#include "data/WaypointBook.h"

#include "data/Waypoints.h"

namespace ornivane {

WaypointBook::WaypointBook(Connection& data) {
    Recordset rows;
    Waypoints(data).Open(rows);
    for (; !rows.Eof(); rows.MoveNext())
        Add({rows.Get("PointID"), rows.Get("Name"), rows.Get("Lat"), rows.Get("Long")});
}

const WaypointBook::Waypoint* WaypointBook::Find(const std::string& name) const {
    const auto found = waypoints.find(name);
    return found == waypoints.end() ? nullptr : &found->second;
}

void WaypointBook::Add(const Waypoint& waypoint) {
    isEmpty = false;
    if (!waypoint.Name.IsNull())
        waypoints.emplace(waypoint.Name.Text(), waypoint); // Null is found by no search
}

} // namespace ornivane
