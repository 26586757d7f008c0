#pragma once

#include "map/ChartPlacement.h"
#include "map/Viewport.h"
#include "platform/PictureSurface.h"

namespace ornivane {

// A geographic window in the stored form, in which the stores compare it with their rows.
struct ViewBounds {
    StoredLatitude ViewNorth;
    StoredLongitude ViewWest;
    StoredLatitude ViewSouth;
    StoredLongitude ViewEast;
};

// Between positions, image pixels and view pixels, for one map and one view. Immutable. RuntimeError
// DivisionByZero or Overflow for a view or scale without extent.
class MapTransform {
public:
    // `viewSize`: width and height of the view in pixels.
    MapTransform(const MapScale& scale, const SourceRect& rect, const Point& viewSize);

    Point ImageOf(const Position& position) const { return scale.ImageOf(position); }
    Point ViewOfImage(const Point& image) const;
    Point ViewOf(const Position& position) const { return ViewOfImage(ImageOf(position)); }
    Point ImageOfView(const Point& view) const;
    Position PositionOfView(const Point& view) const { return scale.PositionOf(ImageOfView(view)); }
    // In which direction a true course points in the view, in degrees; 0 is up. North is up on every chart.
    double ViewAngle(double trueCourseDegrees) const { return trueCourseDegrees; }
    // What the view shows of the image.
    PictureSection Section() const { return {rect.SX, rect.SY, rect.SW, rect.SH}; }
    // The way over the image, in its pixels, of a drag by as many pixels of the view.
    Point ImageDrag(const Point& drag) const { return drag; }
    // The window of the whole view, rounded to whole minutes.
    ViewBounds GetViewBounds() const;
    // The same as it is.
    ViewBounds WholeView() const;
    // Whether a view pixel is nearer to an edge than that, or beyond one; with a negative inset, farther
    // outside than that.
    bool IsBeyond(const Point& view, double insetPixels) const;
    double ViewWidth() const { return width; }
    double ViewHeight() const { return height; }
    bool operator==(const MapTransform&) const = default;

private:
    MapScale scale;
    SourceRect rect;
    double width, height;
    double perImageX, perImageY; // view pixels per image pixel
};

} // namespace ornivane
