#pragma once

#include "map/AirspaceDrawing.h"
#include "map/AirspaceSelection.h"
#include "planning/AirspaceChoice.h"

namespace ornivane {

// Airspace and traffic patterns on the planning map: at a height that the pilot chooses, without a band
// around it and without QNH, because nothing is flown here.
class PlanAirspace {
public:
    // `luftraum`: closed in a run without the store; nothing is drawn then.
    explicit PlanAirspace(Connection& luftraum);

    // Draws over the chart, below route and points. RuntimeError for a row that cannot be read or drawn: the
    // airspaces behind it are missing then.
    void DrawPlanAirspace(const AirspaceChoice& choice, PictureSurface& surface,
                          const MapTransform& transform, int slideValue);

private:
    Connection& luftraum;
    AirspaceSelection selection;
    AirspaceDrawing drawing;
};

} // namespace ornivane
