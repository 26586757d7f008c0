#include "data/RoutePoints.h"

#include "base/RuntimeError.h"
#include "common/StoredPositions.h"
#include "store/Connection.h"
#include "store/Lists.h"

namespace ornivane {

namespace {

const char* const Table = "GpsPoints";
const char* const OfRoute = "RouteID = ?";
const char* const Select = "SELECT * From GpsPoints WHERE RouteID = ?";
const char* const SelectInOrder =
    "SELECT Lat, Long, Name, PointID, Nummer From GpsPoints WHERE RouteID = ? ORDER BY Nummer ASC";
enum Column { Lat, Long, Name, PointID, Nummer };

} // namespace

double RoutePoints::Point::Number() const { return row.Number(Column::Nummer); }

DegMin RoutePoints::Point::Place() const { return DegMinOf(row, Column::Lat); }

DegMin RoutePoints::Point::PlaceIn(const std::string& routeName) const {
    try {
        return Place();
    } catch (const RuntimeError& error) {
        throw Located("data.ovd, " + routeName + ", " + std::string(Name()), error);
    }
}

std::string_view RoutePoints::Point::Name() const { return row.Text(Column::Name); }

bool RoutePoints::Point::IsOf(const Value& pointID, const Value& name) const {
    return row.ColumnValue(Column::PointID) == pointID || row.ColumnValue(Column::Name) == name;
}

void RoutePoints::ForEach(const Value& route, const std::function<void(const Point&)>& action) {
    const StatementRun run(inOrder, connection, SelectInOrder, {route});
    while (inOrder.Step()) action(Point(inOrder));
}

void RoutePoints::Open(Recordset& points, const Value& route) const {
    points.Open(connection, std::string(Select) + " ORDER BY Nummer ASC", {route});
}

void RoutePoints::InsertAfterCurrent(Recordset& points, const Value& route,
                                     const WaypointBook::Waypoint& waypoint) const {
    ornivane::InsertAfterCurrent(connection, points, Select, {route}, [&](Recordset& point) {
        point.Set("RouteID", route);
        point.Set("PointID", waypoint.PointID);
        point.Set("Name", waypoint.Name);
        point.Set("Lat", waypoint.Lat);
        point.Set("Long", waypoint.Long);
    });
}

void RoutePoints::Add(const Value& route, double number, const WaypointBook::Waypoint& waypoint) {
    const StatementRun run(
        insert, connection,
        "INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long) VALUES (?, ?, ?, ?, ?, ?)",
        {number, route, waypoint.PointID, waypoint.Name, waypoint.Lat, waypoint.Long});
    insert.Step();
}

void RoutePoints::Renumber(const Value& route) const { ornivane::Renumber(connection, Select, {route}); }

void RoutePoints::DeleteAll(const Value& route) const {
    connection.Execute("DELETE FROM GpsPoints WHERE RouteID = ?", {route});
}

KeptRows RoutePoints::KeepAll(const Value& route) const { return {connection, Table, OfRoute, {route}}; }

KeptListRow RoutePoints::Keep(const Value& route, std::int64_t rowId) const {
    return {connection, Table, OfRoute, {route}, rowId};
}

} // namespace ornivane
