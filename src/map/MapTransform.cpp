#include "map/MapTransform.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"

namespace ornivane {

MapTransform::MapTransform(const MapScale& mapScale, const SourceRect& sourceRect, const Point& viewSize)
    : scale(mapScale), rect(sourceRect), width(viewSize.X), height(viewSize.Y),
      perImageX(CheckedDivide(width, sourceRect.SW)), perImageY(CheckedDivide(height, sourceRect.SH)) {}

Point MapTransform::ViewOfImage(const Point& image) const {
    return {(image.X - rect.SX) * perImageX, (image.Y - rect.SY) * perImageY};
}

Point MapTransform::ImageOfView(const Point& view) const {
    return {CheckedDivide(view.X, perImageX) + rect.SX, CheckedDivide(view.Y, perImageY) + rect.SY};
}

ViewBounds MapTransform::WholeView() const {
    const std::array<Position, 4> corners{PositionOfView({0, 0}), PositionOfView({width, 0}),
                                          PositionOfView({0, height}), PositionOfView({width, height})};
    const auto [south, north] = std::minmax_element(
        corners.begin(), corners.end(), [](const auto& a, const auto& b) { return a.Lat < b.Lat; });
    const auto [west, east] = std::minmax_element(
        corners.begin(), corners.end(), [](const auto& a, const auto& b) { return a.Long < b.Long; });
    return {ToDegMinValue(north->Lat), ToDegMinValue(west->Long), ToDegMinValue(south->Lat),
            ToDegMinValue(east->Long)};
}

ViewBounds MapTransform::GetViewBounds() const {
    const ViewBounds exact = WholeView();
    const auto minutes = [](auto edge) { return decltype(edge)(Round(edge.Value(), 2)); };
    return {minutes(exact.ViewNorth), minutes(exact.ViewWest), minutes(exact.ViewSouth),
            minutes(exact.ViewEast)};
}

bool MapTransform::IsBeyond(const Point& view, double insetPixels) const {
    return view.X < insetPixels || view.Y < insetPixels || view.X > width - insetPixels ||
           view.Y > height - insetPixels;
}

} // namespace ornivane
