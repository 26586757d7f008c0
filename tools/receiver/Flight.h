#pragma once

#include <istream>
#include <string>
#include <vector>

namespace ornivane::receiver {

struct FlightPoint {
    std::string Name;
    double Lat = 0, Long = 0; // decimal degrees, north and east positive
};

// One point a line: name, latitude and longitude in decimal degrees, between blanks; the name may hold
// blanks. What follows a "#" is a comment. Throws std::runtime_error with the line's number when a line is
// anything else.
std::vector<FlightPoint> ReadPoints(std::istream& in);

struct FlightSettings {
    double SpeedKnots = 100;
    double AccelerationKnotsPerSecond = 2.5;
    double TurnDegreesPerSecond = 3; // the standard rate: a full circle in two minutes
    double ClimbFeetPerMinute = 700;
    double DescentFeetPerMinute = 500;
    double AltitudeFeet = 3500;
    double GroundFeet = 300; // at the first and the last point
    bool Loop = false;       // from the last point to the first, without landing
};

// An aeroplane that flies from point to point without wind: rolls and takes off at the first, turns at the
// standard rate over each, descends towards the last and rolls out behind it.
class Flight {
public:
    struct State {
        double Lat = 0, Long = 0;
        double SpeedKnots = 0;
        double TrackDegrees = 0; // 0 to 360
        double AltitudeFeet = 0;
        bool Ended = false; // stands after the landing
    };

    // At least one point; with a single one the aeroplane stands there for ever.
    Flight(std::vector<FlightPoint> points, const FlightSettings& settings);

    void Step(double seconds);
    const State& Now() const { return state; }
    std::size_t NextPoint() const { return next; }

private:
    void StepOnce(double seconds);
    void Steer(double bearing, double seconds);
    void ChangeSpeed(double seconds);
    void ChangeAltitude(double distance, double seconds);
    void PassPoint(double distance, double bearing);
    bool OnLastLeg() const { return !settings.Loop && next + 1 == points.size(); }
    bool OnGround() const { return state.AltitudeFeet <= settings.GroundFeet; }

    std::vector<FlightPoint> points;
    FlightSettings settings;
    State state;
    std::size_t next = 1;
    bool descending = false;
    bool landed = false;
};

} // namespace ornivane::receiver
