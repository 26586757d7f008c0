#pragma once

#include <string>
#include <vector>

#include "airspace-import/Sphere.h"

namespace ornivane {

// A height limit.
struct Limit {
    enum class Reference { Sea, Ground, FlightLevel };

    static constexpr double Unlimited = 99999;

    double Feet = 0; // a flight level as its hundreds of feet: FL 95 is 9500
    Reference Of = Reference::Sea;
    bool operator==(const Limit&) const = default;
};

// A piece of an outline as a file describes it.
struct Element {
    enum class Kind { Point, Arc, Circle };

    Kind Is = Kind::Point;
    Position Start, End; // a point and a circle have their place in Start
    Position Centre;     // of an arc
    bool Clockwise = true;
    double Radius = 0; // of a circle, nautical miles
};

// A row of an outline as the store holds it, positions still in decimal degrees.
struct OutlineRow {
    enum class Draw { Point, Arc, Circle };

    Draw As = Draw::Point;
    // A point, the centre of a circle, the middle of an arc: what an airspace is found by.
    Position Place;
    double Radius = 0;           // of a circle, nautical miles
    Position Centre, Start, End; // of an arc
    bool Clockwise = true;
};

struct Airspace {
    std::string Name; // for reports only; the store has no place for it
    int Line = 0;     // of the file, where it begins
    std::string AspType;
    Limit Low, High;
    std::vector<OutlineRow> Outline;
};

} // namespace ornivane
