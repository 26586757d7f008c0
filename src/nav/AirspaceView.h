#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "common/DisplayFlags.h"
#include "common/Qnh.h"
#include "map/AirspaceSelection.h"
#include "nav/FlightState.h"

namespace ornivane {

// Airspace and traffic patterns on the flying screen's map: what concerns the view and the height at this
// moment, chosen anew in each redraw. The buttons of airspace and of airfields switch in three stages.
class AirspaceView {
public:
    static constexpr Colour FewAirspaces = 0xFFFF80, ManyAirspaces = 0xFF8080;
    static constexpr std::size_t MostOfFew = 31;

    // `updateMap`: a switch has changed what the map shows.
    AirspaceView(Connection& luftraumConn, const DayQnh& qnh, const FlightState& state, DisplayFlags& flags,
                 std::function<void()> updateMap);

    // The text of airspace is its heights.
    void SetAirspace(bool on, bool withText);
    void SetAirfields(bool on, bool withText);

    // Adds the numbers of what is to be drawn, in its order; none in a run without the store. RuntimeError
    // for a row that cannot be read: what was found before it stays.
    void SelectAirspace(const MapTransform& transform, std::vector<std::int16_t>& numbers);

    bool frmQNH = false; // the panel with the QNH
    Colour lblQNHColour = FewAirspaces;

private:
    const Connection& store;
    const DayQnh& qnh;
    const FlightState& state;
    DisplayFlags& flags;
    std::function<void()> redraw;
    AirspaceSelection selection;
};

} // namespace ornivane
