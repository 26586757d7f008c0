#include "planning/WaypointBook.h"

#include "store/Recordset.h"

namespace ornivane {

WaypointBook::WaypointBook(Connection& data) {
    Recordset rows;
    rows.Open(data, "SELECT * from Waypoints ORDER by NAME ASC");
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
