#include "map/AirspaceSelection.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace ornivane {

namespace {

// An airspace's points may all lie outside of the view.
ViewBounds Widened(const ViewBounds& view) {
    const double width = view.ViewEast.Value() - view.ViewWest.Value();
    const double by = width < 1.0 ? (1.2 - width) / 1.3 : 0.1;
    return {StoredLatitude(view.ViewNorth.Value() + by), StoredLongitude(view.ViewWest.Value() - by),
            StoredLatitude(view.ViewSouth.Value() - by), StoredLongitude(view.ViewEast.Value() + by)};
}

std::int16_t NumberOf(const Statement& row) {
    try {
        return ToInt16(row.Number(0));
    } catch (const RuntimeError& error) {
        throw Located("Luftraum.ovd, Index " + std::string(row.Text(0)), error);
    }
}

} // namespace

double AirspaceSelection::ComparedHeight(double feet, double qnhHPa) {
    constexpr double standardPressure = 1013, feetPerHectopascal = 30, lowest = 5000;
    return feet > lowest ? feet + (standardPressure - qnhHPa) * feetPerHectopascal : feet;
}

std::vector<std::int16_t> AirspaceSelection::Numbers(Statement& query, const char* kind,
                                                     const ViewBounds& bounds, const Heights& heights) {
    const auto limit = [](std::optional<double> feet) { return feet ? Value(*feet) : Value(); };
    const StatementRun run(
        query, luftraum,
        std::string("SELECT DISTINCT \"Index\" FROM Luftraum WHERE LAT BETWEEN ?1 AND ?2 AND "
                    "LONG BETWEEN ?3 AND ?4 AND (?5 IS NULL OR Low <= ?5) AND "
                    "(?6 IS NULL OR HIGH >= ?6) AND AspType ") +
            kind + " 'A' COLLATE BINARY ORDER BY \"Index\" ASC",
        {bounds.ViewSouth.Value(), bounds.ViewNorth.Value(), bounds.ViewWest.Value(), bounds.ViewEast.Value(),
         limit(heights.HighestLow), limit(heights.LowestHigh)});
    std::vector<std::int16_t> numbers;
    while (query.Step()) numbers.push_back(NumberOf(query));
    return numbers;
}

std::vector<std::int16_t> AirspaceSelection::Airspaces(const ViewBounds& view, double feet) {
    return Numbers(airspaces, "<>", Widened(view), {feet + Margin, feet - Margin});
}

std::vector<std::int16_t> AirspaceSelection::AirspacesAt(const ViewBounds& view, std::optional<double> feet) {
    return Numbers(airspaces, "<>", Widened(view), {feet, feet});
}

std::vector<std::int16_t> AirspaceSelection::Patterns(const ViewBounds& view, std::optional<double> feet) {
    if (feet) *feet += Margin;
    return Numbers(patterns, "=", view, {feet, {}});
}

} // namespace ornivane
