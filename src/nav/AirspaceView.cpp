#include "nav/AirspaceView.h"

#include "store/Connection.h"

namespace ornivane {

AirspaceView::AirspaceView(Connection& luftraumConn, const DayQnh& dayQnh, const FlightState& flightState,
                           DisplayFlags& displayFlags, std::function<void()> updateMap)
    : store(luftraumConn), qnh(dayQnh), state(flightState), flags(displayFlags), redraw(std::move(updateMap)),
      selection(luftraumConn) {}

void AirspaceView::SetAirspace(bool on, bool withText) {
    flags.ShowAirspace = on;
    flags.ShowAirspaceText = withText;
    redraw();
}

void AirspaceView::SetAirfields(bool on, bool withText) {
    flags.ShowAirfields = on;
    flags.ShowAirfieldText = withText;
    redraw();
}

void AirspaceView::SelectAirspace(const MapTransform& transform, std::vector<std::int16_t>& numbers) {
    frmQNH = flags.ShowAirspace;
    // That the store is missing was told when the program started.
    if (!store.IsOpen() || !(flags.ShowAirspace || flags.ShowPatterns)) return;
    const double feet = AirspaceSelection::ComparedHeight(state.ShownFeet(), qnh.QNH);
    const ViewBounds view = transform.GetViewBounds();
    if (flags.ShowAirspace) {
        numbers = selection.Airspaces(view, feet);
        if (!numbers.empty()) lblQNHColour = numbers.size() <= MostOfFew ? FewAirspaces : ManyAirspaces;
    }
    if (!flags.ShowPatterns) return;
    const std::vector<std::int16_t> patterns = selection.Patterns(view, feet);
    numbers.insert(numbers.end(), patterns.begin(), patterns.end());
}

} // namespace ornivane
