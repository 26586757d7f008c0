#include "nav/Instrument.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/Strings.h"
#include "geo/GreatCircle.h"

namespace ornivane {

namespace {

constexpr ReadoutFormat NearStation{"##0.0", "NM"}, FarStation{"##0", "NM"};
constexpr double Near = 30; // NM

} // namespace

Instrument::Instrument(Connection& dataStore, const Language& languageOfTexts,
                       const Settings& programSettings, const FlightState& flightState,
                       PictureSurface& Kurskreisel, const Picture& Picture1, Dialogs& messages)
    : language(languageOfTexts), settings(programSettings), state(flightState), surface(Kurskreisel),
      card(Picture1), dialogs(messages), waypoints(dataStore) {}

void Instrument::LoadVOR() {
    InstrumentSettings saved{lblVOR1, InstrumentMode, lblKurs};
    ReadInstrumentSettings(settings.ProgramFolder, saved);
    lblVOR1 = saved.Vor;
    lblKurs = saved.Course;
    InstrumentMode = saved.Mode;
}

void Instrument::SaveVOR() const {
    WriteInstrumentSettings(settings.ProgramFolder, {lblVOR1, InstrumentMode, lblKurs});
}

void Instrument::UpdateInstrument(double cardDegrees) {
    surface.Cls();
    surface.PaintTurned(card, cardDegrees);
    StationShows = InstrumentMode != DialMode::Heading;
    if (InstrumentMode == DialMode::Heading) frmKurs = frmVOR = false;
    if (InstrumentMode == DialMode::Hsi) frmVOR = false;
    InstrumentDrawing::DrawInstrumentAircraft(surface);
    if (StationShows) {
        FindVOR();
        DrawVORNeedle();
        if (InstrumentMode == DialMode::Hsi) DrawHSI(cardDegrees);
    }
    surface.Refresh();
}

void Instrument::FindVOR() {
    if (!HasBearing()) lbldistVOR = Readout();
    if (lblVOR1.empty()) return;
    if (const std::optional<DegMin> place = waypoints.PlaceOf(lblVOR1)) {
        UpdateVORBearing(ToDecimalDegrees(*place));
        return;
    }
    lbldistVOR = Readout();
    bearingStation.clear();
    // Not while another station is being entered: that is what the message asks for.
    if (!frmVOR)
        dialogs.MessageBeside("Error",
                              language.Text("VOR nicht gefunden: %1", "VOR not found: %1", {lblVOR1}));
}

void Instrument::UpdateVORBearing(const Position& station) {
    const auto way = FlownLeg(state.Current(), station);
    if (!way) return;
    const double distance = way->DistanceNM;
    // Before the first position of the receiver the aircraft only stands somewhere on the map.
    lbldistVOR =
        state.HadPosition ? Readout(distance, distance < Near ? NearStation : FarStation) : Readout();
    // Jumps at the station's meridian: its two branches are the initial course and the final one.
    VORBearing = way->TrueCourse;
    bearingStation = lblVOR1;
}

void Instrument::DrawVORNeedle() {
    const bool isVor = InstrumentMode == DialMode::Vor;
    if (isVor) InstrumentDrawing::Hub(surface);
    const bool isPointing = state.lblBearing.HasNumber() && HasBearing();
    // Without a track or a station the needle is parked across the card.
    const double relative = isPointing ? VORBearing - state.lblBearing.Number() : 90;
    InstrumentDrawing::Arrow(surface, relative, 94, isVor ? 5 : 35,
                             isPointing ? InstrumentDrawing::Needle : InstrumentDrawing::Parked);
}

void Instrument::DrawHSI(double cardDegrees) {
    const auto entered = ParseNumber(lblKurs);
    if (!frmKurs && (!entered || *entered > 360)) return;
    const double course = entered.value_or(0);
    const double turned = course + cardDegrees;
    InstrumentDrawing::SmallAircraft(surface);
    InstrumentDrawing::Arrow(surface, turned, 95, 45, InstrumentDrawing::Selected);
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
void Instrument::Redraw() { UpdateInstrument(state.lblBearing.HasNumber() ? state.HeadingIndicator : 0); }

void Instrument::LeftButton() {
    InstrumentMode = InstrumentMode == DialMode::Heading ? DialMode::Vor
                     : InstrumentMode == DialMode::Vor   ? DialMode::Hsi
                                                         : DialMode::Heading;
    Redraw();
}

void Instrument::RightButton() {
    if (InstrumentMode == DialMode::Vor) {
        if (!frmVOR) tVOR1_Change(tVOR1);
        frmVOR = true;
    } else if (InstrumentMode == DialMode::Hsi) {
        frmKurs = true;
        tKurs.clear();
    }
}

void Instrument::tVOR1_Change(const std::string& text) {
    tVOR1 = text;
    lblResult = waypoints.FirstNameFrom(text);
}

void Instrument::tVOR1_Enter() {
    // Without a name from there on there is nothing to take.
    if (!lblResult.empty()) {
        lblVOR1 = lblResult;
        lbldistVOR = Readout();
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
