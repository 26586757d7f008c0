#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "map/AirspaceDrawing.h"

namespace ornivane {

// Which airspaces concern the view and the height: found by the places of their elements in a widened window.
// A polygon without any point in that window is not found; the widening is the whole of the measure.
class AirspaceSelection {
public:
    static constexpr double Margin = 400; // feet, on either side of the present height

    explicit AirspaceSelection(Connection& luftraumConn) : luftraum(luftraumConn) {}

    // Feet: the height with which limits are compared. Above 5000 ft it is a pressure altitude by the QNH, so
    // that flight levels fit.
    static double ComparedHeight(double feet, double qnhHPa);

    // The numbers of the airspaces that reach within the margin of the height, traffic patterns left out.
    // RuntimeError Overflow for a number beyond 32767.
    std::vector<std::int16_t> Airspaces(const ViewBounds& view, double feet);
    // Those whose limits enclose the height exactly, or all at any height.
    std::vector<std::int16_t> AirspacesAt(const ViewBounds& view, std::optional<double> feet);
    // The traffic patterns in the view: all whose lower limit is not above height and margin, or all.
    std::vector<std::int16_t> Patterns(const ViewBounds& view, std::optional<double> feet);

private:
    // Feet; none: any.
    struct Heights {
        std::optional<double> HighestLow, LowestHigh;
    };
    std::vector<std::int16_t> Numbers(Statement& query, const char* kind, const ViewBounds& bounds,
                                      const Heights& heights);

    Connection& luftraum;
    Statement airspaces, patterns;
};

} // namespace ornivane
