#include "map/AirspaceSelection.h"

#include "base/Numbers.h"
#include "store/Connection.h"

namespace ornivane {

namespace {

// An airspace's points may all lie outside of the view.
ViewBounds Widened(ViewBounds view) {
    const double width = view.ViewEast - view.ViewWest;
    const double by = width < 1.0 ? (1.2 - width) / 1.3 : 0.1;
    view.ViewNorth += by;
    view.ViewEast += by;
    view.ViewSouth -= by;
    view.ViewWest -= by;
    return view;
}

} // namespace

double AirspaceSelection::ComparedHeight(double feet, double qnh) {
    constexpr double standardPressure = 1013, feetPerHectopascal = 30, lowest = 5000;
    return feet > lowest ? feet + (standardPressure - qnh) * feetPerHectopascal : feet;
}

std::vector<std::int16_t> AirspaceSelection::Numbers(Statement& query, const ViewBounds& bounds,
                                                     double height) {
    std::vector<std::int16_t> numbers;
    const StatementRun run(query);
    query.Bind(1, bounds.ViewSouth);
    query.Bind(2, bounds.ViewNorth);
    query.Bind(3, bounds.ViewWest);
    query.Bind(4, bounds.ViewEast);
    query.Bind(5, height + Margin);
    query.Bind(6, height - Margin);
    while (query.Step()) numbers.push_back(ToInt16(query.Number(0)));
    return numbers;
}

std::vector<std::int16_t> AirspaceSelection::Airspaces(const ViewBounds& view, double height) {
    if (!airspaces.IsPrepared())
        airspaces =
            Statement(luftraum, "SELECT DISTINCT \"Index\" FROM Luftraum WHERE LAT BETWEEN ? AND ? AND "
                                "LONG BETWEEN ? AND ? AND Low <= ? AND HIGH >= ? AND "
                                "AspType <> 'A' COLLATE BINARY ORDER BY \"Index\" ASC");
    return Numbers(airspaces, Widened(view), height);
}

std::vector<std::int16_t> AirspaceSelection::Patterns(const ViewBounds& view, double height) {
    if (!patterns.IsPrepared())
        patterns =
            Statement(luftraum, "SELECT DISTINCT \"Index\" FROM Luftraum WHERE LAT BETWEEN ? AND ? AND "
                                "LONG BETWEEN ? AND ? AND Low <= ? AND ? IS NOT NULL AND "
                                "AspType = 'A' COLLATE BINARY ORDER BY \"Index\" ASC");
    return Numbers(patterns, view, height);
}

} // namespace ornivane
