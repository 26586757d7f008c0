#include "map/WaypointWindow.h"

#include "store/Connection.h"

namespace ornivane {

namespace {

// The + keeps SQLite from the index by place. Sorting thousands of names by their collation costs four times
// what reading all of them in order from the index by name does, and fetching each row by the index costs more
// than reading all rows as they lie, once half of them are in view.
constexpr const char* ByName = "SELECT PointID, Lat, Long, Name from Waypoints "
                               "WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ? ORDER BY NAME ASC";
constexpr const char* AsTheyCome = "SELECT PointID, Lat, Long, Name from Waypoints "
                                   "WHERE +LAT BETWEEN ? AND ? AND +LONG BETWEEN ? AND ?";

} // namespace

void WaypointWindow::ForEach(const ViewBounds& bounds, const std::function<void(const Row&)>& action) {
    if (!query.IsPrepared()) query = Statement(dataConn, order == Order::ByName ? ByName : AsTheyCome);
    const StatementRun run(query);
    query.Bind(1, bounds.ViewSouth);
    query.Bind(2, bounds.ViewNorth);
    query.Bind(3, bounds.ViewWest);
    query.Bind(4, bounds.ViewEast);
    while (query.Step()) action({query.Integer(0), query.Number(1), query.Number(2), query.Text(3)});
}

} // namespace ornivane
