#include "map/WaypointWindow.h"

#include "common/StoredPositions.h"
#include "store/Connection.h"

namespace ornivane {

void WaypointWindow::ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action) {
    if (!query.IsPrepared())
        // The + keeps SQLite from the index by place: sorting thousands of names by their collation costs
        // four times what reading all of them in order from the index by name does.
        query = Statement(dataConn, "SELECT PointID, Lat, Long, Name from Waypoints "
                                    "WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ? ORDER BY NAME ASC");
    const StatementRun run(query);
    query.Bind(1, bounds.ViewSouth.Value());
    query.Bind(2, bounds.ViewNorth.Value());
    query.Bind(3, bounds.ViewWest.Value());
    query.Bind(4, bounds.ViewEast.Value());
    while (query.Step()) action({query.Integer(0), DegMinOf(query, 1), query.Text(3)});
}

} // namespace ornivane
