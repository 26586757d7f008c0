#pragma once

#include "map/Viewport.h"

namespace ornivane {

// The four edges of a map as stored, DegMinValue, and the size of its image in pixels as the catalogue has
// it.
struct MapFrame {
    double Unten = 0, Oben = 0, Links = 0, Rechts = 0;
    double Breite = 0, Höhe = 0;
    bool operator==(const MapFrame&) const = default;
};

// How image pixels follow from positions: one scale an axis, no projection, no rotation.
struct MapScale {
    double Links = 0, Unten = 0; // decimal degrees
    double Höhe = 0;             // pixels
    double PixPerTenthLat = 0;   // pixels per tenth of a degree
    double PixPerTenthLong = 0;
};

struct Point {
    double X = 0, Y = 0;
};

struct Position { // decimal degrees
    double Lat = 0, Long = 0;
    bool operator==(const Position&) const = default;
};

// A geographic window, DegMinValue, so that it compares with stored coordinates.
struct ViewBounds {
    double ViewNorth = 0, ViewWest = 0, ViewSouth = 0, ViewEast = 0;
};

// Between positions, image pixels and view pixels, for one map and one view. Immutable. RuntimeError
// DivisionByZero or Overflow for a view or scale without extent.
class MapTransform {
public:
    MapTransform(const MapScale& scale, const SourceRect& rect, double viewWidth, double viewHeight);

    Point ImageOf(const Position& position) const;
    Point ViewOfImage(const Point& image) const;
    Point ViewOf(const Position& position) const { return ViewOfImage(ImageOf(position)); }
    Point ImageOfView(const Point& view) const;
    Position PositionOfView(const Point& view) const;
    // In which direction a true course points in the view; 0 is up. North is up on every chart so far.
    double ViewAngle(double trueCourse) const { return trueCourse; }
    // The window that holds the rectangle between two view points, the first at its top left, rounded to
    // whole minutes.
    ViewBounds GetViewBounds(double x1, double y1, double x2, double y2) const;
    // The window of the whole view as it is.
    ViewBounds WholeView() const { return Bounds(0, 0, width, height); }
    double ViewWidth() const { return width; }
    double ViewHeight() const { return height; }

private:
    ViewBounds Bounds(double x1, double y1, double x2, double y2) const;

    MapScale scale;
    SourceRect rect;
    double width, height;
    double perImageX, perImageY; // view pixels per image pixel
};

} // namespace ornivane
