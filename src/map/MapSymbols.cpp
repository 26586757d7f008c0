#include "map/MapSymbols.h"

#include <array>
#include <cmath>

#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

constexpr Colour OuterColours[] = {Red, Blue, Yellow};

Position FromStored(double lat, double longitude) {
    return {ToDecimalDegrees(lat), ToDecimalDegrees(longitude)};
}

void DrawArrow(PictureSurface& surface, const Point& at, double s, double c, Colour fixColour) {
    const Point tip{at.X + 15 * s, at.Y - 15 * c};
    surface.SetDrawWidth(9);
    surface.Line(at.X, at.Y, tip.X, tip.Y, Blue);
    surface.SetDrawWidth(3);
    surface.Line(at.X, at.Y, tip.X, tip.Y, White);
    surface.SetDrawWidth(5);
    surface.Circle(at.X, at.Y, 1, fixColour);
    surface.Circle(at.X, at.Y, 6, 0x151200);
    surface.SetDrawWidth(1);
}

void DrawAeroplane(PictureSurface& surface, const Point& at, double s, double c, Colour fixColour) {
    struct Stroke {
        Point From, To;
        int BlackWidth;
    };
    const Point wing{at.X - 5 * s, at.Y + 5 * c};
    const Point tail{at.X - 17 * s, at.Y + 17 * c};
    const std::array<Stroke, 5> strokes{{
        {at, {at.X - 20 * s, at.Y + 20 * c}, 10},
        {wing, {wing.X + 17 * c, wing.Y + 17 * s}, 10},
        {wing, {wing.X - 17 * c, wing.Y - 17 * s}, 10},
        {tail, {tail.X + 7 * c, tail.Y + 7 * s}, 8},
        {tail, {tail.X - 7 * c, tail.Y - 7 * s}, 8},
    }};
    for (const Stroke& stroke : strokes) {
        surface.SetDrawWidth(stroke.BlackWidth);
        surface.Line(stroke.From.X, stroke.From.Y, stroke.To.X, stroke.To.Y, Black);
    }
    surface.SetDrawWidth(2);
    for (const Stroke& stroke : strokes)
        surface.Line(stroke.From.X, stroke.From.Y, stroke.To.X, stroke.To.Y, fixColour);
    surface.SetDrawWidth(3);
    surface.Circle(at.X, at.Y, 1, 0x80FFFF);
}

} // namespace

MapSymbols::MapSymbols(PictureSurface& pictureSurface, const MapTransform& mapTransform, int slideValue,
                       bool withNames)
    : surface(pictureSurface), transform(mapTransform), zoomWidth(ZoomWidth(slideValue)),
      showNames(withNames) {}

void MapSymbols::DrawLeg(const Position& from, const Position& to, Colour colour) {
    const Point first = transform.ViewOf(from);
    const Point second = transform.ViewOf(to);
    surface.SetDrawWidth(zoomWidth);
    surface.Line(second.X, second.Y, first.X, first.Y, colour);
    surface.SetDrawWidth(1);
}

void MapSymbols::DrawPoint(double lat, double longitude, PointMode mode, std::string_view name) {
    const Point at = transform.ViewOf(FromStored(lat, longitude));
    surface.SetForeColor(Black);
    surface.SetDrawWidth(mode == PointMode::Plain ? 4 : zoomWidth);
    surface.Circle(at.X, at.Y, 2, Black);
    surface.Circle(at.X, at.Y, 5, OuterColours[static_cast<int>(mode)]);
    if (showNames) surface.Print(at.X + 10, at.Y - 7, " " + std::string(name) + " ");
    surface.SetDrawWidth(1);
}

void DrawAircraft(PictureSurface& surface, const Point& at, double direction, bool hasFix, int symbolType) {
    const double s = std::sin(DegToRad(direction));
    const double c = std::cos(DegToRad(direction));
    const Colour fixColour = hasFix ? Green : Red;
    if (symbolType == 1)
        DrawArrow(surface, at, s, c, fixColour);
    else
        DrawAeroplane(surface, at, s, c, fixColour);
}

} // namespace ornivane
