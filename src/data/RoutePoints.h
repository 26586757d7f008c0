#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "data/WaypointBook.h"
#include "geo/Position.h"
#include "store/KeptListRow.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"
#include "store/Statement.h"

namespace ornivane {

// The points of the routes: all SQL on the table GpsPoints of data.ovd. A route is given by its RouteID; Null
// is a route without points. Every routine throws RuntimeError StoreError when the store refuses.
class RoutePoints {
public:
    // The connection may be opened later; it outlives this.
    explicit RoutePoints(Connection& data) : connection(data) {}

    // A row of ForEach, valid during the call. RuntimeError InvalidNull or TypeMismatch for a damaged value.
    class Point {
    public:
        explicit Point(const Statement& current) : row(current) {}
        double Number() const; // from 1 in the order of the route
        DegMin Place() const;
        DegMin PlaceIn(const std::string& routeName) const;       // the error names the route and the point
        std::string_view Name() const;                            // valid until the next row; empty for Null
        bool IsOf(const Value& pointID, const Value& name) const; // one of the two is the same

    private:
        const Statement& row;
    };
    // In the order of the route, by a query that is prepared once.
    void ForEach(const Value& route, const std::function<void(const Point&)>& action);

    // A list of all columns in the order of the route.
    void Open(Recordset& points, const Value& route) const;

    // A copy of the waypoint behind the current row of the list; see InsertAfterCurrent in Lists.h.
    void InsertAfterCurrent(Recordset& points, const Value& route,
                            const WaypointBook::Waypoint& waypoint) const;
    void Add(const Value& route, double number, const WaypointBook::Waypoint& waypoint);
    void Renumber(const Value& route) const;
    void DeleteAll(const Value& route) const;

    // As they are now, to be put back.
    KeptRows KeepAll(const Value& route) const;
    KeptListRow Keep(const Value& route, std::int64_t rowId) const;

private:
    Connection& connection;
    Statement inOrder, insert;
};

} // namespace ornivane
