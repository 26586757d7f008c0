#include "planning/PlanMap.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "common/SettingsFiles.h"
#include "map/MapCatalogue.h"

namespace ornivane {

namespace {

constexpr int CursorDecimals = 4;

} // namespace

PlanMap::PlanMap(const World& world, std::function<void()> onViewChanged)
    : ChartView({world.Shared, world.Shared, world.Shared.DataConn, world.PlanMapsSet, world.picStorage,
                 world.picMap, world.progBar, world.Messages}),
      Measuring(world.Shared.Locale), viewChanged(std::move(onViewChanged)) {}

void PlanMap::Form_Load() {
    MapCatalogue(dataConn).OpenActive(maps);
    if (const auto last = ReadLastChoice(settings.ProgramFolder).Map) {
        currentName = *last;
        FindMap(currentName);
    }
    InitializeData();
}

PlanEffects PlanMap::Form_Activate() {
    maps.Requery();
    updateMapInfo();
    if (!HasRows()) {
        surface.Cls();
        surface.Refresh();
        return {};
    }
    FindMap(currentName);
    cmbMaps = Name();
    RestoreView();
    return {PlanEffect::Redraw};
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

PlanEffects PlanMap::cmbMaps_Change(const std::string& name) {
    if (!HasRows()) return {};
    FindMap(name);
    cmbMaps = Name();
    InitializeData();
    if (!HasMap()) {
        cursor.reset();
        static_cast<CursorReadouts&>(*this) = {};
    }
    AdjustViewToPicture(); // a wide image is less tall than the view's proportion
    return {PlanEffect::CentreOnEntry};
}

std::string PlanMap::WhyNoMap() const {
    if (HasMap()) return {};
    if (HasRows()) return MapError();
    return language.Text("Keine aktive Karte. Karten werden unter Kartendaten angemeldet.",
                         "No active chart. Charts are registered on the screen Map Data.");
}

void PlanMap::CentreOn(const DegMin& position) {
    if (!HasMap()) return;
    IgnoreErrors([&] { View = CentredOn(View, Sizes, Transform().ImageOf(ToDecimalDegrees(position))); });
}

void PlanMap::SetSlide(int value) {
    if (ChartView::SetSlide(value)) viewChanged();
}

void PlanMap::MouseDown(const Point& at) {
    drag = at;
    FollowCursor(at); // a finger comes without having moved there
}

void PlanMap::MouseUp() { drag.reset(); }

void PlanMap::MouseMove(const Point& at, bool leftButton) {
    if (leftButton && drag && CanPan()) {
        IgnoreErrors([&] {
            if (Pan(at.X - drag->X, at.Y - drag->Y)) viewChanged();
        });
        drag = at;
    }
    FollowCursor(at);
}

void PlanMap::FollowCursor(const Point& at) {
    if (!HasMap()) return;
    IgnoreErrors([&] {
        const DegMin position = ToDegMinValue(Transform().PositionOfView(at));
        const double lat = position.Lat.Value(), longitude = position.Long.Value();
        cursor = {StoredLatitude(Round(std::fabs(lat), CursorDecimals)),
                  StoredLongitude(Round(std::fabs(longitude), CursorDecimals)),
                  lat < 0 ? NorthSouth::South : NorthSouth::North,
                  longitude < 0 ? EastWest::West : EastWest::East};
        lblLatx = NumberText(cursor->Lat.Value(), language.Locale);
        lblNS = Letter(cursor->NS);
        lblLongx = NumberText(cursor->Long.Value(), language.Locale);
        lblEW = Letter(cursor->EW);
    });
}

std::optional<ShownPosition> PlanMap::DblClick(const Point& at) {
    drag.reset(); // a hand that shakes must not drag the map from under the new point
    if (!HasMap()) return std::nullopt;
    FollowCursor(at);
    if (!cursor) throw RuntimeError(ErrorNumber::TypeMismatch, lblLatx);
    return cursor;
}

PlanEffects PlanMap::SetMeasuring(bool on) {
    Measuring.MeasureOn = on;
    return {PlanEffect::Redraw};
}

std::optional<MeasuringLine> PlanMap::MeasureTo(const Point& at, const std::optional<DegMin>& start) {
    std::optional<MeasuringLine> line;
    if (!start || !cursor) return line;
    IgnoreErrors([&] {
        line = {Transform().ViewOf(ToDecimalDegrees(*start)), at};
        Measuring.Measure(*start, cursor->Stored());
    });
    return line;
}

} // namespace ornivane
