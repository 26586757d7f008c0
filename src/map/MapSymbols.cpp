#include "map/MapSymbols.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/NavigationMaths.h"
#include "map/LabelCover.h"

namespace ornivane {

namespace {

constexpr Colour OuterColours[] = {Red, Blue, Yellow};
constexpr double LabelRight = 10, LabelUp = 7; // pixels from the point to its label's top left corner
constexpr double SymbolReach = 11;             // pixels from the point to its symbol's edge and its margin
constexpr std::size_t FewPoints = 1000;        // so many are drawn as fast as they are looked at

std::string Label(std::string_view name) { return " " + std::string(name) + " "; }

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
    DrawAt(transform.ViewOf(FromStored(lat, longitude)), mode, std::string(name));
}

void MapSymbols::DrawAt(const Point& at, PointMode mode, const std::string& name) {
    DrawSymbol(at, mode);
    if (showNames) DrawLabel(at, name);
}

void MapSymbols::DrawSymbol(const Point& at, PointMode mode) {
    surface.SetDrawWidth(mode == PointMode::Plain ? 4 : zoomWidth);
    surface.Circle(at.X, at.Y, 2, Black);
    surface.Circle(at.X, at.Y, 5, OuterColours[static_cast<int>(mode)]);
    surface.SetDrawWidth(1);
}

void MapSymbols::DrawLabel(const Point& at, const std::string& name) {
    surface.SetForeColor(Black);
    surface.Print(at.X + LabelRight, at.Y - LabelUp, Label(name));
}

void MapSymbols::DrawPoints(const std::vector<StoredPoint>& points) {
    std::vector<Point> places;
    places.reserve(points.size());
    for (const StoredPoint& point : points)
        places.push_back(transform.ViewOf(FromStored(point.Lat, point.Long)));
    if (points.size() > FewPoints) return DrawCrowd(points, places);
    for (std::size_t i = 0; i < points.size(); ++i) DrawAt(places[i], PointMode::Plain, points[i].Name);
}

void MapSymbols::DrawCrowd(const std::vector<StoredPoint>& points, const std::vector<Point>& places) {
    LabelCover cover(surface.ScaleWidth(), surface.ScaleHeight());
    std::vector<bool> symbolShows(points.size()), labelShows(points.size());
    for (std::size_t i = points.size(); i-- > 0;) {
        const Point& at = places[i];
        // The same symbol on the same pixel hides the one before it, and so does a pile of labels.
        symbolShows[i] = cover.IsFirstAt(at.X, at.Y) && cover.Shows(at.X - SymbolReach, at.Y - SymbolReach,
                                                                    2 * SymbolReach, 2 * SymbolReach);
        if (!showNames) continue;
        const double x = at.X + LabelRight, y = at.Y - LabelUp;
        const double width = surface.TextWidth(Label(points[i].Name)), height = surface.TextHeight();
        labelShows[i] = cover.Shows(x, y, width, height);
        if (labelShows[i]) cover.Add(x, y, width, height);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (symbolShows[i]) DrawSymbol(places[i], PointMode::Plain);
        if (labelShows[i]) DrawLabel(places[i], points[i].Name);
    }
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
