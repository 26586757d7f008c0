#pragma once

#include <string>

#include "common/Variablen.h"
#include "map/AirspaceDrawing.h"
#include "map/AirspaceSelection.h"

namespace ornivane {

// Airspace and traffic patterns on the planning map: at a height that the pilot chooses, without a band
// around it and without QNH, because nothing is flown here.
class PlanAirspace {
public:
    // Values of tLRHoehe apart from heights in feet.
    static constexpr double All = -99, None = -10;

    explicit PlanAirspace(Variablen& variablen);

    // Draws over the chart, below route and points; nothing in a run without the store. RuntimeError for a
    // row that cannot be read or drawn: the airspaces behind it are missing then. A height that is no number
    // shows nothing, like None.
    void DrawPlanAirspace(PictureSurface& surface, const MapTransform& transform, int slideValue);

    std::string tLRHoehe = "-10"; // as typed, or one of the two values above
    std::string tPR = "0";        // "1" shows traffic patterns
    bool tLRVisible = false;
    std::string tLR; // in German only

private:
    void Draw(const AirspaceDrawing::Canvas& canvas, double height);

    Variablen& shared;
    AirspaceSelection selection;
    AirspaceDrawing drawing;
};

} // namespace ornivane
