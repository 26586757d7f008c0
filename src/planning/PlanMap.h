#pragma once

#include <optional>
#include <string>

#include "map/ChartView.h"
#include "planning/MeasureTool.h"
#include "planning/WaypointEditing.h"

namespace ornivane {

// What the planning map needs of its screen.
class PlanMapOwner {
public:
    virtual ~PlanMapOwner() = default;
    virtual void RedrawPlan() = 0;
    // The plan as RedrawPlan left it, without what was drawn over it since then.
    virtual void RecallPlan() = 0;
    virtual void FocusEntry() = 0; // tWaypoint(1)
};

// The map of the planning screen: its own chart and view beside those of flight mode, the cursor's position,
// the measuring line, and the double click that begins a new waypoint. Members carry the names of the
// controls.
class PlanMap : public ChartView {
public:
    // What of the system and of its screen it works with.
    struct World {
        Variablen& Shared;
        Recordset& PlanMapsSet;
        Picture& picStorage;
        PictureSurface& picMap;
        Progress& progBar;
        Dialogs& Messages;
        WaypointEditing& Entry;
    };
    PlanMap(const World& world, PlanMapOwner& owner);

    void Form_Load(); // the map of the last run of flight mode; draws nothing
    void Form_Activate();
    void Form_Deactivate();

    void cmbMaps_Change(const std::string& name); // the user's choice
    // Scrolls to the position in the entry fields, as far as the image reaches, and redraws. With an entry
    // that is no position it only redraws.
    void CenterOnWaypoint();

    // On picMap, in view pixels.
    void MouseDown(const Point& at);
    void MouseMove(const Point& at, bool leftButton);
    void MouseUp();
    void DblClick(const Point& at);

    void cmdMessen_Click() { SetMeasuring(true); }
    void picMessen_Click() { SetMeasuring(false); }

    // The cursor: absolute DegMinValue to four decimals.
    std::string lblLatx = "---", lblLongx = "---", lblNS, lblEW;
    MeasureTool Measuring;

private:
    struct SavedView {
        SourceRect Rect;
        int SlideMap = 0;
    };
    void Redraw() override { owner.RedrawPlan(); }
    void LoadLastMap();
    void RestoreView();
    void SetMeasuring(bool on);
    void ShowCursor(const Point& at);
    void MeasureTo(const Point& at);
    double CursorLat() const;
    double CursorLong() const;
    // Signed DegMinValue.
    std::optional<Position> EntryPosition() const;

    WaypointEditing& entry;
    PlanMapOwner& owner;
    std::string currentName; // saved when the screen is left
    std::optional<SavedView> saved;
    std::optional<Point> drag; // the last position of a drag
};

} // namespace ornivane
