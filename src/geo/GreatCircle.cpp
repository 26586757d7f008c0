#include "geo/GreatCircle.h"

#include <cmath>
#include <utility>

#include "geo/NavigationMaths.h"

namespace ornivane {

namespace {

struct InRadians {
    explicit InRadians(const Position& position)
        : Lat(position.Lat.Radians()), Long(position.Long.Radians()) {}
    double Lat, Long;
    bool operator==(const InRadians&) const = default;
};

bool IsSet(const Position& position) { return position.Lat.Degrees() != 0 && position.Long.Degrees() != 0; }
bool IsSet(const InRadians& point) { return point.Lat != 0 && point.Long != 0; }

bool IsLeg(const Position& a, const Position& b) { return a != b && IsSet(a) && IsSet(b); }

double NauticalMiles(double angleRadians) { return angleRadians * 60 * 180 / Pi; }

double Angle(const InRadians& a, const InRadians& b) {
    return Arccos(std::sin(a.Lat) * std::sin(b.Lat) +
                  std::cos(b.Lat) * std::cos(a.Lat) * std::cos(b.Long - a.Long));
}

// The angle at one point between the meridian to the north and the way to the other, in degrees. On a
// meridian rounding carries the cosine to -1 and beyond in about half of all pairs. Arccos says 0 there; a
// course must not turn round.
double AngleAt(const InRadians& point, const InRadians& other, double angle) {
    // With an angle of 0 the quotient is infinite or no number: hence no checked division.
    const double cosine = (std::sin(other.Lat) - std::cos(angle) * std::sin(point.Lat)) /
                          (std::sin(angle) * std::cos(point.Lat));
    return cosine <= -1 ? 180 : RadToDeg(Arccos(cosine));
}

double Course(const InRadians& a, const InRadians& b, double angle) {
    if (a.Long < b.Long) return AngleAt(a, b, angle);
    return AngleAt(b, a, angle) + 180;
}

GreatCircle CircleOf(const InRadians& a, const InRadians& b) {
    const double angle = Angle(a, b);
    return {angle, NauticalMiles(angle), Course(a, b, angle)};
}

} // namespace

GreatCircle GreatCircle::Between(const Position& a, const Position& b) {
    return CircleOf(InRadians(a), InRadians(b));
}

double AngleBetween(const Position& a, const Position& b) { return Angle(InRadians(a), InRadians(b)); }

double CalcRouteDist(const Position& b, const Position& a) {
    return IsLeg(a, b) ? NauticalMiles(AngleBetween(a, b)) : 0;
}

std::optional<GreatCircle> PlannedLeg(const Position& from, const Position& to) {
    return IsLeg(from, to) ? std::optional(GreatCircle::Between(from, to)) : std::nullopt;
}

std::optional<GreatCircle> FlownLeg(const Position& aircraft, const Position& to) {
    const auto [a, b] = std::pair(InRadians(aircraft), InRadians(to));
    return a != b && IsSet(a) && IsSet(b) ? std::optional(CircleOf(a, b)) : std::nullopt;
}

} // namespace ornivane
