#pragma once

#include <string>

#include "common/Variablen.h"
#include "map/MapTransform.h"
#include "nav/FlightState.h"
#include "nav/InstrumentDrawing.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"
#include "store/Statement.h"

namespace ornivane {

// The round instrument: heading indicator, VOR or HSI. There is no radio receiver; a "VOR" is any waypoint,
// bearing and distance are computed from the position. The card turns with the track over ground.
class Instrument {
public:
    // Kurskreisel is 200 by 200 units; Picture1 is the compass card.
    Instrument(Variablen& variablen, const FlightState& state, PictureSurface& Kurskreisel,
               const Picture& Picture1, Dialogs& dialogs);

    // The saved station, mode and course; an unknown mode is "Kurs".
    void LoadVOR();
    void SaveVOR() const;

    // Redraws with the card turned by the angle, degrees clockwise: minus the displayed track.
    void UpdateInstrument(double angle);
    // Again as it stands: another size, palette, or station.
    void Redraw();

    // On the instrument: the left button changes the mode, the right one asks for station or course.
    void LeftButton();
    void RightButton();
    // The text of tVOR1 has changed: lblResult shows the first name from it on.
    void tVOR1_Change(const std::string& text);
    void tVOR1_Enter();
    void tVOR1_Escape();
    // Three characters are a whole course and end the entry by themselves.
    void tKurs_Change(const std::string& text);
    void tKurs_Enter();
    void tKurs_Escape();

    // Keys of the flying screen rest while a name or a course is entered.
    bool IsEntering() const { return frmVOR || frmKurs; }

    std::string InstrumentMode = "Kurs"; // "Kurs", "VOR", "HSI"
    std::string lblVOR1, lblKurs;
    std::string lbldistVOR = NoValue; // NM
    double VORBearing = 0;            // degrees, from the aircraft to bearingStation
    bool StationShows = false;        // lblVOR1 and lbldistVOR
    bool frmVOR = false, frmKurs = false;
    std::string tVOR1, lblResult, tKurs;

private:
    void RotateCard(double angle);
    void FindVOR();
    void UpdateVORBearing(const Position& station);
    // Without a station, or while its bearing is not known yet, VORBearing is that of another one.
    bool HasBearing() const { return !lblVOR1.empty() && lblVOR1 == bearingStation; }
    void DrawVORNeedle();
    void DrawHSI(double angle);

    Variablen& shared;
    const FlightState& state;
    PictureSurface& surface;
    const Picture& card;
    Dialogs& dialogs;
    Statement byName, fromName;
    std::string bearingStation; // empty when the chosen one was not found
};

} // namespace ornivane
