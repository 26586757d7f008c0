#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "map/MapTransform.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// How a point is shown: 0 a plain point, 1 the active route point, 2 the target of Direct Fly.
enum class PointMode { Plain = 0, ActiveRoutePoint = 1, DirectTarget = 2 };

constexpr Colour Black = 0x000000, White = 0xFFFFFF, Red = 0xFF0000, Green = 0x00FF00, Blue = 0x0000FF,
                 Yellow = 0xFFFF00;
constexpr Colour RouteColour = 0x000080;

// The point and line primitives of the maps. Symbols and text offsets are fixed in view pixels; the widths of
// legs follow the zoom.
class MapSymbols {
public:
    MapSymbols(PictureSurface& surface, const MapTransform& transform, int slideValue, bool showNames);

    // Decimal degrees.
    void DrawLeg(const Position& from, const Position& to, Colour colour);
    // DegMinValue.
    void DrawPoint(double lat, double longitude, PointMode mode, std::string_view name);
    // Plain points in their order. Symbols and labels under so many later ones that nothing of them shows
    // are left out, or a whole country's points would take longer than the pilot should wait.
    struct StoredPoint {
        double Lat, Long; // DegMinValue
        std::string Name;
    };
    void DrawPoints(const std::vector<StoredPoint>& points);

private:
    void DrawAt(const Point& at, PointMode mode, const std::string& name);
    void DrawSymbol(const Point& at, PointMode mode);
    void DrawLabel(const Point& at, const std::string& name);
    void DrawCrowd(const std::vector<StoredPoint>& points, const std::vector<Point>& places);

    PictureSurface& surface;
    const MapTransform& transform;
    int zoomWidth;
    bool showNames;
};

// The aircraft at a view position; direction in degrees, 0 is up. Symbol 1 is the arrow, any other the
// aeroplane with its nose on the position. Leaves the pen width at 1 or 3.
void DrawAircraft(PictureSurface& surface, const Point& at, double direction, bool hasFix, int symbolType);

} // namespace ornivane
