#include "geo/Position.h"

#include <cmath>

namespace ornivane {

namespace {

double Decimal(double degMinValue) {
    const double whole = std::floor(degMinValue);
    return whole + (degMinValue - whole) * 10 / 6;
}

double Stored(double decimalDegrees) {
    const double whole = std::floor(decimalDegrees);
    return whole + (decimalDegrees - whole) * 6 / 10;
}

} // namespace

Latitude ToDecimalDegrees(StoredLatitude latitude) { return Latitude(Decimal(latitude.Value())); }
Longitude ToDecimalDegrees(StoredLongitude longitude) { return Longitude(Decimal(longitude.Value())); }
Position ToDecimalDegrees(const DegMin& stored) {
    return {ToDecimalDegrees(stored.Lat), ToDecimalDegrees(stored.Long)};
}

StoredLatitude ToDegMinValue(Latitude latitude) { return StoredLatitude(Stored(latitude.Degrees())); }
StoredLongitude ToDegMinValue(Longitude longitude) { return StoredLongitude(Stored(longitude.Degrees())); }
DegMin ToDegMinValue(const Position& position) {
    return {ToDegMinValue(position.Lat), ToDegMinValue(position.Long)};
}

} // namespace ornivane
