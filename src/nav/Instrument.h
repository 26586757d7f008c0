#pragma once

#include <string>

#include "base/Language.h"
#include "base/Readout.h"
#include "common/Settings.h"
#include "common/SettingsFiles.h"
#include "data/Waypoints.h"
#include "nav/FlightState.h"
#include "nav/InstrumentDrawing.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// What the instrument shows besides its picture, to be compared with what was shown last. An entry frame is
// open while its flag is true.
struct InstrumentShown {
    DialMode InstrumentMode = DialMode::Heading;
    std::string lblVOR1, lblKurs; // the station's name and the selected course, as entered
    Readout lbldistVOR;
    bool StationShows = false; // lblVOR1 and lbldistVOR
    bool frmVOR = false, frmKurs = false;
    std::string tVOR1, lblResult, tKurs;
    bool operator==(const InstrumentShown&) const = default;
};

// The round instrument: heading indicator, VOR or HSI. There is no radio receiver; a "VOR" is any waypoint,
// bearing and distance are computed from the position. The card turns with the track over ground.
class Instrument : public InstrumentShown {
public:
    // Kurskreisel is 200 by 200 units; Picture1 is the compass card. All of it outlives the instrument.
    Instrument(Connection& dataStore, const Language& languageOfTexts, const Settings& programSettings,
               const FlightState& flightState, PictureSurface& Kurskreisel, const Picture& Picture1,
               Dialogs& messages);

    // The saved station, mode and course.
    void LoadVOR();
    void SaveVOR() const;

    // Redraws with the card turned clockwise: by minus the displayed track.
    void UpdateInstrument(double cardDegrees);
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

    double VORBearing = 0; // degrees, from the aircraft to bearingStation

private:
    void FindVOR();
    void UpdateVORBearing(const Position& station);
    // Without a station, or while its bearing is not known yet, VORBearing is that of another one.
    bool HasBearing() const { return !lblVOR1.empty() && lblVOR1 == bearingStation; }
    void DrawVORNeedle();
    void DrawHSI(double cardDegrees);

    const Language& language;
    const Settings& settings;
    const FlightState& state;
    PictureSurface& surface;
    const Picture& card;
    Dialogs& dialogs;
    Waypoints waypoints;
    std::string bearingStation; // empty when the chosen one was not found
};

} // namespace ornivane
