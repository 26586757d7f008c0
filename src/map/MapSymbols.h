#pragma once

#include <array>
#include <string>
#include <vector>

#include "map/AirfieldBook.h"
#include "map/MapTransform.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// How a point is shown. In flight: a plain point, the active route point, the target of Direct Fly. On the
// planning map: the waypoint that is the current route point, any other, one that is just being entered. The
// planning map shows every name except that of a point being entered, and an airfield as a point with its
// runway beneath the name.
enum class PointMode { Plain, ActiveRoutePoint, DirectTarget, PlanRoutePoint, PlanPoint, PlanNewPoint };
constexpr bool IsOfPlanning(PointMode mode) { return mode >= PointMode::PlanRoutePoint; }

constexpr Colour Black = 0x000000, White = 0xFFFFFF, Red = 0xFF0000, Green = 0x00FF00, Blue = 0x0000FF,
                 Yellow = 0xFFFF00;
constexpr Colour RouteColour = 0x000080;

// Which points and airfields show, and with which texts.
struct PointSettings {
    bool ShowNames = false;
    AirfieldBook* Airfields = nullptr; // while the airfield store is open
    bool ShowAirfields = false, ShowAirfieldText = false;
    bool OnlyRoutePoints = false;

    // Whether a point of this name is an airfield: one of four characters, while their store is open.
    bool IsAirfield(const std::string& name) const;
    // Null for any other point. MissingAirfield when it is not in the store.
    const AirfieldInfo* AirfieldOf(const std::string& name) const;
    bool operator==(const PointSettings&) const = default;
};

// The point and line primitives of the maps. Symbols and text offsets are fixed in view pixels; the widths of
// legs follow the zoom.
class MapSymbols {
public:
    MapSymbols(PictureSurface& surface, const MapTransform& transform, int slideValue,
               const PointSettings& settings);

    void DrawLeg(const Position& from, const Position& to, Colour colour);
    // A name of four characters is an airfield while their store is open: MissingAirfield when it is not in
    // there, but on the planning map a point like any other, because there it can be renamed.
    void DrawPoint(const DegMin& at, PointMode mode, const std::string& name);
    // A point of a route, never an airfield.
    void DrawRoutePoint(const DegMin& at, PointMode mode, const std::string& name);
    // Points in their order. Symbols and labels under so many later ones that nothing of them shows are left
    // out, or a whole country's points would take longer than the pilot should wait. RuntimeError at an
    // airfield that is missing or cannot be read; the points before it are drawn.
    struct StoredPoint {
        DegMin At;
        std::string Name;
        PointMode Mode = PointMode::Plain;
        bool operator==(const StoredPoint&) const = default;
    };
    void DrawPoints(const std::vector<StoredPoint>& points);

private:
    static constexpr int MostLabels = 4; // of an airfield: name, runway, radio, ATIS
    // A point on its way to the surface.
    struct Placed {
        Point At;
        PointMode Mode = PointMode::Plain;
        const AirfieldInfo* Airfield = nullptr;
        bool HasSymbol = true;
        std::array<bool, MostLabels> HasLabel{};
    };
    Placed Place(const DegMin& at, PointMode mode, const std::string& name);
    void PlaceOfPlanning(Placed& point, const std::string& name);
    static std::string LabelOf(const Placed& point, const std::string& name, int label);
    static Point LabelAt(const Placed& point, int label);
    void LeaveOutHidden(std::vector<Placed>& placed, const std::vector<StoredPoint>& points);
    void Draw(const Placed& point, const std::string& name);
    void DrawMarker(const Placed& point);
    void DrawAirfieldSymbol(const Placed& point);

    PictureSurface& surface;
    const MapTransform& transform;
    int zoomWidth;
    PointSettings settings;
};

// The aircraft at a view position; direction 0 is up. Symbol 1 is the arrow, any other the aeroplane with its
// nose on the position. Leaves the pen width at 1 or 3.
void DrawAircraft(PictureSurface& surface, const Point& at, double directionDegrees, bool hasFix,
                  int symbolType);

} // namespace ornivane
