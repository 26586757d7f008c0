#include "planning/PlanningScreen.h"

#include "common/SettingsFiles.h"

namespace ornivane {

PlanningScreen::PlanningScreen(const PlanningScreenWorld& w, Form ofScreen)
    : LastDeed(w.Notices, w.Shared, [this] { form.Undone(); }),
      Waypoints(w.Shared, w.Messages, LastDeed, *this),
      Routes(w.Shared, w.Messages, LastDeed, Waypoints.WaypointsSet, *this),
      Map({w.Shared, PlanMapsSet, w.picStorage, w.picMap, w.progBar, w.Messages, Waypoints}, *this),
      Airspace(w.Shared), Faults(w.Shared, [this](const std::string& text) { world.Notices.Show(text); }),
      Drawing({w.Shared, Map, Airspace, Routes, w.picStorage, w.picMap, Faults}), world(w),
      form(std::move(ofScreen)), chartsChanged(w.Shared.ChartsChanged, [this] { Map.ChartsChanged(); }) {}

void PlanningScreen::Form_Load() {
    Routes.Form_Load();
    Waypoints.Form_Load();
    LoadSettings();
    Map.Form_Load();
    Routes.cmdshowRoute();
    Waypoints.ShowWaypoint();
}

// The height whose airspace was shown last; a missing file leaves the airspace off.
void PlanningScreen::LoadSettings() {
    if (const auto height = ReadPlanningHeight(world.Shared.ProgramFolder)) Airspace.tLRHoehe = *height;
}

void PlanningScreen::Form_Activate() {
    Map.AdjustViewToPicture(); // the window may have been resized while another screen was in front
    Waypoints.FillCategories();
    Map.Form_Activate();
    form.FocusEntry();
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

void PlanningScreen::RedrawPlan() {
    Drawing.RedrawPlan();
    world.picMap.Refresh();
    form.Redrawn();
}

} // namespace ornivane
