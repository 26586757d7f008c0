#include "planning/PlanningScreen.h"

#include "common/SettingsFiles.h"

namespace ornivane {

PlanningScreen::PlanningScreen(const PlanningScreenWorld& w, Form ofScreen)
    : LastDeed(w.Notices, w.Shared, [this] { form.Undone(); }),
      Waypoints(w.Shared, w.Shared.DataConn, w.Messages, LastDeed, [this](const auto& then) { Act(then); }),
      Routes(w.Shared, w.Shared.DataConn, w.Messages, LastDeed, [this](const auto& then) { Act(then); }),
      Map({w.Shared, PlanMapsSet, w.picStorage, w.picMap, w.progBar, w.Messages}, [this] { RedrawPlan(); }),
      Faults(w.Shared, [this](const std::string& text) { world.Notices.Show(text); }), world(w),
      form(std::move(ofScreen)), drawing(w.Shared, w.picStorage, w.picMap, Faults),
      chartsChanged(w.Shared.ChartsChanged, [this] { Map.ChartsChanged(); }) {}

void PlanningScreen::Form_Load() {
    Routes.Form_Load();
    Waypoints.Form_Load();
    // The height whose airspace was shown last; a missing file leaves the airspace off.
    if (const auto height = ReadPlanningHeight(world.Shared.ProgramFolder)) Airspace.tLRHoehe = *height;
    Map.Form_Load();
    Act(Routes.cmdshowRoute());
    Waypoints.ShowWaypoint();
}

void PlanningScreen::Form_Activate() {
    Map.AdjustViewToPicture(); // the window may have been resized while another screen was in front
    Waypoints.FillCategories();
    Act(Map.Form_Activate());
    form.Focus(PlanEffect::FocusName);
}

void PlanningScreen::Form_Deactivate() {
    Faults.Forget();
    LastDeed.Withdraw();
    Map.Form_Deactivate();
    WritePlanningHeight(world.Shared.ProgramFolder, Airspace.tLRHoehe);
}

void PlanningScreen::Form_Resize() {
    Map.AdjustViewToPicture();
    RedrawPlan();
}

void PlanningScreen::Act(const PlanEffects& effects) {
    for (const PlanEffect effect : effects) {
        if (effect == PlanEffect::Redraw)
            RedrawPlan();
        else if (effect == PlanEffect::CentreOnEntry)
            CenterOnWaypoint();
        else
            form.Focus(effect);
    }
}

PlanningSnapshot PlanningScreen::Snapshot() const {
    return {{Map.WhyNoMap(), Map.SlideMap, Map.MapNames, Map.cmbMaps, Airspace.tLR(world.Shared.Locale),
             Map.Measuring.MeasureOn},
            Waypoints,
            Waypoints.OtherTarget(),
            Routes};
}

void PlanningScreen::CenterOnWaypoint() {
    if (const auto position = Waypoints.EntryPosition()) Map.CentreOn(*position);
    RedrawPlan();
}

void PlanningScreen::RedrawPlan(const std::optional<DegMin>& newPoint) {
    DrawPlan(newPoint);
    world.picMap.Refresh();
    form.Redrawn();
}

void PlanningScreen::DrawPlan(const std::optional<DegMin>& newPoint) {
    const bool hasExtent = world.picMap.ScaleWidth() > 0 && world.picMap.ScaleHeight() > 0;
    if (!Map.HasMap() || !hasExtent) return;
    drawn.reset();
    drawnLine.reset();
    const auto error = ErrorOf([&] {
        PlanScene scene{
            Map.Transform(),         Map.SlideMap, Airspace, Routes.DrawnRoute(), Routes.CurrentPoint(),
            Map.Measuring.MeasureOn, newPoint};
        drawing.RedrawPlan(scene);
        drawn = std::move(scene);
        drawnOf = Map.ViewIsOf();
    });
    if (error) Faults.Tell(DrawingFaults::Layer::Chart, *error);
}

void PlanningScreen::PaintAgain() {
    if (!drawn || !Map.HasMap() || drawnOf != Map.ViewIsOf()) return;
    IgnoreErrors([this] { drawing.RedrawPlan(*drawn); }); // told when it was drawn first
    if (drawnLine) drawing.DrawMeasuringLine(*drawnLine);
    world.picMap.Refresh();
}

void PlanningScreen::MouseMove(const Point& at, bool leftButton) {
    Map.MouseMove(at, leftButton);
    if (!Map.IsMeasuring()) return;
    if (!drawing.RecallPlan()) DrawPlan();
    // From the entry as typed, without its hemispheres.
    drawnLine = Map.MeasureTo(at, Waypoints.TypedPosition());
    if (drawnLine) drawing.DrawMeasuringLine(*drawnLine);
    world.picMap.Refresh(); // also without a line: the last one must go
}

void PlanningScreen::DblClick(const Point& at) {
    const auto begun = Map.DblClick(at);
    if (!begun) return;
    Waypoints.BeginEntry(*begun);
    RedrawPlan(begun->Stored());
    form.Focus(PlanEffect::FocusName);
}

} // namespace ornivane
