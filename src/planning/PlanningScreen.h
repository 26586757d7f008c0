#pragma once

#include <functional>
#include <optional>

#include "common/Undo.h"
#include "common/Variablen.h"
#include "planning/AirspaceChoice.h"
#include "planning/PlanDrawing.h"
#include "planning/PlanEffects.h"
#include "planning/PlanMap.h"
#include "planning/PlanningSnapshot.h"
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
    Notice& Notices;
};

// The planning screen without its window: makes the components, acts on what their routines return, and draws
// the map from what they have. The form owns it, calls one routine for each event and then shows the
// snapshot.
class PlanningScreen {
public:
    // What the screen asks of its form.
    struct Form {
        std::function<void()> Redrawn;         // the map has a new picture: the snapshot may be another one
        std::function<void()> Undone;          // the lists are what they were before the last deed
        std::function<void(PlanEffect)> Focus; // only the effects that move it
    };
    PlanningScreen(const PlanningScreenWorld& w, Form ofScreen);

    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Resize(); // picMap has a new size

    void Act(const PlanEffects& effects);
    PlanningSnapshot Snapshot() const;

    // Scrolls the chart to the position in the entry fields, if there is one, and redraws.
    void CenterOnWaypoint();
    // Nothing is drawn without a map or in a view without extent.
    void RedrawPlan(const std::optional<DegMin>& newPoint = {});
    // More of the chart has come: what was drawn last is drawn once more.
    void PaintAgain();
    // On picMap, in view pixels.
    void MouseMove(const Point& at, bool leftButton);
    void DblClick(const Point& at); // begins a waypoint: its name is to be typed
    PlanEffects cmdAddwaypoint() { return Routes.cmdAddwaypoint(Waypoints.Current()); }

    Undo LastDeed;
    WaypointEditing Waypoints;
    RouteEditing Routes;
    Recordset PlanMapsSet; // the current row is the map that shows; flight mode's is another one
    PlanMap Map;
    AirspaceChoice Airspace;
    DrawingFaults Faults;

private:
    void DrawPlan(const std::optional<DegMin>& newPoint = {});

    PlanningScreenWorld world;
    Form form;
    PlanDrawing drawing;
    // What stands on the map, the line over it, and the chart that it is of.
    std::optional<PlanScene> drawn;
    std::optional<MeasuringLine> drawnLine;
    std::optional<std::string> drawnOf;
    Event::Listener chartsChanged;
};

} // namespace ornivane
