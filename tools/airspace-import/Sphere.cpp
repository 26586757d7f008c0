#include "airspace-import/Sphere.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ornivane {

constexpr double Radian = std::numbers::pi / 180;

double Distance(const Position& from, const Position& to) {
    const double lat1 = from.Lat.Degrees(), lat2 = to.Lat.Degrees();
    const double lat = std::sin((lat2 - lat1) * Radian / 2);
    const double lon = std::sin((to.Long.Degrees() - from.Long.Degrees()) * Radian / 2);
    const double haversine = lat * lat + std::cos(lat1 * Radian) * std::cos(lat2 * Radian) * lon * lon;
    return 2 * std::asin(std::sqrt(std::min(1.0, haversine))) / Radian * 60;
}

double Bearing(const Position& from, const Position& to) {
    const double lat1 = from.Lat.Degrees() * Radian, lat2 = to.Lat.Degrees() * Radian;
    const double lon = (to.Long.Degrees() - from.Long.Degrees()) * Radian;
    const double north = std::cos(lat1) * std::sin(lat2) - std::sin(lat1) * std::cos(lat2) * std::cos(lon);
    const double bearing = std::atan2(std::sin(lon) * std::cos(lat2), north) / Radian;
    return std::fmod(bearing + 360, 360);
}

Position Destination(const Position& from, double bearingDegrees, double distanceNM) {
    const double lat1 = from.Lat.Degrees() * Radian, angle = bearingDegrees * Radian;
    const double way = distanceNM / 60 * Radian;
    const double sine = std::sin(lat1) * std::cos(way) + std::cos(lat1) * std::sin(way) * std::cos(angle);
    const double lat2 = std::asin(std::clamp(sine, -1.0, 1.0));
    const double lon = std::atan2(std::sin(angle) * std::sin(way) * std::cos(lat1),
                                  std::cos(way) - std::sin(lat1) * std::sin(lat2));
    return {Latitude(lat2 / Radian), Longitude(std::remainder(from.Long.Degrees() + lon / Radian, 360))};
}

} // namespace ornivane
