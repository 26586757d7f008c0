#include "map/MapTransform.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "geo/NavigationMaths.h"

namespace ornivane {

MapTransform::MapTransform(const MapScale& mapScale, const SourceRect& sourceRect, double viewWidth,
                           double viewHeight)
    : scale(mapScale), rect(sourceRect), width(viewWidth), height(viewHeight),
      perImageX(CheckedDivide(viewWidth, sourceRect.SW)),
      perImageY(CheckedDivide(viewHeight, sourceRect.SH)) {}

Point MapTransform::ImageOf(const Position& position) const {
    return {(position.Long - scale.Links) * 10 * scale.PixPerTenthLong,
            scale.Höhe - (position.Lat - scale.Unten) * 10 * scale.PixPerTenthLat};
}

Point MapTransform::ViewOfImage(const Point& image) const {
    return {(image.X - rect.SX) * perImageX, (image.Y - rect.SY) * perImageY};
}

Point MapTransform::ImageOfView(const Point& view) const {
    return {CheckedDivide(view.X, perImageX) + rect.SX, CheckedDivide(view.Y, perImageY) + rect.SY};
}

Position MapTransform::PositionOfView(const Point& view) const {
    const Point image = ImageOfView(view);
    return {scale.Unten - CheckedDivide(image.Y - scale.Höhe, scale.PixPerTenthLat * 10),
            scale.Links + CheckedDivide(image.X, scale.PixPerTenthLong * 10)};
}

ViewBounds MapTransform::Bounds(double x1, double y1, double x2, double y2) const {
    const std::array<Position, 4> corners{PositionOfView({x1, y1}), PositionOfView({x2, y1}),
                                          PositionOfView({x1, y2}), PositionOfView({x2, y2})};
    const auto [south, north] = std::minmax_element(
        corners.begin(), corners.end(), [](const auto& a, const auto& b) { return a.Lat < b.Lat; });
    const auto [west, east] = std::minmax_element(
        corners.begin(), corners.end(), [](const auto& a, const auto& b) { return a.Long < b.Long; });
    return {ToDegMinValue(north->Lat), ToDegMinValue(west->Long), ToDegMinValue(south->Lat),
            ToDegMinValue(east->Long)};
}

ViewBounds MapTransform::GetViewBounds(double x1, double y1, double x2, double y2) const {
    const ViewBounds exact = Bounds(x1, y1, x2, y2);
    return {Round(exact.ViewNorth, 2), Round(exact.ViewWest, 2), Round(exact.ViewSouth, 2),
            Round(exact.ViewEast, 2)};
}

} // namespace ornivane
