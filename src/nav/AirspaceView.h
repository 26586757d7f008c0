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

    void cmdLR1_Click() { SetAirspace(true, false); }
    void cmdLR2_Click() { SetAirspace(true, true); } // with heights
    void picLR3_Click() { SetAirspace(false, false); }
    void cmdAPT1_Click() { SetAirfields(true, false); }
    void cmdAPT2_Click() { SetAirfields(true, true); } // with texts
    void picAPT3_Click() { SetAirfields(false, false); }

    // Adds the numbers of what is to be drawn, in its order; none in a run without the store. RuntimeError
    // for a row that cannot be read: what was found before it stays.
    void SelectAirspace(const MapTransform& transform, std::vector<std::int16_t>& numbers);

    bool frmQNH = false; // the panel with the QNH
    Colour lblQNHColour = FewAirspaces;

private:
    void SetAirspace(bool on, bool withText);
    void SetAirfields(bool on, bool withText);

    const Connection& store;
    const DayQnh& qnh;
    const FlightState& state;
    DisplayFlags& flags;
    std::function<void()> redraw;
    AirspaceSelection selection;
};

} // namespace ornivane
