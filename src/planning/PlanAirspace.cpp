#include "planning/PlanAirspace.h"

#include "store/Connection.h"

namespace ornivane {

PlanAirspace::PlanAirspace(Connection& luftraumConn)
    : luftraum(luftraumConn), selection(luftraumConn), drawing(luftraumConn) {}

void PlanAirspace::DrawPlanAirspace(const AirspaceChoice& choice, PictureSurface& surface,
                                    const MapTransform& transform, int slideValue) {
    const auto shown = choice.Shown();
    // That the store is missing was told when the program started.
    if (shown == AirspaceChoice::Which::None || !luftraum.IsOpen()) return;
    const AirspaceDrawing::Canvas canvas{surface, transform, slideValue, true, "+"};
    const ViewBounds view = transform.GetViewBounds();
    const auto height =
        shown == AirspaceChoice::Which::AtHeight ? std::optional(choice.Height()) : std::nullopt;
    for (const std::int16_t number : selection.AirspacesAt(view, height))
        drawing.DrawAirspace(canvas, number);
    if (!choice.tPR) return;
    for (const std::int16_t number : selection.Patterns(view, height)) drawing.DrawAirspace(canvas, number);
}

} // namespace ornivane
