#include "planning/PlanningScreen.h"

#include "common/SettingsFiles.h"

namespace ornivane {

PlanningScreen::PlanningScreen(const PlanningScreenWorld& w, Form ofScreen)
    : Waypoints(w.Shared, w.Messages, *this), Routes(w.Shared, w.Messages, Waypoints.WaypointsSet, *this),
      Map({w.Shared, PlanMapsSet, w.picStorage, w.picMap, w.progBar, w.Messages, Waypoints}, *this),
      Airspace(w.Shared), Drawing({w.Shared, Map, Airspace, Routes, w.picStorage, w.picMap}), world(w),
      form(std::move(ofScreen)) {}

void PlanningScreen::Form_Load() {
    Routes.Form_Load();
    Waypoints.Form_Load();
    LoadSettings();
    Map.Form_Load();
    Routes.cmdshowRoute();
    Waypoints.ShowWaypoint();
}

// The height whose airspace was shown last.
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
