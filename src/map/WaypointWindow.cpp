#include "map/WaypointWindow.h"

#include "common/StoredPositions.h"

namespace ornivane {

void WaypointWindow::ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action) {
    // The + keeps SQLite from the index by place: sorting thousands of names by their collation costs four
    // times what reading all of them in order from the index by name does.
    const StatementRun run(query, dataConn,
                           "SELECT PointID, Lat, Long, Name from Waypoints "
                           "WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ? ORDER BY NAME ASC",
                           {bounds.ViewSouth.Value(), bounds.ViewNorth.Value(), bounds.ViewWest.Value(),
                            bounds.ViewEast.Value()});
    while (query.Step()) action({query.Integer(0), DegMinOf(query, 1), query.Text(3)});
}

} // namespace ornivane
