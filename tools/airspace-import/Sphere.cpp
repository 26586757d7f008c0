#include "airspace-import/Sphere.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ornivane {

namespace {

constexpr double Radian = std::numbers::pi / 180;

} // namespace

double Distance(const Position& from, const Position& to) {
    const double lat = std::sin((to.Lat - from.Lat) * Radian / 2);
    const double lon = std::sin((to.Long - from.Long) * Radian / 2);
    const double haversine = lat * lat + std::cos(from.Lat * Radian) * std::cos(to.Lat * Radian) * lon * lon;
    return 2 * std::asin(std::sqrt(std::min(1.0, haversine))) / Radian * 60;
}

double Bearing(const Position& from, const Position& to) {
    const double lat1 = from.Lat * Radian, lat2 = to.Lat * Radian, lon = (to.Long - from.Long) * Radian;
    const double north = std::cos(lat1) * std::sin(lat2) - std::sin(lat1) * std::cos(lat2) * std::cos(lon);
    const double bearing = std::atan2(std::sin(lon) * std::cos(lat2), north) / Radian;
    return std::fmod(bearing + 360, 360);
}

Position Destination(const Position& from, double bearing, double distance) {
    const double lat1 = from.Lat * Radian, angle = bearing * Radian, way = distance / 60 * Radian;
    const double sine = std::sin(lat1) * std::cos(way) + std::cos(lat1) * std::sin(way) * std::cos(angle);
    const double lat2 = std::asin(std::clamp(sine, -1.0, 1.0));
    const double lon = std::atan2(std::sin(angle) * std::sin(way) * std::cos(lat1),
                                  std::cos(way) - std::sin(lat1) * std::sin(lat2));
    return {lat2 / Radian, std::remainder(from.Long + lon / Radian, 360)};
}

} // namespace ornivane
