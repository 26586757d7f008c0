#include "map/WaypointWindow.h"

#include "store/Connection.h"

namespace ornivane {

void WaypointWindow::ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action) {
    if (!query.IsPrepared())
        // The + keeps SQLite from the index by place: sorting thousands of names by their collation costs
        // four times what reading all of them in order from the index by name does.
        query = Statement(dataConn, "SELECT PointID, Lat, Long, Name from Waypoints "
                                    "WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ? ORDER BY NAME ASC");
    const StatementRun run(query);
    query.Bind(1, bounds.ViewSouth);
    query.Bind(2, bounds.ViewNorth);
    query.Bind(3, bounds.ViewWest);
    query.Bind(4, bounds.ViewEast);
    while (query.Step()) action({query.Integer(0), query.Number(1), query.Number(2), query.Text(3)});
}

} // namespace ornivane
