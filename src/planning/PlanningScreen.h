#pragma once

#include <functional>
#include <string>

#include "common/Variablen.h"
#include "planning/PlanAirspace.h"
#include "planning/PlanDrawing.h"
#include "planning/PlanMap.h"
#include "planning/PlanningOwner.h"
#include "planning/RouteEditing.h"
#include "planning/WaypointEditing.h"
#include "platform/Dialogs.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// The world that the planning screen works in: the seams, real or faked.
struct PlanningScreenWorld {
    Variablen& Shared;
    Picture& picStorage;
    PictureSurface& picMap;
    Progress& progBar;
    Dialogs& Messages;
};

// The planning screen without its window: puts the rooms together and passes on what one asks of another. The
// form calls one routine for each event and then shows the state.
class PlanningScreen : private PlanningOwner, private PlanMapOwner {
public:
    // What the screen asks of its form.
    struct Form {
        std::function<void()> Redrawn; // the map has a new picture: its state may be another one
        std::function<void()> FocusMap, FocusWaypoints, FocusRoutes, FocusEntry;
    };
    PlanningScreen(const PlanningScreenWorld& world, Form form);

    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Resize(); // picMap has a new size

    void CenterOnWaypoint() override { Map.CenterOnWaypoint(); }
    void RedrawPlan() override;

    WaypointEditing Waypoints;
    RouteEditing Routes;
    Recordset PlanMapsSet; // the current row is the map that shows; flight mode's is another one
    PlanMap Map;
    PlanAirspace Airspace;
    PlanDrawing Drawing;

private:
    void LoadSettings();
    void RecallPlan() override { Drawing.RecallPlan(); }
    void FocusMap() override { form.FocusMap(); }
    void FocusWaypoints() override { form.FocusWaypoints(); }
    void FocusRoutes() override { form.FocusRoutes(); }
    void FocusEntry() override { form.FocusEntry(); }

    PlanningScreenWorld world;
    Form form;
};

} // namespace ornivane
