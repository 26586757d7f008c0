#include "nav/FlyingScreen.h"

#include <algorithm>
#include <exception>

#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace ornivane {

FlyingScreen::FlyingScreen(const FlyingScreenWorld& w, std::function<void()> stateChanged,
                           std::function<void()> focusOnMap)
    : Link(w.MSComm1, w.timerCheck, w.Messages, w.SystemClock, w.Shared, *this),
      Readouts(State, w.Shared.Locale, *this), gps(Readouts),
      Map(w.Shared, MapsSet, w.picStorage, w.picMap, w.progBar, w.Messages, *this),
      Ring(w.Shared, Map, w.picMap, w.progBar), Route(w.Shared, State, *this),
      ActiveLeg(State, w.Shared.Locale, w.SystemClock, [this] { TargetADayAway(); }),
      Wind(State, w.Shared.Locale, w.picWind),
      Instruments(w.Shared, State, w.Kurskreisel, w.Picture1, w.Messages),
      Logger(w.Shared, State, w.timeTrack, w.SystemClock, *this),
      Airspace(w.Shared, State, Flags, [this] { UpdateMap(); }),
      Qnh(w.Shared, w.SystemClock, [this] { UpdateMap(); }),
      Faults(w.Shared, [this](const std::string& text) { world.Notices.Show(text); }),
      Pass({w.Shared, State, Flags, Map, Ring, Route, ActiveLeg, Airspace, Faults, w.picStorage, w.picMap}),
      world(w), changed(std::move(stateChanged)), focusMap(std::move(focusOnMap)),
      chartsChanged(w.Shared.ChartsChanged, [this] { Map.ChartsChanged(); }) {
    Link.SetInterpreter(gps);
}

void FlyingScreen::Form_Load() {
    Route.OpenRoutes();
    MapsSet.Open(world.Shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
    Instruments.LoadVOR();
    Route.tRoute = Map.LoadLastMap();
    LoadFlightSet();
}

void FlyingScreen::LoadFlightSet() {
    if (ReadDisplayFlags(world.Shared.ProgramFolder, Flags)) return;
    try {
        SaveFlightSet();
    } catch (const RuntimeError&) {
        // A folder that cannot be written costs the memory of the flags, never the flight.
    }
}

void FlyingScreen::SaveFlightSet() { WriteDisplayFlags(world.Shared.ProgramFolder, Flags); }

void FlyingScreen::ShowLastMap() {
    MapsSet.Requery();
    if (!Map.HasRows()) {
        Ring.HideNext();
        Map.updateMapInfo();
        world.picMap.Cls();
        world.picMap.Refresh();
        return;
    }
    Map.FindMap(Map.LastMapName);
    Map.InitializeData();
    Map.updateMapInfo();
}

void FlyingScreen::Form_Activate() {
    Qnh.Form_Activate();
    Wind.RedrawArrow();
    world.progBar.SetVisible(true);
    // Each for itself: a damaged row or a store that another program holds must keep neither the chart nor
    // the receiver from coming back.
    std::exception_ptr first;
    const auto step = [&first](const std::function<void()>& run) {
        try {
            run();
        } catch (...) {
            if (!first) first = std::current_exception();
        }
    };
    step([this] { Instruments.Redraw(); });
    step([this] {
        if (Flags.ShowRoute) Route.RefreshRouteList();
    });
    step([this] { ShowLastMap(); });
    // Before the first redraw: without a position yet the map opens at the route's first point, and a
    // position off the chart would switch centring off.
    step([this] { Route.Activate(); });
    step([this] { Map.ApplyZoom(); });
    ActivateLink();
    if (first) std::rethrow_exception(first);
}

void FlyingScreen::ActivateLink() {
    Link.Form_Activate();
    Logger.Form_Activate();
    world.progBar.SetVisible(false);
    focusMap();
    changed();
}

void FlyingScreen::Form_Deactivate() {
    Faults.Forget();
    if (Map.HasRows()) Map.LastMapName = Map.Name();
    Logger.Form_Deactivate();
    Link.Form_Deactivate();
    Map.SaveMapPosition();
}

void FlyingScreen::Form_Unload() {
    Map.SaveMapPosition();
    Instruments.SaveVOR();
    SaveFlightSet();
}

void FlyingScreen::Form_Resize() {
    Map.AdjustViewToPicture();
    UpdateMap();
    world.picMap.Refresh();
}

void FlyingScreen::UpdateMap() { Redraw(&DrawingPass::UpdateMap); }
void FlyingScreen::DrawOverlays() { Redraw(&DrawingPass::DrawOverlays); }
void FlyingScreen::CentreMap() { Redraw(&DrawingPass::UpdateMap, true); }

void FlyingScreen::Redraw(void (DrawingPass::*redraw)(), bool centringAsked) {
    const bool wasCentred = Map.CenterMap;
    (Pass.*redraw)();
    if (wasCentred && !Map.CenterMap) TellWhyNotCentred(centringAsked);
    world.picMap.Refresh();
    changed();
}

// Unasked only where the pilot would otherwise go on believing that the map follows him: before the first
// position there is nothing to follow, and at the change of charts centring comes back by itself.
void FlyingScreen::TellWhyNotCentred(bool centringAsked) {
    const Variablen& shared = world.Shared;
    if (!State.HadPosition) {
        if (centringAsked)
            world.Notices.Show(
                shared.Text("Noch keine Position vom GPS: die Karte kann nicht zentriert werden.",
                            "No GPS position yet: the chart cannot be centred."));
    } else if (centringAsked || !Ring.WillChange()) {
        world.Notices.Show(
            shared.Text("Das Flugzeug ist nicht auf der Karte ", "The aircraft is off the chart ") +
            Map.Name() + shared.Text("; sie folgt ihm nicht.", "; the chart does not follow it."));
    }
}

void FlyingScreen::SetDirectTarget(const Point& view) {
    if (Map.HasMap() && Route.GotoActive) Route.SetDirectTarget(Map.Transform().PositionOfView(view));
}

// The value that stands changes with its unit: the time to go, the wind and the logged height are computed
// from both. What the wind display holds is in the unit of the speed.
void FlyingScreen::lblSpeed_Click() {
    State.SpeedInKnots = !State.SpeedInKnots;
    Readouts.ShowSpeed();
    Wind.SpeedUnitChanged();
    changed();
}

void FlyingScreen::lblAlt_Click() {
    State.AltInFeet = !State.AltInFeet;
    Readouts.ShowAltitude();
    changed();
}

// Time of arrival and time to go look alike, so the value must change together with its caption.
void FlyingScreen::lblTime_Click() {
    State.ShowETE = !State.ShowETE;
    UpdateMap();
}

void FlyingScreen::SetShowRoute(bool on) {
    Flags.ShowRoute = on;
    if (on) Route.RefreshRouteList();
    UpdateMap();
}

void FlyingScreen::SetShowNames(bool on) {
    Flags.ShowNames = on;
    UpdateMap();
}

void FlyingScreen::StepZoom(int by) {
    if (!Map.HasMap()) return;
    const bool canStep = by < 0 ? Map.SlideMap > SlideMin : Map.SlideMap < SlideMax;
    if (canStep)
        Map.SetSlide(Map.SlideMap + by);
    else
        Map.ApplyZoom();
}

void FlyingScreen::EntryKey(int keyCode) {
    if (IsEntering()) return;
    Wind.KeyUp(keyCode);
    changed();
}

void FlyingScreen::UpdateInstrument(double angle) { Instruments.UpdateInstrument(angle); }
void FlyingScreen::SpeedChanged(double knots) { Logger.SpeedReceived(knots); }
void FlyingScreen::AltitudeChanged(double feet) { Wind.UpdateTAS(feet); }

void FlyingScreen::LoggingFailed(const RuntimeError& error) {
    world.Notices.Show(world.Shared.Text("Der Track wird nicht gespeichert: ", "The track is not stored: ") +
                       DescribeError(error, world.Shared.EnglishUI == 1));
}

void FlyingScreen::RouteGone(const std::string& name) {
    world.Notices.Show(world.Shared.Text("Die Strecke \"", "The route \"") + name +
                       world.Shared.Text("\" wurde umbenannt oder gelöscht. Sie wird nicht mehr abgeflogen.",
                                         "\" was renamed or deleted. It is no longer flown."));
}

void FlyingScreen::TargetADayAway() {
    world.Notices.Show(world.Shared.Text(
        "Bei dieser Geschwindigkeit dauert es bis zum Ziel 24 Stunden oder länger. Die Zeit bleibt \"---\".",
        "At this speed the target is 24 hours or more away. The time stays \"---\"."));
}

void FlyingScreen::DataLost() {
    Readouts.ClearDisplays();
    State.NoFix = true;
    UpdateMap();
}

void FlyingScreen::NoSignal() { Readouts.ClearDisplays(); }
void FlyingScreen::RefreshRouteList() { Route.RefreshRouteList(); }
void FlyingScreen::FocusMap() { focusMap(); }

// Comes with every chunk of bytes, hundreds of times a second when a line carries noise; what did not change
// need not be shown again.
void FlyingScreen::StateChanged() {
    LiveState now{State,
                  Link.picGPSCheck,
                  Link.lblStatus,
                  Link.Hourglass,
                  Route.lblRoute,
                  Route.lblRemDist,
                  Instruments.lbldistVOR,
                  Logger.lblRecord,
                  Wind.lblIASToolTip,
                  Logger.picRecord,
                  Logger.cmdRecordAuto};
    if (now == told) return;
    told = std::move(now);
    changed();
}

std::string FlyingScreen::RouteName() const { return Route.cmbRoute; }
bool FlyingScreen::HasFix() const { return Link.picGPSCheck[1].Visible; }
double FlyingScreen::DistanceToTarget() const { return ActiveLeg.LastDistance; }
std::string FlyingScreen::MapName() const { return Map.HasRows() ? Map.Name() : std::string(); }

} // namespace ornivane
