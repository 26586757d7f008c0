#include "planning/PlanMap.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "geo/NavigationMaths.h"
#include "map/MapSymbols.h"

namespace ornivane {

namespace {

constexpr int CursorDecimals = 4;
constexpr const char* NoPosition = "---";
constexpr int LineWidth = 3; // of the measuring line, pixels

Position ToDecimal(const Position& stored) {
    return {ToDecimalDegrees(stored.Lat), ToDecimalDegrees(stored.Long)};
}

} // namespace

PlanMap::PlanMap(const World& world, PlanMapOwner& mapOwner)
    : ChartView(world.Shared, world.PlanMapsSet, world.picStorage, world.picMap, world.progBar,
                world.Messages),
      Measuring(world.Shared.Locale), entry(world.Entry), owner(mapOwner) {}

void PlanMap::Form_Load() {
    maps.Open(shared.DataConn, "SELECT * From Maps Where Active <> 0 Order by NAME ASC");
    LoadLastMap();
    InitializeData();
}

void PlanMap::LoadLastMap() {
    const LastChoice last = ReadLastChoice(shared.ProgramFolder);
    if (!last.Map) return;
    currentName = *last.Map;
    FindMap(currentName);
}

void PlanMap::Form_Activate() {
    maps.Requery();
    updateMapInfo();
    if (!HasRows()) {
        surface.Cls();
        surface.Refresh();
        return;
    }
    FindMap(currentName);
    cmbMaps = Name();
    RestoreView();
    owner.RedrawPlan();
}

// The view stays over a visit to another screen. What that screen may have changed in the map's frame counts
// at once: points on the old scale would lie in the wrong places.
void PlanMap::RestoreView() {
    const bool isAnother = RowHasChanged();
    if (isAnother) InitializeData();
    if (!saved) return;
    const auto restore = [](float& field, float value) {
        if (value != 0) field = value;
    };
    restore(View.SX, saved->Rect.SX);
    restore(View.SY, saved->Rect.SY);
    restore(View.SW, saved->Rect.SW);
    restore(View.SH, saved->Rect.SH);
    if (saved->SlideMap != 0) SlideMap = saved->SlideMap;
    saved.reset();
    if (isAnother)
        View = Zoomed(View, Sizes, SlideMap);
    else
        AdjustViewToPicture(); // the window may have been resized while another screen was in front
}

void PlanMap::Form_Deactivate() {
    drag.reset();
    saved.reset();
    if (HasMap()) saved = {View, SlideMap};
    if (HasRows() && !maps.Eof()) currentName = Name();
}

void PlanMap::cmbMaps_Change(const std::string& name) {
    if (!HasRows()) return;
    FindMap(name);
    cmbMaps = Name();
    InitializeData();
    if (!HasMap()) {
        lblLatx = lblLongx = NoPosition;
        lblNS.clear();
        lblEW.clear();
    }
    AdjustViewToPicture(); // a wide image is less tall than the view's proportion
    CenterOnWaypoint();
}

std::optional<Position> PlanMap::EntryPosition() const {
    const auto lat = ParseNumber(entry.tWaypoint[2]), longitude = ParseNumber(entry.tWaypoint[3]);
    if (!lat || !longitude) return std::nullopt;
    return Position{entry.tNS == "S" ? -*lat : *lat, entry.tEW == "W" ? -*longitude : *longitude};
}

void PlanMap::CenterOnWaypoint() {
    const auto position = EntryPosition();
    if (position && !entry.tWaypoint[1].empty() && HasMap())
        CallOffErrors([&] {
            const Point at = Transform().ViewOf(ToDecimal(*position));
            View = CentredOn(View, Sizes, at.X, at.Y);
        });
    owner.RedrawPlan();
}

void PlanMap::MouseDown(const Point& at) {
    drag = at;
    ShowCursor(at); // a finger comes without having moved there
}

void PlanMap::MouseUp() { drag.reset(); }

void PlanMap::MouseMove(const Point& at, bool leftButton) {
    if (!HasMap()) return;
    if (leftButton && drag && CanPan()) {
        CallOffErrors([&] { Pan(at.X - drag->X, at.Y - drag->Y); });
        drag = at;
    }
    ShowCursor(at);
    if (Measuring.MeasureOn) CallOffErrors([&] { MeasureTo(at); });
}

void PlanMap::ShowCursor(const Point& at) {
    if (!HasMap()) return;
    CallOffErrors([&] {
        const Position position = Transform().PositionOfView(at);
        const double lat = ToDegMinValue(position.Lat), longitude = ToDegMinValue(position.Long);
        lblNS = lat < 0 ? "S" : "N";
        lblEW = longitude < 0 ? "W" : "E";
        lblLatx = NumberText(Round(std::fabs(lat), CursorDecimals), shared.Locale);
        lblLongx = NumberText(Round(std::fabs(longitude), CursorDecimals), shared.Locale);
    });
}

double PlanMap::CursorLat() const { return lblNS == "S" ? -NumberIn(lblLatx) : NumberIn(lblLatx); }
double PlanMap::CursorLong() const { return lblEW == "W" ? -NumberIn(lblLongx) : NumberIn(lblLongx); }

void PlanMap::DblClick(const Point& at) {
    drag.reset(); // a hand that shakes must not drag the map from under the new point
    if (!HasMap()) return;
    ShowCursor(at);
    const double lat = CursorLat(), longitude = CursorLong();
    owner.RedrawPlan();
    entry.BeginEntry(lblLatx, lblLongx, lblNS, lblEW);
    CallOffErrors([&] {
        const MapTransform transform = Transform();
        MapSymbols(surface, transform, SlideMap, {}).DrawPoint(lat, longitude, PointMode::PlanNewPoint, {});
    });
    surface.Refresh();
    owner.FocusEntry();
}

void PlanMap::SetMeasuring(bool on) {
    Measuring.MeasureOn = on;
    owner.RedrawPlan();
}

// From the entry fields as typed, without their hemispheres, to the cursor.
void PlanMap::MeasureTo(const Point& at) {
    owner.RecallPlan();
    surface.Refresh(); // also when there is nothing to measure from: the last line must go
    const double lat = NumberIn(entry.tWaypoint[2]), longitude = NumberIn(entry.tWaypoint[3]);
    const Point start = Transform().ViewOf(ToDecimal({lat, longitude}));
    surface.SetDrawWidth(LineWidth);
    surface.Circle(start.X, start.Y, 1, Black);
    surface.Line(start.X, start.Y, at.X, at.Y, Black);
    surface.SetDrawWidth(1);
    surface.Refresh();
    Measuring.Measure(lat, longitude, CursorLat(), CursorLong());
}

} // namespace ornivane
