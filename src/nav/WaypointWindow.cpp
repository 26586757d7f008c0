#include "nav/WaypointWindow.h"

#include "store/Connection.h"

namespace ornivane {

void WaypointWindow::ForEach(
    const ViewBounds& bounds,
    const std::function<void(double lat, double longitude, std::string_view name)>& action) {
    if (!query.IsPrepared())
        // The + keeps SQLite from the index by place: sorting thousands of names by their collation costs
        // four times what reading all of them in order from the index by name does.
        query = Statement(
            dataConn,
            "SELECT Lat, Long, Name from Waypoints WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ? "
            "ORDER BY NAME ASC");
    const StatementRun run(query);
    query.Bind(1, bounds.ViewSouth);
    query.Bind(2, bounds.ViewNorth);
    query.Bind(3, bounds.ViewWest);
    query.Bind(4, bounds.ViewEast);
    while (query.Step()) action(query.Number(0), query.Number(1), query.Text(2));
}

} // namespace ornivane
