#pragma once

#include <compare>

#include "geo/NavigationMaths.h"

namespace ornivane {

// A coordinate is of one axis and in one of two forms, and none turns into another by itself: a swapped pair
// does not compile. North and east are positive.
enum class Axis { Latitude, Longitude };

// Decimal degrees, the form of all arithmetic; or DegMinValue, the form of stores, entry fields and exports:
// the whole part is degrees, the fraction minutes / 100, so that 47.40 is 47° 40'. Also its order is that of
// the stores.
enum class CoordinateForm { DecimalDegrees, DegMinValue };

template <Axis axis, CoordinateForm form>
class AxisCoordinate {
public:
    constexpr AxisCoordinate() = default;
    constexpr explicit AxisCoordinate(double inThatForm) : number(inThatForm) {}
    constexpr double Degrees() const requires(form == CoordinateForm::DecimalDegrees) { return number; }
    double Radians() const requires(form == CoordinateForm::DecimalDegrees) { return DegToRad(number); }
    constexpr AxisCoordinate operator-() const requires(form == CoordinateForm::DecimalDegrees) {
        return AxisCoordinate(-number);
    }
    constexpr double Value() const requires(form == CoordinateForm::DegMinValue) { return number; }
    constexpr auto operator<=>(const AxisCoordinate&) const = default;

private:
    double number = 0;
};

template <Axis axis>
using StoredCoordinate = AxisCoordinate<axis, CoordinateForm::DegMinValue>;
using Latitude = AxisCoordinate<Axis::Latitude, CoordinateForm::DecimalDegrees>;
using Longitude = AxisCoordinate<Axis::Longitude, CoordinateForm::DecimalDegrees>;
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
