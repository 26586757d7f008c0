#include "planning/PlanAirspace.h"

#include "base/Numbers.h"

namespace ornivane {

PlanAirspace::PlanAirspace(Variablen& variablen)
    : shared(variablen), selection(variablen.LuftraumConn), drawing(variablen.LuftraumConn) {}

void PlanAirspace::DrawPlanAirspace(PictureSurface& surface, const MapTransform& transform, int slideValue) {
    const double height = ParseNumber(tLRHoehe).value_or(None);
    tLRVisible = height != None;
    if (!tLRVisible) return;
    tLR = height == All ? "Alle Lufträume" : "Luftraum in " + NumberText(height, shared.Locale) + " ft";
    // That the store is missing was told when the program started.
    if (shared.LuftraumConn.IsOpen()) Draw({surface, transform, slideValue, true, "+"}, height);
}

void PlanAirspace::Draw(const AirspaceDrawing::Canvas& canvas, double height) {
    const ViewBounds view =
        canvas.Transform.GetViewBounds(0, 0, canvas.Surface.ScaleWidth(), canvas.Surface.ScaleHeight());
    const auto at = height == All ? std::optional<double>() : height;
    for (const std::int16_t number : selection.AirspacesAt(view, at)) drawing.DrawAirspace(canvas, number);
    if (ParseNumber(tPR) != 1.0) return;
    for (const std::int16_t number : selection.Patterns(view, at)) drawing.DrawAirspace(canvas, number);
}

} // namespace ornivane
