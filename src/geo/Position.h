#pragma once

#include <compare>

namespace ornivane {

// A coordinate is of one axis and in one of two forms, and none turns into another by itself: a swapped pair
// does not compile. North and east are positive.
enum class Axis { Latitude, Longitude };

// Decimal degrees, the form of all arithmetic.
template <Axis axis>
class DecimalCoordinate {
public:
    constexpr DecimalCoordinate() = default;
    constexpr explicit DecimalCoordinate(double decimalDegrees) : degrees(decimalDegrees) {}
    constexpr double Degrees() const { return degrees; }
    double Radians() const; // by DegToRad
    constexpr DecimalCoordinate operator-() const { return DecimalCoordinate(-degrees); }
    constexpr auto operator<=>(const DecimalCoordinate& other) const { return degrees <=> other.degrees; }
    constexpr bool operator==(const DecimalCoordinate&) const = default;

private:
    double degrees = 0;
};

// DegMinValue, the form of stores, entry fields and exports: the whole part is degrees, the fraction minutes
// / 100, so that 47.40 is 47° 40'. Also its order is that of the stores.
template <Axis axis>
class StoredCoordinate {
public:
    constexpr StoredCoordinate() = default;
    constexpr explicit StoredCoordinate(double degMinValue) : value(degMinValue) {}
    constexpr double Value() const { return value; }
    constexpr auto operator<=>(const StoredCoordinate& other) const { return value <=> other.value; }
    constexpr bool operator==(const StoredCoordinate&) const = default;

private:
    double value = 0;
};

using Latitude = DecimalCoordinate<Axis::Latitude>;
using Longitude = DecimalCoordinate<Axis::Longitude>;
using StoredLatitude = StoredCoordinate<Axis::Latitude>;
using StoredLongitude = StoredCoordinate<Axis::Longitude>;

struct Position {
    Latitude Lat;
    Longitude Long;
    bool operator==(const Position&) const = default;
};

// A position in the stored form.
struct DegMin {
    StoredLatitude Lat;
    StoredLongitude Long;
    bool operator==(const DegMin&) const = default;
};

// DegMinValue to decimal degrees: Int(x) + (x - Int(x)) * 10 / 6, with Int the floor also below zero, so that
// -8.30 is -9 + 0.7 * 10 / 6, about -7.83. Stored data of the south and west rely on that.
Latitude ToDecimalDegrees(StoredLatitude latitude);
Longitude ToDecimalDegrees(StoredLongitude longitude);
Position ToDecimalDegrees(const DegMin& stored);

// Decimal degrees to DegMinValue, the inverse with the same floor.
StoredLatitude ToDegMinValue(Latitude latitude);
StoredLongitude ToDegMinValue(Longitude longitude);
DegMin ToDegMinValue(const Position& position);

} // namespace ornivane
