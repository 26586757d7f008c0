#include "nav/AirspaceView.h"

#include "base/Numbers.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

AirspaceView::AirspaceView(Variablen& variablen, const FlightState& flightState, DisplayFlags& displayFlags,
                           std::function<void()> updateMap)
    : shared(variablen), state(flightState), flags(displayFlags), redraw(std::move(updateMap)),
      selection(variablen.LuftraumConn), drawing(variablen.LuftraumConn) {}

void AirspaceView::SetAirspace(bool on, bool withText) {
    flags.ShowAirspace = on;
    flags.ShowAirspaceText = withText;
    redraw();
}

void AirspaceView::cmdLR1_Click() { SetAirspace(true, false); }
void AirspaceView::cmdLR2_Click() { SetAirspace(true, true); }
void AirspaceView::picLR3_Click() { SetAirspace(false, false); }

void AirspaceView::SetAirfields(bool on, bool withText) {
    flags.ShowAirfields = on;
    flags.ShowAirfieldText = withText;
    redraw();
}

void AirspaceView::cmdAPT1_Click() { SetAirfields(true, false); }
void AirspaceView::cmdAPT2_Click() { SetAirfields(true, true); }
void AirspaceView::picAPT3_Click() { SetAirfields(false, false); }

void AirspaceView::SetPatterns(bool on) {
    flags.ShowPatterns = on;
    redraw();
}

double AirspaceView::HeightToCompare() const {
    double feet = ShownNumber(state.lblAlt);
    if (!state.AltInFeet) feet = CutToFifteenDigits(feet * FeetPerMetre);
    return AirspaceSelection::ComparedHeight(feet, shared.QNH);
}

void AirspaceView::SelectAirspace(PictureSurface& surface, const MapTransform& transform, int slideValue) {
    frmQNH = flags.ShowAirspace;
    // That the store is missing was told when the program started.
    if (!shared.LuftraumConn.IsOpen()) return;
    if (flags.ShowAirspace || flags.ShowPatterns)
        Select({surface, transform, slideValue, flags.ShowAirspaceText});
}

void AirspaceView::Select(const AirspaceDrawing::Canvas& canvas) {
    const double height = HeightToCompare();
    const ViewBounds view =
        canvas.Transform.GetViewBounds(0, 0, canvas.Surface.ScaleWidth(), canvas.Surface.ScaleHeight());
    if (flags.ShowAirspace) {
        const std::vector<std::int16_t> numbers = selection.Airspaces(view, height);
        if (!numbers.empty()) lblQNHColour = numbers.size() <= MostOfFew ? FewAirspaces : ManyAirspaces;
        for (const std::int16_t number : numbers) drawing.DrawAirspace(canvas, number);
    }
    if (!flags.ShowPatterns) return;
    for (const std::int16_t number : selection.Patterns(view, height)) drawing.DrawAirspace(canvas, number);
}

} // namespace ornivane
