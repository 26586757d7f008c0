#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "common/SettingsFiles.h"
#include "common/Variablen.h"
#include "map/ActiveMap.h"
#include "map/AirspaceDrawing.h"
#include "map/AirspaceSelection.h"
#include "nav/FlightState.h"

namespace ornivane {

// Airspace and traffic patterns on the flying screen's map: what concerns the view and the height at this
// moment, chosen anew in each redraw. Its buttons switch in three stages, those of the airfields likewise.
class AirspaceView {
public:
    static constexpr Colour FewAirspaces = 0xFFFF80, ManyAirspaces = 0xFF8080;
    static constexpr std::size_t MostOfFew = 31;

    // `updateMap`: a switch has changed what the map shows.
    AirspaceView(Variablen& variablen, const FlightState& state, DisplayFlags& flags,
                 std::function<void()> updateMap);

    void cmdLR1_Click(); // airspace on
    void cmdLR2_Click(); // with heights
    void picLR3_Click(); // off
    void cmdPR_Click() { SetPatterns(true); }
    void picPR_Click() { SetPatterns(false); }
    void cmdAPT1_Click(); // airfields on
    void cmdAPT2_Click(); // with texts
    void picAPT3_Click(); // off

    // Draws over the chart, below all points; nothing in a run without the store. RuntimeError for a row that
    // cannot be read or drawn: the airspaces behind it are missing then.
    void SelectAirspace(PictureSurface& surface, const MapTransform& transform, int slideValue);

    bool frmQNH = false; // the panel with the QNH
    Colour lblQNHColour = FewAirspaces;

private:
    void Select(const AirspaceDrawing::Canvas& canvas);
    double HeightToCompare() const;
    void SetPatterns(bool on);
    void SetAirspace(bool on, bool withText);
    void SetAirfields(bool on, bool withText);

    Variablen& shared;
    const FlightState& state;
    DisplayFlags& flags;
    std::function<void()> redraw;
    AirspaceSelection selection;
    AirspaceDrawing drawing;
};

} // namespace ornivane
