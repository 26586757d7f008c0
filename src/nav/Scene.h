#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "map/MapSymbols.h"
#include "map/MapTransform.h"

namespace ornivane {

// What one redraw of the flying screen shows: made by Navigation, drawn by SceneDrawing, never changed in
// between. An error in the data leaves out all that would lie above it, so what is here can be drawn.
struct Scene {
    struct LegLine {
        Position From, To;
        bool operator==(const LegLine&) const = default;
    };
    struct AircraftSymbol {
        Point At;                    // view pixels
        double DirectionDegrees = 0; // in the view, 0 is up
        bool HasFix = false;
        int Symbol = 0; // Settings::SymbolType
        bool operator==(const AircraftSymbol&) const = default;
    };

    std::optional<MapTransform> Transform; // none: nothing is drawn
    bool PaintsChart = false;              // otherwise the overlays lie over the picture that stands
    int SlideMap = 0;

    std::vector<std::int16_t> Airspaces; // their numbers, painted with the chart
    bool ShowAirspaceText = false;
    std::vector<Position> Route; // its points, one leg from each to the next; empty while it is not shown
    std::optional<LegLine> ActiveLeg;
    PointSettings Points;
    std::vector<MapSymbols::StoredPoint> Waypoints, RoutePoints;
    std::optional<DegMin> DirectTarget;
    std::optional<AircraftSymbol> Aircraft;

    // Texts for the pilot: why airspace is missing, and what ended the scene before its end; empty if nothing
    // did.
    std::string AirspaceFault, Fault;

    bool operator==(const Scene&) const = default;
};

} // namespace ornivane
