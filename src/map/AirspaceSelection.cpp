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

std::vector<std::int16_t> AirspaceSelection::Numbers(Statement& query, const char* which,
                                                     const ViewBounds& bounds, double height) {
    if (!query.IsPrepared())
        query = Statement(
            luftraum, std::string("SELECT DISTINCT \"Index\" FROM Luftraum WHERE LAT BETWEEN ?1 AND ?2 AND "
                                  "LONG BETWEEN ?3 AND ?4 AND Low <= ?5 AND ") +
                          which + " ORDER BY \"Index\" ASC");
    std::vector<std::int16_t> numbers;
    const StatementRun run(query);
    const double values[] = {bounds.ViewSouth, bounds.ViewNorth, bounds.ViewWest,
                             bounds.ViewEast,  height + Margin,  height - Margin};
    for (int i = 0; i < 6; ++i) query.Bind(i + 1, values[i]);
    while (query.Step()) numbers.push_back(ToInt16(query.Number(0)));
    return numbers;
}

std::vector<std::int16_t> AirspaceSelection::Airspaces(const ViewBounds& view, double height) {
    return Numbers(airspaces, "HIGH >= ?6 AND AspType <> 'A' COLLATE BINARY", Widened(view), height);
}

std::vector<std::int16_t> AirspaceSelection::Patterns(const ViewBounds& view, double height) {
    // No upper limit; the parameter only has to be there.
    return Numbers(patterns, "?6 IS NOT NULL AND AspType = 'A' COLLATE BINARY", view, height);
}

} // namespace ornivane
