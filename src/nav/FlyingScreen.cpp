#include "nav/FlyingScreen.h"

#include <exception>

#include "base/RuntimeError.h"

namespace ornivane {

FlyingScreen::FlyingScreen(const FlyingScreenWorld& w, std::function<void()> stateChanged,
                           std::function<void(FocusBy)> focusOnMap)
    : Readouts(State, [this](const FixEffects& effects) { Act(effects); }), gps(Readouts),
      Sentences(gps, w.Devices.SystemClock, w.Shared), Com(w.Devices.MSComm1, w.Shared, w.Shared),
      Link(Com, Sentences, w.Devices.timerCheck, w.Messages, w.Shared,
           [this](LinkAction action) { Do(action); }),
      Map({w.Shared, w.Shared, w.Shared.DataConn, MapsSet, w.picStorage, w.picMap, w.progBar, w.Messages}),
      Ring(w.Shared.DataConn, Map, w.progBar),
      Route(w.Shared.DataConn, State, [this] { Do({.TargetChosen = true, .Redraw = true}); }),
      ActiveLeg(State, w.Devices.SystemClock), Wind(State, w.Shared.Locale, w.picWind),
      Instruments(w.Shared.DataConn, w.Shared, w.Shared, State, w.Kurskreisel, w.Picture1, w.Messages),
      Logger(w.Shared, w.Shared.TrackConn, w.Shared, State, w.Devices.timeTrack, w.Devices.SystemClock),
      Airspace(w.Shared.LuftraumConn, w.Shared, State, Flags, [this] { UpdateMap(); }),
      Qnh(w.Shared, w.Shared, w.Devices.SystemClock, [this] { UpdateMap(); }),
      Faults(w.Shared, [this](const std::string& text) { world.Notices.Show(text); }), world(w),
      changed(std::move(stateChanged)), focusMap(std::move(focusOnMap)),
      navigation({w.Shared, w.Shared, State, Flags, Map, Ring, Route, ActiveLeg, Airspace, Faults}),
      drawing(w.picMap, w.picStorage, w.Shared.LuftraumConn, Faults),
      chartsChanged(w.Shared.ChartsChanged, [this] { Map.ChartsChanged(); }) {
    w.Devices.timeTrack.OnTimer([this] { timeTrack_Timer(); });
}

void FlyingScreen::Form_Load() {
    Route.OpenRoutes();
    MapCatalogue(world.Shared.DataConn).OpenActive(MapsSet);
    Instruments.LoadVOR();
    Route.tRoute = Map.LoadLastMap();
    if (ReadDisplayFlags(world.Shared.ProgramFolder, Flags)) return;
    // A folder that cannot be written costs the memory of the flags, never the flight.
    IgnoreErrors([this] { SaveFlightSet(); });
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
    // the receiver from coming back, nor a chart for which the memory does not suffice.
    std::exception_ptr first;
    const auto step = [&first](const auto& run) {
        try {
            run();
        } catch (...) {
            if (!first) first = std::current_exception();
        }
    };
    step([this] { Instruments.Redraw(); });
    step([this] {
        if (Flags.ShowRoute) RefreshRouteList();
    });
    step([this] { ShowLastMap(); });
    // Before the first redraw: without a position yet the map opens at the route's first point, and a
    // position off the chart would switch centring off.
    step([this] { ActivateRoute(); });
    step([this] { ApplyZoom(); });
    Link.Form_Activate();
    Logger.Form_Activate();
    world.progBar.SetVisible(false);
    FocusMap();
    changed();
    if (first) std::rethrow_exception(first);
}

void FlyingScreen::ActivateRoute() {
    const RouteReturn found = Route.Activate();
    if (found.Gone)
        world.Notices.Show(world.Shared.Text(
            "Die Strecke \"%1\" wurde umbenannt oder gelöscht. Sie wird nicht mehr abgeflogen.",
            "The route \"%1\" was renamed or deleted. It is no longer flown.", {*found.Gone}));
    if (found.Damage) throw RuntimeError(*found.Damage);
    if (found.IsAnotherTarget) ActiveLeg.TargetChosen();
    RefreshRouteList();
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

void FlyingScreen::Redraw(RedrawOrder order, bool centringAsked) {
    const bool wasCentred = Map.CenterMap;
    order.OnlyRoutePoints = picShowPoints;
    order.HasFix = HasFix();
    NavigationStep step = navigation.Step(order);
    const bool changesChart = step.ChangesChart;
    Show(std::move(step));
    if (changesChart) Show(navigation.ChangeChart(order));
    if (wasCentred && !Map.CenterMap) TellWhyNotCentred(centringAsked);
    world.picMap.Refresh();
    changed();
}

// What is told comes in the order of what was drawn and computed.
void FlyingScreen::Show(NavigationStep step) {
    // Before anything can end it: half of this scene must not become the one before again.
    if (step.Picture.PaintsChart) drawn.clear();
    Faults.Tell(drawing.Draw(step.Picture));
    if (step.Passed) focusMap(FocusBy::Receiver);
    if (step.IsADayAway)
        world.Notices.Show(
            world.Shared.Text("Bei dieser Geschwindigkeit dauert es bis zum Ziel 24 Stunden oder länger. Die "
                              "Zeit bleibt \"---\".",
                              "At this speed the target is 24 hours or more away. The time stays \"---\"."));
    const bool hasExtent = world.picMap.ScaleWidth() > 0 && world.picMap.ScaleHeight() > 0;
    if (hasExtent) Faults.Tell(step.Picture.Fault); // a view without extent is no fault
    Keep(std::move(step.Picture));
}

void FlyingScreen::Keep(Scene scene) {
    if (!scene.Transform) return;
    if (drawn.size() > 1) drawn.pop_back(); // older overlays
    drawn.push_back(std::move(scene));
    drawnOf = Map.ViewIsOf();
}

void FlyingScreen::PaintAgain() {
    if (!Map.HasMap() || drawnOf != Map.ViewIsOf()) return;
    // What is wrong with a scene was told when it was drawn first.
    IgnoreErrors([this] {
        for (const Scene& scene : drawn) drawing.Draw(scene);
    });
    world.picMap.Refresh();
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
        world.Notices.Show(shared.Text("Das Flugzeug ist nicht auf der Karte %1; sie folgt ihm nicht.",
                                       "The aircraft is off the chart %1; the chart does not follow it.",
                                       {Map.Name()}));
    }
}

void FlyingScreen::SetDirectTarget(const Point& view) {
    if (Map.HasMap() && Route.GotoActive) Do(Route.SetDirectTarget(Map.Transform().PositionOfView(view)));
}

void FlyingScreen::Do(const RouteEffects& effects) {
    if (effects.TargetChosen) ActiveLeg.TargetChosen();
    if (effects.Redraw) UpdateMap();
    if (effects.FocusMap) FocusMap();
}

void FlyingScreen::DrawIf(bool isAnotherView) {
    if (isAnotherView) UpdateMap();
}

void FlyingScreen::cmbRoute_Click(const std::string& name) {
    if (!Route.cmbRoute_Click(name)) return;
    ActiveLeg.TargetChosen();
    const auto damage = ErrorOf([this] { RefreshRouteList(); }); // the route is chosen all the same
    UpdateMap();
    // Last: a folder that cannot be written must not keep the new route from the screen.
    if (Map.HasRows() && !Map.Name().empty()) Map.RememberChoice(Route.cmbRoute);
    if (damage) throw RuntimeError(*damage);
}

void FlyingScreen::RefreshRouteList() {
    Route.RefreshRouteList(HasFix() ? std::optional(ActiveLeg.LastDistance) : std::nullopt);
}

void FlyingScreen::cmbMaps_Click(const std::string& name) {
    if (!Map.cmbMaps_Click(name)) return;
    UpdateMap();
    // Last: a folder that cannot be written must not keep the new map from the screen.
    Map.RememberChoice(Route.cmbRoute);
}

void FlyingScreen::cmdKartezentrieren_Click() {
    Map.CenterMap = true;
    CentreMap();
}

void FlyingScreen::picKartezentrieren_Click() {
    Map.CenterMap = false;
    UpdateMap();
    FocusMap();
}

void FlyingScreen::cmdMapScroll_Click() {
    Ring.cmdMapScroll_Click();
    CentreMap();
}

// Centring was asked for: the pilot wants to know why when it does not come about.
void FlyingScreen::CentreMap() {
    Redraw({}, true);
    FocusMap();
}

void FlyingScreen::PicMapScroll_Click() {
    Ring.PicMapScroll_Click();
    FocusMap();
}

void FlyingScreen::cmdShowPoints_Click() {
    picShowPoints = Route.RoutePointsSet.IsOpen() && Route.HasRoutes();
    UpdateMap();
}

void FlyingScreen::picShowPoints_Click() {
    picShowPoints = false;
    UpdateMap();
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

void FlyingScreen::SetFlag(bool DisplayFlags::*flag, bool on) {
    Flags.*flag = on;
    if (on && flag == &DisplayFlags::ShowRoute) RefreshRouteList();
    UpdateMap();
}

void FlyingScreen::StepZoom(int by) {
    if (!Map.HasMap()) return;
    const bool canStep = by < 0 ? Map.SlideMap > SlideMin : Map.SlideMap < SlideMax;
    SetSlide(canStep ? Map.SlideMap + by : Map.SlideMap);
}

void FlyingScreen::EntryKey(int keyCode) {
    if (IsEntering()) return;
    Wind.KeyUp(keyCode);
    changed();
}

void FlyingScreen::Act(const FixEffects& effects) {
    if (effects.HasFix) Link.ShowFix(*effects.HasFix);
    if (effects.Satellites) Link.ShowSatellites(effects.Satellites->Used, effects.Satellites->InView);
    if (effects.MapIsDue) UpdateMap();
    if (effects.OverlaysAreDue) DrawOverlays();
    if (effects.CardAngle) Instruments.UpdateInstrument(*effects.CardAngle);
    if (effects.Knots) TellLogging(Logger.SpeedReceived(*effects.Knots, HasFix()));
    if (effects.Feet) Wind.UpdateTAS(*effects.Feet);
}

void FlyingScreen::cmdRecord_Click() {
    Logger.cmdRecord_Click(HasFix());
    FocusMap();
}

void FlyingScreen::picRecord_Click() {
    Logger.lblRecord_Click(HasFix());
    FocusMap();
    // Last: a folder that cannot be written must not keep the recording from ending.
    Logger.SaveSettings();
}

void FlyingScreen::timeTrack_Timer() {
    TellLogging(Logger.timeTrack_Timer(HasFix()));
    changed();
}

void FlyingScreen::TellLogging(const std::optional<RuntimeError>& failure) {
    if (failure)
        world.Notices.Show(
            world.Shared.Text("Der Track wird nicht gespeichert: ", "The track is not stored: ") +
            DescribeError(*failure, world.Shared));
}

// The link does the other actions itself.
void FlyingScreen::Do(LinkAction action) {
    const bool isLoss = action == LinkAction::ShowLoss;
    if (isLoss || action == LinkAction::ClearDisplays) Readouts.ClearDisplays();
    if (isLoss) {
        State.NoFix = true;
        UpdateMap();
    }
    if (action == LinkAction::ShowState) ShowLiveState();
    if (action == LinkAction::RefreshRouteList) RefreshRouteList();
    if (action == LinkAction::FocusMap) FocusMap();
}

// Comes with every chunk of bytes, hundreds of times a second when a line carries noise; what did not change
// need not be shown again.
void FlyingScreen::ShowLiveState() {
    const GpsLink::Signs link = Link.Shown();
    const auto now =
        std::tie<const FlightState, const GpsLink::Signs, const RouteShown, const InstrumentShown,
                 const TrackLoggerShown, const WindShown>(State, link, Route, Instruments, Logger, Wind);
    if (told == now) return;
    told = now;
    changed();
}

} // namespace ornivane
