#include "receiver/Flight.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>
#include <stdexcept>

namespace ornivane::receiver {

namespace {

constexpr double SubStep = 0.1; // s
// Of the cruising speed: below it the wheels stay on the runway.
constexpr double LiftOff = 0.55;
constexpr double DegreesPerNauticalMile = 1.0 / 60;
// A point is passed within this distance; an aeroplane that is past its side passes it up to one mile.
constexpr double OverPoint = 0.05, BesidePoint = 1.0; // NM

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }
double Degrees(double radians) { return radians * 180 / std::numbers::pi; }

// -180 to 180.
double TurnTo(double from, double to) { return std::remainder(to - from, 360.0); }

} // namespace

std::vector<FlightPoint> ReadPoints(std::istream& in) {
    std::vector<FlightPoint> points;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::vector<std::string> all;
        for (std::string word; words >> word;) all.push_back(word);
        if (all.empty()) continue;
        FlightPoint point;
        try {
            if (all.size() < 3) throw std::invalid_argument("");
            point.Lat = std::stod(all[all.size() - 2]);
            point.Long = std::stod(all.back());
        } catch (const std::logic_error&) {
            throw std::runtime_error("line " + std::to_string(number) + ": expected NAME LATITUDE LONGITUDE");
        }
        if (std::fabs(point.Lat) > 90 || std::fabs(point.Long) > 180)
            throw std::runtime_error("line " + std::to_string(number) + ": no such place on the Earth");
        for (std::size_t i = 0; i + 2 < all.size(); ++i) point.Name += (i ? " " : "") + all[i];
        points.push_back(point);
    }
    if (points.empty()) throw std::runtime_error("no points");
    return points;
}

Flight::Flight(std::vector<FlightPoint> flightPoints, const FlightSettings& flightSettings)
    : points(std::move(flightPoints)), settings(flightSettings) {
    state.Lat = points.front().Lat;
    state.Long = points.front().Long;
    state.AltitudeFeet = settings.GroundFeet;
    if (points.size() < 2) return;
    const double north = points[1].Lat - state.Lat;
    const double east = std::remainder(points[1].Long - state.Long, 360) * std::cos(Radians(state.Lat));
    state.TrackDegrees = std::fmod(Degrees(std::atan2(east, north)) + 360, 360);
}

void Flight::Step(double seconds) {
    for (; seconds > SubStep; seconds -= SubStep) StepOnce(SubStep);
    StepOnce(seconds);
}

void Flight::StepOnce(double seconds) {
    if (points.size() < 2 || state.Ended) return;
    const double shrink = std::cos(Radians(state.Lat));
    const double north = (points[next].Lat - state.Lat) / DegreesPerNauticalMile;
    const double east = std::remainder(points[next].Long - state.Long, 360) * shrink / DegreesPerNauticalMile;
    const double distance = std::hypot(north, east);
    const double bearing = Degrees(std::atan2(east, north));

    ChangeSpeed(seconds);
    ChangeAltitude(distance, seconds);
    if (!OnGround()) Steer(bearing, seconds);
    PassPoint(distance, bearing);

    const double miles = state.SpeedKnots * seconds / 3600;
    state.Lat += miles * std::cos(Radians(state.TrackDegrees)) * DegreesPerNauticalMile;
    state.Long += miles * std::sin(Radians(state.TrackDegrees)) * DegreesPerNauticalMile / shrink;
    if (state.Long > 180) state.Long -= 360;
    if (state.Long < -180) state.Long += 360;
}

void Flight::ChangeSpeed(double seconds) {
    const double wanted = landed ? 0 : settings.SpeedKnots;
    const double most = settings.AccelerationKnotsPerSecond * seconds;
    state.SpeedKnots += std::clamp(wanted - state.SpeedKnots, -most, most);
    state.Ended = landed && state.SpeedKnots <= 0;
}

void Flight::ChangeAltitude(double distance, double seconds) {
    if (landed || (OnGround() && state.SpeedKnots < LiftOff * settings.SpeedKnots)) return;
    const double descentMiles =
        (state.AltitudeFeet - settings.GroundFeet) / settings.DescentFeetPerMinute / 60 * settings.SpeedKnots;
    descending = descending || (OnLastLeg() && distance <= descentMiles);
    if (descending) {
        state.AltitudeFeet =
            std::max(settings.GroundFeet, state.AltitudeFeet - settings.DescentFeetPerMinute / 60 * seconds);
        landed = OnGround();
    } else {
        state.AltitudeFeet =
            std::min(settings.AltitudeFeet, state.AltitudeFeet + settings.ClimbFeetPerMinute / 60 * seconds);
    }
}

void Flight::Steer(double bearing, double seconds) {
    const double most = settings.TurnDegreesPerSecond * seconds;
    const double turn = std::clamp(TurnTo(state.TrackDegrees, bearing), -most, most);
    state.TrackDegrees = std::fmod(state.TrackDegrees + turn + 360, 360);
}

void Flight::PassPoint(double distance, double bearing) {
    const bool beside = distance < BesidePoint && std::fabs(TurnTo(state.TrackDegrees, bearing)) > 90;
    if (distance >= OverPoint && !beside) return;
    if (OnLastLeg()) {
        descending = true;
        return;
    }
    next = (next + 1) % points.size();
}

} // namespace ornivane::receiver
