#include "nav/Instrument.h"

#include <cmath>

#include "base/Format.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Strings.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

const char* const Heading = "Kurs";
const char* const Vor = "VOR";
const char* const Hsi = "HSI";

} // namespace

Instrument::Instrument(Variablen& variablen, const FlightState& flightState, PictureSurface& Kurskreisel,
                       const Picture& Picture1, Dialogs& messages)
    : shared(variablen), state(flightState), surface(Kurskreisel), card(Picture1), dialogs(messages) {}

void Instrument::LoadVOR() {
    InstrumentSettings saved{lblVOR1, InstrumentMode, lblKurs};
    ReadInstrumentSettings(shared.ProgramFolder, saved);
    lblVOR1 = saved.Vor;
    lblKurs = saved.Course;
    InstrumentMode = saved.Mode == Vor || saved.Mode == Hsi ? saved.Mode : Heading;
}

void Instrument::SaveVOR() const {
    WriteInstrumentSettings(shared.ProgramFolder, {lblVOR1, InstrumentMode, lblKurs});
}

void Instrument::UpdateInstrument(double angle) {
    surface.Cls();
    RotateCard(angle);
    StationShows = InstrumentMode != Heading;
    if (InstrumentMode == Heading) frmKurs = frmVOR = false;
    if (InstrumentMode == Hsi) frmVOR = false;
    InstrumentDrawing::DrawInstrumentAircraft(surface);
    if (StationShows) {
        FindVOR();
        DrawVORNeedle();
        if (InstrumentMode == Hsi) DrawHSI(angle);
    }
    surface.Refresh();
}

void Instrument::RotateCard(double angle) { surface.PaintTurned(card, angle); }

void Instrument::FindVOR() {
    if (!HasBearing()) lbldistVOR = NoValue;
    if (lblVOR1.empty()) return;
    if (!byName.IsPrepared())
        byName = Statement(shared.DataConn,
                           "SELECT Lat, Long FROM Waypoints WHERE Name = ? ORDER BY Name ASC LIMIT 1");
    const StatementRun run(byName);
    byName.Bind(1, lblVOR1);
    if (byName.Step()) {
        UpdateVORBearing({ToDecimalDegrees(byName.Number(0)), ToDecimalDegrees(byName.Number(1))});
        return;
    }
    lbldistVOR = NoValue;
    bearingStation.clear();
    // Not while another station is being entered: that is what the message asks for.
    if (!frmVOR)
        dialogs.MessageBeside("Error", shared.Text("VOR nicht gefunden: ", "VOR not found: ") + lblVOR1);
}

void Instrument::UpdateVORBearing(const Position& station) {
    const double lat = DegToRad(state.CurLat), longitude = DegToRad(state.CurLong);
    const double vorLat = DegToRad(station.Lat), vorLong = DegToRad(station.Long);
    if (lat == vorLat && longitude == vorLong) return;
    if (lat == 0 || longitude == 0 || vorLat == 0 || vorLong == 0) return;
    const double d = AngleBetween(lat, longitude, vorLat, vorLong);
    const double distance = d * 60 * 180 / Pi;
    // Before the first position of the receiver the aircraft only stands somewhere on the map.
    lbldistVOR =
        state.HadPosition ? Format(distance, distance < 30 ? "##0.0" : "##0", shared.Locale) : NoValue;
    // Jumps at the station's meridian: its two branches are the initial course and the final one.
    VORBearing = TrueCourse(lat, longitude, vorLat, vorLong, d);
    bearingStation = lblVOR1;
}

void Instrument::DrawVORNeedle() {
    const bool isVor = InstrumentMode == Vor;
    if (isVor) InstrumentDrawing::Hub(surface);
    const bool isPointing = state.lblBearing != NoValue && HasBearing();
    // Without a track or a station the needle is parked across the card.
    const double relative = isPointing ? VORBearing - NumberIn(state.lblBearing) : 90;
    InstrumentDrawing::Arrow(surface, relative, 94, isVor ? 5 : 35,
                             isPointing ? InstrumentDrawing::Needle : InstrumentDrawing::Parked);
}

void Instrument::DrawHSI(double angle) {
    const auto entered = ParseNumber(lblKurs);
    if (!frmKurs && (!entered || *entered > 360)) return;
    const double course = entered.value_or(0);
    const double turned = course + angle;
    InstrumentDrawing::SmallAircraft(surface);
    InstrumentDrawing::Arrow(surface, turned, 95, 45, 0xFFFF00);
    InstrumentDrawing::DeviationScale(surface, turned);
    if (!HasBearing()) return;

    const double whole = Round(course);
    InstrumentDrawing::ToFrom(surface, turned,
                              whole > Round(VORBearing - 90) && whole < Round(VORBearing + 90));

    double deviation = course - VORBearing;
    if (std::abs(deviation) > 165) {
        const double reciprocal = course + 180 >= 360 ? course - 180 : course + 180;
        deviation = -(reciprocal - VORBearing);
    }
    const double offset = deviation * 5; // units for a degree
    if (std::abs(offset) < 60) InstrumentDrawing::DeviationBar(surface, turned, offset);
}

// What was pressed shows at once, also when no further track comes.
void Instrument::Redraw() { UpdateInstrument(state.lblBearing == NoValue ? 0 : state.HeadingIndicator); }

void Instrument::LeftButton() {
    InstrumentMode = InstrumentMode == Heading ? Vor : InstrumentMode == Vor ? Hsi : Heading;
    Redraw();
}

void Instrument::RightButton() {
    if (InstrumentMode == Vor) {
        if (!frmVOR) tVOR1_Change(tVOR1);
        frmVOR = true;
    } else if (InstrumentMode == Hsi) {
        frmKurs = true;
        tKurs.clear();
    }
}

void Instrument::tVOR1_Change(const std::string& text) {
    tVOR1 = text;
    if (!fromName.IsPrepared())
        fromName = Statement(shared.DataConn,
                             "SELECT Name FROM Waypoints WHERE Name >= ? ORDER BY Name ASC LIMIT 1");
    const StatementRun run(fromName);
    fromName.Bind(1, text);
    lblResult = fromName.Step() ? std::string(fromName.Text(0)) : std::string();
}

void Instrument::tVOR1_Enter() {
    // Without a name from there on there is nothing to take.
    if (!lblResult.empty()) {
        lblVOR1 = lblResult;
        lbldistVOR = NoValue;
    }
    tVOR1_Escape();
    Redraw();
}

void Instrument::tVOR1_Escape() {
    frmVOR = false;
    tVOR1.clear();
}

void Instrument::tKurs_Change(const std::string& text) {
    tKurs = text;
    if (CharacterCount(text) == 3) tKurs_Enter();
}

void Instrument::tKurs_Enter() {
    frmKurs = false;
    lblKurs = tKurs;
    Redraw();
}

void Instrument::tKurs_Escape() {
    tKurs.clear();
    frmKurs = false;
}

} // namespace ornivane
