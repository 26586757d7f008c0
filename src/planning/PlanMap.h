#pragma once

#include <functional>
#include <optional>
#include <string>

#include "common/Variablen.h"
#include "map/ChartView.h"
#include "planning/MeasureTool.h"
#include "planning/PlanEffects.h"
#include "planning/PlanScene.h"
#include "planning/ShownPosition.h"

namespace ornivane {

// The cursor's position in absolute DegMinValues to four decimals; members carry the names of the readouts.
struct CursorReadouts {
    std::string lblLatx = "---", lblNS, lblLongx = "---", lblEW;
};

// The map of the planning screen: its own chart and view beside those of flight mode, the cursor's position
// and the measuring line. Members carry the names of the controls.
class PlanMap : public ChartView, public CursorReadouts {
public:
    // What of the system and of its screen it works with.
    struct World {
        Variablen& Shared;
        Recordset& PlanMapsSet;
        Picture& picStorage;
        PictureSurface& picMap;
        Progress& progBar;
        Dialogs& Messages;
    };
    // `viewChanged`: by zoom or drag; draws it.
    PlanMap(const World& world, std::function<void()> viewChanged);

    void Form_Load(); // the map of the last run of flight mode; draws nothing
    PlanEffects Form_Activate();
    void Form_Deactivate();

    PlanEffects cmbMaps_Change(const std::string& name); // the user's choice
    void SetSlide(int value);                            // and draws
    // Scrolls to the position, as far as the image reaches; draws nothing.
    void CentreOn(const DegMin& position);

    // On picMap, in view pixels.
    void MouseDown(const Point& at);
    void MouseMove(const Point& at, bool leftButton);
    void MouseUp();
    // Where a new waypoint begins; none without a map. RuntimeError TypeMismatch when the place cannot be
    // told.
    std::optional<ShownPosition> DblClick(const Point& at);

    PlanEffects cmdMessen_Click() { return SetMeasuring(true); }
    PlanEffects picMessen_Click() { return SetMeasuring(false); }
    bool IsMeasuring() const { return HasMap() && Measuring.MeasureOn; }
    // Measures from `start` to the cursor. No line when there is nothing to measure from.
    std::optional<MeasuringLine> MeasureTo(const Point& at, const std::optional<DegMin>& start);

    std::string WhyNoMap() const; // for the blank sheet; empty while a map shows

    MeasureTool Measuring;

private:
    struct SavedView {
        SourceRect Rect;
        int SlideMap = 0;
    };
    void RestoreView();
    PlanEffects SetMeasuring(bool on);
    void FollowCursor(const Point& at);

    std::function<void()> viewChanged;
    std::string currentName; // saved when the screen is left
    std::optional<SavedView> saved;
    std::optional<Point> drag;           // the last position of a drag
    std::optional<ShownPosition> cursor; // as the readouts show it
};

} // namespace ornivane
